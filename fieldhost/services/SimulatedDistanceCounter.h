// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CDistanceCounter.h"

namespace Tavro::FieldHost {

/** A distance counter that shows what it is told. */
class SimulatedDistanceCounter : public AppLogic::CDistanceCounter
{
    Q_OBJECT

public:
    using CDistanceCounter::CDistanceCounter;

    double distanceValue() const override { return m_distance; }
    /** Shows @p distance, in metres; announced when it differs. */
    void setDistance(double distance)
    {
        if (distance != m_distance) {
            m_distance = distance;
            Q_EMIT distanceValueChanged(m_distance);
        }
    }

private:
    double m_distance = 0;
};

} // namespace Tavro::FieldHost
