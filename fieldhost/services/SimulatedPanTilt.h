// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/PanTiltProvider.h"

namespace Tavro::FieldHost {

/** A camera head that looks where it is told. Angles in degrees. */
class SimulatedPanTilt : public AppLogic::PanTiltProvider
{
    Q_OBJECT

public:
    using PanTiltProvider::PanTiltProvider;

    double getPan() const override { return m_pan; }
    double getTilt() const override { return m_tilt; }
    double getCameraConstant() const override { return m_cameraConstant; }
    double getDistanceOffset() const override { return m_distanceOffset; }

    /** Turns the head; announced when it differs. */
    void setPan(double pan)
    {
        if (pan != m_pan) {
            m_pan = pan;
            Q_EMIT panChanged(m_pan);
        }
    }
    /** Tilts the head; announced when it differs. */
    void setTilt(double tilt)
    {
        if (tilt != m_tilt) {
            m_tilt = tilt;
            Q_EMIT tiltChanged(m_tilt);
        }
    }
    /** Replaces the calibration of the camera in use, which nothing announces. */
    void setCalibration(double cameraConstant, double distanceOffset)
    {
        m_cameraConstant = cameraConstant;
        m_distanceOffset = distanceOffset;
    }

private:
    double m_pan = 0;
    double m_tilt = 0;
    double m_cameraConstant = 0;
    double m_distanceOffset = 0;
};

} // namespace Tavro::FieldHost
