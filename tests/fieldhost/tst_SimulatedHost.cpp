// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/FieldApplication.h"
#include "host/CPipeObservationObject.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <memory>

using namespace Tavro;
using namespace Tavro::FieldHost;

/** The services by which the simulated host answers the library. */
class tst_SimulatedHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void instancesLiveAsLongAsTheApplication();
    void videoIndexingIsOnUntilTurnedOff();
    void distanceIsAnnouncedWhenItDiffers();
    void panAndTiltAreAnnouncedWhenTheyDiffer();
    void calibrationIsReadBack();
    void theRecorderFollowsItsButtons();
    void buttonsThatDoNotApplyAreSilent();
    void theVideoGrowsOnlyWhileItIsRecorded();
    void aTickMovesTheCrawlerAfterTheVideo();
    void aVideoIsCreatedForAnItem();
    void thereMayBeNoRecorder();
    void anObservationIsAnnounced();
    void anObservationCrossesThreads();

private:
    std::unique_ptr<FieldApplication> m_application;
};

void tst_SimulatedHost::init()
{
    m_application = std::make_unique<FieldApplication>();
}

void tst_SimulatedHost::cleanup()
{
    m_application.reset();
}

void tst_SimulatedHost::instancesLiveAsLongAsTheApplication()
{
    QCOMPARE(FieldApplication::instance(), m_application.get());
    QCOMPARE(AppLogic::CoreApplication::instance(), m_application.get());
    QCOMPARE(CApplicationSettings::instance(), &m_application->settings());
    QCOMPARE(AppState::instance(), &m_application->state());
    QCOMPARE(AppLogic::CoreApplication::instance()->sectionDistanceCounter(),
             m_application->crawler().distanceCounter());
    QCOMPARE(AppLogic::CoreApplication::instance()->panTiltProvider(),
             m_application->crawler().panTilt());

    m_application.reset();
    QVERIFY(!FieldApplication::instance());
    QVERIFY(!AppLogic::CoreApplication::instance());
    QVERIFY(!CApplicationSettings::instance());
    QVERIFY(!AppState::instance());
}

void tst_SimulatedHost::videoIndexingIsOnUntilTurnedOff()
{
    QVERIFY(CApplicationSettings::instance()->videoIndexingEnabled());
    m_application->settings().setVideoIndexingEnabled(false);
    QVERIFY(!CApplicationSettings::instance()->videoIndexingEnabled());
}

void tst_SimulatedHost::distanceIsAnnouncedWhenItDiffers()
{
    SimulatedDistanceCounter *counter = m_application->crawler().distanceCounter();
    QSignalSpy changed(counter, &SimulatedDistanceCounter::distanceValueChanged);
    QCOMPARE(counter->distanceValue(), 0.0);
    counter->setDistance(3.5);
    counter->setDistance(3.5);
    QCOMPARE(counter->distanceValue(), 3.5);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toDouble(), 3.5);
}

void tst_SimulatedHost::panAndTiltAreAnnouncedWhenTheyDiffer()
{
    SimulatedPanTilt *head = m_application->crawler().panTilt();
    QSignalSpy pan(head, &SimulatedPanTilt::panChanged);
    QSignalSpy tilt(head, &SimulatedPanTilt::tiltChanged);
    head->setPan(-45);
    head->setPan(-45);
    QCOMPARE(pan.size(), 1);
    QCOMPARE(pan.at(0).at(0).toDouble(), -45.0);
    QCOMPARE(tilt.size(), 0);
    head->setTilt(10.5);
    head->setTilt(10.5);
    QCOMPARE(tilt.size(), 1);
    QCOMPARE(tilt.at(0).at(0).toDouble(), 10.5);
    QCOMPARE(pan.size(), 1);
    QCOMPARE(head->getPan(), -45.0);
    QCOMPARE(head->getTilt(), 10.5);
}

void tst_SimulatedHost::calibrationIsReadBack()
{
    SimulatedPanTilt *head = m_application->crawler().panTilt();
    head->setCalibration(123, 456);
    QCOMPARE(head->getCameraConstant(), 123.0);
    QCOMPARE(head->getDistanceOffset(), 456.0);
}

void tst_SimulatedHost::theRecorderFollowsItsButtons()
{
    SimulatedRecorder *recorder = m_application->crawler().recorder();
    QSignalSpy changed(recorder, &SimulatedRecorder::stateChanged);
    QCOMPARE(recorder->state(), 0);
    recorder->record();
    QCOMPARE(recorder->state(), 2);
    QCOMPARE(changed.size(), 1);
    recorder->pause();
    QCOMPARE(recorder->state(), 3);
    QCOMPARE(changed.size(), 2);
    recorder->resume();
    QCOMPARE(recorder->state(), 2);
    QCOMPARE(changed.size(), 3);
    recorder->stop();
    QCOMPARE(recorder->state(), 0);
    QCOMPARE(changed.size(), 4);
}

void tst_SimulatedHost::buttonsThatDoNotApplyAreSilent()
{
    SimulatedRecorder *recorder = m_application->crawler().recorder();
    QSignalSpy changed(recorder, &SimulatedRecorder::stateChanged);
    recorder->pause();
    recorder->resume();
    recorder->stop();
    QCOMPARE(changed.size(), 0);
    recorder->record();
    recorder->advance(100);
    recorder->record();
    recorder->resume();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(recorder->duration(), qint64(100)); // not begun anew
}

void tst_SimulatedHost::theVideoGrowsOnlyWhileItIsRecorded()
{
    SimulatedRecorder *recorder = m_application->crawler().recorder();
    recorder->advance(10);
    QCOMPARE(recorder->duration(), qint64(0));
    recorder->record();
    recorder->advance(1000);
    recorder->pause();
    recorder->advance(10);
    recorder->resume();
    recorder->advance(500);
    recorder->stop();
    recorder->advance(10);
    QCOMPARE(recorder->duration(), qint64(1500));
    recorder->record();
    QCOMPARE(recorder->duration(), qint64(0));
}

void tst_SimulatedHost::aTickMovesTheCrawlerAfterTheVideo()
{
    SimulatedCrawler &crawler = m_application->crawler();
    crawler.setSpeed(0.2);
    QCOMPARE(crawler.speed(), 0.2);
    crawler.recorder()->record();
    qint64 durationSeen = -1;
    connect(crawler.distanceCounter(), &SimulatedDistanceCounter::distanceValueChanged, this,
            [&] { durationSeen = crawler.recorder()->duration(); });
    crawler.tick(2500);
    QCOMPARE(crawler.distanceCounter()->distanceValue(), 0.5);
    QCOMPARE(durationSeen, qint64(2500));
    crawler.setSpeed(-0.2);
    crawler.tick(2500);
    QCOMPARE(crawler.distanceCounter()->distanceValue(), 0.0);
}

void tst_SimulatedHost::aVideoIsCreatedForAnItem()
{
    SimulatedVideoCreation *creation = m_application->crawler().videoCreation();
    QCOMPARE(creation->state(), 0);
    QVERIFY(!creation->currentSharedItem());
    const Database::CDomainObjectPointer item(new Database::CPipeObservationObject);
    creation->begin(item);
    QCOMPARE(creation->state(), 1);
    QCOMPARE(creation->currentSharedItem(), item);
    creation->end();
    QCOMPARE(creation->state(), 0);
    QVERIFY(!creation->currentSharedItem());
}

void tst_SimulatedHost::thereMayBeNoRecorder()
{
    SimulatedVideoCreation *creation = m_application->crawler().videoCreation();
    QCOMPARE(creation->videoRecorder(), m_application->crawler().recorder());
    creation->setVideoRecorder(nullptr);
    QVERIFY(!creation->videoRecorder());
}

void tst_SimulatedHost::anObservationIsAnnounced()
{
    Database::CDomainObjectPointer announced;
    connect(AppState::instance(), &AppState::observationCreated, this,
            [&](const Database::CDomainObjectPointer &object) { announced = object; });
    const Database::CDomainObjectPointer created = m_application->createObservation();
    QVERIFY(created);
    QCOMPARE(announced, created);
    QVERIFY(created.dynamicCast<Database::CPipeObservationObject>());
}

void tst_SimulatedHost::anObservationCrossesThreads()
{
    QThread thread;
    QObject receiver;
    receiver.moveToThread(&thread);
    Database::CDomainObjectPointer announced;
    connect(AppState::instance(), &AppState::observationCreated, &receiver,
            [&](const Database::CDomainObjectPointer &object) {
                announced = object;
                thread.quit();
            });
    thread.start();
    const Database::CDomainObjectPointer created = m_application->createObservation();
    QVERIFY(thread.wait(30'000));
    QCOMPARE(announced, created);
}

QTEST_GUILESS_MAIN(tst_SimulatedHost)

#include "tst_SimulatedHost.moc"
