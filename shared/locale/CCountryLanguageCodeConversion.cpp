#include "shared/locale/CCountryLanguageCodeConversion.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace Tavro::Shared {

namespace {

struct CountryRow
{
    constexpr CountryRow(const char *catalogCode, const char *alpha2Code, const char *alpha3Code,
                         QLocale::Country qtCountry)
        : code(catalogCode)
        , alpha2(alpha2Code)
        , alpha3(alpha3Code)
        , country(qtCountry)
    {
    }

    QLatin1String code; // of the catalogs
    QLatin1String alpha2; // ISO 3166-1
    QLatin1String alpha3; // ISO 3166-1
    QLocale::Country country;
};

struct LanguageRow
{
    constexpr LanguageRow(const char *isoCode, QLocale::Language qtLanguage)
        : code(isoCode)
        , language(qtLanguage)
    {
    }

    QLatin1String code; // ISO 639-2, in capitals
    QLocale::Language language;
};

// in the order in which screens offer the countries; not quite the alphabet's
constexpr std::array s_countries = {
    CountryRow{"A", "AT", "AUT", QLocale::Austria},
    CountryRow{"AUS", "AU", "AUS", QLocale::Australia},
    CountryRow{"B", "BE", "BEL", QLocale::Belgium},
    CountryRow{"BG", "BG", "BGR", QLocale::Bulgaria},
    CountryRow{"CDN", "CA", "CAN", QLocale::Canada},
    CountryRow{"CH", "CH", "CHE", QLocale::Switzerland},
    CountryRow{"CZ", "CZ", "CZE", QLocale::CzechRepublic},
    CountryRow{"DK", "DK", "DNK", QLocale::Denmark},
    CountryRow{"D", "DE", "DEU", QLocale::Germany},
    CountryRow{"E", "ES", "ESP", QLocale::Spain},
    CountryRow{"EST", "EE", "EST", QLocale::Estonia},
    CountryRow{"F", "FR", "FRA", QLocale::France},
    CountryRow{"FIN", "FI", "FIN", QLocale::Finland},
    CountryRow{"GR", "GR", "GRC", QLocale::Greece},
    CountryRow{"H", "HU", "HUN", QLocale::Hungary},
    CountryRow{"HR", "HR", "HRV", QLocale::Croatia},
    CountryRow{"I", "IT", "ITA", QLocale::Italy},
    CountryRow{"IL", "IL", "ISR", QLocale::Israel},
    CountryRow{"J", "JP", "JPN", QLocale::Japan},
    CountryRow{"LV", "LV", "LVA", QLocale::Latvia},
    CountryRow{"N", "NO", "NOR", QLocale::Norway},
    CountryRow{"NL", "NL", "NLD", QLocale::Netherlands},
    CountryRow{"NZ", "NZ", "NZL", QLocale::NewZealand},
    CountryRow{"PL", "PL", "POL", QLocale::Poland},
    CountryRow{"P", "PT", "PRT", QLocale::Portugal},
    CountryRow{"RC", "CN", "CHN", QLocale::China},
    CountryRow{"RO", "RO", "ROU", QLocale::Romania},
    CountryRow{"RUS", "RU", "RUS", QLocale::RussianFederation},
    CountryRow{"S", "SE", "SWE", QLocale::Sweden},
    CountryRow{"SK", "SK", "SVK", QLocale::Slovakia},
    CountryRow{"SLO", "SI", "SVN", QLocale::Slovenia},
    CountryRow{"SRB", "RS", "SRB", QLocale::Serbia},
    CountryRow{"TR", "TR", "TUR", QLocale::Turkey},
    CountryRow{"IRL", "IE", "IRL", QLocale::Ireland},
    CountryRow{"UK", "GB", "GBR", QLocale::UnitedKingdom},
    CountryRow{"USA", "US", "USA", QLocale::UnitedStates},
    CountryRow{"CHL", "CL", "CHL", QLocale::Chile},
    CountryRow{"AR", "AR", "ARG", QLocale::Argentina},
    CountryRow{"MX", "MX", "MEX", QLocale::Mexico},
    CountryRow{"PE", "PE", "PER", QLocale::Peru},
    CountryRow{"BR", "BR", "BRA", QLocale::Brazil},
    CountryRow{"IND", "IN", "IND", QLocale::India},
    CountryRow{"UA", "UA", "UKR", QLocale::Ukraine},
    CountryRow{"COL", "CO", "COL", QLocale::Colombia},
};
static_assert(s_countries.size() == 44);

constexpr std::array s_languages = {
    LanguageRow{"BUL", QLocale::Bulgarian}, LanguageRow{"CES", QLocale::Czech},
    LanguageRow{"DAN", QLocale::Danish},    LanguageRow{"DEU", QLocale::German},
    LanguageRow{"ENG", QLocale::English},   LanguageRow{"EST", QLocale::Estonian},
    LanguageRow{"FIN", QLocale::Finnish},   LanguageRow{"FRA", QLocale::French},
    LanguageRow{"HEB", QLocale::Hebrew},    LanguageRow{"HRV", QLocale::Croatian},
    LanguageRow{"HUN", QLocale::Hungarian}, LanguageRow{"ITA", QLocale::Italian},
    LanguageRow{"JPN", QLocale::Japanese},  LanguageRow{"LAV", QLocale::Latvian},
    LanguageRow{"NLD", QLocale::Dutch},     LanguageRow{"NOR", QLocale::NorwegianBokmal},
    LanguageRow{"POL", QLocale::Polish},    LanguageRow{"POR", QLocale::Portuguese},
    LanguageRow{"RON", QLocale::Romanian},  LanguageRow{"RUS", QLocale::Russian},
    LanguageRow{"SLK", QLocale::Slovak},    LanguageRow{"SLV", QLocale::Slovenian},
    LanguageRow{"SPA", QLocale::Spanish},   LanguageRow{"SRP", QLocale::Serbian},
    LanguageRow{"SWE", QLocale::Swedish},   LanguageRow{"TUR", QLocale::Turkish},
    LanguageRow{"ZHO", QLocale::Chinese},   LanguageRow{"UKR", QLocale::Ukrainian},
    LanguageRow{"ELL", QLocale::Greek},
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
            codes.insert(row.alpha2, row.code);
            codes.insert(row.alpha3, row.code);
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
            codes.insert(row.code, row.alpha2);
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
    return row ? QString(row->code) : QString();
}

QString CCountryLanguageCodeConversion::languageCodeFromLanguage(QLocale::Language language)
{
    const auto *row = firstRow(s_languages, language, &LanguageRow::language);
    return row ? QString(row->code) : QString();
}

QStringList CCountryLanguageCodeConversion::getCountryList()
{
    QStringList codes;
    codes.reserve(static_cast<int>(s_countries.size()));
    for (const CountryRow &row : s_countries) {
        codes.append(row.code);
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
