// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Codes.h"

#include "fieldhost/cli/NearestWord.h"
#include "shared/locale/CCountryLanguageCodeConversion.h"

#include <QRegularExpression>

#include <functional>

namespace Tavro::FieldHost {

using Shared::CCountryLanguageCodeConversion;

namespace {

constexpr int s_longestCode = 3;

// ISO 639-2 has two codes for some languages. Catalogs use the one of the language's own name;
// these are the other ones, of the English names.
struct SecondCode
{
    const char *english;
    const char *own;
};
constexpr SecondCode s_secondCodes[] = {
    {"CHI", "ZHO"}, //
    {"CZE", "CES"}, //
    {"DUT", "NLD"}, //
    {"FRE", "FRA"}, //
    {"GER", "DEU"}, //
    {"GRE", "ELL"}, //
    {"RUM", "RON"}, //
    {"SLO", "SLK"}, //
};

// what is longer than a code is taken for a name
QString nearestByCodeOrName(const QString &typed, const QStringList &codes,
                            const std::function<QString(const QString &code)> &nameOf)
{
    if (typed.size() <= s_longestCode) {
        return nearest(typed.toUpper(), codes);
    }
    QStringList names;
    for (const QString &code : codes) {
        names += nameOf(code).toLower();
    }
    return codes.value(names.indexOf(nearest(typed.toLower(), names)));
}

// "de_CH" of "de-CH", "de_CH.UTF-8" and "de_Latn_CH"
QString plainLocaleName(const QString &name)
{
    static const QRegularExpression suffix(QStringLiteral("[.@].*$"));
    QStringList parts = QString(name)
                            .remove(suffix)
                            .replace(QLatin1Char('-'), QLatin1Char('_'))
                            .split(QLatin1Char('_'));
    if (parts.size() > 1 && parts.at(1).size() == 4) {
        parts.removeAt(1); // the script
    }
    return parts.join(QLatin1Char('_'));
}

QStringList localeNames()
{
    QStringList names;
    const QList<QLocale> locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    for (const QLocale &locale : locales) {
        const QString name = locale.name();
        names += name;
        names += name.section(QLatin1Char('_'), 0, 0);
    }
    names.removeDuplicates();
    return names;
}

} // namespace

bool isCountryCode(const QString &code)
{
    return CCountryLanguageCodeConversion::countryFromCountryCode(code) != QLocale::AnyCountry;
}

bool isLanguageCode(const QString &code)
{
    return CCountryLanguageCodeConversion::languageFromLanguageCode(code) != QLocale::AnyLanguage;
}

QStringList languageCodes()
{
    QStringList codes;
    for (int i = QLocale::C + 1; i <= QLocale::LastLanguage; ++i) {
        const auto language = static_cast<QLocale::Language>(i);
        const QString code = CCountryLanguageCodeConversion::languageCodeFromLanguage(language);
        if (!code.isEmpty()) {
            codes += code;
        }
    }
    return codes;
}

QString nearestCountryCode(const QString &typed)
{
    const QString upper = typed.toUpper();
    QString ofIso = CCountryLanguageCodeConversion::countryCode(upper);
    if (!isCountryCode(upper) && isCountryCode(ofIso)) {
        return ofIso;
    }
    return nearestByCodeOrName(
        typed, CCountryLanguageCodeConversion::getCountryList(), [](const QString &code) {
            return QLocale::countryToString(
                CCountryLanguageCodeConversion::countryFromCountryCode(code));
        });
}

QString nearestLanguageCode(const QString &typed)
{
    for (const SecondCode &second : s_secondCodes) {
        if (typed.compare(QLatin1String(second.english), Qt::CaseInsensitive) == 0) {
            return QLatin1String(second.own);
        }
    }
    if (typed.size() == 2) { // ISO 639-1
        const QLocale::Language language = QLocale(typed.toLower()).language();
        QString code = CCountryLanguageCodeConversion::languageCodeFromLanguage(language);
        if (!code.isEmpty()) {
            return code;
        }
    }
    return nearestByCodeOrName(typed, languageCodes(), [](const QString &code) {
        return QLocale::languageToString(
            CCountryLanguageCodeConversion::languageFromLanguageCode(code));
    });
}

std::optional<QLocale> localeOfName(const QString &name)
{
    if (!localeNames().contains(plainLocaleName(name), Qt::CaseInsensitive)) {
        return {};
    }
    return QLocale(name);
}

QString nearestLocaleName(const QString &typed)
{
    return nearest(plainLocaleName(typed), localeNames(), 2);
}

} // namespace Tavro::FieldHost
