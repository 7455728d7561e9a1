// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

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

    int state() const override { return m_state; }
    Multimedia::CVideoRecorder *videoRecorder() const override { return m_recorder; }
    Database::CDomainObjectPointer currentSharedItem() const override { return m_item; }

    /** The recorder to use, not owned; null when the device has none. */
    void setVideoRecorder(Multimedia::CVideoRecorder *recorder) { m_recorder = recorder; }
    /** Begins the creation of a video that belongs to @p item. */
    void begin(const Database::CDomainObjectPointer &item)
    {
        m_item = item;
        m_state = Creating;
    }
    /** The video is stored, or given up. */
    void end()
    {
        m_state = NoVideo;
        m_item.reset();
    }

private:
    State m_state = NoVideo;
    Multimedia::CVideoRecorder *m_recorder = nullptr;
    Database::CDomainObjectPointer m_item;
};

} // namespace Tavro::FieldHost
