// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/Vector3D.h"

#include <QLocale>
#include <QTest>

#include <cmath>
#include <limits>
#include <type_traits>

using Tavro::Database::WktPoint;
using Vector = Tavro::View3d::Vector3D<double>;

namespace {

constexpr double s_infinity = std::numeric_limits<double>::infinity();
constexpr double s_nan = std::numeric_limits<double>::quiet_NaN();

WktPoint point(const char *x, const char *y, const char *z, const char *m = "")
{
    return {QString::fromLatin1(x), QString::fromLatin1(y), QString::fromLatin1(z),
            QString::fromLatin1(m)};
}

// to the bit: also tells -0 from 0, and NaN is NaN
bool isSame(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

bool isSame(const Vector &v, double x, double y, double z)
{
    return isSame(v.x, x) && isSame(v.y, y) && isSame(v.z, z);
}

QStringList texts(const WktPoint &p)
{
    return {p.x, p.y, p.z, p.m};
}

} // namespace

class tst_Vector3D : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainValueOfThreeDoubles();
    void startsAtTheOrigin();
    void takesComponents();
    void takesFloatsUnchanged();
    void takesAPointOfTheMap_data();
    void takesAPointOfTheMap();
    void aTextThatIsNoNumberCountsAsZero_data();
    void aTextThatIsNoNumberCountsAsZero();
    void scalesHorizontally();
    void isCopiedByAssignment();
    void addsAndSubtracts();
    void multipliesAndDivides();
    void dividesByZeroAsDoublesDo();
    void comparesRelatively_data();
    void comparesRelatively();
    void narrowsToFloats();
    void writesAPointOfTheMap_data();
    void writesAPointOfTheMap();
    void theLocaleDoesNotMatter();
    void pointsComeBackFromTheMap_data();
    void pointsComeBackFromTheMap();
    void hasALength();
    void hasAScalarProduct();
};

void tst_Vector3D::isAPlainValueOfThreeDoubles()
{
    static_assert(sizeof(Vector) == 3 * sizeof(double));
    static_assert(std::is_trivially_copyable_v<Vector>);
    static_assert(std::is_standard_layout_v<Vector>);

    Vector v(1, 2, 3);
    const auto *components = reinterpret_cast<const double *>(&v);
    QCOMPARE(components[0], 1.0);
    QCOMPARE(components[1], 2.0);
    QCOMPARE(components[2], 3.0);
    v.x = 4;
    v.y = 5;
    v.z = 6;
    QVERIFY(isSame(v, 4, 5, 6));
}

void tst_Vector3D::startsAtTheOrigin()
{
    QVERIFY(isSame(Vector(), 0, 0, 0));
    const auto *onHeap = new Vector;
    QVERIFY(isSame(*onHeap, 0, 0, 0));
    delete onHeap;
}

void tst_Vector3D::takesComponents()
{
    QVERIFY(isSame(Vector(1.5, -2.25, 1e300), 1.5, -2.25, 1e300));
    QVERIFY(isSame(Vector(-0.0, s_infinity, s_nan), -0.0, s_infinity, s_nan));
}

void tst_Vector3D::takesFloatsUnchanged()
{
    // the double next to the float, not the one that was typed
    const Vector v(QVector3D(0.1F, -7.5F, 16777217.0F));
    QVERIFY(isSame(v, 0.100000001490116119384765625, -7.5, 16777216.0));
    QVERIFY(v.x != 0.1);
}

void tst_Vector3D::takesAPointOfTheMap_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("z");

    const auto list = [](const char *x, const char *y, const char *z, const char *m) {
        return texts(point(x, y, z, m));
    };
    QTest::newRow("scaled horizontally, not in height")
        << list("10", "20", "5", "") << 2.0 << -20.0 << 5.0 << 40.0;
    QTest::newRow("the measure does not matter")
        << list("10", "20", "5", "99") << 1.0 << -10.0 << 5.0 << 20.0;
    QTest::newRow("west and south of the origin")
        << list("-10", "-20", "-5", "") << 1.0 << 10.0 << -5.0 << -20.0;
    QTest::newRow("an easting of 0 becomes a negative 0")
        << list("0", "0", "0", "") << 2.0 << -0.0 << 0.0 << 0.0;
    QTest::newRow("exponents") << list("1e3", "2.5E-3", "-1e0", "") << 1.0 << -1000.0 << -1.0
                               << 0.0025;
    QTest::newRow("infinities and NaN")
        << list("inf", "nan", "-inf", "") << 1.0 << -s_infinity << -s_infinity << s_nan;
    QTest::newRow("a scale of 0") << list("10", "20", "5", "") << 0.0 << -0.0 << 5.0 << 0.0;
    QTest::newRow("a negative scale") << list("10", "20", "5", "") << -2.0 << 20.0 << 5.0 << -40.0;
}

void tst_Vector3D::takesAPointOfTheMap()
{
    QFETCH(QStringList, texts);
    QFETCH(double, scale);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, z);

    const Vector v(WktPoint{texts.at(0), texts.at(1), texts.at(2), texts.at(3)}, scale);
    QVERIFY2(isSame(v, x, y, z), qPrintable(QStringLiteral("%1 %2 %3").arg(v.x).arg(v.y).arg(v.z)));
}

void tst_Vector3D::aTextThatIsNoNumberCountsAsZero_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QString();
    QTest::newRow("a word") << QStringLiteral("north");
    QTest::newRow("a comma") << QStringLiteral("7,5");
    QTest::newRow("grouped") << QStringLiteral("1,000.5");
    QTest::newRow("with a unit") << QStringLiteral("7.5 m");
    QTest::newRow("hexadecimal") << QStringLiteral("0x10");
    QTest::newRow("Arabic digits") << QString::fromUtf8("\u0661\u0662");
}

void tst_Vector3D::aTextThatIsNoNumberCountsAsZero()
{
    QFETCH(QString, text);

    QVERIFY(isSame(Vector(WktPoint{text, QStringLiteral("2"), QStringLiteral("3"), {}}, 1), -0.0, 3,
                   2));
    QVERIFY(
        isSame(Vector(WktPoint{QStringLiteral("1"), text, QStringLiteral("3"), {}}, 1), -1, 3, 0));
    QVERIFY(
        isSame(Vector(WktPoint{QStringLiteral("1"), QStringLiteral("2"), text, {}}, 1), -1, 0, 2));
}

void tst_Vector3D::scalesHorizontally()
{
    QVERIFY(isSame(Vector(Vector(3, 4, 5), 10), 30, 4, 50));
    QVERIFY(isSame(Vector(Vector(3, 4, 5), 0), 0, 4, 0));
}

void tst_Vector3D::isCopiedByAssignment()
{
    Vector v(1, 2, 3);
    const Vector other(4, s_nan, -0.0);
    QCOMPARE(&(v = other), &v);
    QVERIFY(isSame(v, 4, s_nan, -0.0));
    QVERIFY(isSame(Vector(other), 4, s_nan, -0.0));
}

void tst_Vector3D::addsAndSubtracts()
{
    const Vector a(1, 20, 300);
    const Vector b(4, 50, 700);
    QVERIFY(isSame(a + b, 5, 70, 1000));
    QVERIFY(isSame(a - b, -3, -30, -400));
}

void tst_Vector3D::multipliesAndDivides()
{
    const Vector v(1, -20, 300);
    QVERIFY(isSame(v * -2, -2, 40, -600));
    QVERIFY(isSame(v / 4, 0.25, -5, 75));
    // a division, not a multiplication with the reciprocal
    QVERIFY(isSame(Vector(5, 5, 5) / 3, 5.0 / 3, 5.0 / 3, 5.0 / 3));
    QVERIFY(5.0 / 3 != 5.0 * (1.0 / 3));
}

void tst_Vector3D::dividesByZeroAsDoublesDo()
{
    QVERIFY(isSame(Vector(1, -1, 0) / 0.0, s_infinity, -s_infinity, s_nan));
    QVERIFY(isSame(Vector(1, -1, 0) / -0.0, -s_infinity, s_infinity, s_nan));
}

void tst_Vector3D::comparesRelatively_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<bool>("equal");

    QTest::newRow("the same") << 3.0 << 3.0 << true;
    QTest::newRow("nearer than a part in 10^12") << 3.0 << 3.0000000000001 << true;
    QTest::newRow("half a part in 10^12") << 1.0 << 1.0000000000005 << true;
    QTest::newRow("two parts in 10^12") << 1.0 << 1.000000000002 << false;
    QTest::newRow("a part in 10^11") << 1e20 << 1.00000000001e20 << false;
    QTest::newRow("tiny and relatively near") << 1e-300 << 1.0000000000001e-300 << true;
    QTest::newRow("tiny and relatively far") << 1e-300 << 2e-300 << false;
    QTest::newRow("0 and 0") << 0.0 << 0.0 << true;
    QTest::newRow("0 and -0") << 0.0 << -0.0 << true;
    QTest::newRow("0 and almost 0") << 0.0 << 1e-300 << false;
    QTest::newRow("opposite signs") << 1.0 << -1.0 << false;
    QTest::newRow("infinity and itself") << s_infinity << s_infinity << false;
    QTest::newRow("NaN and itself") << s_nan << s_nan << false;
    QTest::newRow("NaN and a number") << s_nan << 1.0 << false;
}

void tst_Vector3D::comparesRelatively()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(bool, equal);

    QCOMPARE(Vector(a, 2, 3) == Vector(b, 2, 3), equal);
    QCOMPARE(Vector(1, a, 3) == Vector(1, b, 3), equal);
    QCOMPARE(Vector(1, 2, a) == Vector(1, 2, b), equal);
    QCOMPARE(Vector(1, 2, b) == Vector(1, 2, a), equal);
}

void tst_Vector3D::narrowsToFloats()
{
    const QVector3D v = Vector(0.1, -7.5, 1e300).toQVector3D();
    QCOMPARE(double(v.x()), double(0.1F));
    QCOMPARE(v.y(), -7.5F);
    QVERIFY(std::isinf(v.z()));

    const QVector3D special = Vector(s_nan, -s_infinity, -0.0).toQVector3D();
    QVERIFY(std::isnan(special.x()));
    QVERIFY(std::isinf(special.y()) && special.y() < 0);
    QVERIFY(special.z() == 0 && std::signbit(special.z()));
}

void tst_Vector3D::writesAPointOfTheMap_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("z");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("m");
    QTest::addColumn<QStringList>("expected");

    const auto list = [](const char *x, const char *y, const char *z, const char *m) {
        return texts(point(x, y, z, m));
    };
    QTest::newRow("divided horizontally, not in height")
        << -20.0 << 5.0 << 40.0 << 2.0 << 0 << list("10", "20", "5", "0");
    QTest::newRow("the measure as it is")
        << -1.0 << 2.0 << 3.0 << 1.0 << -2147483647 << list("1", "3", "2", "-2147483647");
    QTest::newRow("13 significant digits")
        << -1.0 / 3 << 2.0 / 3 << 12345678.123456789 << 1.0 << 7
        << list("0.3333333333333", "12345678.12346", "0.6666666666667", "7");
    QTest::newRow("the edge of the map")
        << 20037508.342789244 << 0.0 << -20037508.342789244 << 1.0 << 1
        << list("-20037508.34279", "-20037508.34279", "0", "1");
    QTest::newRow("large and small turn to exponents")
        << -1e13 << 1e-5 << 123456789012.0 << 1.0 << 0
        << list("1e+13", "123456789012", "1e-05", "0");
    QTest::newRow("infinities and NaN")
        << s_infinity << s_nan << s_infinity << 1.0 << 0 << list("-inf", "inf", "nan", "0");
    QTest::newRow("a scale of 0") << -1.0 << 1.0 << -1.0 << 0.0 << 0
                                  << list("inf", "-inf", "1", "0");
    QTest::newRow("nothing divided by a scale of 0")
        << 0.0 << 0.0 << 0.0 << 0.0 << 0 << list("nan", "nan", "0", "0");
    QTest::newRow("zeros") << 0.0 << 0.0 << 0.0 << 1.0 << 0 << list("0", "0", "0", "0");
    QTest::newRow("negative zeros lose their sign")
        << -0.0 << -0.0 << -0.0 << 1.0 << 0 << list("0", "0", "0", "0");
}

void tst_Vector3D::writesAPointOfTheMap()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, z);
    QFETCH(double, scale);
    QFETCH(int, m);
    QFETCH(QStringList, expected);

    QCOMPARE(texts(Vector(x, y, z).toWKTPoint(scale, m)), expected);
}

void tst_Vector3D::theLocaleDoesNotMatter()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const QStringList written = texts(Vector(-1234.5, 7.5, 0.25).toWKTPoint(1, 1000));
    const Vector read(point("1234.5", "0.25", "7.5"), 1);
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const QStringList writtenInArabic = texts(Vector(-1234.5, 7.5, 0.25).toWKTPoint(1, 1000));
    QLocale::setDefault(before);

    QCOMPARE(written, texts(point("1234.5", "0.25", "7.5", "1000")));
    QCOMPARE(writtenInArabic, written);
    QVERIFY(isSame(read, -1234.5, 7.5, 0.25));
}

void tst_Vector3D::pointsComeBackFromTheMap_data()
{
    QTest::addColumn<double>("scale");

    QTest::newRow("1") << 1.0;
    QTest::newRow("negative") << -3.0;
    QTest::newRow("smaller than anything measured") << 1e-150;
    QTest::newRow("larger than anything measured") << 1e150;
    QTest::newRow("the smallest normal double") << std::numeric_limits<double>::min();
    QTest::newRow("near the largest double") << 1e300;
    QTest::newRow("not exact in binary") << 0.1;
}

void tst_Vector3D::pointsComeBackFromTheMap()
{
    QFETCH(double, scale);

    // a text does not tell 0 from -0
    const auto isNear = [](double a, double b) {
        // 13 digits are written: half a unit in the last of them
        return isSame(a, b) || std::abs(a - b) <= 5.1e-13 * std::abs(a);
    };

    const double values[] = {0.0,     -0.0, 1.0,   -1.0,       1.0 / 3,    12345.678901234567,
                             -2.5e-4, 1e7,  s_nan, s_infinity, -s_infinity};
    for (double x : values) {
        for (double z : values) {
            const Vector v(x * scale, x, z * scale);
            const Vector back(v.toWKTPoint(scale, 0), scale);
            QVERIFY2(isNear(v.x, back.x) && isNear(v.y, back.y) && isNear(v.z, back.z),
                     qPrintable(QStringLiteral("%1 %2").arg(x).arg(z)));
        }
    }
}

void tst_Vector3D::hasALength()
{
    QCOMPARE(Vector(3, 4, 0).length(), 5.0);
    QCOMPARE(Vector(-2, 3, -6).length(), 7.0);
    QCOMPARE(Vector().length(), 0.0);
    // the plain formula, squares and all
    QVERIFY(std::isinf(Vector(1e200, 0, 0).length()));
    QVERIFY(std::isnan(Vector(0, s_nan, 0).length()));
}

void tst_Vector3D::hasAScalarProduct()
{
    QCOMPARE(Vector::dotProduct(Vector(1, 2, 3), Vector(10, 200, 3000)), 9410.0);
    QCOMPARE(Vector::dotProduct(Vector(1, 0, 0), Vector(0, 1, 0)), 0.0);
    QCOMPARE(Vector::dotProduct(Vector(-1, 2, -3), Vector(4, 5, 6)), -12.0);
}

QTEST_APPLESS_MAIN(tst_Vector3D)

#include "tst_Vector3D.moc"
