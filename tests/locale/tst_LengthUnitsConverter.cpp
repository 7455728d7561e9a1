// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/LengthUnitsConverter.h"
#include "tests/support/LogRecorder.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <type_traits>

using Tavro::FieldHost::HostLog;
using Tavro::Logging::LogLevel;
using Tavro::Shared::CLocaleSupport;
using Tavro::Shared::LengthUnitsConverter;

namespace {

using Limits = std::numeric_limits<double>;

struct Unit
{
    QString text;
    double (*toMeters)(double);
    double (*fromMeters)(double);
};

const QVector<Unit> &units()
{
    static const QVector<Unit> table = {
        {QStringLiteral("m"), [](double x) { return x; }, [](double x) { return x; }},
        {QStringLiteral("ft"), [](double x) { return x * 0.3048; },
         [](double x) { return x / 0.3048; }},
        {QStringLiteral("inch"), [](double x) { return x * 0.0254; },
         [](double x) { return x / 0.0254; }},
        {QStringLiteral("mm"), [](double x) { return x / 1000; },
         [](double x) { return x * 1000; }},
        {QStringLiteral("cm"), [](double x) { return x / 100; }, [](double x) { return x * 100; }},
    };
    return table;
}

QVector<double> values()
{
    QVector<double> list = {
        0.0,
        1.0,
        -1.0,
        0.1,
        7.3,
        -12345.678,
        0.3048,
        0.0254,
        1e-12,
        1e15,
        1e308,
        -1e308,
        Limits::min(),
        Limits::denorm_min(),
        Limits::max(),
        Limits::infinity(),
        -Limits::infinity(),
    };
    // enough of them that a product with a reciprocal differs from the quotient somewhere
    for (int i = 1; i <= 200; ++i) {
        list.append(i / 7.0);
    }
    return list;
}

QString quoted(const QString &unit)
{
    return QLatin1Char('"') + unit + QLatin1Char('"');
}

} // namespace

class tst_LengthUnitsConverter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainClass();
    void everyPairIsRightToTheLastBit();
    void knownLengths_data();
    void knownLengths();
    void signOfZeroIsKept();
    void unknownSourceIsNothing_data();
    void unknownSourceIsNothing();
    void unknownTargetIsLogged_data();
    void unknownTargetIsLogged();
    void sameUnitGivesTheValueWhateverTheUnit_data();
    void sameUnitGivesTheValueWhateverTheUnit();
    void emptyUnitsAndNaNGiveNaN_data();
    void emptyUnitsAndNaNGiveNaN();
    void unitTextsAreThoseThatAreShown();

private:
    const QVector<double> m_values = values();
};

void tst_LengthUnitsConverter::isAPlainClass()
{
    static_assert(std::is_trivially_default_constructible_v<LengthUnitsConverter>);
    static_assert(std::is_empty_v<LengthUnitsConverter>);
}

void tst_LengthUnitsConverter::everyPairIsRightToTheLastBit()
{
    for (const Unit &from : units()) {
        for (const Unit &to : units()) {
            for (const double value : m_values) {
                const double expected =
                    from.text == to.text ? value : to.fromMeters(from.toMeters(value));
                const double actual = LengthUnitsConverter::convert(from.text, to.text, value);
                QVERIFY2(actual == expected,
                         qPrintable(QStringLiteral("%1 %2 are %3 %4")
                                        .arg(value)
                                        .arg(from.text)
                                        .arg(actual, 0, 'g', 17)
                                        .arg(to.text)));
            }
        }
    }
}

void tst_LengthUnitsConverter::knownLengths_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");

    const auto row = [](const char *name, const char *from, const char *to, double value,
                        double expected) {
        QTest::newRow(name) << QString::fromLatin1(from) << QString::fromLatin1(to) << value
                            << expected;
    };
    row("a foot", "ft", "m", 1, 0.3048);
    row("an inch from metres", "m", "inch", 0.0254, 1);
    row("a centimetre", "cm", "mm", 1, 10);
    row("an inch", "inch", "m", 1, 0.0254);
    row("a foot from metres", "m", "ft", 0.3048, 1);
    row("a kilometre", "m", "mm", 1000, 1e6);
    row("a millimetre", "mm", "m", 1, 0.001);
    row("a metre in centimetres", "m", "cm", 1, 100);
    // a product with the reciprocal gives another last digit
    row("divided and not multiplied", "m", "ft", 1, 1 / 0.3048);
    // through metres, and not by the factor 12
    row("through metres", "ft", "inch", 0.1, 0.1 * 0.3048 / 0.0254);
}

void tst_LengthUnitsConverter::knownLengths()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(double, value);
    QFETCH(double, expected);
    const Test::LogRecorder log;
    QVERIFY(LengthUnitsConverter::convert(from, to, value) == expected);
    QCOMPARE(log.entries(), QStringList());
}

void tst_LengthUnitsConverter::signOfZeroIsKept()
{
    for (const Unit &from : units()) {
        for (const Unit &to : units()) {
            const double zero = LengthUnitsConverter::convert(from.text, to.text, -0.0);
            QVERIFY(zero == 0 && std::signbit(zero));
        }
    }
}

void tst_LengthUnitsConverter::unknownSourceIsNothing_data()
{
    QTest::addColumn<QString>("from");

    for (const char *unit :
         {"yd", "M", "FT", "Inch", " m", "m ", "km", "meter", "f", "inche", "inches"}) {
        const QString text = QString::fromLatin1(unit);
        QTest::newRow(qPrintable(quoted(text))) << text;
    }
}

void tst_LengthUnitsConverter::unknownSourceIsNothing()
{
    QFETCH(QString, from);
    const Test::LogRecorder log;
    for (const Unit &to : units()) {
        for (const double value : m_values) {
            const double actual = LengthUnitsConverter::convert(from, to.text, value);
            QVERIFY(actual == 0 && !std::signbit(actual));
        }
    }
    QCOMPARE(log.entries(), QStringList());
}

void tst_LengthUnitsConverter::unknownTargetIsLogged_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");

    const auto row = [](const char *name, const char *from, const char *to) {
        QTest::newRow(name) << QString::fromLatin1(from) << QString::fromLatin1(to);
    };
    row("from metres", "m", "yd");
    row("from millimetres", "mm", "yd");
    row("a unit in capitals", "m", "MM");
    row("both unknown", "km", "yd");
}

void tst_LengthUnitsConverter::unknownTargetIsLogged()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const Test::LogRecorder log;
    QVERIFY(LengthUnitsConverter::convert(from, to, 5) == 5);
    QVERIFY(LengthUnitsConverter::convert(from, to, -Limits::infinity()) == -Limits::infinity());
    const QString entry =
        HostLog::format(LogLevel::Error, QStringLiteral("LengthUnitsConverter"),
                        QStringLiteral("DistanceUnitsConverter - Units converter not found"));
    QCOMPARE(log.entries(), QStringList({entry, entry}));
}

void tst_LengthUnitsConverter::sameUnitGivesTheValueWhateverTheUnit_data()
{
    QTest::addColumn<QString>("unit");

    for (const char *unit : {"m", "ft", "inch", "mm", "cm", "yd", " "}) {
        const QString text = QString::fromLatin1(unit);
        QTest::newRow(qPrintable(quoted(text))) << text;
    }
}

void tst_LengthUnitsConverter::sameUnitGivesTheValueWhateverTheUnit()
{
    QFETCH(QString, unit);
    const Test::LogRecorder log;
    for (const double value : m_values) {
        QVERIFY(LengthUnitsConverter::convert(unit, unit, value) == value);
    }
    QCOMPARE(log.entries(), QStringList());
}

void tst_LengthUnitsConverter::emptyUnitsAndNaNGiveNaN_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<double>("value");

    const QString m = QStringLiteral("m");
    const QString yd = QStringLiteral("yd");
    const QString empty = QString::fromLatin1("");
    const double nan = Limits::quiet_NaN();
    QTest::newRow("no source") << empty << m << 5.0;
    QTest::newRow("null source") << QString() << m << 5.0;
    QTest::newRow("no target") << m << empty << 5.0;
    QTest::newRow("null target") << m << QString() << 5.0;
    QTest::newRow("neither") << empty << empty << 5.0;
    QTest::newRow("no source, unknown target") << empty << yd << 5.0;
    QTest::newRow("unknown source, no target") << yd << empty << 5.0;
    QTest::newRow("NaN") << m << QStringLiteral("ft") << nan;
    QTest::newRow("NaN in the same unit") << m << m << nan;
    QTest::newRow("NaN from an unknown unit") << yd << m << nan;
    QTest::newRow("NaN to an unknown unit") << m << yd << nan;
}

void tst_LengthUnitsConverter::emptyUnitsAndNaNGiveNaN()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(double, value);
    const Test::LogRecorder log;
    QVERIFY(std::isnan(LengthUnitsConverter::convert(from, to, value)));
    QCOMPARE(log.entries(), QStringList());
}

void tst_LengthUnitsConverter::unitTextsAreThoseThatAreShown()
{
    QVERIFY(LengthUnitsConverter::convert(CLocaleSupport::distanceUnits_ft,
                                          CLocaleSupport::distanceUnits_m, 1)
            == 0.3048);
    QVERIFY(LengthUnitsConverter::convert(CLocaleSupport::distanceUnits_inch,
                                          CLocaleSupport::distanceUnits_m, 1)
            == 0.0254);
}

QTEST_APPLESS_MAIN(tst_LengthUnitsConverter)

#include "tst_LengthUnitsConverter.moc"
