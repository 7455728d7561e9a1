#pragma once

#include <QObject>

namespace Tavro::AppLogic {

/** Direction in which the camera head looks, and the constants of the camera in use. */
class Q_DECL_EXPORT PanTiltProvider : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Rotation about the pipe's vertical axis, in degrees. */
    virtual double getPan() const = 0;
    /** Rotation about the pipe's cross axis, in degrees. */
    virtual double getTilt() const = 0;
    /** The camera's calibration constant. */
    virtual double getCameraConstant() const = 0;
    /** Distance between the camera and the point the distance counter measures, in metres. */
    virtual double getDistanceOffset() const = 0;

Q_SIGNALS:
    /** The head has turned; @p pan in degrees. */
    void panChanged(double pan);
    /** The head has tilted; @p tilt in degrees. */
    void tiltChanged(double tilt);
};

} // namespace Tavro::AppLogic
