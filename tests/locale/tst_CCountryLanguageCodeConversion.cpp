// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CCountryLanguageCodeConversion.h"

#include <QSet>
#include <QTest>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

using Tavro::Shared::CCountryLanguageCodeConversion;

namespace {

struct Country
{
    const char *code;
    const char *alpha2;
    const char *alpha3;
    int number; // of QLocale::Country
};

struct Language
{
    const char *code;
    int number; // of QLocale::Language
};

constexpr std::array<Country, 44> s_countries = {{
    {"A", "AT", "AUT", 14},    {"AUS", "AU", "AUS", 13},  {"B", "BE", "BEL", 21},
    {"BG", "BG", "BGR", 33},   {"CDN", "CA", "CAN", 38},  {"CH", "CH", "CHE", 206},
    {"CZ", "CZ", "CZE", 57},   {"DK", "DK", "DNK", 58},   {"D", "DE", "DEU", 82},
    {"E", "ES", "ESP", 197},   {"EST", "EE", "EST", 68},  {"F", "FR", "FRA", 74},
    {"FIN", "FI", "FIN", 73},  {"GR", "GR", "GRC", 85},   {"H", "HU", "HUN", 98},
    {"HR", "HR", "HRV", 54},   {"I", "IT", "ITA", 106},   {"IL", "IL", "ISR", 105},
    {"J", "JP", "JPN", 108},   {"LV", "LV", "LVA", 118},  {"N", "NO", "NOR", 161},
    {"NL", "NL", "NLD", 151},  {"NZ", "NZ", "NZL", 154},  {"PL", "PL", "POL", 172},
    {"P", "PT", "PRT", 173},   {"RC", "CN", "CHN", 44},   {"RO", "RO", "ROU", 177},
    {"RUS", "RU", "RUS", 178}, {"S", "SE", "SWE", 205},   {"SK", "SK", "SVK", 191},
    {"SLO", "SI", "SVN", 192}, {"SRB", "RS", "SRB", 243}, {"TR", "TR", "TUR", 217},
    {"IRL", "IE", "IRL", 104}, {"UK", "GB", "GBR", 224},  {"USA", "US", "USA", 225},
    {"CHL", "CL", "CHL", 43},  {"AR", "AR", "ARG", 10},   {"MX", "MX", "MEX", 139},
    {"PE", "PE", "PER", 169},  {"BR", "BR", "BRA", 30},   {"IND", "IN", "IND", 100},
    {"UA", "UA", "UKR", 222},  {"COL", "CO", "COL", 47},
}};

constexpr std::array<Language, 29> s_languages = {{
    {"BUL", 20},  {"CES", 28},  {"DAN", 29},  {"DEU", 42},  {"ENG", 31},  {"EST", 33},
    {"FIN", 36},  {"FRA", 37},  {"HEB", 48},  {"HRV", 27},  {"HUN", 50},  {"ITA", 58},
    {"JPN", 59},  {"LAV", 71},  {"NLD", 30},  {"NOR", 85},  {"POL", 90},  {"POR", 91},
    {"RON", 95},  {"RUS", 96},  {"SLK", 108}, {"SLV", 109}, {"SPA", 111}, {"SRP", 100},
    {"SWE", 114}, {"TUR", 125}, {"ZHO", 25},  {"UKR", 129}, {"ELL", 43},
}};

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/** Every text of one to three capitals. */
QStringList allShortTexts()
{
    QStringList texts{QString()};
    for (int begin = 0, length = 0; length < 3; ++length) {
        const int end = texts.size();
        for (; begin < end; ++begin) {
            for (char c = 'A'; c <= 'Z'; ++c) {
                texts.append(texts.at(begin) + QLatin1Char(c));
            }
        }
    }
    return texts;
}

} // namespace

class tst_CCountryLanguageCodeConversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstUseMayComeFromSeveralThreads();
    void countriesConvertBothWays_data();
    void countriesConvertBothWays();
    void languagesConvertBothWays_data();
    void languagesConvertBothWays();
    void countryListIsInTheOrderOfTheTable();
    void latinAmericaIsACodeWithoutCountry();
    void unknownCodesGiveNothing_data();
    void unknownCodesGiveNothing();
    void noOtherCodeIsKnown();
    void noOtherCountryOrLanguageIsKnown();
    void numbersOutsideTheEnumerationsAreUnknown();
};

// has to be the first: the maps are built once for the process
void tst_CCountryLanguageCodeConversion::firstUseMayComeFromSeveralThreads()
{
    std::atomic<int> ready{0};
    std::atomic<int> right{0};
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            ++ready;
            while (ready < 4) {
                std::this_thread::yield();
            }
            right += CCountryLanguageCodeConversion::countryCode(text("GBR")) == text("UK");
            right += CCountryLanguageCodeConversion::convertShortCountryCodeToISO3166(text("UK"))
                == text("GB");
            right += CCountryLanguageCodeConversion::getCountryList().size() == 44;
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(right.load(), 12);
}

void tst_CCountryLanguageCodeConversion::countriesConvertBothWays_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("alpha2");
    QTest::addColumn<QString>("alpha3");
    QTest::addColumn<int>("number");

    for (const Country &country : s_countries) {
        QTest::newRow(country.code)
            << text(country.code) << text(country.alpha2) << text(country.alpha3) << country.number;
    }
}

void tst_CCountryLanguageCodeConversion::countriesConvertBothWays()
{
    QFETCH(QString, code);
    QFETCH(QString, alpha2);
    QFETCH(QString, alpha3);
    QFETCH(int, number);

    const auto country = static_cast<QLocale::Country>(number);
    QCOMPARE(CCountryLanguageCodeConversion::countryFromCountryCode(code), country);
    QCOMPARE(CCountryLanguageCodeConversion::getCountryLocale(code), country);
    QCOMPARE(CCountryLanguageCodeConversion::countryCodeFromCountry(country), code);
    QCOMPARE(CCountryLanguageCodeConversion::countryCode(alpha2), code);
    QCOMPARE(CCountryLanguageCodeConversion::countryCode(alpha3), code);
    QCOMPARE(CCountryLanguageCodeConversion::convertShortCountryCodeToISO3166(code), alpha2);
}

void tst_CCountryLanguageCodeConversion::languagesConvertBothWays_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("number");

    for (const Language &language : s_languages) {
        QTest::newRow(language.code) << text(language.code) << language.number;
    }
}

void tst_CCountryLanguageCodeConversion::languagesConvertBothWays()
{
    QFETCH(QString, code);
    QFETCH(int, number);

    const auto language = static_cast<QLocale::Language>(number);
    QCOMPARE(CCountryLanguageCodeConversion::languageFromLanguageCode(code), language);
    QCOMPARE(CCountryLanguageCodeConversion::languageCodeFromLanguage(language), code);
}

void tst_CCountryLanguageCodeConversion::countryListIsInTheOrderOfTheTable()
{
    QStringList expected;
    for (const Country &country : s_countries) {
        expected.append(text(country.code));
    }
    QCOMPARE(CCountryLanguageCodeConversion::getCountryList(), expected);
}

void tst_CCountryLanguageCodeConversion::latinAmericaIsACodeWithoutCountry()
{
    QCOMPARE(CCountryLanguageCodeConversion::countryCode(text("419")), text("LATAM"));
    QCOMPARE(CCountryLanguageCodeConversion::countryFromCountryCode(text("LATAM")),
             QLocale::AnyCountry);
    QCOMPARE(CCountryLanguageCodeConversion::convertShortCountryCodeToISO3166(text("LATAM")),
             QString());
    QVERIFY(!CCountryLanguageCodeConversion::getCountryList().contains(text("LATAM")));
}

void tst_CCountryLanguageCodeConversion::unknownCodesGiveNothing_data()
{
    QTest::addColumn<QString>("code");

    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QString::fromLatin1("");
    QTest::newRow("country in small letters") << QStringLiteral("ch");
    QTest::newRow("ISO code in small letters") << QStringLiteral("gbr");
    QTest::newRow("language in small letters") << QStringLiteral("deu");
    QTest::newRow("language in mixed letters") << QStringLiteral("Eng");
    QTest::newRow("blank in front") << QStringLiteral(" CH");
    QTest::newRow("blank behind") << QStringLiteral("CH ");
    QTest::newRow("name") << QStringLiteral("Switzerland");
    QTest::newRow("Latin America by its own code") << QStringLiteral("LATAM");
    QTest::newRow("another region's number") << QStringLiteral("150");
    QTest::newRow("Latin letters that only look so") << QStringLiteral(u"\u0421H");
}

void tst_CCountryLanguageCodeConversion::unknownCodesGiveNothing()
{
    QFETCH(QString, code);
    QCOMPARE(CCountryLanguageCodeConversion::countryFromCountryCode(code), QLocale::AnyCountry);
    QCOMPARE(CCountryLanguageCodeConversion::getCountryLocale(code), QLocale::AnyCountry);
    QCOMPARE(CCountryLanguageCodeConversion::languageFromLanguageCode(code), QLocale::AnyLanguage);
    QCOMPARE(CCountryLanguageCodeConversion::countryCode(code), QString());
    QCOMPARE(CCountryLanguageCodeConversion::convertShortCountryCodeToISO3166(code), QString());
}

void tst_CCountryLanguageCodeConversion::noOtherCodeIsKnown()
{
    QSet<QString> codes;
    QSet<QString> isoCodes;
    QSet<QString> languageCodes;
    for (const Country &country : s_countries) {
        codes << text(country.code);
        isoCodes << text(country.alpha2) << text(country.alpha3);
    }
    for (const Language &language : s_languages) {
        languageCodes << text(language.code);
    }
    QCOMPARE(isoCodes.size(), 88);

    const QStringList texts = allShortTexts();
    for (const QString &code : texts) {
        const bool isCode =
            CCountryLanguageCodeConversion::countryFromCountryCode(code) != QLocale::AnyCountry;
        const bool hasIso =
            !CCountryLanguageCodeConversion::convertShortCountryCodeToISO3166(code).isEmpty();
        const bool isIso = !CCountryLanguageCodeConversion::countryCode(code).isEmpty();
        const bool isLanguage =
            CCountryLanguageCodeConversion::languageFromLanguageCode(code) != QLocale::AnyLanguage;
        QVERIFY2(isCode == codes.contains(code) && hasIso == codes.contains(code)
                     && isIso == isoCodes.contains(code)
                     && isLanguage == languageCodes.contains(code),
                 qPrintable(code));
    }
}

void tst_CCountryLanguageCodeConversion::noOtherCountryOrLanguageIsKnown()
{
    QSet<QString> codes;
    for (int number = 0; number <= QLocale::LastCountry; ++number) {
        const QString code = CCountryLanguageCodeConversion::countryCodeFromCountry(
            static_cast<QLocale::Country>(number));
        if (!code.isEmpty()) {
            codes.insert(code);
        }
    }
    QCOMPARE(codes.size(), 44);

    codes.clear();
    for (int number = 0; number <= QLocale::LastLanguage; ++number) {
        const QString code = CCountryLanguageCodeConversion::languageCodeFromLanguage(
            static_cast<QLocale::Language>(number));
        if (!code.isEmpty()) {
            codes.insert(code);
        }
    }
    QCOMPARE(codes.size(), 29);
}

void tst_CCountryLanguageCodeConversion::numbersOutsideTheEnumerationsAreUnknown()
{
    QCOMPARE(CCountryLanguageCodeConversion::countryCodeFromCountry(QLocale::AnyCountry),
             QString());
    QCOMPARE(CCountryLanguageCodeConversion::languageCodeFromLanguage(QLocale::AnyLanguage),
             QString());
    // within the range of the enumerations' bits
    QCOMPARE(CCountryLanguageCodeConversion::countryCodeFromCountry(
                 static_cast<QLocale::Country>(QLocale::LastCountry + 1)),
             QString());
    QCOMPARE(CCountryLanguageCodeConversion::languageCodeFromLanguage(
                 static_cast<QLocale::Language>(QLocale::LastLanguage + 1)),
             QString());
}

QTEST_APPLESS_MAIN(tst_CCountryLanguageCodeConversion)

#include "tst_CCountryLanguageCodeConversion.moc"
