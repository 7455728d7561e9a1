#include "fieldhost/services/SimulatedCrawler.h"

namespace Tavro::FieldHost {

namespace {
constexpr int s_frameInterval = 40; // ms: the 25 frames a second of the camera
}

SimulatedCrawler::SimulatedCrawler(QObject *parent)
    : QObject(parent)
    , m_distanceCounter(new SimulatedDistanceCounter(this))
    , m_panTilt(new SimulatedPanTilt(this))
    , m_recorder(new SimulatedRecorder(this))
    , m_videoCreation(new SimulatedVideoCreation(this))
{
    m_videoCreation->setVideoRecorder(m_recorder);
    m_timer.setInterval(s_frameInterval);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &SimulatedCrawler::followRealTime);
}

SimulatedDistanceCounter *SimulatedCrawler::distanceCounter() const
{
    return m_distanceCounter;
}

SimulatedPanTilt *SimulatedCrawler::panTilt() const
{
    return m_panTilt;
}

SimulatedRecorder *SimulatedCrawler::recorder() const
{
    return m_recorder;
}

SimulatedVideoCreation *SimulatedCrawler::videoCreation() const
{
    return m_videoCreation;
}

double SimulatedCrawler::speed() const
{
    return m_speed;
}

void SimulatedCrawler::setSpeed(double speed)
{
    m_speed = speed;
}

void SimulatedCrawler::tick(qint64 milliseconds)
{
    // the recorder first, so that whoever hears of the new distance finds the time it belongs to
    m_recorder->advance(milliseconds);
    const double seconds = static_cast<double>(milliseconds) / 1000;
    m_distanceCounter->setDistance(m_distanceCounter->distanceValue() + m_speed * seconds);
}

void SimulatedCrawler::start()
{
    if (m_timer.isActive()) {
        return;
    }
    m_sinceTick.start();
    m_timer.start();
}

void SimulatedCrawler::stop()
{
    if (!m_timer.isActive()) {
        return;
    }
    m_timer.stop();
    tick(m_sinceTick.elapsed());
}

void SimulatedCrawler::followRealTime()
{
    tick(m_sinceTick.restart());
}

} // namespace Tavro::FieldHost
