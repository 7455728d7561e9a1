#pragma once

#include "host/CVideoCreationHandler.h"

namespace Tavro::FieldHost {

/** The creation of one video at a time, for an object of the project. */
class SimulatedVideoCreation : public AppLogic::CVideoCreationHandler
{
    Q_OBJECT

public:
    /** The host's numbers for the stage of a creation. */
    enum State {
        NoVideo = 0,
        Creating = 1,
    };
    Q_ENUM(State)

    using CVideoCreationHandler::CVideoCreationHandler;

    int state() const override;
    Multimedia::CVideoRecorder *videoRecorder() const override;
    Database::CDomainObjectPointer currentSharedItem() const override;

    /** The recorder to use, not owned; null when the device has none. */
    void setVideoRecorder(Multimedia::CVideoRecorder *recorder);
    /** Begins the creation of a video that belongs to @p item. */
    void begin(const Database::CDomainObjectPointer &item);
    /** The video is stored, or given up. */
    void end();

private:
    State m_state = NoVideo;
    Multimedia::CVideoRecorder *m_recorder = nullptr;
    Database::CDomainObjectPointer m_item;
};

} // namespace Tavro::FieldHost
