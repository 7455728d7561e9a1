// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/SimulatedCrawler.h"

namespace Tavro::FieldHost {

SimulatedCrawler::SimulatedCrawler(QObject *parent)
    : QObject(parent)
    , m_distanceCounter(new SimulatedDistanceCounter(this))
    , m_panTilt(new SimulatedPanTilt(this))
    , m_recorder(new SimulatedRecorder(this))
    , m_videoCreation(new SimulatedVideoCreation(this))
{
    m_videoCreation->setVideoRecorder(m_recorder);
}

void SimulatedCrawler::tick(qint64 milliseconds)
{
    // the recorder first, so that whoever hears of the new distance finds the time it belongs to
    m_recorder->advance(milliseconds);
    const double seconds = static_cast<double>(milliseconds) / 1000;
    m_distanceCounter->setDistance(m_distanceCounter->distanceValue() + m_speed * seconds);
}

} // namespace Tavro::FieldHost
