// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/DoubleComparer.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <type_traits>

using Tavro::Shared::DoubleComparer;

namespace {

using Limits = std::numeric_limits<double>;

double stepsAbove(double value, int steps)
{
    for (int i = 0; i < steps; ++i) {
        value = std::nextafter(value, Limits::infinity());
    }
    return value;
}

} // namespace

class tst_DoubleComparer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainClass();
    void comparesWithTolerance_data();
    void comparesWithTolerance();
};

void tst_DoubleComparer::isAPlainClass()
{
    static_assert(std::is_trivially_default_constructible_v<DoubleComparer>);
    static_assert(std::is_empty_v<DoubleComparer>);
}

void tst_DoubleComparer::comparesWithTolerance_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<bool>("expected");

    const double infinity = Limits::infinity();
    const double nan = Limits::quiet_NaN();

    QTest::newRow("the same") << 1.0 << 1.0 << true;
    QTest::newRow("a sum that is not exact") << 0.1 + 0.2 << 0.3 << true;
    QTest::newRow("8 steps apart") << 1.0 << stepsAbove(1.0, 8) << true;
    QTest::newRow("9 steps apart") << 1.0 << stepsAbove(1.0, 9) << false;
    QTest::newRow("8 steps apart across a power of two")
        << 2 - 4 * Limits::epsilon() << stepsAbove(2 - 4 * Limits::epsilon(), 8) << true;
    QTest::newRow("9 steps apart across a power of two")
        << 2 - 4 * Limits::epsilon() << stepsAbove(2 - 4 * Limits::epsilon(), 9) << false;
    QTest::newRow("8 steps apart, negative") << -1.0 << -stepsAbove(1.0, 8) << true;
    QTest::newRow("9 steps apart, negative") << -1.0 << -stepsAbove(1.0, 9) << false;
    QTest::newRow("8 steps apart, large") << 1e308 << stepsAbove(1e308, 8) << true;
    QTest::newRow("9 steps apart, large") << 1e308 << stepsAbove(1e308, 9) << false;
    QTest::newRow("different") << 1.0 << 1.0001 << false;
    QTest::newRow("opposite") << 1.0 << -1.0 << false;
    QTest::newRow("opposite extremes") << Limits::max() << -Limits::max() << false;
    QTest::newRow("largest") << Limits::max() << Limits::max() << true;

    QTest::newRow("both at the edge of zero") << 1e-12 << -1e-12 << true;
    QTest::newRow("tiny and opposite") << 1e-13 << -1e-13 << true;
    QTest::newRow("tiny and zero") << 1e-300 << 0.0 << true;
    QTest::newRow("zero with both signs") << 0.0 << -0.0 << true;
    QTest::newRow("denormal and zero") << Limits::denorm_min() << 0.0 << true;
    QTest::newRow("denormals") << Limits::denorm_min() << -Limits::denorm_min() << true;
    QTest::newRow("one of them beyond the edge of zero") << 1.1e-12 << 0.0 << false;
    QTest::newRow("both beyond the edge of zero") << 1.1e-12 << -1.1e-12 << false;
    QTest::newRow("just beyond the edge, few steps apart") << 1e-12 << stepsAbove(1e-12, 8) << true;
    QTest::newRow("just beyond the edge, more steps apart")
        << 1e-12 << stepsAbove(1e-12, 9) << false;
    QTest::newRow("one and zero") << 1.0 << 0.0 << false;

    QTest::newRow("infinity") << infinity << infinity << false;
    QTest::newRow("negative infinity") << -infinity << -infinity << false;
    QTest::newRow("infinity and the largest") << infinity << Limits::max() << false;
    QTest::newRow("infinity and zero") << infinity << 0.0 << false;
    QTest::newRow("NaN") << nan << nan << false;
    QTest::newRow("NaN and zero") << nan << 0.0 << false;
    QTest::newRow("NaN and infinity") << nan << infinity << false;
}

void tst_DoubleComparer::comparesWithTolerance()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(bool, expected);
    QCOMPARE(DoubleComparer::fuzzyCompare(a, b), expected);
    QCOMPARE(DoubleComparer::fuzzyCompare(b, a), expected);
}

QTEST_APPLESS_MAIN(tst_DoubleComparer)

#include "tst_DoubleComparer.moc"
