#pragma once

#include "host/CDomainObject.h"

#include <QObject>

namespace Tavro::Multimedia {
class CVideoRecorder;
}

namespace Tavro::AppLogic {

/** The host's handling of one video, from its creation to its place in the database. */
class Q_DECL_EXPORT CVideoCreationHandler : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Stage of the creation, as the host numbers it. */
    virtual int state() const = 0;
    /** Recorder in use, owned by the host; null when there is none. */
    virtual Tavro::Multimedia::CVideoRecorder *videoRecorder() const = 0;
    /** Object that the video belongs to; null when there is none. */
    virtual Tavro::Database::CDomainObjectPointer currentSharedItem() const = 0;
};

} // namespace Tavro::AppLogic
