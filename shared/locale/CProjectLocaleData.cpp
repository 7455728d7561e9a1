#include "shared/locale/CProjectLocaleData.h"

#include "host/CCatalogTemplate.h"
#include "host/CCatalogTemplateRegistry.h"
#include "host/CColumnDefinition.h"
#include "host/CLogger.h"
#include "host/CProgramView.h"
#include "host/CTemplateManager.h"
#include "shared/locale/CCountryLanguageCodeConversion.h"
#include "shared/locale/detail/DistanceUnitTexts.h"
#include "shared/locale/detail/OmitGroupSeparator.h"

using Tavro::Base::DistanceUnit;
using Tavro::CATManagement::CCatalogTemplateRegistry;
using Tavro::CATManagement::CTemplateManager;
using Tavro::Logging::CLogger;
using Tavro::Logging::LogLevel;

namespace Tavro::Shared {

namespace {

DistanceUnit unitFromText(const QString &text)
{
    if (text == detail::s_meters) {
        return DistanceUnit::Meter;
    }
    if (text == detail::s_feet) {
        return DistanceUnit::Feet;
    }
    if (text == detail::s_inches) {
        return DistanceUnit::Inch;
    }
    return DistanceUnit::Undefined;
}

DistanceUnit unitFromMeasurementSystem(QLocale::MeasurementSystem system)
{
    switch (system) {
    case QLocale::ImperialUSSystem:
        return DistanceUnit::Feet;
    case QLocale::MetricSystem:
    case QLocale::ImperialUKSystem: // pipes in the United Kingdom are surveyed in metres
        return DistanceUnit::Meter;
    }
    return DistanceUnit::Undefined;
}

} // namespace

CProjectLocaleData *CProjectLocaleData::m_pInstance = nullptr;

CProjectLocaleData::CProjectLocaleData() = default;

CProjectLocaleData *CProjectLocaleData::instance()
{
    if (!m_pInstance) {
        m_pInstance = new CProjectLocaleData;
    }
    return m_pInstance;
}

void CProjectLocaleData::setUnitType(DistanceUnit unitType)
{
    m_unitType = unitType;
}

QLocale CProjectLocaleData::locale() const
{
    return m_locale;
}

bool CProjectLocaleData::localeValid() const
{
    return m_localeValid;
}

DistanceUnit CProjectLocaleData::distanceUnitType() const
{
    if (m_unitType != DistanceUnit::Undefined || !m_localeValid) {
        return m_unitType;
    }
    return unitFromMeasurementSystem(m_locale.measurementSystem());
}

void CProjectLocaleData::setLocale(const QString &countryCode, const QString &langCode)
{
    m_locale = QLocale(CCountryLanguageCodeConversion::languageFromLanguageCode(langCode),
                       CCountryLanguageCodeConversion::countryFromCountryCode(countryCode));
    detail::omitGroupSeparator(m_locale);
    m_localeValid = true;
    Q_EMIT localeChanged();
    logLocale();
}

void CProjectLocaleData::unsetLocale()
{
    m_localeValid = false;
    logLocale(); // before the signal, other than in setLocale()
    Q_EMIT localeChanged();
}

void CProjectLocaleData::logLocale() const
{
    CLogger::logMessage(LogLevel::Info, QStringLiteral("Locale"),
                        QLatin1String("Locale set to project ") + m_locale.name()
                            + QLatin1String(" ms: ")
                            + QString::number(static_cast<int>(m_locale.measurementSystem()))
                            + QLatin1String(" decimal: ") + m_locale.decimalPoint());
}

QString CProjectLocaleData::requestTemplateColumnUnit(const QString &columnKey) const
{
    if (!m_catalogTemplate) {
        return QString();
    }
    for (int v = 0; v < m_catalogTemplate->programViewCount(); ++v) {
        const auto *view = m_catalogTemplate->programView(v);
        if (!view || view->key() != QLatin1String("detail_s")) {
            continue;
        }
        for (int c = 0; c < view->columnCount(); ++c) {
            const auto *column = view->column(c);
            if (column && column->key() == columnKey) {
                return column->unit();
            }
        }
    }
    return QString();
}

void CProjectLocaleData::onNewTemplateLoaded(const Tavro::Base::GUID &templateId,
                                             CTemplateManager &templateManager,
                                             const CCatalogTemplateRegistry &catTplRegistry,
                                             const QString &catalogId, const QString &countryCode,
                                             const QString &langCode)
{
    m_catalogTemplate = templateManager.getTemplateFromCache(templateId);
    const auto *catalog = catTplRegistry.catalogByUniqueId(catalogId);

    if (m_catalogTemplate) {
        const DistanceUnit unitType = unitFromText(m_catalogTemplate->unit());
        if (unitType != m_unitType) {
            m_unitType = unitType;
            Q_EMIT projectDistanceUnitChanged();
        }
    }

    if (catalog) {
        setLocale(countryCode, langCode);
    } else {
        // the blank at the end belongs to the message
        CLogger::logMessage(LogLevel::Warning, QStringLiteral("Locale"),
                            QLatin1String("Cannot find catalog descriptor for id: <") + catalogId
                                + QLatin1String("> "));
    }
}

} // namespace Tavro::Shared
