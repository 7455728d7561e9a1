// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CVideoRecorder.h"

namespace Tavro::FieldHost {

/** A recorder that makes no video, but keeps its clock. */
class SimulatedRecorder : public Multimedia::CVideoRecorder
{
    Q_OBJECT

public:
    /** The host's numbers for what the recorder is doing; 1 is not in use. */
    enum State {
        Idle = 0,
        Recording = 2,
        Paused = 3,
    };
    Q_ENUM(State)

    using CVideoRecorder::CVideoRecorder;

    int state() const override { return m_state; }
    qint64 duration() const override { return m_duration; }

    /** Begins a video: duration 0. Nothing when one is under way. */
    void record();
    /** Halts the clock of the video that is being recorded. */
    void pause();
    /** Goes on after pause(). */
    void resume();
    /** Ends the video. Its duration stays readable until the next one begins. */
    void stop();

    /** Lets @p milliseconds pass: the video grows by them while it is being recorded. */
    void advance(qint64 milliseconds);

private:
    void setState(State state);

    State m_state = Idle;
    qint64 m_duration = 0;
};

} // namespace Tavro::FieldHost
