// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/GlobalLocaleData.h"

#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/detail/OmitGroupSeparator.h"

using Tavro::Base::DistanceUnit;

namespace Tavro::Shared {

GlobalLocaleData *GlobalLocaleData::m_pInstance = nullptr;

class Q_DECL_HIDDEN GlobalLocaleData::Private
{
public:
    const CProjectLocaleData &project = *CProjectLocaleData::instance();
    QLocale deviceLocale;
};

GlobalLocaleData::GlobalLocaleData()
    : d(std::make_unique<Private>())
{
    connect(&d->project, &CProjectLocaleData::localeChanged, this,
            &GlobalLocaleData::projectLocaleChanged);
}

GlobalLocaleData::~GlobalLocaleData() = default;

GlobalLocaleData *GlobalLocaleData::instance()
{
    if (!m_pInstance) {
        m_pInstance = new GlobalLocaleData;
    }
    return m_pInstance;
}

QLocale GlobalLocaleData::locale() const
{
    return currentLocale();
}

const QLocale &GlobalLocaleData::currentLocale() const
{
    const QLocale *projectLocale = d->project.validLocale();
    return projectLocale ? *projectLocale : d->deviceLocale;
}

DistanceUnit GlobalLocaleData::distanceUnitType() const
{
    const DistanceUnit unitType = d->project.distanceUnitType();
    if (unitType != DistanceUnit::Undefined) {
        return unitType;
    }
    return QLocale().measurementSystem() == QLocale::ImperialUSSystem ? DistanceUnit::Feet
                                                                      : DistanceUnit::Meter;
}

QString GlobalLocaleData::catalogTemplateColumnUnit(const QString &columnKey) const
{
    return d->project.requestTemplateColumnUnit(columnKey);
}

void GlobalLocaleData::setDefaultLocale(QLocale locale)
{
    detail::omitGroupSeparator(locale);
    QLocale::setDefault(locale);
}

void GlobalLocaleData::setDeviceLocale(QLocale locale)
{
    detail::omitGroupSeparator(locale);
    d->deviceLocale = locale;
    if (d->project.localeValid()) {
        return;
    }
    setDefaultLocale(locale);
    Q_EMIT localeChanged();
}

void GlobalLocaleData::projectLocaleChanged()
{
    setDefaultLocale(locale());
    Q_EMIT localeChanged();
}

} // namespace Tavro::Shared
