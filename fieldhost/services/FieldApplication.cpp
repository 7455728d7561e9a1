// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/FieldApplication.h"

#include "host/CPipeObservationObject.h"

#include <QMetaType>

namespace Tavro::FieldHost {

namespace {
FieldApplication *s_living = nullptr;
}

FieldApplication::FieldApplication()
{
    Q_ASSERT_X(!s_living, "FieldApplication", "there is one already");
    s_living = this;
    // by this name the signal carries it across threads
    qRegisterMetaType<Database::CDomainObjectPointer>("Tavro::Database::CDomainObjectPointer");
}

FieldApplication::~FieldApplication()
{
    s_living = nullptr;
}

FieldApplication *FieldApplication::instance()
{
    return s_living;
}

AppLogic::CDistanceCounter *FieldApplication::sectionDistanceCounter() const
{
    return m_crawler.distanceCounter();
}

AppLogic::PanTiltProvider *FieldApplication::panTiltProvider() const
{
    return m_crawler.panTilt();
}

Database::CDomainObjectPointer FieldApplication::createObservation()
{
    Database::CDomainObjectPointer observation(new Database::CPipeObservationObject);
    Q_EMIT state().observationCreated(observation);
    return observation;
}

} // namespace Tavro::FieldHost

Tavro::AppLogic::CoreApplication *Tavro::AppLogic::CoreApplication::instance()
{
    return FieldHost::FieldApplication::instance();
}

CApplicationSettings *CApplicationSettings::instance()
{
    auto *application = Tavro::FieldHost::FieldApplication::instance();
    return application ? &application->settings() : nullptr;
}
