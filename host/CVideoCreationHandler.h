// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CDomainObject.h"

#include <QObject>

namespace Tavro::Multimedia {
class CVideoRecorder;
}

namespace Tavro::AppLogic {

/**
 * Creates a video and stores it in the database. The host implements it. Lives on the thread of the
 * host's services.
 */
class Q_DECL_EXPORT CVideoCreationHandler : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Stage of the creation. The library uses 1: a video is being created. */
    virtual int state() const = 0;
    /** Recorder in use. Owned by the host. Null when there is none. */
    virtual Tavro::Multimedia::CVideoRecorder *videoRecorder() const = 0;
    /** Object to which the video belongs. Null when there is none. */
    virtual Tavro::Database::CDomainObjectPointer currentSharedItem() const = 0;
};

} // namespace Tavro::AppLogic
