#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>

namespace Tavro::Base {

/**
 * Enumerations by which the host classifies user messages and external devices.
 *
 * Carries no state; the host registers it so that QML can name the keys. Where two keys share
 * a value, the value reads back as the key declared first.
 */
class OVO_SHARED_EXPORT UiMessageTypes
{
    Q_GADGET

public:
    /** What a message is about; 0 to 10 are for the host's external categories. */
    enum MsgCategory {
        General = 0, /**< nothing in particular */
        ExternalCategoryFirst = 0, /**< first number of the host's own categories */
        ExternalCategoryLast = 10, /**< last number of the host's own categories */
    };
    Q_ENUM(MsgCategory)

    /** How a message is shown. */
    enum MsgLevel {
        Error = 0, /**< something failed */
        Warning = 1, /**< something needs attention */
        Question = 2, /**< the user is to decide */
        Info = 3, /**< something is worth knowing */
        Debug = 4, /**< for developers */
    };
    Q_ENUM(MsgLevel)

    /** How the user answered a message. */
    enum MsgResult {
        NoResult = 0, /**< not answered yet */
        Accepted = 1, /**< confirmed */
        Rejected = 2, /**< declined */
        CustomActiontriggered = 3, /**< the message's own action; QML names the key so spelled */
    };
    Q_ENUM(MsgResult)

    /** An external device; 0 to 40 are for the host's devices. */
    enum DeviceType {
        WrongDevice = -1, /**< a device is there, but not the one wanted */
        NoDevice = 0, /**< nothing is connected */
        ExternalDeviceFirst = 0, /**< first number of the host's own devices */
        ExternalDeviceLast = 40, /**< last number of the host's own devices */
    };
    Q_ENUM(DeviceType)
};

} // namespace Tavro::Base
