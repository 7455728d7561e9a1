// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

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

class Q_DECL_HIDDEN CProjectLocaleData::Private
{
public:
    void logLocale() const
    {
        CLogger::logMessage(LogLevel::Info, QStringLiteral("Locale"),
                            QLatin1String("Locale set to project ") + locale.name()
                                + QLatin1String(" ms: ")
                                + QString::number(static_cast<int>(locale.measurementSystem()))
                                + QLatin1String(" decimal: ") + locale.decimalPoint());
    }

    DistanceUnit unitType = DistanceUnit::Undefined;
    QLocale locale;
    bool localeValid = false;
    QSharedPointer<Tavro::Templates::CCatalogTemplate> catalogTemplate;
};

CProjectLocaleData::CProjectLocaleData()
    : d(std::make_unique<Private>())
{
}

CProjectLocaleData::~CProjectLocaleData() = default;

CProjectLocaleData *CProjectLocaleData::instance()
{
    if (!m_pInstance) {
        m_pInstance = new CProjectLocaleData;
    }
    return m_pInstance;
}

void CProjectLocaleData::setUnitType(DistanceUnit unitType)
{
    d->unitType = unitType;
}

QLocale CProjectLocaleData::locale() const
{
    return d->locale;
}

bool CProjectLocaleData::localeValid() const
{
    return d->localeValid;
}

const QLocale *CProjectLocaleData::validLocale() const
{
    return d->localeValid ? &d->locale : nullptr;
}

DistanceUnit CProjectLocaleData::distanceUnitType() const
{
    if (d->unitType != DistanceUnit::Undefined || !d->localeValid) {
        return d->unitType;
    }
    return unitFromMeasurementSystem(d->locale.measurementSystem());
}

void CProjectLocaleData::setLocale(const QString &countryCode, const QString &langCode)
{
    d->locale = QLocale(CCountryLanguageCodeConversion::languageFromLanguageCode(langCode),
                        CCountryLanguageCodeConversion::countryFromCountryCode(countryCode));
    detail::omitGroupSeparator(d->locale);
    d->localeValid = true;
    Q_EMIT localeChanged();
    d->logLocale();
}

void CProjectLocaleData::unsetLocale()
{
    d->localeValid = false;
    d->logLocale(); // before the signal, unlike setLocale()
    Q_EMIT localeChanged();
}

QString CProjectLocaleData::requestTemplateColumnUnit(const QString &columnKey) const
{
    if (!d->catalogTemplate) {
        return QString();
    }
    for (int v = 0; v < d->catalogTemplate->programViewCount(); ++v) {
        const auto *view = d->catalogTemplate->programView(v);
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
    d->catalogTemplate = templateManager.getTemplateFromCache(templateId);
    const auto *catalog = catTplRegistry.catalogByUniqueId(catalogId);

    if (d->catalogTemplate) {
        const DistanceUnit unitType = unitFromText(d->catalogTemplate->unit());
        if (unitType != d->unitType) {
            d->unitType = unitType;
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
