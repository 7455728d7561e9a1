// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CCountryLanguageCodeConversion.h"
#include "shared/locale/CLocaleSupport.h"
#include "tests/support/LocaleScope.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTest>

#include <optional>

using Tavro::Base::DistanceUnit;
using Tavro::Shared::CCountryLanguageCodeConversion;
using Tavro::Shared::CLocaleSupport;
using Tavro::Shared::CProjectLocaleData;

namespace {

QStringList languageCodes()
{
    return QStringLiteral("BUL CES DAN DEU ENG EST FIN FRA HEB HRV HUN ITA JPN LAV NLD NOR POL POR "
                          "RON RUS SLK SLV SPA SRP SWE TUR ZHO UKR ELL")
        .split(QLatin1Char(' '));
}

} // namespace

/** Every country with every language, most of which no catalog has. */
class tst_CLocaleSupportPairs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void distancesSurviveTheWayThereAndBack_data();
    void distancesSurviveTheWayThereAndBack();
    void unitsAreThoseOfTheMeasurementSystem_data();
    void unitsAreThoseOfTheMeasurementSystem();
    void nothingIsGrouped_data();
    void nothingIsGrouped();
    void yearsHaveFourDigits_data();
    void yearsHaveFourDigits();

private:
    std::optional<Test::LocaleScope> m_scope;
    std::optional<Test::LogRecorder> m_silence;
};

void tst_CLocaleSupportPairs::init()
{
    m_scope.emplace(QLocale::c());
    m_silence.emplace();

    QFETCH(QString, country);
    QFETCH(QString, language);
    CProjectLocaleData::instance()->setLocale(country, language);
}

void tst_CLocaleSupportPairs::cleanup()
{
    m_silence.reset();
    m_scope.reset();
}

void tst_CLocaleSupportPairs::distancesSurviveTheWayThereAndBack_data()
{
    QTest::addColumn<QString>("country");
    QTest::addColumn<QString>("language");

    const QStringList countries = CCountryLanguageCodeConversion::getCountryList();
    const QStringList languages = languageCodes();
    QCOMPARE(countries.size() * languages.size(), 44 * 29);
    for (const QString &country : countries) {
        for (const QString &language : languages) {
            QTest::addRow("%s %s", qPrintable(country), qPrintable(language))
                << country << language;
        }
    }
}

void tst_CLocaleSupportPairs::distancesSurviveTheWayThereAndBack()
{
    for (const double value : {0.0, 0.25, 1.5, -1.5, 99.99, -1234.75, 1234567.25, 1e12}) {
        QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(
                     CLocaleSupport::distanceValueToLocalizedString(value, false, true)),
                 value);
    }
    for (const double value : {0.5, -0.1, 98765.4}) {
        QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(
                     CLocaleSupport::distanceValueToLocalizedString(value, false, false)),
                 value);
    }
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(QStringLiteral("1,5")), 1.5);
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(QStringLiteral("1.5")), 1.5);
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(QStringLiteral("1.234,5")), 0.0);
    // a unit behind the number is not read
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(
                 CLocaleSupport::distanceValueToLocalizedString(1.5, true, true)),
             0.0);
}

void tst_CLocaleSupportPairs::unitsAreThoseOfTheMeasurementSystem_data()
{
    distancesSurviveTheWayThereAndBack_data();
}

void tst_CLocaleSupportPairs::unitsAreThoseOfTheMeasurementSystem()
{
    const QLocale locale;
    QCOMPARE(CLocaleSupport::getCurrentLocale(), locale);

    const QLocale::MeasurementSystem system = locale.measurementSystem();
    const bool american = system == QLocale::ImperialUSSystem;
    QCOMPARE(CLocaleSupport::getDistanceUnit(),
             american ? DistanceUnit::Feet : DistanceUnit::Meter);
    QCOMPARE(CLocaleSupport::getDistanceUnitString(),
             american ? QStringLiteral("ft") : QStringLiteral("m"));
    QCOMPARE(CLocaleSupport::getSpeedUnitString(),
             american ? QStringLiteral("ft/min") : QStringLiteral("m/min"));
    QCOMPARE(CLocaleSupport::getTemperatureUnitString(),
             system == QLocale::MetricSystem ? QStringLiteral("°C") : QStringLiteral("°F"));
    QCOMPARE(CLocaleSupport::getAngleUnitString(), QStringLiteral("°"));
    QCOMPARE(CLocaleSupport::getPressureUnitString(), QStringLiteral("mbar"));
}

void tst_CLocaleSupportPairs::nothingIsGrouped_data()
{
    distancesSurviveTheWayThereAndBack_data();
}

void tst_CLocaleSupportPairs::nothingIsGrouped()
{
    QCOMPARE(CLocaleSupport::variantToLocalizedString(1234567, QString()),
             QStringLiteral("1234567"));
    QCOMPARE(CLocaleSupport::variantToLocalizedString(1234567.0, QString()),
             QStringLiteral("1234567"));
    QCOMPARE(CLocaleSupport::variantToLocalizedString(1234567.5, QString()).size(),
             int(sizeof "1234567.50") - 1);
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(1234567.5, false, false).size(),
             int(sizeof "1234567.5") - 1);
    QCOMPARE(QLocale().toString(1234567), QStringLiteral("1234567"));
}

void tst_CLocaleSupportPairs::yearsHaveFourDigits_data()
{
    distancesSurviveTheWayThereAndBack_data();
}

void tst_CLocaleSupportPairs::yearsHaveFourDigits()
{
    const QRegularExpression years(QStringLiteral("y+"));
    const QRegularExpressionMatch match = years.match(CLocaleSupport::getDateFormat());
    QCOMPARE(match.captured(), QStringLiteral("yyyy"));

    const QDateTime moment(QDate(2024, 3, 9), QTime(14, 5, 6));
    QVERIFY(!CLocaleSupport::getTimeFormat().isEmpty());
    QVERIFY(!CLocaleSupport::getDateTimeFormat().isEmpty());
    QVERIFY(!CLocaleSupport::variantToLocalizedString(moment, QString()).isEmpty());
    QVERIFY(CLocaleSupport::variantToLocalizedString(moment.date(), CLocaleSupport::getDateFormat())
                .contains(QStringLiteral("2024")));
}

QTEST_APPLESS_MAIN(tst_CLocaleSupportPairs)

#include "tst_CLocaleSupportPairs.moc"
