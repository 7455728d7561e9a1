// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/SimulatedRecorder.h"

namespace Tavro::FieldHost {

void SimulatedRecorder::record()
{
    if (m_state != Idle) {
        return;
    }
    m_duration = 0;
    setState(Recording);
}

void SimulatedRecorder::pause()
{
    if (m_state == Recording) {
        setState(Paused);
    }
}

void SimulatedRecorder::resume()
{
    if (m_state == Paused) {
        setState(Recording);
    }
}

void SimulatedRecorder::stop()
{
    setState(Idle);
}

void SimulatedRecorder::advance(qint64 milliseconds)
{
    if (m_state == Recording) {
        m_duration += milliseconds;
    }
}

void SimulatedRecorder::setState(State state)
{
    if (state == m_state) {
        return;
    }
    m_state = state;
    Q_EMIT stateChanged();
}

} // namespace Tavro::FieldHost
