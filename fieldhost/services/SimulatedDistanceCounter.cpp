#include "fieldhost/services/SimulatedDistanceCounter.h"

namespace Tavro::FieldHost {

double SimulatedDistanceCounter::distanceValue() const
{
    return m_distance;
}

void SimulatedDistanceCounter::setDistance(double distance)
{
    if (distance == m_distance) {
        return;
    }
    m_distance = distance;
    Q_EMIT distanceValueChanged(m_distance);
}

} // namespace Tavro::FieldHost
