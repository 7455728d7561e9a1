// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace Tavro::AppLogic {

/**
 * Direction of the camera head, and calibration of the camera in use. The host implements it. Lives
 * on the thread of the host's services.
 *
 * ClipInfoHandler writes the angles unchanged.
 */
class Q_DECL_EXPORT PanTiltProvider : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Rotation about the vertical axis of the pipe, in degrees. */
    virtual double getPan() const = 0;
    /** Rotation about the cross axis of the pipe, in degrees. */
    virtual double getTilt() const = 0;
    /** Constant of the laser calibration. The clip information file has it divided by 100. */
    virtual double getCameraConstant() const = 0;
    /** Offset of the laser calibration. The clip information file has it divided by 100000. */
    virtual double getDistanceOffset() const = 0;

Q_SIGNALS:
    /** Emitted when getPan() has changed. @p pan is in degrees. */
    void panChanged(double pan);
    /** Emitted when getTilt() has changed. @p tilt is in degrees. */
    void tiltChanged(double tilt);
};

} // namespace Tavro::AppLogic
