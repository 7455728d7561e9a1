// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/GeoCoord.h"

#include <QTest>

using Tavro::View3d::GeoCoord;

class tst_GeoCoord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatItIsGiven_data();
    void keepsWhatItIsGiven();
    void isAtHeightZeroWithoutOne();
    void narrowsToFloats();
};

void tst_GeoCoord::keepsWhatItIsGiven_data()
{
    QTest::addColumn<double>("lon");
    QTest::addColumn<double>("lat");
    QTest::addColumn<double>("alt");

    QTest::newRow("a place") << 7.5 << 47.1 << 431.25;
    QTest::newRow("west and south") << -70.123456789012 << -33.4 << -12.0;
    QTest::newRow("beyond the earth") << 1000.0 << -91.0 << 1e9;
}

void tst_GeoCoord::keepsWhatItIsGiven()
{
    QFETCH(double, lon);
    QFETCH(double, lat);
    QFETCH(double, alt);

    const GeoCoord coord(lon, lat, alt);
    QVERIFY(coord.lon() == lon);
    QVERIFY(coord.lat() == lat);
    QVERIFY(coord.alt() == alt);
}

void tst_GeoCoord::isAtHeightZeroWithoutOne()
{
    const GeoCoord coord(7.5, 47.1);
    QVERIFY(coord.lon() == 7.5);
    QVERIFY(coord.lat() == 47.1);
    QVERIFY(coord.alt() == 0);
}

void tst_GeoCoord::narrowsToFloats()
{
    const QVector3D v = GeoCoord(7.1, 47.1, 431.1).toQVector3D();
    QVERIFY(v.x() == 7.1F);
    QVERIFY(v.y() == 47.1F);
    QVERIFY(v.z() == 431.1F);
}

QTEST_APPLESS_MAIN(tst_GeoCoord)

#include "tst_GeoCoord.moc"
