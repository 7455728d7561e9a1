// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/catalog/CatalogFiles.h"
#include "fieldhost/cli/Codes.h"
#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/LocaleOverview.h"
#include "fieldhost/cli/Table.h"
#include "fieldhost/jobs/ProjectCatalog.h"
#include "fieldhost/jobs/Text.h"
#include "shared/locale/CCountryLanguageCodeConversion.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/GlobalLocaleData.h"

#include <QLocale>

namespace Tavro::FieldHost {

using Logging::LogLevel;
using Shared::CCountryLanguageCodeConversion;
using Shared::CLocaleSupport;
using Shared::CProjectLocaleData;
using Shared::GlobalLocaleData;

namespace {

const char s_helpText[] = QT_TRANSLATE_NOOP(
    "Tavro::FieldHost::CommandText",
    R"(Usage: ovo-fieldhost locale [--catalog FILE] [--country CODE] [--language CODE]
                            [--device LOCALE]

Shows how a project shows distances, speeds, temperatures, dates and sizes, and in which units the
columns of its catalog are.

A project is open when a catalog, a country or a language is given; its locale then counts, else
that of the device.

Options:
  --catalog FILE   The project's catalog; docs/catalog.md describes the file.
  --country CODE   The project's country, such as CH; without it, that of the catalog.
  --language CODE  The project's language, such as DEU; without it, that of the catalog.
  --device LOCALE  The device's locale, such as de_CH; without it, that of the environment.
  -h, --help       Shows this text.

"ovo-fieldhost countries" lists the codes of countries and languages.

Exit codes:
  0  shown
  1  the catalog cannot be used; the message names file, place and cause
  2  the command line was not understood)");

QString countryName(const QString &code)
{
    return QLocale::countryToString(CCountryLanguageCodeConversion::countryFromCountryCode(code));
}

QString languageName(const QString &code)
{
    return QLocale::languageToString(
        CCountryLanguageCodeConversion::languageFromLanguageCode(code));
}

// what to type instead of a code that is not known
QString nearestCountry(const QString &code)
{
    const QString nearest = nearestCountryCode(code);
    return nearest.isEmpty()
        ? QString()
        : CommandText::tr(" The nearest one is \"%1\" (%2).").arg(nearest, countryName(nearest));
}

QString nearestLanguage(const QString &code)
{
    const QString nearest = nearestLanguageCode(code);
    return nearest.isEmpty()
        ? QString()
        : CommandText::tr(" The nearest one is \"%1\" (%2).").arg(nearest, languageName(nearest));
}

QString codeText(const QString &code, const QString &name, bool isKnown)
{
    if (code.isEmpty()) {
        return CommandText::tr("not given");
    }
    return printable(code) + QLatin1String("  ") + (isKnown ? name : CommandText::tr("not known"));
}

/** The host with its project, open or not, as the command line has it. */
class LocaleRun
{
public:
    LocaleRun(const CommandLine &line, Console &console)
        : m_line(line)
        , m_console(console)
    {
    }

    ExitCode run();

private:
    bool loadCatalog();
    void openProject();
    void warnOfUnknownCodes();
    QString summary() const;
    QString distanceText() const;

    const CommandLine &m_line;
    Console &m_console;
    CatalogFiles m_catalogs;
    const CatalogDescriptor *m_catalog = nullptr;
    QSharedPointer<Templates::CCatalogTemplate> m_template;
    QString m_country;
    QString m_language;
};

ExitCode LocaleRun::run()
{
    GlobalLocaleData::instance()->setDeviceLocale(
        m_line.isSet("device") ? *localeOfName(m_line.value("device")) : QLocale::system());
    if (m_line.isSet("catalog") && !loadCatalog()) {
        return ExitFailed;
    }
    openProject();
    m_console.print(summary());
    m_console.print(QLatin1Char('\n') + valueOverview());
    if (m_template) {
        m_console.print(QLatin1Char('\n') + columnOverview(*m_template));
    }
    return ExitDone;
}

bool LocaleRun::loadCatalog()
{
    CatalogError error;
    m_catalog = m_catalogs.load(m_line.value("catalog"), error);
    if (!m_catalog) {
        m_console.printError(sentenceOf(error));
        return false;
    }
    m_template = m_catalogs.getTemplateFromCache(m_catalog->templateId);
    m_country = m_catalog->countryCode;
    m_language = m_catalog->languageCode;
    return true;
}

void LocaleRun::openProject()
{
    if (m_line.isSet("country")) {
        m_country = m_line.value("country");
    }
    if (m_line.isSet("language")) {
        m_language = m_line.value("language");
    }
    CProjectLocaleData *project = CProjectLocaleData::instance();
    if (m_catalog) {
        warnOfUnknownCodes();
        project->onNewTemplateLoaded(m_catalog->templateId, m_catalogs, m_catalogs, m_catalog->id,
                                     m_country, m_language);
    } else if (m_line.isSet("country") || m_line.isSet("language")) {
        project->setLocale(m_country, m_language);
    }
}

// what the user types is checked before; a catalog may be of any country, and is shown as it works
void LocaleRun::warnOfUnknownCodes()
{
    if (!isCountryCode(m_country)) {
        m_console.printError(CommandText::tr("The catalog's country code %1 is not known.%2")
                                 .arg(quoted(m_country), nearestCountry(m_country)));
    }
    if (!isLanguageCode(m_language)) {
        m_console.printError(CommandText::tr("The catalog's language code %1 is not known.%2")
                                 .arg(quoted(m_language), nearestLanguage(m_language)));
    }
    if (!isDistanceUnit(m_template->unit()) && !m_template->unit().isEmpty()) {
        m_console.printError(CommandText::tr("The catalog's unit %1 is not among \"m\", \"ft\" and "
                                             "\"inch\", so the locale decides.")
                                 .arg(quoted(m_template->unit())));
    }
}

QString LocaleRun::summary() const
{
    const bool isProject = CProjectLocaleData::instance()->localeValid();
    std::vector<QStringList> rows;
    if (m_catalog) {
        rows.push_back({CommandText::tr("Catalog"), printable(m_catalog->name)});
    }
    if (isProject) {
        rows.push_back({CommandText::tr("Country"),
                        codeText(m_country, countryName(m_country), isCountryCode(m_country))});
        rows.push_back(
            {CommandText::tr("Language"),
             codeText(m_language, languageName(m_language), isLanguageCode(m_language))});
    }
    rows.push_back(
        {CommandText::tr("Locale"),
         (isProject ? CommandText::tr("%1, of the project") : CommandText::tr("%1, of the device"))
             .arg(CLocaleSupport::getCurrentLocale().name())});
    rows.push_back({CommandText::tr("Distances"), distanceText()});
    return formatTable(rows);
}

QString LocaleRun::distanceText() const
{
    const QString unit = unitText(CLocaleSupport::getDistanceUnit());
    const bool ofCatalog = m_template && isDistanceUnit(m_template->unit());
    const QString text = (ofCatalog ? CommandText::tr("in %1, as the catalog has it")
                                    : CommandText::tr("in %1, as the locale has it"))
                             .arg(unit);
    // screens know metres and feet only
    const QString shown = CLocaleSupport::getDistanceUnitString();
    return shown == unit ? text : text + CommandText::tr(", and shown as %1").arg(shown);
}

// why the codes are not understood; empty when they are
QString objectionTo(const CommandLine &line)
{
    if (line.isSet("country") && !isCountryCode(line.value("country"))) {
        return CommandText::tr("There is no country code %1.%2")
            .arg(quoted(line.value("country")), nearestCountry(line.value("country")));
    }
    if (line.isSet("language") && !isLanguageCode(line.value("language"))) {
        return CommandText::tr("There is no language code %1.%2")
            .arg(quoted(line.value("language")), nearestLanguage(line.value("language")));
    }
    if (line.isSet("device") && !localeOfName(line.value("device"))) {
        const QString nearest = nearestLocaleName(line.value("device"));
        return CommandText::tr("There is no locale %1.").arg(quoted(line.value("device")))
            + (nearest.isEmpty() ? QString()
                                 : CommandText::tr(" The nearest one is \"%1\".").arg(nearest));
    }
    return {};
}

int runLocale(const CommandLine &line, Console &console)
{
    const QString objection = objectionTo(line);
    if (!objection.isEmpty()) {
        return line.refuse(objection);
    }
    // that a project locale is set is what this command is about
    HostLog::setThreshold(LogLevel::Warning);
    return LocaleRun(line, console).run();
}

} // namespace

const Command localeCommand = {
    "locale",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Shows how a project shows numbers, dates and units."),
    s_helpText,
    "catalog= country= language= device=",
    "",
    runLocale,
};

} // namespace Tavro::FieldHost
