// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QLocale>
#include <QString>
#include <QStringList>

namespace Tavro::Shared {

/**
 * Converts between the codes of catalogs and projects and the locale enumerations of Qt.
 *
 * Catalogs name 44 countries by international vehicle registration codes ("D", "CH"), with "RC" for
 * China and "UK" for the United Kingdom. They name 29 languages by ISO 639-2 codes in capitals
 * ("DEU"). Other data names countries by ISO 3166-1 alpha-2 and alpha-3 codes.
 *
 * Codes are compared exactly: "d" is not "D". Static functions on constant tables. Any thread, no
 * locks. An unknown code is not an error; each function says what it returns for it.
 */
class OVO_SHARED_EXPORT CCountryLanguageCodeConversion
{
public:
    CCountryLanguageCodeConversion() = delete;

    /** Country of a catalog code. QLocale::AnyCountry when the code is unknown. */
    static QLocale::Country countryFromCountryCode(const QString &code);
    /** Returns countryFromCountryCode(@p code). This is its older name. */
    static QLocale::Country getCountryLocale(const QString &code);
    /** Language of a three-letter code. QLocale::AnyLanguage when the code is unknown. */
    static QLocale::Language languageFromLanguageCode(const QString &code);
    /** Catalog code of @p country. Empty when @p country has none. */
    static QString countryCodeFromCountry(QLocale::Country country);
    /** Three-letter code of @p language. Empty when @p language has none. */
    static QString languageCodeFromLanguage(QLocale::Language language);
    /** The 44 catalog codes, in the order in which screens show them. */
    static QStringList getCountryList();
    /**
     * Catalog code of an ISO 3166-1 alpha-2 or alpha-3 code. Empty when the code is unknown. "419",
     * the UN M49 code of Latin America and the Caribbean, gives "LATAM", which is not the code of a
     * country.
     */
    static QString countryCode(const QString &isoCode);
    /** ISO 3166-1 alpha-2 code of a catalog code. Empty for unknown codes and for "LATAM". */
    static QString convertShortCountryCodeToISO3166(const QString &code);
};

} // namespace Tavro::Shared
