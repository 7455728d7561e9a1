// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>

namespace Tavro::Base {

/**
 * Enumerations by which the host classifies user messages and external devices.
 *
 * Has no state. The host registers the type so that QML can use the keys. Where two keys share a
 * value, QMetaEnum::valueToKey() returns the key that is declared first.
 */
class OVO_SHARED_EXPORT UiMessageTypes
{
    Q_GADGET

public:
    /** Subject of a message. The host defines its own categories from 0 to 10. */
    enum MsgCategory {
        General = 0, /**< no particular subject */
        ExternalCategoryFirst = 0, /**< lowest category of the host */
        ExternalCategoryLast = 10, /**< highest category of the host */
    };
    Q_ENUM(MsgCategory)

    /** Severity of a message, by which it is shown. */
    enum MsgLevel {
        Error = 0, /**< something failed */
        Warning = 1, /**< something needs attention */
        Question = 2, /**< the user has to decide */
        Info = 3, /**< information */
        Debug = 4, /**< for developers */
    };
    Q_ENUM(MsgLevel)

    /** Answer of the user to a message. */
    enum MsgResult {
        NoResult = 0, /**< not answered yet */
        Accepted = 1, /**< confirmed */
        Rejected = 2, /**< declined */
        CustomActiontriggered = 3, /**< the message's own action; QML uses this spelling */
    };
    Q_ENUM(MsgResult)

    /** An external device. The host defines its own devices from 0 to 40. */
    enum DeviceType {
        WrongDevice = -1, /**< another device than the expected one is connected */
        NoDevice = 0, /**< no device is connected */
        ExternalDeviceFirst = 0, /**< lowest device of the host */
        ExternalDeviceLast = 40, /**< highest device of the host */
    };
    Q_ENUM(DeviceType)
};

} // namespace Tavro::Base
