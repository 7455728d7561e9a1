// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Codes.h"
#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/Table.h"
#include "shared/locale/CCountryLanguageCodeConversion.h"

#include <QLocale>

namespace Tavro::FieldHost {

using Shared::CCountryLanguageCodeConversion;

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost countries

Lists the countries and languages that a catalog can name: countries by the sign that their
vehicles carry abroad, with their ISO 3166 codes, languages by their ISO 639-2 codes.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  listed
  2  the command line was not understood)");

QString countryTable()
{
    std::vector<QStringList> rows = {
        {CommandText::tr("Code"), QStringLiteral("ISO"), CommandText::tr("Country")}};
    const QStringList codes = CCountryLanguageCodeConversion::getCountryList();
    for (const QString &code : codes) {
        const auto country = CCountryLanguageCodeConversion::countryFromCountryCode(code);
        rows.push_back({code,
                        CCountryLanguageCodeConversion::convertShortCountryCodeToISO3166(code),
                        QLocale::countryToString(country)});
    }
    return formatTable(rows);
}

QString languageTable()
{
    std::vector<QStringList> rows = {{CommandText::tr("Code"), CommandText::tr("Language")}};
    const QStringList codes = languageCodes();
    for (const QString &code : codes) {
        const auto language = CCountryLanguageCodeConversion::languageFromLanguageCode(code);
        rows.push_back({code, QLocale::languageToString(language)});
    }
    return formatTable(rows);
}

int runCountries(const CommandLine & /*line*/, Console &console)
{
    console.print(countryTable() + QLatin1String("\n\n") + languageTable());
    return ExitDone;
}

} // namespace

const Command countriesCommand = {
    "countries",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Lists the countries and languages that catalogs name."),
    s_helpText,
    "",
    "",
    runCountries,
};

} // namespace Tavro::FieldHost
