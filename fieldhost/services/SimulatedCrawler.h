// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/services/SimulatedDistanceCounter.h"
#include "fieldhost/services/SimulatedPanTilt.h"
#include "fieldhost/services/SimulatedRecorder.h"
#include "fieldhost/services/SimulatedVideoCreation.h"

#include <QObject>

namespace Tavro::FieldHost {

/**
 * A crawler with camera and recorder, all of which follow one clock.
 *
 * The clock moves by tick() alone, so whoever calls it decides what time it is.
 */
class SimulatedCrawler : public QObject
{
    Q_OBJECT

public:
    explicit SimulatedCrawler(QObject *parent = nullptr);

    /** The parts are the crawler's own and live as long as it does. */
    SimulatedDistanceCounter *distanceCounter() const { return m_distanceCounter; }
    SimulatedPanTilt *panTilt() const { return m_panTilt; }
    SimulatedRecorder *recorder() const { return m_recorder; }
    SimulatedVideoCreation *videoCreation() const { return m_videoCreation; }

    /** Metres per second; negative when it backs out of the pipe. */
    double speed() const { return m_speed; }
    /** Drives at @p speed from now on. */
    void setSpeed(double speed) { m_speed = speed; }

    /** Lets @p milliseconds pass: the video grows first, then the crawler has moved. */
    void tick(qint64 milliseconds);

private:
    SimulatedDistanceCounter *const m_distanceCounter; // children of this object
    SimulatedPanTilt *const m_panTilt;
    SimulatedRecorder *const m_recorder;
    SimulatedVideoCreation *const m_videoCreation;
    double m_speed = 0;
};

} // namespace Tavro::FieldHost
