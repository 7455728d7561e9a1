// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Codes.h"

#include <QSet>
#include <QTest>

using namespace Tavro::FieldHost;

/** What a user may have meant with a code that catalogs do not know. */
class tst_Codes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knownCodesAreExact();
    void everyLanguageIsListedOnce();
    void theNearestCountryIsMeant_data();
    void theNearestCountryIsMeant();
    void theNearestLanguageIsMeant_data();
    void theNearestLanguageIsMeant();
    void localesHaveManyNames_data();
    void localesHaveManyNames();
    void anotherLocaleIsNoAnswer_data();
    void anotherLocaleIsNoAnswer();
};

void tst_Codes::knownCodesAreExact()
{
    QVERIFY(isCountryCode(QStringLiteral("CH")));
    QVERIFY(!isCountryCode(QStringLiteral("ch")));
    QVERIFY(!isCountryCode(QStringLiteral("LATAM")));
    QVERIFY(!isCountryCode(QString()));
    QVERIFY(isLanguageCode(QStringLiteral("DEU")));
    QVERIFY(!isLanguageCode(QStringLiteral("deu")));
    QVERIFY(!isLanguageCode(QString()));
}

void tst_Codes::everyLanguageIsListedOnce()
{
    const QStringList codes = languageCodes();
    QCOMPARE(codes.size(), 29);
    QCOMPARE(QSet<QString>(codes.begin(), codes.end()).size(), 29);
    QCOMPARE(codes.first(), QStringLiteral("BUL"));
    QCOMPARE(codes.last(), QStringLiteral("UKR"));
}

void tst_Codes::theNearestCountryIsMeant_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("code");

    QTest::newRow("small letters") << "ch"
                                   << "CH";
    QTest::newRow("one small letter") << "d"
                                      << "D";
    QTest::newRow("the ISO code of two letters") << "GB"
                                                 << "UK";
    QTest::newRow("the ISO code of three letters, small") << "can"
                                                          << "CDN";
    QTest::newRow("the name") << "germany"
                              << "D";
    QTest::newRow("the name, misspelled") << "Swizerland"
                                          << "CH";
    QTest::newRow("a wrong letter") << "USB"
                                    << "USA";
    QTest::newRow("the number of a region") << "419"
                                            << "";
    QTest::newRow("a name like none") << "Atlantis"
                                      << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void tst_Codes::theNearestCountryIsMeant()
{
    QFETCH(QString, typed);

    const QString code = nearestCountryCode(typed);
    QTEST(code, "code");
    QVERIFY(code.isEmpty() || isCountryCode(code));
}

void tst_Codes::theNearestLanguageIsMeant_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("code");

    QTest::newRow("small letters") << "deu"
                                   << "DEU";
    QTest::newRow("ISO 639-1") << "fr"
                               << "FRA";
    QTest::newRow("ISO 639-1 in capitals") << "EL"
                                           << "ELL";
    QTest::newRow("the name") << "swedish"
                              << "SWE";
    QTest::newRow("the name, misspelled") << "Ukrainan"
                                          << "UKR";
    QTest::newRow("a wrong letter") << "HUM"
                                    << "HUN";
    QTest::newRow("two letters that are no language") << "xx"
                                                      << "";
    QTest::newRow("nothing") << ""
                             << "";
    // the other codes of ISO 639-2
    QTest::newRow("Chinese") << "CHI"
                             << "ZHO";
    QTest::newRow("Czech") << "CZE"
                           << "CES";
    QTest::newRow("Dutch") << "DUT"
                           << "NLD";
    QTest::newRow("French") << "fre"
                            << "FRA";
    QTest::newRow("German") << "GER"
                            << "DEU";
    QTest::newRow("Greek") << "GRE"
                           << "ELL";
    QTest::newRow("Romanian") << "RUM"
                              << "RON";
    QTest::newRow("Slovak") << "SLO"
                            << "SLK";
}

void tst_Codes::theNearestLanguageIsMeant()
{
    QFETCH(QString, typed);

    const QString code = nearestLanguageCode(typed);
    QTEST(code, "code");
    QVERIFY(code.isEmpty() || isLanguageCode(code));
}

void tst_Codes::localesHaveManyNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("locale");

    QTest::newRow("language and country") << "de_CH"
                                          << "de_CH";
    QTest::newRow("with a hyphen") << "pt-BR"
                                   << "pt_BR";
    QTest::newRow("the language alone") << "fr"
                                        << "fr_FR";
    QTest::newRow("with a script") << "zh_Hant_TW"
                                   << "zh_TW";
    QTest::newRow("with an encoding") << "sv_SE.UTF-8"
                                      << "sv_SE";
    QTest::newRow("with a variant") << "de_DE@euro"
                                    << "de_DE";
    QTest::newRow("without a country") << "C"
                                       << "C";
}

void tst_Codes::localesHaveManyNames()
{
    QFETCH(QString, name);

    const std::optional<QLocale> locale = localeOfName(name);
    QVERIFY(locale);
    QTEST(locale->name(), "locale");
}

void tst_Codes::anotherLocaleIsNoAnswer_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("meant");

    // Qt answers de_DE for this
    QTest::newRow("a country that does not exist") << "de_XX"
                                                   << "de_DE";
    QTest::newRow("a language that does not exist") << "qq_FR"
                                                    << "br_FR";
    QTest::newRow("small letters, one too many") << "sv_SEE"
                                                 << "sv_SE";
    QTest::newRow("a name like none") << "klingon"
                                      << "";
    QTest::newRow("no name at all") << ""
                                    << "";
}

void tst_Codes::anotherLocaleIsNoAnswer()
{
    QFETCH(QString, typed);

    QVERIFY(!localeOfName(typed));
    QTEST(nearestLocaleName(typed), "meant");
}

QTEST_APPLESS_MAIN(tst_Codes)

#include "tst_Codes.moc"
