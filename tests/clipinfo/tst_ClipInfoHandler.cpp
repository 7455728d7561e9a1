// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/clipinfo/ClipInfoHandler.h"

#include "host/CPipeObservationObject.h"
#include "tests/clipinfo/RecordingHost.h"

#include <QDir>
#include <QFile>
#include <QMetaMethod>
#include <QTest>

#include <limits>
#include <memory>

using namespace Test;
using Tavro::Base::DistanceUnit;
using Tavro::Database::CDomainObject;
using Tavro::Database::CDomainObjectPointer;
using Tavro::Database::CPipeObservationObject;
using Tavro::Shared::ClipInfoHandler;

/** What the handler takes samples from, and when; what it asks of its host, and in which order. */
class tst_ClipInfoHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void slotsStandInOrder();
    void belongsToTheCreationHandler();
    void connectsNothingByItself();
    void withoutACreationHandlerNothingHappens();

    void theFileIsNamedAfterTheVideo_data();
    void theFileIsNamedAfterTheVideo();
    void theFileOfAVideoIsRemoved();

    void onlyAnIdleRecorderIsFollowed_data();
    void onlyAnIdleRecorderIsFollowed();
    void theRecorderFollowedIsTheCreationHandlers();
    void withoutARecorderOfItsOwnItConnectsNothing();
    void followingTheRecorderTwiceIsFollowingItOnce();

    void beginsInOrder();
    void beginsAlsoWithTheSettingOff();
    void takesPanAndTiltFromTheCamera();
    void endsInOrder();
    void endsWithoutARecorder();
    void anEndWithTheSettingOffDoesNothing();
    void connectingAgainTakesEachSampleOnce();

    void aSampleOfEarlierIsDropped();
    void aCodeIsWritten();
    void anyNumberIsWritten_data();
    void anyNumberIsWritten();

    void aDistanceCountsFromFiveCentimetresOn_data();
    void aDistanceCountsFromFiveCentimetresOn();
    void aDroppedDistanceIsStillTheLast();
    void everyPanIsASample();
    void everyTiltIsASample();
    void panAndTiltStayAtTheLastDistance();
    void aDroppedPanIsStillTheLast();

    void anObservationIsASampleAtTheCountersDistance();
    void whatIsNoObservationIsNoSample_data();
    void whatIsNoObservationIsNoSample();
    void anObservationNeedsAnItem();
    void anObservationLeavesTheLastDistance();

    void withoutARecorderSlotsDoNothing();

    void theInitialSampleHasNoPanAndTilt();
    void theInitialDistanceIsTheLast();
    void theInitialSampleNeedsARecordingRecorder_data();
    void theInitialSampleNeedsARecordingRecorder();

    void statesOfTheRecorderDecide_data();
    void statesOfTheRecorderDecide();
    void aPauseIsFollowedByNoInitialSample();
    void aStopWhilePausedKeepsThePause();
    void aClipFromBeginningToEnd();
    void theNextClipBeginsAnew();
    void aClipThatWasNotWrittenGetsIntoTheNext_data();
    void aClipThatWasNotWrittenGetsIntoTheNext();
    void aContinuationThatWasNotWrittenTakesTheNextsHeader();
    void aClipThatWasNotWrittenCanBeSavedOrDropped_data();
    void aClipThatWasNotWrittenCanBeSavedOrDropped();

private:
    // ends the clip and returns its samples, without "Val"
    QByteArrayList samples()
    {
        if (!m_handler->stop()) {
            return {"not written"};
        }
        QByteArrayList lines = valuesIn(m_info);
        for (QByteArray &line : lines) {
            line.remove(0, 3);
        }
        return lines;
    }
    void begin() { QVERIFY(m_handler->initRecordedVideoIndexing(m_video)); }
    void record(qint64 milliseconds)
    {
        m_host->recorder().setState(FreeRecorder::Recording);
        m_host->recorder().setDuration(milliseconds);
    }

    // a clip of 60 s whose end is not written; indexing is on afterwards
    void recordUnwritten(bool isSettingOff);
    void recordNext();

    QScopedPointer<ProjectUnit> m_unit;
    std::unique_ptr<RecordingHost> m_host;
    ClipInfoHandler *m_handler = nullptr; // belongs to the host's creation handler
    QString m_video;
    QString m_info;
    QString m_next; // info file of recordNext()
};

void tst_ClipInfoHandler::init()
{
    m_unit.reset(new ProjectUnit);
    m_host = std::make_unique<RecordingHost>();
    m_handler = new ClipInfoHandler(&m_host->creation());
    m_video = m_host->path(QStringLiteral("clip.001.mp4"));
    m_info = m_host->path(QStringLiteral("clip.txt"));
}

void tst_ClipInfoHandler::cleanup()
{
    m_host.reset();
    m_unit.reset();
}

void tst_ClipInfoHandler::slotsStandInOrder()
{
    struct Slot
    {
        QByteArray signature;
        QByteArray parameter;
    };
    const QVector<Slot> expected = {
        {"onDistanceCounterValueChanged(double)", "distance"},
        {"onPanValueChanged(double)", "pan"},
        {"onTiltValueChanged(double)", "tilt"},
        {"onObservationCreated(Tavro::Database::CDomainObjectPointer)", "object"},
        {"onVideoRecorderStateChanged()", ""},
    };
    const QMetaObject &meta = ClipInfoHandler::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::ClipInfoHandler");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(meta.methodCount() - meta.methodOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), expected.at(i).signature);
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        QCOMPARE(method.access(), QMetaMethod::Public);
        QCOMPARE(method.parameterNames().value(0), expected.at(i).parameter);
        QCOMPARE(method.typeName(), "void");
    }
}

void tst_ClipInfoHandler::belongsToTheCreationHandler()
{
    QCOMPARE(m_handler->parent(), &m_host->creation());
}

void tst_ClipInfoHandler::connectsNothingByItself()
{
    QCOMPARE(m_host->journal, QStringList());
    QVERIFY(!isObservationConnected());
    QVERIFY(!m_handler->stop());
}

void tst_ClipInfoHandler::withoutACreationHandlerNothingHappens()
{
    ClipInfoHandler handler;
    QVERIFY(!handler.parent());
    QVERIFY(handler.connectToVideoRecorder(&m_host->recorder()));
    QVERIFY(handler.initRecordedVideoIndexing(m_video));
    handler.onVideoRecorderStateChanged();
    m_host->camera().setPan(1);
    m_host->counter().setDistance(1);
    m_host->createObservation();
    QVERIFY(!handler.writeInitialIndexingDistance());
    QVERIFY(handler.endVideoIndexing());
    QVERIFY(QFile::exists(m_info));
    QCOMPARE(valuesIn(m_info), QByteArrayList());
}

void tst_ClipInfoHandler::theFileIsNamedAfterTheVideo_data()
{
    QTest::addColumn<QString>("video");
    QTest::addColumn<QString>("info");

    const auto row = [](const char *name, const char *video, const char *info) {
        QTest::newRow(name) << QString::fromUtf8(video) << QString::fromUtf8(info);
    };
    row("one dot", "/data/x/clip.mp4", "/data/x/clip.txt");
    row("the name ends at the first dot", "/data/x/clip.001.mp4", "/data/x/clip.txt");
    row("many dots", "/data/a.b.c.d.mp4", "/data/a.txt");
    row("no dot", "/data/clip", "/data/clip.txt");
    row("dots of folders do not count", "/data.1/x.y/clip.mp4", "/data.1/x.y/clip.txt");
    row("blanks and letters beyond ASCII", "/Kanäle 1/Straße 2.mp4", "/Kanäle 1/Straße 2.txt");
    row("another extension", "/data/clip.TXT", "/data/clip.txt");
    row("its own file", "/data/clip.txt", "/data/clip.txt");
    row("a name that begins with a dot has nothing before it", "/data/.clip.mp4", "/data/.txt");
    row("a relative path stays one", "x/clip.mp4", "x/clip.txt");
}

void tst_ClipInfoHandler::theFileIsNamedAfterTheVideo()
{
    QFETCH(QString, video);
    QFETCH(QString, info);

    QCOMPARE(ClipInfoHandler::videoPathToFilePath(video), info);
}

void tst_ClipInfoHandler::theFileOfAVideoIsRemoved()
{
    const QString other = m_host->path(QStringLiteral("other.txt"));
    makeFile(m_info, "info");
    makeFile(m_video, "video");
    makeFile(other, "other");
    ClipInfoHandler::removeInfoForVideo(m_video);
    QVERIFY(!QFile::exists(m_info));
    QVERIFY(QFile::exists(m_video));
    QVERIFY(QFile::exists(other));
    ClipInfoHandler::removeInfoForVideo(m_video); // missing, which is no error
    QVERIFY(QFile::exists(other));
}

void tst_ClipInfoHandler::onlyAnIdleRecorderIsFollowed_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("followed");

    QTest::newRow("idle") << 0 << true;
    QTest::newRow("the state that is not in use") << 1 << false;
    QTest::newRow("recording") << 2 << false;
    QTest::newRow("paused") << 3 << false;
    QTest::newRow("unknown") << -1 << false;
}

void tst_ClipInfoHandler::onlyAnIdleRecorderIsFollowed()
{
    QFETCH(int, state);
    QFETCH(bool, followed);

    m_host->recorder().setState(state);
    QVERIFY(!m_handler->connectToVideoRecorder(nullptr));
    QCOMPARE(m_host->journal, QStringList());
    QCOMPARE(m_handler->connectToVideoRecorder(&m_host->recorder()), followed);
    QCOMPARE(!m_host->journal.isEmpty(), followed);
}

void tst_ClipInfoHandler::theRecorderFollowedIsTheCreationHandlers()
{
    QStringList journal;
    FreeRecorder given(journal);
    m_host->recorder().setState(FreeRecorder::Recording); // its state is not asked for
    QVERIFY(m_handler->connectToVideoRecorder(&given));
    QCOMPARE(journal, QStringList());
    QCOMPARE(m_host->journal, QStringList{QStringLiteral("connect stateChanged, observation off")});

    m_handler->setVideoIndexingFilePath(m_video);
    given.setState(FreeRecorder::Recording);
    m_host->recorder().setState(FreeRecorder::Recording);
    QCOMPARE(samples().size(), 1);
}

void tst_ClipInfoHandler::withoutARecorderOfItsOwnItConnectsNothing()
{
    m_host->creation().setVideoRecorder(nullptr);
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    QCOMPARE(m_host->journal, QStringList());
}

void tst_ClipInfoHandler::followingTheRecorderTwiceIsFollowingItOnce()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    m_handler->setVideoIndexingFilePath(m_video);
    m_host->recorder().setState(FreeRecorder::Recording);
    QCOMPARE(samples().size(), 1);
}

void tst_ClipInfoHandler::beginsInOrder()
{
    begin();
    QCOMPARE(m_host->journal,
             (QStringList{
                 QStringLiteral("getCameraConstant"),
                 QStringLiteral("getDistanceOffset"),
                 QStringLiteral("connect distanceValueChanged, observation off"),
                 QStringLiteral("connect panChanged, observation on"),
                 QStringLiteral("connect tiltChanged, observation on"),
                 QStringLiteral("getTilt"),
                 QStringLiteral("getPan"),
             }));
}

void tst_ClipInfoHandler::beginsAlsoWithTheSettingOff()
{
    m_host->settings().setVideoIndexingEnabled(false);
    begin();
    m_host->camera().setPan(1);
    QCOMPARE(samples(), QByteArrayList{"00000=0.000;0.000;0;1.000;0.000"});
}

void tst_ClipInfoHandler::takesPanAndTiltFromTheCamera()
{
    m_host->camera().setPan(-45);
    m_host->camera().setTilt(10.5);
    begin();
    m_host->counter().setDistance(3);
    QCOMPARE(samples(), QByteArrayList{"00000=0.000;3.000;0;-45.000;10.500"});
}

void tst_ClipInfoHandler::endsInOrder()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->journal.clear();
    QVERIFY(m_handler->endVideoIndexing());
    QCOMPARE(m_host->journal,
             (QStringList{
                 QStringLiteral("disconnect distanceValueChanged, observation on"),
                 QStringLiteral("disconnect stateChanged, observation off"),
                 QStringLiteral("disconnect panChanged, observation off"),
                 QStringLiteral("disconnect tiltChanged, observation off"),
             }));
    QVERIFY(QFile::exists(m_info));
    QVERIFY(!m_handler->endVideoIndexing()); // there is no clip any more
}

void tst_ClipInfoHandler::endsWithoutARecorder()
{
    begin();
    m_host->creation().setVideoRecorder(nullptr);
    m_host->journal.clear();
    m_handler->disconnectSignalsForIndexing();
    QCOMPARE(m_host->journal,
             (QStringList{
                 QStringLiteral("disconnect distanceValueChanged, observation on"),
                 QStringLiteral("disconnect panChanged, observation off"),
                 QStringLiteral("disconnect tiltChanged, observation off"),
             }));
}

void tst_ClipInfoHandler::anEndWithTheSettingOffDoesNothing()
{
    m_host->camera().setTilt(7);
    begin();
    m_host->journal.clear();
    m_host->settings().setVideoIndexingEnabled(false);
    QVERIFY(!m_handler->endVideoIndexing());
    QVERIFY(!QFile::exists(m_info));
    QCOMPARE(m_host->journal, QStringList());

    // still connected, and the tilt is remembered
    m_host->camera().setPan(1);
    m_host->counter().setDistance(1);
    m_host->createObservation();
    QCOMPARE(samples(),
             (QByteArrayList{"00000=0.000;0.000;0;1.000;7.000", "00001=0.000;1.000;0;1.000;7.000",
                             "00002=0.000;1.000;0;1.000;7.000"}));
}

void tst_ClipInfoHandler::connectingAgainTakesEachSampleOnce()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->settings().setVideoIndexingEnabled(false);
    QVERIFY(!m_handler->endVideoIndexing());
    m_host->settings().setVideoIndexingEnabled(true);

    m_host->journal.clear();
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    QCOMPARE(m_host->journal.filter(QStringLiteral("connect")), QStringList());
    m_host->recorder().setState(FreeRecorder::Recording);
    m_host->camera().setPan(1);
    m_host->camera().setTilt(2);
    m_host->counter().setDistance(3);
    m_host->createObservation();
    m_host->recorder().setState(FreeRecorder::Idle);
    QCOMPARE(valuesIn(m_info).size(), 5);

    // one disconnection was enough
    m_host->camera().setPan(5);
    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->stop());
    QCOMPARE(valuesIn(m_info).size(), 0);
}

void tst_ClipInfoHandler::aSampleOfEarlierIsDropped()
{
    begin();
    QVERIFY(m_handler->write(2.0, 1, 0, 0, 0));
    QVERIFY(!m_handler->write(1.999, 2, 0, 0, 0));
    QVERIFY(m_handler->write(2.0, 3, 0, 0, 0));
    QVERIFY(!m_handler->write(-1, 4, 0, 0, 0));
    QVERIFY(m_handler->write(2.001, 5, 0, 0, 0));
    // a dropped one takes no number
    QCOMPARE(samples(),
             (QByteArrayList{"00000=2.000;1.000;0;0.000;0.000", "00001=2.000;3.000;0;0.000;0.000",
                             "00002=2.001;5.000;0;0.000;0.000"}));
}

void tst_ClipInfoHandler::aCodeIsWritten()
{
    begin();
    QVERIFY(m_handler->write(0, 0, 12, 0, 0));
    QVERIFY(m_handler->write(0, 0, -7, 0, 0));
    QVERIFY(m_handler->write(0, 0, std::numeric_limits<int>::max(), 0, 0));
    QCOMPARE(samples(),
             (QByteArrayList{"00000=0.000;0.000;12;0.000;0.000", "00001=0.000;0.000;-7;0.000;0.000",
                             "00002=0.000;0.000;2147483647;0.000;0.000"}));
}

void tst_ClipInfoHandler::anyNumberIsWritten_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("zero") << 0.0 << QByteArray("0.000");
    QTest::newRow("rounded up") << 1.2346 << QByteArray("1.235");
    QTest::newRow("rounded down") << 1.2344 << QByteArray("1.234");
    QTest::newRow("negative") << -45.0 << QByteArray("-45.000");
    QTest::newRow("no grouping of digits") << 1234567.891 << QByteArray("1234567.891");
    QTest::newRow("never an exponent") << 1e20 << QByteArray("100000000000000000000.000");
    QTest::newRow("too small to show") << 1e-9 << QByteArray("0.000");
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << QByteArray("inf");
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << QByteArray("nan");
}

void tst_ClipInfoHandler::anyNumberIsWritten()
{
    QFETCH(double, number);
    QFETCH(QByteArray, text);

    begin();
    QVERIFY(m_handler->write(0, number, 0, number, number));
    QCOMPARE(samples(), QByteArrayList{"00000=0.000;" + text + ";0;" + text + ';' + text});
}

void tst_ClipInfoHandler::aDistanceCountsFromFiveCentimetresOn_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<int>("samples");

    QTest::newRow("exactly") << 0.0 << 0.05 << 1;
    QTest::newRow("a little less") << 0.0 << 0.0499 << 0;
    QTest::newRow("backwards") << 0.0 << -0.05 << 1;
    QTest::newRow("backwards, a little less") << 0.0 << -0.0499 << 0;
    // binary fractions: no tolerance is added
    QTest::newRow("1.05 is a little more than 0.05 away from 1") << 1.0 << 1.05 << 1;
    QTest::newRow("0.15 is a little less than 0.05 away from 0.1") << 0.1 << 0.15 << 0;
}

void tst_ClipInfoHandler::aDistanceCountsFromFiveCentimetresOn()
{
    QFETCH(double, from);
    QFETCH(double, to);

    begin();
    m_host->counter().setDistance(from);
    m_handler->stop();
    QVERIFY(QFile::remove(m_info));
    begin();
    m_host->counter().setDistance(to);
    QTEST(int(samples().size()), "samples");
}

void tst_ClipInfoHandler::aDroppedDistanceIsStillTheLast()
{
    begin();
    record(2000);
    m_host->counter().setDistance(1);
    m_host->recorder().setDuration(1000);
    m_host->counter().setDistance(2); // dropped
    m_host->recorder().setDuration(3000);
    m_host->counter().setDistance(2.04);
    m_host->camera().setPan(9);
    QCOMPARE(
        samples(),
        (QByteArrayList{"00000=2.000;1.000;0;0.000;0.000", "00001=3.000;2.000;0;9.000;0.000"}));
}

void tst_ClipInfoHandler::everyPanIsASample()
{
    m_host->camera().setTilt(3);
    begin();
    record(1000);
    m_host->camera().setPan(0.0001);
    m_handler->onPanValueChanged(0.0001); // no threshold, not even for a repetition
    m_host->recorder().setDuration(1500);
    m_host->camera().setPan(-90);
    QCOMPARE(samples(),
             (QByteArrayList{"00000=1.000;0.000;0;0.000;3.000", "00001=1.000;0.000;0;0.000;3.000",
                             "00002=1.500;0.000;0;-90.000;3.000"}));
}

void tst_ClipInfoHandler::everyTiltIsASample()
{
    m_host->camera().setPan(3);
    begin();
    record(1000);
    m_host->camera().setTilt(0.0001);
    m_handler->onTiltValueChanged(0.0001);
    m_host->recorder().setDuration(1500);
    m_host->camera().setTilt(-90);
    QCOMPARE(samples(),
             (QByteArrayList{"00000=1.000;0.000;0;3.000;0.000", "00001=1.000;0.000;0;3.000;0.000",
                             "00002=1.500;0.000;0;3.000;-90.000"}));
}

void tst_ClipInfoHandler::panAndTiltStayAtTheLastDistance()
{
    begin();
    m_host->counter().setDistance(1);
    m_host->counter().setDistance(1.04); // too little to count
    m_host->camera().setPan(2);
    m_host->camera().setTilt(3);
    m_host->counter().setDistance(4);
    QCOMPARE(
        samples(),
        (QByteArrayList{"00000=0.000;1.000;0;0.000;0.000", "00001=0.000;1.000;0;2.000;0.000",
                        "00002=0.000;1.000;0;2.000;3.000", "00003=0.000;4.000;0;2.000;3.000"}));
}

void tst_ClipInfoHandler::aDroppedPanIsStillTheLast()
{
    begin();
    record(2000);
    m_host->camera().setPan(1);
    m_host->recorder().setDuration(1000);
    m_host->camera().setPan(2);
    m_host->camera().setTilt(3);
    m_host->recorder().setDuration(2000);
    m_host->counter().setDistance(5);
    QCOMPARE(
        samples(),
        (QByteArrayList{"00000=2.000;0.000;0;1.000;0.000", "00001=2.000;5.000;0;2.000;3.000"}));
}

void tst_ClipInfoHandler::anObservationIsASampleAtTheCountersDistance()
{
    m_host->camera().setPan(1);
    m_host->camera().setTilt(2);
    begin();
    record(7250);
    m_host->counter().setDistance(0.04); // too little for a sample, yet it is where it was made
    m_host->createObservation();
    QCOMPARE(samples(), QByteArrayList{"00000=7.250;0.040;0;1.000;2.000"});
}

void tst_ClipInfoHandler::whatIsNoObservationIsNoSample_data()
{
    QTest::addColumn<bool>("null");

    QTest::newRow("null") << true;
    QTest::newRow("another kind of object") << false;
}

void tst_ClipInfoHandler::whatIsNoObservationIsNoSample()
{
    QFETCH(bool, null);

    begin();
    m_host->journal.clear();
    const CDomainObjectPointer object(null ? nullptr : new CDomainObject);
    Q_EMIT m_host->state().observationCreated(object);
    QCOMPARE(m_host->journal, QStringList{QStringLiteral("duration")});
    QCOMPARE(samples(), QByteArrayList());
}

void tst_ClipInfoHandler::anObservationNeedsAnItem()
{
    begin();
    m_host->journal.clear();
    m_host->creation().setItem({});
    m_host->createObservation();
    QCOMPARE(m_host->journal, QStringList());
    QCOMPARE(samples(), QByteArrayList());
}

void tst_ClipInfoHandler::anObservationLeavesTheLastDistance()
{
    begin();
    m_host->counter().setDistance(0.04);
    m_host->createObservation();
    m_host->counter().setDistance(0.06); // from 0, not from 0.04
    QCOMPARE(
        samples(),
        (QByteArrayList{"00000=0.000;0.040;0;0.000;0.000", "00001=0.000;0.060;0;0.000;0.000"}));
}

void tst_ClipInfoHandler::withoutARecorderSlotsDoNothing()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->creation().setVideoRecorder(nullptr);
    m_host->camera().setPan(1);
    m_host->camera().setTilt(2);
    m_host->counter().setDistance(3);
    m_host->createObservation();
    m_host->recorder().setState(FreeRecorder::Paused);
    m_host->recorder().setState(FreeRecorder::Idle);
    QVERIFY(!QFile::exists(m_info));

    // nothing is remembered either
    m_host->creation().setVideoRecorder(&m_host->recorder());
    m_handler->onPanValueChanged(4);
    m_handler->onTiltValueChanged(5);
    m_host->recorder().setState(FreeRecorder::Recording);
    QCOMPARE(samples(),
             (QByteArrayList{"00000=0.000;0.000;0;4.000;0.000", "00001=0.000;0.000;0;4.000;5.000",
                             "00002=0.000;3.000;0;0.000;0.000"}));
}

void tst_ClipInfoHandler::theInitialSampleHasNoPanAndTilt()
{
    m_host->counter().setDistance(12.5);
    m_host->camera().setPan(1);
    m_host->camera().setTilt(2);
    begin();
    record(40);
    QVERIFY(m_handler->writeInitialIndexingDistance());
    m_host->camera().setPan(3); // the tilt is not forgotten
    QCOMPARE(
        samples(),
        (QByteArrayList{"00000=0.040;12.500;0;0.000;0.000", "00001=0.040;12.500;0;3.000;2.000"}));
}

void tst_ClipInfoHandler::theInitialDistanceIsTheLast()
{
    m_host->counter().setDistance(12.5);
    begin();
    record(1000);
    QVERIFY(m_handler->writeInitialIndexingDistance());
    m_host->counter().setDistance(12.54);
    m_host->counter().setDistance(20);
    m_host->recorder().setDuration(500);
    QVERIFY(!m_handler->writeInitialIndexingDistance()); // dropped, and the last all the same
    m_host->recorder().setDuration(1000);
    m_handler->onPanValueChanged(1);
    QCOMPARE(samples(),
             (QByteArrayList{"00000=1.000;12.500;0;0.000;0.000", "00001=1.000;20.000;0;0.000;0.000",
                             "00002=1.000;20.000;0;1.000;0.000"}));
}

void tst_ClipInfoHandler::theInitialSampleNeedsARecordingRecorder_data()
{
    QTest::addColumn<int>("state");

    QTest::newRow("idle") << 0;
    QTest::newRow("the state that is not in use") << 1;
    QTest::newRow("paused") << 3;
    QTest::newRow("no recorder") << -1;
}

void tst_ClipInfoHandler::theInitialSampleNeedsARecordingRecorder()
{
    QFETCH(int, state);

    begin();
    m_handler->disconnectSignalsForIndexing();
    m_host->counter().setDistance(5);
    m_host->recorder().setState(state);
    if (state < 0) {
        m_host->creation().setVideoRecorder(nullptr);
    }
    QVERIFY(!m_handler->writeInitialIndexingDistance());
    m_host->creation().setVideoRecorder(&m_host->recorder());
    m_handler->onPanValueChanged(1);
    QCOMPARE(samples(), QByteArrayList{"00000=0.000;0.000;0;1.000;0.000"});
}

void tst_ClipInfoHandler::statesOfTheRecorderDecide_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("creationState");
    QTest::addColumn<int>("recorderState");
    QTest::addColumn<bool>("written"); // the file
    QTest::addColumn<int>("samples");

    QTest::newRow("recording begins") << true << 1 << 2 << false << 1;
    QTest::newRow("recording begins, setting off") << false << 1 << 2 << false << 0;
    QTest::newRow("recording begins, no video is created") << true << 0 << 2 << false << 0;
    QTest::newRow("recording begins, another stage") << true << 2 << 2 << false << 0;
    QTest::newRow("recording ends") << true << 1 << 0 << true << 0;
    QTest::newRow("recording ends, setting off") << false << 1 << 0 << false << 0;
    QTest::newRow("recording ends, no video is created") << true << 0 << 0 << false << 0;
    QTest::newRow("recording ends, another stage") << true << 2 << 0 << false << 0;
    QTest::newRow("paused") << true << 1 << 3 << false << 0;
    QTest::newRow("the state that is not in use") << true << 1 << 1 << false << 0;
}

void tst_ClipInfoHandler::statesOfTheRecorderDecide()
{
    QFETCH(bool, enabled);
    QFETCH(int, creationState);
    QFETCH(int, recorderState);
    QFETCH(bool, written);

    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->settings().setVideoIndexingEnabled(enabled);
    m_host->creation().setState(creationState);
    m_host->recorder().setState(recorderState);
    QCOMPARE(QFile::exists(m_info), written);
    if (!written) {
        QTEST(int(samples().size()), "samples");
    }
}

void tst_ClipInfoHandler::aPauseIsFollowedByNoInitialSample()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->recorder().setState(FreeRecorder::Recording);
    m_host->recorder().setState(FreeRecorder::Paused);
    m_host->recorder().setState(FreeRecorder::Paused);
    m_host->recorder().setState(FreeRecorder::Recording);
    QCOMPARE(samples().size(), 1);

    // the pause is over, the next state counts again
    m_handler->setVideoIndexingFilePath(m_video);
    m_host->recorder().setState(FreeRecorder::Recording);
    QCOMPARE(samples().size(), 1);
}

void tst_ClipInfoHandler::aStopWhilePausedKeepsThePause()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->recorder().setState(FreeRecorder::Recording);
    m_host->recorder().setState(FreeRecorder::Paused);
    m_host->recorder().setState(FreeRecorder::Idle);
    QCOMPARE(valuesIn(m_info).size(), 1);

    QVERIFY(QFile::remove(m_info));
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->recorder().setState(FreeRecorder::Recording); // taken for the end of the pause
    m_host->recorder().setState(FreeRecorder::Idle);
    QVERIFY(QFile::exists(m_info));
    QCOMPARE(valuesIn(m_info).size(), 0);
}

void tst_ClipInfoHandler::aClipFromBeginningToEnd()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->recorder().setState(FreeRecorder::Recording);
    m_host->recorder().setDuration(400);
    m_host->counter().setDistance(0.1);
    m_host->recorder().setDuration(440);
    m_host->camera().setPan(-45);
    m_host->recorder().setDuration(480);
    m_host->camera().setTilt(10.5);
    m_host->recorder().setDuration(520);
    m_host->createObservation();
    m_host->recorder().setState(FreeRecorder::Paused);
    m_host->recorder().setState(FreeRecorder::Recording);
    m_host->recorder().setDuration(12480);
    m_host->counter().setDistance(3.215);
    QVERIFY(!QFile::exists(m_info)); // in one go, at the end
    m_host->recorder().setState(FreeRecorder::Idle);
    QCOMPARE(valuesIn(m_info),
             (QByteArrayList{
                 "Val00000=0.000;0.000;0;0.000;0.000",
                 "Val00001=0.400;0.100;0;0.000;0.000",
                 "Val00002=0.440;0.100;0;-45.000;0.000",
                 "Val00003=0.480;0.100;0;-45.000;10.500",
                 "Val00004=0.520;0.100;0;-45.000;10.500",
                 "Val00005=12.480;3.215;0;-45.000;10.500",
             }));

    // nobody is listened to any more
    m_host->journal.clear();
    m_host->recorder().setState(FreeRecorder::Recording);
    m_host->camera().setPan(1);
    m_host->counter().setDistance(9);
    m_host->createObservation();
    QCOMPARE(m_host->journal, QStringList());
}

void tst_ClipInfoHandler::theNextClipBeginsAnew()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    m_host->recorder().setState(FreeRecorder::Recording);
    m_host->recorder().setDuration(60'000);
    m_host->camera().setPan(30);
    m_host->recorder().setState(FreeRecorder::Idle);

    const QString video = m_host->path(QStringLiteral("next.mp4"));
    m_host->recorder().setDuration(0);
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    QVERIFY(m_handler->initRecordedVideoIndexing(video));
    m_host->recorder().setState(FreeRecorder::Recording);
    m_host->recorder().setDuration(40);
    m_host->camera().setTilt(1);
    m_host->recorder().setState(FreeRecorder::Idle);
    QCOMPARE(valuesIn(m_host->path(QStringLiteral("next.txt"))),
             (QByteArrayList{"Val00000=0.000;0.000;0;0.000;0.000",
                             "Val00001=0.040;0.000;0;30.000;1.000"}));
    QCOMPARE(valuesIn(m_info).size(), 2);
}

void tst_ClipInfoHandler::recordUnwritten(bool isSettingOff)
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    begin();
    if (!isSettingOff) {
        QVERIFY(QDir().mkpath(m_info)); // root may write to anything but a directory
    }
    m_host->recorder().setState(FreeRecorder::Recording);
    for (const int second : {0, 20, 60}) {
        m_host->recorder().setDuration(second * Q_INT64_C(1000));
        m_host->camera().setPan(second + 1);
    }
    m_host->settings().setVideoIndexingEnabled(!isSettingOff);
    m_host->recorder().setState(FreeRecorder::Idle);
    m_host->settings().setVideoIndexingEnabled(true);
    m_host->recorder().setDuration(0);
    if (!isSettingOff) {
        QVERIFY(QDir().rmdir(m_info));
    }
}

void tst_ClipInfoHandler::recordNext()
{
    QVERIFY(m_handler->connectToVideoRecorder(&m_host->recorder()));
    QVERIFY(m_handler->initRecordedVideoIndexing(m_host->path(QStringLiteral("next.mp4"))));
    m_host->recorder().setState(FreeRecorder::Recording);
    for (const int second : {10, 59, 61}) {
        m_host->recorder().setDuration(second * Q_INT64_C(1000));
        m_host->camera().setTilt(second);
    }
    m_host->recorder().setState(FreeRecorder::Idle);
    m_next = m_host->path(QStringLiteral("next.txt"));
}

void tst_ClipInfoHandler::aClipThatWasNotWrittenGetsIntoTheNext_data()
{
    QTest::addColumn<bool>("isSettingOff");

    QTest::newRow("the file could not be written") << false;
    QTest::newRow("indexing was turned off") << true;
}

// hosts count on a second stop(), so the page says what else comes of it
void tst_ClipInfoHandler::aClipThatWasNotWrittenGetsIntoTheNext()
{
    QFETCH(bool, isSettingOff);
    recordUnwritten(isSettingOff);
    QVERIFY(!QFile::exists(m_info));
    recordNext();
    // its beginning, 10 s and 59 s are missing; 20 s and 60 s are of the other clip
    QCOMPARE(valuesIn(m_next),
             (QByteArrayList{
                 "Val00000=61.000;0.000;0;61.000;61.000", "Val00001=0.000;0.000;0;1.000;0.000",
                 "Val00002=20.000;0.000;0;21.000;0.000", "Val00003=60.000;0.000;0;61.000;0.000"}));
    QVERIFY(contentOf(m_next).startsWith("[ClipInfo]\n"));
    QVERIFY(!QFile::exists(m_info));
}

void tst_ClipInfoHandler::aContinuationThatWasNotWrittenTakesTheNextsHeader()
{
    makeFile(m_info, "Val00004=\n");
    begin();
    QVERIFY(QFile::remove(m_info));
    QVERIFY(QDir().mkpath(m_info));
    QVERIFY(m_handler->write(1, 0, 0, 0, 0));
    QVERIFY(!m_handler->stop());
    recordNext();
    QVERIFY(contentOf(m_next).startsWith("Val00000="));
}

void tst_ClipInfoHandler::aClipThatWasNotWrittenCanBeSavedOrDropped_data()
{
    QTest::addColumn<bool>("isSettingOff");
    QTest::addColumn<bool>("isSaved");

    QTest::newRow("not written, saved") << false << true;
    QTest::newRow("not written, dropped") << false << false;
    QTest::newRow("turned off, saved") << true << true;
    QTest::newRow("turned off, dropped") << true << false;
}

void tst_ClipInfoHandler::aClipThatWasNotWrittenCanBeSavedOrDropped()
{
    QFETCH(bool, isSettingOff);
    QFETCH(bool, isSaved);
    recordUnwritten(isSettingOff);
    if (isSaved) {
        m_host->settings().setVideoIndexingEnabled(!isSettingOff); // neither asks for it
        m_handler->disconnectSignalsForIndexing();
        QVERIFY(m_handler->stop());
        m_host->settings().setVideoIndexingEnabled(true);
    } else {
        delete m_handler;
        m_handler = new ClipInfoHandler(&m_host->creation());
    }
    recordNext();
    QByteArrayList times = valuesIn(m_next);
    for (QByteArray &line : times) {
        line = line.left(line.indexOf(';'));
    }
    QCOMPARE(times,
             (QByteArrayList{"Val00000=0.000", "Val00001=10.000", "Val00002=59.000",
                             "Val00003=61.000"}));
    QVERIFY(contentOf(m_next).startsWith("[ClipInfo]\n"));
    QCOMPARE(valuesIn(m_info).size(), isSaved ? 4 : 0);
}

QTEST_GUILESS_MAIN(tst_ClipInfoHandler)

#include "tst_ClipInfoHandler.moc"
