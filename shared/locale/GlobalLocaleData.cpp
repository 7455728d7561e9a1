#include "shared/locale/GlobalLocaleData.h"

#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/detail/OmitGroupSeparator.h"

using Tavro::Base::DistanceUnit;

namespace Tavro::Shared {

GlobalLocaleData *GlobalLocaleData::m_pInstance = nullptr;

GlobalLocaleData::GlobalLocaleData()
    : m_project(*CProjectLocaleData::instance())
{
    connect(&m_project, &CProjectLocaleData::localeChanged, this,
            &GlobalLocaleData::projectLocaleChanged);
}

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
    return m_project.m_localeValid ? m_project.m_locale : m_deviceLocale;
}

DistanceUnit GlobalLocaleData::distanceUnitType() const
{
    const DistanceUnit unitType = m_project.distanceUnitType();
    if (unitType != DistanceUnit::Undefined) {
        return unitType;
    }
    return QLocale().measurementSystem() == QLocale::ImperialUSSystem ? DistanceUnit::Feet
                                                                      : DistanceUnit::Meter;
}

QString GlobalLocaleData::catalogTemplateColumnUnit(const QString &columnKey) const
{
    return m_project.requestTemplateColumnUnit(columnKey);
}

void GlobalLocaleData::setDefaultLocale(QLocale locale)
{
    detail::omitGroupSeparator(locale);
    QLocale::setDefault(locale);
}

void GlobalLocaleData::setDeviceLocale(QLocale locale)
{
    detail::omitGroupSeparator(locale);
    m_deviceLocale = locale;
    if (m_project.localeValid()) {
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
