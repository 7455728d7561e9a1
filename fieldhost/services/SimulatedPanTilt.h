#pragma once

#include "host/PanTiltProvider.h"

namespace Tavro::FieldHost {

/** A camera head that looks where it is told. Angles in degrees. */
class SimulatedPanTilt : public AppLogic::PanTiltProvider
{
    Q_OBJECT

public:
    using PanTiltProvider::PanTiltProvider;

    double getPan() const override;
    double getTilt() const override;
    double getCameraConstant() const override;
    double getDistanceOffset() const override;

    /** Turns the head; announced when it differs. */
    void setPan(double pan);
    /** Tilts the head; announced when it differs. */
    void setTilt(double tilt);
    /** Replaces the calibration of the camera in use, which nothing announces. */
    void setCalibration(double cameraConstant, double distanceOffset);

private:
    double m_pan = 0;
    double m_tilt = 0;
    double m_cameraConstant = 0;
    double m_distanceOffset = 0;
};

} // namespace Tavro::FieldHost
