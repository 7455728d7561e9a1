// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/SimulatedCrawler.h"
#include "fieldhost/services/SimulatedDrive.h"

#include <QSignalSpy>
#include <QTest>

using namespace Tavro::FieldHost;

/** How the simulated crawler is steered through a pipe. */
class tst_SimulatedDrive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drivesThenLooksAround();
    void looksToBothSidesAndUp();
    void aRestIsNoTimeOfTheDrive();
    void everyDriveIsTheSame();
};

void tst_SimulatedDrive::drivesThenLooksAround()
{
    SimulatedCrawler crawler;
    SimulatedDrive drive(crawler);
    crawler.recorder()->record();
    for (int i = 0; i < 174; ++i) {
        drive.step();
        QCOMPARE(crawler.panTilt()->getPan(), 0.0);
        QCOMPARE(crawler.panTilt()->getTilt(), 0.0);
    }
    QCOMPARE(crawler.recorder()->duration(), qint64(6960));
    QVERIFY(qAbs(crawler.distanceCounter()->distanceValue() - 1.392) < 1e-9);

    const double here = crawler.distanceCounter()->distanceValue();
    for (int i = 174; i < 249; ++i) {
        drive.step();
        QCOMPARE(crawler.distanceCounter()->distanceValue(), here);
    }
    drive.step(); // the tenth second is over
    QVERIFY(crawler.distanceCounter()->distanceValue() > here);
    QCOMPARE(crawler.panTilt()->getPan(), 0.0);
    QCOMPARE(crawler.panTilt()->getTilt(), 0.0);
}

void tst_SimulatedDrive::looksToBothSidesAndUp()
{
    SimulatedCrawler crawler;
    SimulatedDrive drive(crawler);
    drive.step(7750); // a quarter of the look around
    QCOMPARE(crawler.panTilt()->getPan(), 60.0);
    QCOMPARE(crawler.panTilt()->getTilt(), 14.1);
    drive.step(750);
    QCOMPARE(crawler.panTilt()->getPan(), 0.0);
    QCOMPARE(crawler.panTilt()->getTilt(), 20.0);
    drive.step(750);
    QCOMPARE(crawler.panTilt()->getPan(), -60.0);
    QCOMPARE(crawler.panTilt()->getTilt(), 14.1);
}

void tst_SimulatedDrive::aRestIsNoTimeOfTheDrive()
{
    SimulatedCrawler crawler;
    SimulatedDrive drive(crawler);
    crawler.recorder()->record();
    drive.step(6000);
    crawler.recorder()->pause();
    QSignalSpy moved(crawler.distanceCounter(), &SimulatedDistanceCounter::distanceValueChanged);
    QSignalSpy turned(crawler.panTilt(), &SimulatedPanTilt::panChanged);
    drive.rest(2000);
    QCOMPARE(moved.size(), 0);
    QCOMPARE(crawler.recorder()->duration(), qint64(6000));
    crawler.recorder()->resume();
    drive.step(500);
    QCOMPARE(moved.size(), 1);
    QCOMPARE(turned.size(), 0);
    drive.step(1250);
    QCOMPARE(turned.size(), 1);
}

void tst_SimulatedDrive::everyDriveIsTheSame()
{
    const auto course = [] {
        SimulatedCrawler crawler;
        SimulatedDrive drive(crawler);
        QVector<double> values;
        for (int i = 0; i < 600; ++i) {
            drive.step();
            values << crawler.distanceCounter()->distanceValue() << crawler.panTilt()->getPan()
                   << crawler.panTilt()->getTilt();
        }
        return values;
    };
    QCOMPARE(course(), course());
}

QTEST_GUILESS_MAIN(tst_SimulatedDrive)

#include "tst_SimulatedDrive.moc"
