#include "fieldhost/services/SimulatedPanTilt.h"

namespace Tavro::FieldHost {

double SimulatedPanTilt::getPan() const
{
    return m_pan;
}

double SimulatedPanTilt::getTilt() const
{
    return m_tilt;
}

double SimulatedPanTilt::getCameraConstant() const
{
    return m_cameraConstant;
}

double SimulatedPanTilt::getDistanceOffset() const
{
    return m_distanceOffset;
}

void SimulatedPanTilt::setPan(double pan)
{
    if (pan == m_pan) {
        return;
    }
    m_pan = pan;
    Q_EMIT panChanged(m_pan);
}

void SimulatedPanTilt::setTilt(double tilt)
{
    if (tilt == m_tilt) {
        return;
    }
    m_tilt = tilt;
    Q_EMIT tiltChanged(m_tilt);
}

void SimulatedPanTilt::setCalibration(double cameraConstant, double distanceOffset)
{
    m_cameraConstant = cameraConstant;
    m_distanceOffset = distanceOffset;
}

} // namespace Tavro::FieldHost
