// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CLocaleSupport.h"
#include "tests/support/LocaleScope.h"

#include <QDateTime>
#include <QTest>

#include <cmath>
#include <limits>
#include <optional>

using Tavro::Base::DistanceUnit;
using Tavro::Shared::CLocaleSupport;
using Tavro::Shared::CProjectLocaleData;
using Tavro::Shared::GlobalLocaleData;

namespace {

using Limits = std::numeric_limits<double>;

/** What an application set to a locale shows. */
struct Locale
{
    const char *name;
    const char *distanceUnit; // in a project that sets none
    const char *temperatureUnit;
    const char *dateFormat;
    bool apStyle; // the inverted sense
    const char *distance; // -1234.5 with two decimals
};

const QVector<Locale> &locales()
{
    static const QVector<Locale> table = {
        {"de_CH", "m", "°C", "dd.MM.yyyy", true, "-1234.50"},
        {"de_DE", "m", "°C", "dd.MM.yyyy", true, "-1234,50"},
        {"en_US", "ft", "°F", "M/d/yyyy", false, "-1234.50"},
        {"en_GB", "m", "°F", "dd/MM/yyyy", true, "-1234.50"},
        {"fr_FR", "m", "°C", "dd/MM/yyyy", true, "-1234,50"},
        {"sv_SE", "m", "°C", "yyyy-MM-dd", true, "−1234,50"}, // U+2212
        {"ja_JP", "m", "°C", "yyyy/MM/dd", true, "-1234.50"},
        {"he_IL", "m", "°C", "d.M.yyyy", true, "-1234.50"},
        {"hi_IN", "m", "°C", "d/M/yyyy", false, "-1234.50"},
        {"pt_BR", "m", "°C", "dd/MM/yyyy", true, "-1234,50"},
        {"fa_IR", "m", "°C", "yyyy/M/d", true, "-۱۲۳۴٫۵۰"}, // U+066B as decimal mark
        {"ko_KR", "m", "°C", "yyyy. M. d.", false, "-1234.50"}, // "AP" before the hours
        {"C", "m", "°C", "d MMM yyyy", true, "-1234.50"},
    };
    return table;
}

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

void setDevice(const char *locale)
{
    GlobalLocaleData::instance()->setDeviceLocale(QLocale(QString::fromLatin1(locale)));
}

} // namespace

class tst_CLocaleSupport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void unitTexts_data();
    void unitTexts();
    void flagForTheHostIsTrue();

    void localesShowTheirOwn_data();
    void localesShowTheirOwn();
    void formatsAreThoseOfTheLocale_data();
    void formatsAreThoseOfTheLocale();
    void projectLocaleIsTheCurrentOne();
    void unitsOfAProject_data();
    void unitsOfAProject();
    void unitFollowsTheDefaultLocaleAndTemperatureTheCurrentOne();
    void columnUnitIsThatOfTheTemplateOrOfDistances();

    void distanceIsWritten_data();
    void distanceIsWritten();
    void distanceIsRead_data();
    void distanceIsRead();
    void bothMarksAreReadInEveryLocale_data();
    void bothMarksAreReadInEveryLocale();
    void textThatIsReadStaysAsItWas();

    void integersAreWrittenAsSuch_data();
    void integersAreWrittenAsSuch();
    void doublesAreWrittenAsIntegersWhenTheyAre_data();
    void doublesAreWrittenAsIntegersWhenTheyAre();
    void doublesFollowTheLocale();
    void datesAndTimesAreWrittenByFormat();
    void datesAndTimesAreWrittenInTheShortForm_data();
    void datesAndTimesAreWrittenInTheShortForm();
    void otherVariantsAreWrittenByThemselves_data();
    void otherVariantsAreWrittenByThemselves();

private:
    std::optional<Test::LocaleScope> m_scope;
    std::optional<Test::LogRecorder> m_silence;
};

void tst_CLocaleSupport::init()
{
    m_scope.emplace(QLocale::c());
    m_silence.emplace();
}

void tst_CLocaleSupport::cleanup()
{
    m_silence.reset();
    m_scope.reset();
}

void tst_CLocaleSupport::unitTexts_data()
{
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const QString &actual, const char *expected) {
        QTest::newRow(name) << actual << text(expected);
    };
    row("speedUnits_m_per_sec", CLocaleSupport::speedUnits_m_per_sec, "m/s");
    row("speedUnits_ft_per_sec", CLocaleSupport::speedUnits_ft_per_sec, "ft/s");
    row("speedUnits_inch_per_sec", CLocaleSupport::speedUnits_inch_per_sec, "inch/s");
    row("speedUnits_m_per_min", CLocaleSupport::speedUnits_m_per_min, "m/min");
    row("speedUnits_ft_per_min", CLocaleSupport::speedUnits_ft_per_min, "ft/min");
    row("speedUnits_inch_per_min", CLocaleSupport::speedUnits_inch_per_min, "inch/min");
    row("speedUnits_cm_per_sec", CLocaleSupport::speedUnits_cm_per_sec, "cm/s");
    row("angleUnits_hour", CLocaleSupport::angleUnits_hour, "hour");
    row("angleUnits_degree", CLocaleSupport::angleUnits_degree, "\xC2\xB0");
    row("angleUnits_percent", CLocaleSupport::angleUnits_percent, "%");
    row("pressureUnits_mbar", CLocaleSupport::pressureUnits_mbar, "mbar");
    row("pressureUnits_atm", CLocaleSupport::pressureUnits_atm, "atm");
    row("pressureUnits_pa", CLocaleSupport::pressureUnits_pa, "Pa");
    row("distanceUnits_m", CLocaleSupport::distanceUnits_m, "m");
    row("distanceUnits_ft", CLocaleSupport::distanceUnits_ft, "ft");
    row("distanceUnits_inch", CLocaleSupport::distanceUnits_inch, "inch");
    row("tempUnits_C", CLocaleSupport::tempUnits_C,
        "\xC2\xB0"
        "C");
    row("tempUnits_F", CLocaleSupport::tempUnits_F,
        "\xC2\xB0"
        "F");
}

void tst_CLocaleSupport::unitTexts()
{
    QFETCH(QString, actual);
    QTEST(actual, "expected");
    // made when the library is loaded, and so without memory from the heap
    QVERIFY(actual.data_ptr()->ref.isStatic());
}

void tst_CLocaleSupport::flagForTheHostIsTrue()
{
    const bool *const flag = &CLocaleSupport::decimalRegardlessOfLocale; // there is one to link to
    QCOMPARE(*flag, true);
}

void tst_CLocaleSupport::localesShowTheirOwn_data()
{
    QTest::addColumn<QString>("distanceUnit");
    QTest::addColumn<QString>("speedUnit");
    QTest::addColumn<QString>("temperatureUnit");
    QTest::addColumn<QString>("dateFormat");
    QTest::addColumn<bool>("apStyle");
    QTest::addColumn<QString>("distance");

    for (const Locale &locale : locales()) {
        QTest::newRow(locale.name)
            << text(locale.distanceUnit) << text(locale.distanceUnit) + QLatin1String("/min")
            << text(locale.temperatureUnit) << text(locale.dateFormat) << locale.apStyle
            << text(locale.distance);
    }
}

void tst_CLocaleSupport::localesShowTheirOwn()
{
    setDevice(QTest::currentDataTag());
    QFETCH(QString, distanceUnit);
    QFETCH(QString, distance);

    QTEST(CLocaleSupport::getSpeedUnitString(), "speedUnit");
    QTEST(CLocaleSupport::getTemperatureUnitString(), "temperatureUnit");
    QTEST(CLocaleSupport::getDateFormat(), "dateFormat");
    QTEST(CLocaleSupport::APStyle(), "apStyle");
    QCOMPARE(CLocaleSupport::getDistanceUnitString(), distanceUnit);
    QCOMPARE(CLocaleSupport::getAngleUnitString(), text("°"));
    QCOMPARE(CLocaleSupport::getPressureUnitString(), text("mbar"));
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(-1234.5, false, true), distance);
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(-1234.5, true, true),
             distance + QLatin1Char(' ') + distanceUnit);
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(-1234.5, false, false),
             distance.chopped(1));
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(distance), -1234.5);
    QCOMPARE(CLocaleSupport::variantToLocalizedString(-1234.5, QString()), distance);
    QCOMPARE(CLocaleSupport::variantToLocalizedString(-1234, QString()), distance.chopped(3));
}

void tst_CLocaleSupport::formatsAreThoseOfTheLocale_data()
{
    QTest::addColumn<QString>("name");

    for (const Locale &locale : locales()) {
        QTest::newRow(locale.name) << text(locale.name);
    }
}

void tst_CLocaleSupport::formatsAreThoseOfTheLocale()
{
    QFETCH(QString, name);
    const QLocale locale(name);
    setDevice(qPrintable(name));
    QCOMPARE(CLocaleSupport::getCurrentLocale().name(), locale.name());
    QCOMPARE(CLocaleSupport::getTimeFormat(), locale.timeFormat(QLocale::LongFormat));
    QCOMPARE(CLocaleSupport::getDateTimeFormat(), locale.dateTimeFormat(QLocale::ShortFormat));
    QCOMPARE(CLocaleSupport::APStyle(),
             !locale.timeFormat(QLocale::LongFormat).contains(QLatin1String("AP")));
}

void tst_CLocaleSupport::projectLocaleIsTheCurrentOne()
{
    setDevice("de_DE");
    CProjectLocaleData::instance()->setLocale(QStringLiteral("USA"), QStringLiteral("ENG"));
    QCOMPARE(CLocaleSupport::getCurrentLocale(), GlobalLocaleData::instance()->locale());
    QCOMPARE(CLocaleSupport::getCurrentLocale().name(), QStringLiteral("en_US"));
    QCOMPARE(CLocaleSupport::getDistanceUnitString(), QStringLiteral("ft"));
    QCOMPARE(CLocaleSupport::getSpeedUnitString(), QStringLiteral("ft/min"));
    QCOMPARE(CLocaleSupport::getTemperatureUnitString(), QStringLiteral("°F"));
    QCOMPARE(CLocaleSupport::getTimeFormat(), QStringLiteral("h:mm:ss AP t"));
    QCOMPARE(CLocaleSupport::APStyle(), false);

    CProjectLocaleData::instance()->setLocale(QStringLiteral("UK"), QStringLiteral("ENG"));
    QCOMPARE(CLocaleSupport::getDistanceUnitString(), QStringLiteral("m"));
    QCOMPARE(CLocaleSupport::getSpeedUnitString(), QStringLiteral("m/min"));
    QCOMPARE(CLocaleSupport::getTemperatureUnitString(), QStringLiteral("°F"));

    CProjectLocaleData::instance()->unsetLocale();
    QCOMPARE(CLocaleSupport::getCurrentLocale().name(), QStringLiteral("de_DE"));
    QCOMPARE(CLocaleSupport::getTemperatureUnitString(), QStringLiteral("°C"));
}

void tst_CLocaleSupport::unitsOfAProject_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("distance");
    QTest::addColumn<QString>("speed");

    QTest::newRow("metres") << 1 << QStringLiteral("m") << QStringLiteral("m/min");
    QTest::newRow("feet") << 2 << QStringLiteral("ft") << QStringLiteral("ft/min");
    QTest::newRow("inches show metres") << 3 << QStringLiteral("m") << QStringLiteral("m/min");
}

void tst_CLocaleSupport::unitsOfAProject()
{
    QFETCH(int, unit);
    CProjectLocaleData::instance()->setUnitType(static_cast<DistanceUnit>(unit));
    for (const char *locale : {"en_US", "de_DE"}) {
        setDevice(locale);
        QCOMPARE(static_cast<int>(CLocaleSupport::getDistanceUnit()), unit);
        QTEST(CLocaleSupport::getDistanceUnitString(), "distance");
        QTEST(CLocaleSupport::getSpeedUnitString(), "speed");
        QTEST(CLocaleSupport::catalogTemplateColumnUnit(QStringLiteral("any")), "distance");
    }
}

void tst_CLocaleSupport::unitFollowsTheDefaultLocaleAndTemperatureTheCurrentOne()
{
    setDevice("de_DE");
    GlobalLocaleData::instance()->setDefaultLocale(
        QLocale(QLocale::English, QLocale::UnitedStates));
    QCOMPARE(CLocaleSupport::getDistanceUnit(), DistanceUnit::Feet);
    QCOMPARE(CLocaleSupport::getTemperatureUnitString(), QStringLiteral("°C"));
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(1.5, true, false),
             QStringLiteral("1,5 ft"));
}

void tst_CLocaleSupport::columnUnitIsThatOfTheTemplateOrOfDistances()
{
    const Test::FakeColumn height(QStringLiteral("height"), QStringLiteral("mm"));
    const Test::FakeColumn bare(QStringLiteral("bare"), QString());
    const Test::FakeView detail(QStringLiteral("detail_s"), {&height, &bare});
    Test::FakeTemplateManager manager;
    manager.insert(QStringLiteral("t"),
                   QSharedPointer<Test::FakeTemplate>::create(
                       QStringLiteral("ft"), QVector<const Test::FakeView *>{&detail}));
    CProjectLocaleData::instance()->onNewTemplateLoaded(
        QStringLiteral("t"), manager, Test::FakeRegistry(), QString(), QString(), QString());
    QCOMPARE(CLocaleSupport::catalogTemplateColumnUnit(QStringLiteral("height")),
             QStringLiteral("mm"));
    QCOMPARE(CLocaleSupport::catalogTemplateColumnUnit(QStringLiteral("bare")),
             QStringLiteral("ft"));
    QCOMPARE(CLocaleSupport::catalogTemplateColumnUnit(QStringLiteral("none")),
             QStringLiteral("ft"));
}

void tst_CLocaleSupport::distanceIsWritten_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("oneDecimal");
    QTest::addColumn<QString>("twoDecimals");

    const auto row = [](const char *name, const char *locale, double value, const char *one,
                        const char *two) {
        QTest::newRow(name) << text(locale) << value << text(one) << text(two);
    };
    row("whole", "en_GB", 2, "2.0", "2.00");
    row("rounded", "en_GB", 12.3456, "12.3", "12.35");
    row("rounded up to the next digit", "en_GB", 9.999, "10.0", "10.00");
    row("zero", "en_GB", 0, "0.0", "0.00");
    row("without group separators", "en_GB", 1234.5, "1234.5", "1234.50");
    row("without group separators in millions", "de_CH", 1234567.5, "1234567.5", "1234567.50");
    row("without group separators in lakhs", "hi_IN", 1234567.5, "1234567.5", "1234567.50");
    row("without group separators that are blanks", "fr_FR", 1234567.5, "1234567,5", "1234567,50");
    row("negative", "de_DE", -0.25, "-0,3", "-0,25");
    row("infinity", "en_GB", Limits::infinity(), "inf", "inf");
    row("negative infinity", "en_GB", -Limits::infinity(), "-inf", "-inf");
    row("NaN", "en_GB", Limits::quiet_NaN(), "nan", "nan");
    row("denormal", "en_GB", Limits::denorm_min(), "0.0", "0.00");
}

void tst_CLocaleSupport::distanceIsWritten()
{
    QFETCH(QString, locale);
    QFETCH(double, value);
    QFETCH(QString, oneDecimal);
    QFETCH(QString, twoDecimals);
    setDevice(qPrintable(locale));
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(value, false, false), oneDecimal);
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(value, false, true), twoDecimals);
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(value, true, false),
             oneDecimal + QLatin1String(" m"));
    QCOMPARE(CLocaleSupport::distanceValueToLocalizedString(value, true, true),
             twoDecimals + QLatin1String(" m"));
}

void tst_CLocaleSupport::distanceIsRead_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("input");
    QTest::addColumn<double>("expected");

    const auto row = [](const char *name, const char *locale, const char *input, double expected) {
        QTest::newRow(name) << text(locale) << text(input) << expected;
    };
    row("grouped as in German", "de_DE", "1.234,5", 0);
    row("grouped as in English", "en_US", "1,234.5", 0);
    row("grouped as in German, read in English", "en_US", "1.234,5", 0);
    row("one thousand, meant as a group", "en_US", "1,234", 1.234);
    row("two groups", "en_US", "1,234,567", 0);
    row("letters", "en_US", "abc", 0);
    row("unit behind", "en_US", "1.5 m", 0);
    row("nothing", "en_US", "", 0);
    row("only a mark", "en_US", ".", 0);
    row("mark in front", "de_DE", ",5", 0.5);
    row("mark behind", "de_DE", "5.", 5);
    row("negative", "de_DE", "-1.25", -1.25);
    row("blanks around", "de_DE", " 1,5 ", 1.5);
    row("exponent", "de_DE", "1,5e3", 1500);
    row("not a number, by name", "de_DE", "nan", Limits::quiet_NaN());
    row("not a number, in capitals", "en_US", "NaN", Limits::quiet_NaN());
    row("not a number, with blanks", "en_US", " nan ", Limits::quiet_NaN());
    row("not a number, with a sign", "en_US", "-nan", 0);
    row("not a number, with a payload", "en_US", "nan(1)", 0);
    row("infinity", "de_DE", "inf", Limits::infinity());
    row("infinity, in capitals", "en_US", "INF", Limits::infinity());
    row("infinity, with a plus", "en_US", "+inf", Limits::infinity());
    row("infinity, negative", "ar_EG", "-inf", -Limits::infinity());
    row("infinity, in full", "en_US", "infinity", 0);
    row("too large", "en_US", "1e400", 0);
    row("too large, negative", "en_US", "-1e400", 0);
    row("the locale's own mark", "fa_IR",
        "1\xD9\xAB"
        "5",
        1.5);
    row("the locale's own mark twice", "fa_IR",
        "1\xD9\xAB"
        "5,5",
        0);
    row("many digits", "de_DE",
        "0,0000000000000000000000000000000000000000000000000000000000000000000000001", 1e-73);
}

void tst_CLocaleSupport::distanceIsRead()
{
    QFETCH(QString, locale);
    QFETCH(QString, input);
    setDevice(qPrintable(locale));
    QTEST(CLocaleSupport::distanceValueFromLocalizedString(input), "expected");
}

void tst_CLocaleSupport::bothMarksAreReadInEveryLocale_data()
{
    formatsAreThoseOfTheLocale_data();
}

void tst_CLocaleSupport::bothMarksAreReadInEveryLocale()
{
    QFETCH(QString, name);
    setDevice(qPrintable(name));
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(QStringLiteral("1,5")), 1.5);
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(QStringLiteral("1.5")), 1.5);
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(QStringLiteral("1.234,5")), 0.0);
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(QString()), 0.0);
}

void tst_CLocaleSupport::textThatIsReadStaysAsItWas()
{
    setDevice("de_DE");
    const QString input = QStringLiteral("1.5");
    QCOMPARE(CLocaleSupport::distanceValueFromLocalizedString(input), 1.5);
    QCOMPARE(input, QStringLiteral("1.5"));
}

void tst_CLocaleSupport::integersAreWrittenAsSuch_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("int") << QVariant(-1234567) << QStringLiteral("-1234567");
    QTest::newRow("largest int") << QVariant(std::numeric_limits<int>::max())
                                 << QStringLiteral("2147483647");
    QTest::newRow("smallest int") << QVariant(std::numeric_limits<int>::min())
                                  << QStringLiteral("-2147483648");
    QTest::newRow("largest unsigned int")
        << QVariant(std::numeric_limits<uint>::max()) << QStringLiteral("4294967295");
    QTest::newRow("largest long long")
        << QVariant(std::numeric_limits<qlonglong>::max()) << QStringLiteral("9223372036854775807");
    QTest::newRow("smallest long long") << QVariant(std::numeric_limits<qlonglong>::min())
                                        << QStringLiteral("-9223372036854775808");
    QTest::newRow("largest unsigned long long") << QVariant(std::numeric_limits<qulonglong>::max())
                                                << QStringLiteral("18446744073709551615");
}

void tst_CLocaleSupport::integersAreWrittenAsSuch()
{
    QFETCH(QVariant, value);
    for (const char *locale : {"de_DE", "en_US"}) {
        setDevice(locale);
        QTEST(CLocaleSupport::variantToLocalizedString(value, QString()), "expected");
        QTEST(CLocaleSupport::variantToLocalizedString(value, QStringLiteral("0.00")), "expected");
    }
    setDevice("fa_IR");
    QCOMPARE(CLocaleSupport::variantToLocalizedString(12, QString()), QStringLiteral("۱۲"));
}

void tst_CLocaleSupport::doublesAreWrittenAsIntegersWhenTheyAre_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, double value, const char *expected) {
        QTest::newRow(name) << value << text(expected);
    };
    row("an integer", 3, "3");
    row("a negative integer", -3, "-3");
    row("zero", 0, "0");
    row("negative zero", -0.0, "0");
    row("decimals", 2.5, "2.50");
    row("a half of the second decimal", 0.125, "0.13");
    row("next to zero, below", -0.0000000000001, "0");
    row("next to zero, above", 0.0000000000001, "0");
    row("denormal", Limits::denorm_min(), "0");
    row("at the edge of zero", 1e-12, "0");
    row("beyond the edge of zero", 1.1e-12, "0.00");
    row("beyond the edge of zero, negative", -1.1e-12, "-0.00");
    row("just above an integer", 3 + 4e-13, "3");
    row("above an integer", 3 + 4e-12, "3.00");
    // the truncated value is what counts, so the integer above is far away
    row("just below an integer", 3 - 4e-13, "3.00");
    row("just below a negative integer", -3 - 4e-13, "-3");
    row("just above a negative integer", -3 + 4e-13, "-3.00");
    row("largest integer", 2147483647.0, "2147483647");
    row("one more", 2147483648.0, "2147483648.00");
    row("a half more than the largest integer", 2147483647.5, "2147483647.50");
    row("smallest integer", -2147483648.0, "-2147483648");
    row("a half less than the smallest integer", -2147483648.5, "-2147483648.50");
    row("one less", -2147483649.0, "-2147483649.00");
    row("ten digits more than an integer has", 1e10, "10000000000.00");
    row("infinity", Limits::infinity(), "inf");
    row("negative infinity", -Limits::infinity(), "-inf");
    row("NaN", Limits::quiet_NaN(), "nan");
}

void tst_CLocaleSupport::doublesAreWrittenAsIntegersWhenTheyAre()
{
    QFETCH(double, value);
    setDevice("en_US");
    QTEST(CLocaleSupport::variantToLocalizedString(value, QString()), "expected");
    QTEST(CLocaleSupport::variantToLocalizedString(value, QStringLiteral("0.000")), "expected");
}

void tst_CLocaleSupport::doublesFollowTheLocale()
{
    setDevice("de_DE");
    QCOMPARE(CLocaleSupport::variantToLocalizedString(2.5, QString()), QStringLiteral("2,50"));
    QCOMPARE(CLocaleSupport::variantToLocalizedString(12345.0, QString()), QStringLiteral("12345"));
    setDevice("fa_IR");
    QCOMPARE(CLocaleSupport::variantToLocalizedString(2.5, QString()), QStringLiteral("۲٫۵۰"));
    QCOMPARE(CLocaleSupport::variantToLocalizedString(3.0, QString()), QStringLiteral("۳"));
    const QVariant largest(Limits::max());
    setDevice("en_US");
    QCOMPARE(CLocaleSupport::variantToLocalizedString(largest, QString()).size(), 309 + 3);
}

void tst_CLocaleSupport::datesAndTimesAreWrittenByFormat()
{
    const QDate date(2024, 3, 9);
    const QTime time(14, 5, 6, 70);
    const auto shown = [](const QVariant &value, const char *format) {
        return CLocaleSupport::variantToLocalizedString(value, QString::fromLatin1(format));
    };
    setDevice("de_DE");
    QCOMPARE(shown(date, "dddd, d. MMMM yyyy"), QStringLiteral("Samstag, 9. März 2024"));
    QCOMPARE(shown(time, "HH-mm-ss.zzz"), QStringLiteral("14-05-06.070"));
    QCOMPARE(shown(QDateTime(date, time), "dd.MM.yyyy HH:mm"), QStringLiteral("09.03.2024 14:05"));
    setDevice("en_US");
    QCOMPARE(shown(date, "MMMM"), QStringLiteral("March"));
    QCOMPARE(shown(time, "h:mm AP"), QStringLiteral("2:05 PM"));
    QCOMPARE(shown(QDate(), "yyyy"), QString());
    QCOMPARE(shown(QTime(), "HH"), QString());
    QCOMPARE(shown(QDateTime(), "HH"), QString());
}

void tst_CLocaleSupport::datesAndTimesAreWrittenInTheShortForm_data()
{
    formatsAreThoseOfTheLocale_data();
}

void tst_CLocaleSupport::datesAndTimesAreWrittenInTheShortForm()
{
    QFETCH(QString, name);
    setDevice(qPrintable(name));
    const QLocale locale(name);
    const QDate date(2024, 3, 9);
    const QTime time(14, 5, 6);
    const QDateTime both(date, time);
    for (const QString &none : {QString(), QString::fromLatin1("")}) {
        QCOMPARE(CLocaleSupport::variantToLocalizedString(date, none),
                 locale.toString(date, QLocale::ShortFormat));
        QCOMPARE(CLocaleSupport::variantToLocalizedString(time, none),
                 locale.toString(time, QLocale::ShortFormat));
        QCOMPARE(CLocaleSupport::variantToLocalizedString(both, none),
                 locale.toString(both, QLocale::ShortFormat));
    }
}

void tst_CLocaleSupport::otherVariantsAreWrittenByThemselves_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("invalid") << QVariant() << QString();
    QTest::newRow("text") << QVariant(QStringLiteral("1.5")) << QStringLiteral("1.5");
    QTest::newRow("true") << QVariant(true) << QStringLiteral("true");
    QTest::newRow("false") << QVariant(false) << QStringLiteral("false");
    QTest::newRow("float") << QVariant(2.5F) << QStringLiteral("2.5");
    QTest::newRow("short") << QVariant::fromValue(short(12)) << QStringLiteral("12");
    QTest::newRow("long") << QVariant::fromValue(12L) << QStringLiteral("12");
    QTest::newRow("letter") << QVariant(QChar(u'x')) << QStringLiteral("x");
    QTest::newRow("bytes") << QVariant(QByteArrayLiteral("bytes")) << QStringLiteral("bytes");
    QTest::newRow("list") << QVariant(QVariantList({1, 2})) << QString();
}

void tst_CLocaleSupport::otherVariantsAreWrittenByThemselves()
{
    QFETCH(QVariant, value);
    setDevice("de_DE");
    QTEST(CLocaleSupport::variantToLocalizedString(value, QString()), "expected");
    QTEST(CLocaleSupport::variantToLocalizedString(value, QStringLiteral("dd")), "expected");
}

QTEST_APPLESS_MAIN(tst_CLocaleSupport)

#include "tst_CLocaleSupport.moc"
