#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QLocale>
#include <QString>
#include <QStringList>

namespace Tavro::Shared {

/**
 * Between the codes of catalogs and projects and Qt's locale enumerations.
 *
 * Catalogs name 44 countries by the sign that their vehicles carry abroad ("D", "CH"; "RC" for
 * China and "UK" for the United Kingdom) and 29 languages by ISO 639-2 codes in capitals
 * ("DEU"). Other data names countries by ISO 3166-1 alpha-2 and alpha-3 codes.
 *
 * All comparisons are exact: "d" is not "D". Static functions, any thread, no locks.
 */
class OVO_SHARED_EXPORT CCountryLanguageCodeConversion
{
public:
    CCountryLanguageCodeConversion() = delete;

    /** Country of a catalog code; QLocale::AnyCountry when the code is unknown. */
    static QLocale::Country countryFromCountryCode(const QString &code);
    /** The same as countryFromCountryCode(), under its older name. */
    static QLocale::Country getCountryLocale(const QString &code);
    /** Language of a three-letter code; QLocale::AnyLanguage when the code is unknown. */
    static QLocale::Language languageFromLanguageCode(const QString &code);
    /** Catalog code of @p country; empty when the catalogs do not know it. */
    static QString countryCodeFromCountry(QLocale::Country country);
    /** Three-letter code of @p language; empty when the catalogs do not know it. */
    static QString languageCodeFromLanguage(QLocale::Language language);
    /** The 44 catalog codes, in the order in which screens offer them. */
    static QStringList getCountryList();
    /**
     * Catalog code of an ISO 3166-1 alpha-2 or alpha-3 code; empty when unknown. "419", the
     * United Nations' number for Latin America and the Caribbean, gives "LATAM", which is the
     * code of no country.
     */
    static QString countryCode(const QString &isoCode);
    /** ISO 3166-1 alpha-2 code of a catalog code; empty when unknown, and for "LATAM". */
    static QString convertShortCountryCodeToISO3166(const QString &code);
};

} // namespace Tavro::Shared
