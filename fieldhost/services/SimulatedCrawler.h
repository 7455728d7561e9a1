#pragma once

#include "fieldhost/services/SimulatedDistanceCounter.h"
#include "fieldhost/services/SimulatedPanTilt.h"
#include "fieldhost/services/SimulatedRecorder.h"
#include "fieldhost/services/SimulatedVideoCreation.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace Tavro::FieldHost {

/**
 * A crawler with camera and recorder, all of which follow one clock.
 *
 * The clock moves by tick() alone, so a test decides what time it is; start() has it follow the
 * real time instead.
 */
class SimulatedCrawler : public QObject
{
    Q_OBJECT

public:
    explicit SimulatedCrawler(QObject *parent = nullptr);

    /** The parts are the crawler's own and live as long as it does. */
    SimulatedDistanceCounter *distanceCounter() const;
    SimulatedPanTilt *panTilt() const;
    SimulatedRecorder *recorder() const;
    SimulatedVideoCreation *videoCreation() const;

    /** Metres per second; negative when it backs out of the pipe. */
    double speed() const;
    /** Drives at @p speed from now on. */
    void setSpeed(double speed);

    /** Lets @p milliseconds pass: the video grows first, then the crawler has moved. */
    void tick(qint64 milliseconds);

    /** Has the clock follow the real time, in steps of some 40 ms. */
    void start();
    /** Halts the clock. */
    void stop();

private:
    void followRealTime();

    SimulatedDistanceCounter *const m_distanceCounter; // children of this object
    SimulatedPanTilt *const m_panTilt;
    SimulatedRecorder *const m_recorder;
    SimulatedVideoCreation *const m_videoCreation;
    double m_speed = 0;
    QTimer m_timer;
    QElapsedTimer m_sinceTick;
};

} // namespace Tavro::FieldHost
