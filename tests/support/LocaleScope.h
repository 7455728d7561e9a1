// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/GlobalLocaleData.h"
#include "tests/support/FakeCatalog.h"
#include "tests/support/LogRecorder.h"

namespace Test {

/**
 * A device set to one locale, and no project open, for as long as the object lives. What the test
 * does to the project's data ends with it.
 */
class LocaleScope
{
public:
    explicit LocaleScope(const QLocale &deviceLocale)
    {
        closeProject();
        Tavro::Shared::GlobalLocaleData::instance()->setDeviceLocale(deviceLocale);
    }

    ~LocaleScope()
    {
        closeProject();
        Tavro::Shared::GlobalLocaleData::instance()->setDeviceLocale(m_before);
    }

    LocaleScope(const LocaleScope &) = delete;
    LocaleScope &operator=(const LocaleScope &) = delete;

private:
    // template, unit and locale are three things, and closing a project unsets only the last
    static void closeProject()
    {
        const LogRecorder silence;
        FakeTemplateManager nothing;
        auto *project = Tavro::Shared::CProjectLocaleData::instance();
        project->onNewTemplateLoaded(QString(), nothing, FakeRegistry(), QString(), QString(),
                                     QString());
        project->setUnitType(Tavro::Base::DistanceUnit::Undefined);
        project->unsetLocale();
    }

    QLocale m_before;
};

} // namespace Test
