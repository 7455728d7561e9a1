// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace Tavro::AppLogic {

/**
 * Measures the distance that the crawler has travelled in the inspected section. The host
 * implements it. Lives on the thread of the host's services.
 */
class Q_DECL_EXPORT CDistanceCounter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Present distance in metres. */
    virtual double distanceValue() const = 0;

Q_SIGNALS:
    /** Emitted when the distance has changed. @p distance is in metres. */
    void distanceValueChanged(double distance);
};

} // namespace Tavro::AppLogic
