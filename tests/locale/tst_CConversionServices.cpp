// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CConversionServices.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <type_traits>

using Tavro::Shared::CConversionServices;

namespace {

constexpr double s_infinity = std::numeric_limits<double>::infinity();
constexpr double s_nan = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_CConversionServices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengthsAreMultipliedByTheFixedFactors();
    void theWayThereAndBackIsNotExact();
    void extremesStayWhatTheyAre();
    void megabytesAreOf1024Times1024Bytes_data();
    void megabytesAreOf1024Times1024Bytes();
};

void tst_CConversionServices::lengthsAreMultipliedByTheFixedFactors()
{
    // == and not a comparison with tolerance: to the last bit
    QVERIFY(CConversionServices::convertMetersToFeet(1) == 3.2808);
    QVERIFY(CConversionServices::convertMetersToFeet(100) == 100 * 3.2808);
    QVERIFY(CConversionServices::convertMetersToFeet(-7.3) == -7.3 * 3.2808);
    QVERIFY(CConversionServices::convertMetersToInches(1) == 39.3700787);
    QVERIFY(CConversionServices::convertMetersToInches(-7.3) == -7.3 * 39.3700787);
    QVERIFY(CConversionServices::convertFeetToMeters(1) == 0.3048);
    QVERIFY(CConversionServices::convertFeetToMeters(-7.3) == -7.3 * 0.3048);
    QVERIFY(CConversionServices::convertMetersToFeet(0) == 0);
}

void tst_CConversionServices::theWayThereAndBackIsNotExact()
{
    const double back =
        CConversionServices::convertFeetToMeters(CConversionServices::convertMetersToFeet(1000));
    QVERIFY(back == 1000 * 3.2808 * 0.3048);
    QVERIFY(back < 999.99 && back > 999.98);
}

void tst_CConversionServices::extremesStayWhatTheyAre()
{
    for (double (*convert)(double) :
         {&CConversionServices::convertMetersToFeet, &CConversionServices::convertMetersToInches,
          &CConversionServices::convertFeetToMeters}) {
        QVERIFY(std::isnan(convert(s_nan)));
        QVERIFY(convert(s_infinity) == s_infinity);
        QVERIFY(convert(-s_infinity) == -s_infinity);
        QVERIFY(convert(-0.0) == 0 && std::signbit(convert(-0.0)));
    }
    QVERIFY(CConversionServices::convertMetersToFeet(1e308) == s_infinity);
}

void tst_CConversionServices::megabytesAreOf1024Times1024Bytes_data()
{
    QTest::addColumn<quint64>("bytes");
    QTest::addColumn<float>("expected");

    QTest::newRow("nothing") << quint64(0) << 0.0F;
    QTest::newRow("one byte") << quint64(1) << 0x1p-20F;
    QTest::newRow("half a megabyte") << quint64(524288) << 0.5F;
    QTest::newRow("one megabyte") << quint64(1048576) << 1.0F;
    QTest::newRow("1.5 megabytes") << quint64(1572864) << 1.5F;
    QTest::newRow("4 GiB") << (quint64(1) << 32) << 4096.0F;
    QTest::newRow("what a float cannot hold to the byte") << quint64(16777217) << 16.0F;
    QTest::newRow("the largest signed number") << (~quint64(0) >> 1) << 0x1p43F;
    QTest::newRow("the largest number") << ~quint64(0) << 0x1p44F;
}

void tst_CConversionServices::megabytesAreOf1024Times1024Bytes()
{
    static_assert(std::is_same_v<decltype(CConversionServices::toMegabytes(0)), float>);
    QFETCH(quint64, bytes);
    QFETCH(float, expected);
    QVERIFY(CConversionServices::toMegabytes(bytes) == expected);
}

QTEST_APPLESS_MAIN(tst_CConversionServices)

#include "tst_CConversionServices.moc"
