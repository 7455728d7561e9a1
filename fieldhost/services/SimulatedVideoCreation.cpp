#include "fieldhost/services/SimulatedVideoCreation.h"

namespace Tavro::FieldHost {

int SimulatedVideoCreation::state() const
{
    return m_state;
}

Multimedia::CVideoRecorder *SimulatedVideoCreation::videoRecorder() const
{
    return m_recorder;
}

Database::CDomainObjectPointer SimulatedVideoCreation::currentSharedItem() const
{
    return m_item;
}

void SimulatedVideoCreation::setVideoRecorder(Multimedia::CVideoRecorder *recorder)
{
    m_recorder = recorder;
}

void SimulatedVideoCreation::begin(const Database::CDomainObjectPointer &item)
{
    m_item = item;
    m_state = Creating;
}

void SimulatedVideoCreation::end()
{
    m_state = NoVideo;
    m_item.reset();
}

} // namespace Tavro::FieldHost
