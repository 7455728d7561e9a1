// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CDomainObject.h"

#include <QObject>

namespace Tavro {

/**
 * Events of the host application. Defined by the host.
 *
 * ClipInfoHandler connects to it. It lives on the thread of the host's services.
 */
class Q_DECL_EXPORT AppState : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /**
     * The process-wide instance. Never null in a host that uses ClipInfoHandler, its only caller.
     * The host defines this function and owns the object.
     */
    static AppState *instance();

Q_SIGNALS:
    /** Emitted when the user has entered an observation. @p object is already stored. */
    void observationCreated(Tavro::Database::CDomainObjectPointer object);
};

} // namespace Tavro
