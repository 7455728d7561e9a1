// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/locale/ProjectLocale.h"

#include "fieldhost/catalog/CatalogFiles.h"
#include "fieldhost/jobs/ProjectCatalog.h"
#include "fieldhost/jobs/Text.h"
#include "host/CColumnDefinition.h"
#include "host/CProgramView.h"
#include "shared/locale/CCountryLanguageCodeConversion.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/GlobalLocaleData.h"

#include <QDir>
#include <QLocale>

#include <algorithm>

namespace Tavro::FieldHost {

using Shared::CCountryLanguageCodeConversion;
using Shared::CLocaleSupport;
using Shared::CProjectLocaleData;
using Shared::GlobalLocaleData;

namespace {

QVariantMap choice(const QString &text, const QString &value)
{
    return {{QStringLiteral("text"), text}, {QStringLiteral("value"), value}};
}

// by their texts, behind the one that stands for none
QVariantList sorted(QVariantList choices)
{
    std::sort(choices.begin(), choices.end(), [](const QVariant &left, const QVariant &right) {
        const QString text = QStringLiteral("text");
        return left.toMap().value(text).toString().localeAwareCompare(
                   right.toMap().value(text).toString())
            < 0;
    });
    choices.prepend(choice(QStringLiteral("–"), QString()));
    return choices;
}

QLocale localeOfCountry(const QString &code)
{
    return QLocale(QLocale::AnyLanguage,
                   CCountryLanguageCodeConversion::countryFromCountryCode(code));
}

QString nameOf(const QLocale &locale)
{
    const QString language = locale.nativeLanguageName();
    return language.isEmpty() ? locale.name() // "C"
                              : QStringLiteral("%1, %2").arg(language, locale.nativeCountryName());
}

bool isCountry(const QString &code)
{
    return CCountryLanguageCodeConversion::countryFromCountryCode(code) != QLocale::AnyCountry;
}

bool isLanguage(const QString &code)
{
    return CCountryLanguageCodeConversion::languageFromLanguageCode(code) != QLocale::AnyLanguage;
}

} // namespace

ProjectLocale::ProjectLocale(QObject *parent)
    : QObject(parent)
    , m_device(GlobalLocaleData::instance()->locale().name())
{
}

ProjectLocale::~ProjectLocale() = default;

QVariantList ProjectLocale::catalogs() const
{
    QVariantList choices;
    const QFileInfoList files = QDir(QStringLiteral(":/catalogs")).entryInfoList();
    for (const QFileInfo &file : files) {
        choices += choice(file.fileName(), file.filePath());
    }
    return sorted(choices);
}

QVariantList ProjectLocale::countries() const
{
    QVariantList choices;
    const QStringList codes = CCountryLanguageCodeConversion::getCountryList();
    for (const QString &code : codes) {
        choices += choice(
            QStringLiteral("%1 (%2)").arg(localeOfCountry(code).nativeCountryName(), code), code);
    }
    return sorted(choices);
}

QVariantList ProjectLocale::languages() const
{
    QVariantList choices;
    for (int i = QLocale::C + 1; i <= QLocale::LastLanguage; ++i) {
        const auto language = static_cast<QLocale::Language>(i);
        const QString code = CCountryLanguageCodeConversion::languageCodeFromLanguage(language);
        if (!code.isEmpty()) {
            choices += choice(
                QStringLiteral("%1 (%2)").arg(QLocale(language).nativeLanguageName(), code), code);
        }
    }
    return sorted(choices);
}

QVariantList ProjectLocale::devices() const
{
    QVariantList choices;
    QStringList names;
    const QStringList codes = CCountryLanguageCodeConversion::getCountryList();
    for (const QString &code : codes) {
        const QLocale locale = localeOfCountry(code);
        names += locale.name();
        choices += choice(nameOf(locale), locale.name());
    }
    choices = sorted(choices);
    choices.removeFirst(); // a device has one
    const QLocale system = QLocale::system();
    if (!names.contains(system.name())) {
        choices.prepend(choice(nameOf(system), system.name()));
    }
    return choices;
}

void ProjectLocale::setCatalog(const QString &file)
{
    if (file.isEmpty()) {
        m_files.reset();
        m_catalog = nullptr;
        m_template.reset();
    } else {
        auto files = std::make_unique<CatalogFiles>();
        CatalogError error;
        const CatalogDescriptor *catalog = files->load(file, error);
        if (!catalog) {
            m_objection = sentenceOf(error);
            Q_EMIT changed();
            return;
        }
        m_files = std::move(files);
        m_catalog = catalog;
        m_template = m_files->getTemplateFromCache(m_catalog->templateId);
        m_country = m_catalog->countryCode;
        m_language = m_catalog->languageCode;
    }
    m_objection.clear();
    m_file = file;
    apply();
}

void ProjectLocale::setCountry(const QString &code)
{
    m_country = code;
    apply();
}

void ProjectLocale::setLanguage(const QString &code)
{
    m_language = code;
    apply();
}

void ProjectLocale::setDevice(const QString &name)
{
    m_device = name;
    GlobalLocaleData::instance()->setDeviceLocale(QLocale(name));
    Q_EMIT changed();
}

void ProjectLocale::close()
{
    m_country.clear();
    m_language.clear();
    setCatalog(QString());
}

void ProjectLocale::apply()
{
    CProjectLocaleData *project = CProjectLocaleData::instance();
    if (!isCountry(m_country) && !isLanguage(m_language)) {
        project->unsetLocale(); // else two unknown codes stand for the locale of the project before
    }
    if (m_catalog) {
        project->onNewTemplateLoaded(m_catalog->templateId, *m_files, *m_files, m_catalog->id,
                                     m_country, m_language);
    } else {
        project->setUnitType(Base::DistanceUnit::Undefined); // that of a catalog would stay
        if (!m_country.isEmpty() || !m_language.isEmpty()) {
            project->setLocale(m_country, m_language);
        }
    }
    Q_EMIT changed();
}

QString ProjectLocale::catalogName() const
{
    return m_catalog ? m_catalog->name : QString();
}

QString ProjectLocale::objection() const
{
    return m_objection;
}

QStringList ProjectLocale::warnings() const
{
    QStringList sentences;
    if (!m_catalog) {
        return sentences;
    }
    if (!m_country.isEmpty() && !isCountry(m_country)) {
        sentences += tr("The catalog's country code %1 is not known.").arg(quoted(m_country));
    }
    if (!m_language.isEmpty() && !isLanguage(m_language)) {
        sentences += tr("The catalog's language code %1 is not known.").arg(quoted(m_language));
    }
    const QString unit = m_template->unit();
    if (!unit.isEmpty() && !isDistanceUnit(unit)) {
        sentences += tr("The catalog's unit %1 is not a unit of distance, so the locale decides.")
                         .arg(quoted(unit));
    }
    return sentences;
}

bool ProjectLocale::isOpen() const
{
    return CProjectLocaleData::instance()->localeValid();
}

QString ProjectLocale::distances() const
{
    const QString unit = unitText(CLocaleSupport::getDistanceUnit());
    const QString text = m_template && isDistanceUnit(m_template->unit())
        ? tr("Distances are in %1, as the catalog has it.").arg(unit)
        : tr("Distances are in %1, as the locale has it.").arg(unit);
    // screens know metres and feet only
    const QString shown = CLocaleSupport::getDistanceUnitString();
    return shown == unit ? text : text + QLatin1Char(' ') + tr("Shown as %1.").arg(shown);
}

QVariantList ProjectLocale::columns() const
{
    QVariantList rows;
    for (int i = 0; m_template && i < m_template->programViewCount(); ++i) {
        const Templates::CProgramView *view = m_template->programView(i);
        for (int j = 0; j < view->columnCount(); ++j) {
            const QString key = view->column(j)->key();
            rows += QVariantMap{
                {QStringLiteral("key"), printable(key)},
                {QStringLiteral("unit"), printable(CLocaleSupport::catalogTemplateColumnUnit(key))},
                {QStringLiteral("ofCatalog"),
                 !GlobalLocaleData::instance()->catalogTemplateColumnUnit(key).isEmpty()}};
        }
    }
    return rows;
}

} // namespace Tavro::FieldHost
