// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CCountryLanguageCodeConversion.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace Tavro::Shared {

namespace {

struct CountryRow
{
    QStringView code; // of the catalogs
    QStringView alpha2; // ISO 3166-1
    QStringView alpha3; // ISO 3166-1
    QLocale::Country country;
};

struct LanguageRow
{
    QStringView code; // ISO 639-2, in capitals
    QLocale::Language language;
};

// in the order in which screens show the countries; not quite alphabetical
constexpr std::array s_countries = {
    CountryRow{u"A", u"AT", u"AUT", QLocale::Austria},
    CountryRow{u"AUS", u"AU", u"AUS", QLocale::Australia},
    CountryRow{u"B", u"BE", u"BEL", QLocale::Belgium},
    CountryRow{u"BG", u"BG", u"BGR", QLocale::Bulgaria},
    CountryRow{u"CDN", u"CA", u"CAN", QLocale::Canada},
    CountryRow{u"CH", u"CH", u"CHE", QLocale::Switzerland},
    CountryRow{u"CZ", u"CZ", u"CZE", QLocale::CzechRepublic},
    CountryRow{u"DK", u"DK", u"DNK", QLocale::Denmark},
    CountryRow{u"D", u"DE", u"DEU", QLocale::Germany},
    CountryRow{u"E", u"ES", u"ESP", QLocale::Spain},
    CountryRow{u"EST", u"EE", u"EST", QLocale::Estonia},
    CountryRow{u"F", u"FR", u"FRA", QLocale::France},
    CountryRow{u"FIN", u"FI", u"FIN", QLocale::Finland},
    CountryRow{u"GR", u"GR", u"GRC", QLocale::Greece},
    CountryRow{u"H", u"HU", u"HUN", QLocale::Hungary},
    CountryRow{u"HR", u"HR", u"HRV", QLocale::Croatia},
    CountryRow{u"I", u"IT", u"ITA", QLocale::Italy},
    CountryRow{u"IL", u"IL", u"ISR", QLocale::Israel},
    CountryRow{u"J", u"JP", u"JPN", QLocale::Japan},
    CountryRow{u"LV", u"LV", u"LVA", QLocale::Latvia},
    CountryRow{u"N", u"NO", u"NOR", QLocale::Norway},
    CountryRow{u"NL", u"NL", u"NLD", QLocale::Netherlands},
    CountryRow{u"NZ", u"NZ", u"NZL", QLocale::NewZealand},
    CountryRow{u"PL", u"PL", u"POL", QLocale::Poland},
    CountryRow{u"P", u"PT", u"PRT", QLocale::Portugal},
    CountryRow{u"RC", u"CN", u"CHN", QLocale::China},
    CountryRow{u"RO", u"RO", u"ROU", QLocale::Romania},
    CountryRow{u"RUS", u"RU", u"RUS", QLocale::RussianFederation},
    CountryRow{u"S", u"SE", u"SWE", QLocale::Sweden},
    CountryRow{u"SK", u"SK", u"SVK", QLocale::Slovakia},
    CountryRow{u"SLO", u"SI", u"SVN", QLocale::Slovenia},
    CountryRow{u"SRB", u"RS", u"SRB", QLocale::Serbia},
    CountryRow{u"TR", u"TR", u"TUR", QLocale::Turkey},
    CountryRow{u"IRL", u"IE", u"IRL", QLocale::Ireland},
    CountryRow{u"UK", u"GB", u"GBR", QLocale::UnitedKingdom},
    CountryRow{u"USA", u"US", u"USA", QLocale::UnitedStates},
    CountryRow{u"CHL", u"CL", u"CHL", QLocale::Chile},
    CountryRow{u"AR", u"AR", u"ARG", QLocale::Argentina},
    CountryRow{u"MX", u"MX", u"MEX", QLocale::Mexico},
    CountryRow{u"PE", u"PE", u"PER", QLocale::Peru},
    CountryRow{u"BR", u"BR", u"BRA", QLocale::Brazil},
    CountryRow{u"IND", u"IN", u"IND", QLocale::India},
    CountryRow{u"UA", u"UA", u"UKR", QLocale::Ukraine},
    CountryRow{u"COL", u"CO", u"COL", QLocale::Colombia},
};
static_assert(s_countries.size() == 44);

constexpr std::array s_languages = {
    LanguageRow{u"BUL", QLocale::Bulgarian}, LanguageRow{u"CES", QLocale::Czech},
    LanguageRow{u"DAN", QLocale::Danish},    LanguageRow{u"DEU", QLocale::German},
    LanguageRow{u"ENG", QLocale::English},   LanguageRow{u"EST", QLocale::Estonian},
    LanguageRow{u"FIN", QLocale::Finnish},   LanguageRow{u"FRA", QLocale::French},
    LanguageRow{u"HEB", QLocale::Hebrew},    LanguageRow{u"HRV", QLocale::Croatian},
    LanguageRow{u"HUN", QLocale::Hungarian}, LanguageRow{u"ITA", QLocale::Italian},
    LanguageRow{u"JPN", QLocale::Japanese},  LanguageRow{u"LAV", QLocale::Latvian},
    LanguageRow{u"NLD", QLocale::Dutch},     LanguageRow{u"NOR", QLocale::NorwegianBokmal},
    LanguageRow{u"POL", QLocale::Polish},    LanguageRow{u"POR", QLocale::Portuguese},
    LanguageRow{u"RON", QLocale::Romanian},  LanguageRow{u"RUS", QLocale::Russian},
    LanguageRow{u"SLK", QLocale::Slovak},    LanguageRow{u"SLV", QLocale::Slovenian},
    LanguageRow{u"SPA", QLocale::Spanish},   LanguageRow{u"SRP", QLocale::Serbian},
    LanguageRow{u"SWE", QLocale::Swedish},   LanguageRow{u"TUR", QLocale::Turkish},
    LanguageRow{u"ZHO", QLocale::Chinese},   LanguageRow{u"UKR", QLocale::Ukrainian},
    LanguageRow{u"ELL", QLocale::Greek},
};
static_assert(s_languages.size() == 29);

// the first row that has @p key; null when none has
template<typename Table, typename Key, typename Member>
constexpr auto firstRow(const Table &table, const Key &key, Member member) -> decltype(&table[0])
{
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const auto &row) { return row.*member == key; });
    return found == table.end() ? nullptr : &*found;
}

using CodeMap = QHash<QString, QString>;

const CodeMap &catalogCodesByIsoCode()
{
    static const CodeMap map = [] {
        CodeMap codes;
        for (const CountryRow &row : s_countries) {
            codes.insert(row.alpha2.toString(), row.code.toString());
            codes.insert(row.alpha3.toString(), row.code.toString());
        }
        codes.insert(QStringLiteral("419"), QStringLiteral("LATAM")); // a region, UN M49
        return codes;
    }();
    return map;
}

const CodeMap &alpha2CodesByCatalogCode()
{
    static const CodeMap map = [] {
        CodeMap codes;
        for (const CountryRow &row : s_countries) {
            codes.insert(row.code.toString(), row.alpha2.toString());
        }
        return codes;
    }();
    return map;
}

} // namespace

QLocale::Country CCountryLanguageCodeConversion::countryFromCountryCode(const QString &code)
{
    const auto *row = firstRow(s_countries, code, &CountryRow::code);
    return row ? row->country : QLocale::AnyCountry;
}

QLocale::Country CCountryLanguageCodeConversion::getCountryLocale(const QString &code)
{
    return countryFromCountryCode(code);
}

QLocale::Language CCountryLanguageCodeConversion::languageFromLanguageCode(const QString &code)
{
    const auto *row = firstRow(s_languages, code, &LanguageRow::code);
    return row ? row->language : QLocale::AnyLanguage;
}

QString CCountryLanguageCodeConversion::countryCodeFromCountry(QLocale::Country country)
{
    const auto *row = firstRow(s_countries, country, &CountryRow::country);
    return row ? row->code.toString() : QString();
}

QString CCountryLanguageCodeConversion::languageCodeFromLanguage(QLocale::Language language)
{
    const auto *row = firstRow(s_languages, language, &LanguageRow::language);
    return row ? row->code.toString() : QString();
}

QStringList CCountryLanguageCodeConversion::getCountryList()
{
    QStringList codes;
    codes.reserve(static_cast<int>(s_countries.size()));
    for (const CountryRow &row : s_countries) {
        codes.append(row.code.toString());
    }
    return codes;
}

QString CCountryLanguageCodeConversion::countryCode(const QString &isoCode)
{
    return catalogCodesByIsoCode().value(isoCode);
}

QString CCountryLanguageCodeConversion::convertShortCountryCodeToISO3166(const QString &code)
{
    return alpha2CodesByCatalogCode().value(code);
}

} // namespace Tavro::Shared
