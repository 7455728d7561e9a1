// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

#include <optional>

namespace Tavro::FieldHost {

/** Whether catalogs know the country code @p code, such as "CH". */
bool isCountryCode(const QString &code);
/** Whether catalogs know the language code @p code, such as "DEU". */
bool isLanguageCode(const QString &code);
/** The language codes that catalogs know, by the English names of the languages. */
QStringList languageCodes();

/**
 * The country code that somebody meant with @p typed: the same in capitals, the one of the ISO
 * 3166 code or English name, or else the nearest; empty when none is near.
 */
QString nearestCountryCode(const QString &typed);
/** The language code that somebody meant with @p typed: as above, by ISO 639 codes. */
QString nearestLanguageCode(const QString &typed);

/**
 * The locale of a name such as "de_CH", "de", "zh_Hant_TW" or "de_CH.UTF-8"; nothing for one that
 * Qt would take for another locale.
 */
std::optional<QLocale> localeOfName(const QString &name);
/** The nearest name to @p typed that there is a locale for; empty when none is near. */
QString nearestLocaleName(const QString &typed);

} // namespace Tavro::FieldHost
