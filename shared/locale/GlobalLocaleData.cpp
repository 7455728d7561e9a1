#include "shared/locale/GlobalLocaleData.h"

#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/detail/OmitGroupSeparator.h"

using Tavro::Base::DistanceUnit;

namespace Tavro::Shared {

GlobalLocaleData *GlobalLocaleData::m_pInstance = nullptr;

GlobalLocaleData::GlobalLocaleData()
{
    connect(CProjectLocaleData::instance(), &CProjectLocaleData::localeChanged, this,
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
    const auto *project = CProjectLocaleData::instance();
    return project->m_localeValid ? project->m_locale : m_deviceLocale;
}

DistanceUnit GlobalLocaleData::distanceUnitType() const
{
    const DistanceUnit unitType = CProjectLocaleData::instance()->distanceUnitType();
    if (unitType != DistanceUnit::Undefined) {
        return unitType;
    }
    return QLocale().measurementSystem() == QLocale::ImperialUSSystem ? DistanceUnit::Feet
                                                                      : DistanceUnit::Meter;
}

QString GlobalLocaleData::catalogTemplateColumnUnit(const QString &columnKey) const
{
    return CProjectLocaleData::instance()->requestTemplateColumnUnit(columnKey);
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
    if (CProjectLocaleData::instance()->localeValid()) {
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
