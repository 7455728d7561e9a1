// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/services/FieldSettings.h"
#include "fieldhost/services/SimulatedCrawler.h"
#include "host/AppState.h"
#include "host/CoreApplication.h"

namespace Tavro::FieldHost {

/**
 * The host as the library sees it: settings, state and the simulated crawler.
 *
 * At most one exists at a time. The static instance() functions of the host classes answer with
 * its parts while it lives, and with null before and after. Belongs to the main thread.
 */
class FieldApplication : public AppLogic::CoreApplication
{
    Q_DISABLE_COPY(FieldApplication)

public:
    FieldApplication();
    ~FieldApplication() override;

    /** The one that lives; null when none does. */
    static FieldApplication *instance();

    AppLogic::CDistanceCounter *sectionDistanceCounter() const override;
    AppLogic::PanTiltProvider *panTiltProvider() const override;

    /** What CApplicationSettings::instance() answers. */
    FieldSettings &settings() { return m_settings; }
    /** What AppState::instance() answers. */
    virtual AppState &state() { return m_state; }
    /** The crawler with its camera and recorder. */
    SimulatedCrawler &crawler() { return m_crawler; }

    /** Has the inspector enter an observation: announces it and returns it. */
    Database::CDomainObjectPointer createObservation();

private:
    FieldSettings m_settings;
    AppState m_state;
    SimulatedCrawler m_crawler;
};

} // namespace Tavro::FieldHost
