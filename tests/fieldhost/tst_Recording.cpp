// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ClipInfoFile.h"
#include "fieldhost/qml/recording/ClipTrace.h"
#include "fieldhost/qml/recording/Recording.h"
#include "fieldhost/services/FieldApplication.h"
#include "shared/locale/CProjectLocaleData.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QtCharts/QLineSeries>

#include <algorithm>
#include <memory>

using namespace Tavro::FieldHost;
using namespace Test;

/** What the recording's screen shows, without the screen. */
class tst_Recording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aRecordingIsWrittenAndSummedUp();
    void everyMovementIsPlotted();
    void anEarlierFileIsContinued();
    void aPlaceThatIsNotFitIsExplained();
    void aFileThatCannotBeWrittenIsReported();
    void pauseAndObservationAreShown();
    void feetAreShownAsFeet();
    void movementIsAnnouncedAFewTimesASecond();
    void aRecordingInProgressIsWrittenAtTheEnd();

    void aLongCurveStaysSmallAndKeepsItsPeaks();
    void aValueHoldsUntilTheNextOne();
    void axesSuitTheValues_data();
    void axesSuitTheValues();
    void aCurveIsDrawnIntoASeries();

    void aTraceIsThatOfItsFile();
    void aTraceWithDoubtsNamesThem();
    void aTraceThatCannotBeReadIsExplained();

private:
    void startRecording()
    {
        m_recording->setClip(m_clip);
        m_recording->setSpeed(50);
        m_recording->start();
        QCOMPARE(m_recording->problem(), QString());
        QCOMPARE(m_recording->state(), Recording::Running);
    }
    bool waitForVideo(qint64 duration)
    {
        const SimulatedRecorder *recorder = m_host->crawler().recorder();
        return QTest::qWaitFor([&] { return recorder->duration() >= duration; }, 30'000);
    }
    static void read(ClipTrace &trace, const QString &clip)
    {
        QSignalSpy changed(&trace, &ClipTrace::changed);
        trace.read(clip);
        QVERIFY(trace.isReading());
        QVERIFY(changed.wait(30000));
        QCOMPARE(changed.count(), 2);
        QVERIFY(!trace.isReading());
    }

    std::unique_ptr<TemporaryFolder> m_directory;
    QString m_clip;
    QString m_info;
    std::unique_ptr<FieldApplication> m_host;
    std::unique_ptr<Recording> m_recording;
};

void tst_Recording::init()
{
    m_directory = std::make_unique<TemporaryFolder>();
    m_clip = m_directory->filePath(QStringLiteral("clip.mp4"));
    m_info = m_directory->filePath(QStringLiteral("clip.txt"));
    m_host = std::make_unique<FieldApplication>();
    m_recording = std::make_unique<Recording>();
}

void tst_Recording::cleanup()
{
    m_recording.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // needs the host
    m_host.reset();
    m_directory.reset();
}

void tst_Recording::aRecordingIsWrittenAndSummedUp()
{
    QSignalSpy finished(m_recording.get(), &Recording::finished);
    startRecording();
    m_recording->start(); // is running
    QVERIFY(waitForVideo(8000));
    m_recording->stop();
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_recording->state(), Recording::Idle);
    QCOMPARE(m_recording->problem(), QString());
    QCOMPARE(m_recording->continued(), QString());
    QCOMPARE(m_recording->infoPath(), m_info);
    const ClipInfoFile file = ClipInfoFile::read(m_info);
    QVERIFY2(
        m_recording->summary().startsWith(QLatin1String("Recorded "))
            && m_recording->summary().endsWith(QStringLiteral(" of video, %1 samples in \"%2\".")
                                                   .arg(file.samples.size())
                                                   .arg(m_info)),
        qPrintable(m_recording->summary()));
    QVERIFY(m_recording->distance()->points().size() > 2);
    QCOMPARE(m_recording->distance()->points().first(), QPointF(0, 0));
    QVERIFY(m_recording->distance()->points().last().y() > 1.3);
    m_recording->stop();
    QCOMPARE(finished.count(), 1);
}

void tst_Recording::everyMovementIsPlotted()
{
    startRecording(); // so fast that a frame in fifty would do for the screen
    QVERIFY(waitForVideo(12'000));
    m_recording->stop();
    for (const QPointF &point : m_recording->distance()->points()) {
        if (point.x() < 7) {
            QVERIFY(qAbs(point.y() - 0.2 * point.x()) < 0.02);
        }
    }
    const auto isLower = [](const QPointF &a, const QPointF &b) { return a.y() < b.y(); };
    const QVector<QPointF> pan = m_recording->pan()->points();
    QCOMPARE(std::min_element(pan.begin(), pan.end(), isLower)->y(), -60.0);
    QCOMPARE(std::max_element(pan.begin(), pan.end(), isLower)->y(), 60.0);
    const QVector<QPointF> tilt = m_recording->tilt()->points();
    QCOMPARE(std::max_element(tilt.begin(), tilt.end(), isLower)->y(), 20.0);
}

void tst_Recording::anEarlierFileIsContinued()
{
    makeFile(m_info, "[Indexing]\nVal00012=12.480;3.215;0;-45.000;10.500\n");
    startRecording();
    QCOMPARE(m_recording->continued(),
             QStringLiteral("Continues \"%1\" after 1 sample.").arg(m_info));
    m_recording->stop();
    QCOMPARE(ClipInfoFile::read(m_info).samples.size(), 2);
}

void tst_Recording::aPlaceThatIsNotFitIsExplained()
{
    m_recording->setClip(m_directory->filePath(QStringLiteral("missing/clip.mp4")));
    QSignalSpy changed(m_recording.get(), &Recording::stateChanged);
    m_recording->start();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_recording->state(), Recording::Idle);
    QCOMPARE(m_recording->problem(),
             QStringLiteral("There is no directory \"%1/missing\".").arg(m_directory->path()));
    startRecording(); // elsewhere: the problem is gone
    m_recording->stop();
}

void tst_Recording::aFileThatCannotBeWrittenIsReported()
{
    startRecording();
    QVERIFY(QDir().mkpath(m_info));
    m_recording->stop();
    QVERIFY2(m_recording->problem().startsWith(
                 QStringLiteral("\"%1\" was not written as it should be: ").arg(m_info)),
             qPrintable(m_recording->problem()));
    QCOMPARE(m_recording->summary(), QString());
}

void tst_Recording::pauseAndObservationAreShown()
{
    QSignalSpy states(m_recording.get(), &Recording::stateChanged);
    m_recording->pause();
    m_recording->resume();
    m_recording->observe();
    QCOMPARE(states.count(), 0);
    startRecording();
    QVERIFY(waitForVideo(1000));
    m_recording->pause();
    QCOMPARE(m_recording->state(), Recording::Paused);
    m_recording->observe();
    QCOMPARE(m_recording->observations(), 1);
    m_recording->resume();
    QCOMPARE(m_recording->state(), Recording::Running);
    m_recording->stop();
    QCOMPARE(states.count(), 4); // running, paused, running, idle
    m_recording->start();
    QCOMPARE(m_recording->observations(), 0);
    m_recording->stop();
}

void tst_Recording::feetAreShownAsFeet()
{
    auto *project = Tavro::Shared::CProjectLocaleData::instance();
    project->setUnitType(Tavro::Base::DistanceUnit::Feet);
    startRecording();
    QCOMPARE(m_recording->unit(), QStringLiteral("ft"));
    QVERIFY(waitForVideo(1000));
    m_recording->stop();
    project->setUnitType(Tavro::Base::DistanceUnit::Undefined);
    const QPointF last = m_recording->distance()->points().last();
    QCOMPARE(last.y(), 0.2 * last.x() * 3.2808);
}

void tst_Recording::movementIsAnnouncedAFewTimesASecond()
{
    const SimulatedDistanceCounter *counter = m_host->crawler().distanceCounter();
    QElapsedTimer time;
    time.start();
    startRecording();
    QSignalSpy moved(m_recording.get(), &Recording::moved);
    QSignalSpy frames(counter, &SimulatedDistanceCounter::distanceValueChanged);
    QVERIFY(waitForVideo(30'000));
    QVERIFY(moved.wait(30000));
    QVERIFY(frames.count() > 500);
    // twice as often as the screen is refreshed: a timer may be early, but never by that much
    QVERIFY2(moved.count() <= time.elapsed() / 100, qPrintable(QString::number(moved.count())));
    QCOMPARE(m_recording->distanceInMeters(), counter->distanceValue());
    m_recording->stop();
}

void tst_Recording::aRecordingInProgressIsWrittenAtTheEnd()
{
    QSignalSpy finished(m_recording.get(), &Recording::finished);
    startRecording();
    QVERIFY(waitForVideo(1000));
    m_recording.reset();
    QCOMPARE(finished.count(), 0);
    QCOMPARE(m_host->crawler().recorder()->state(), int(SimulatedRecorder::Idle));
    QVERIFY(ClipInfoFile::read(m_info).samples.size() > 3);
}

void tst_Recording::aLongCurveStaysSmallAndKeepsItsPeaks()
{
    const QVector<int> peaks{0, 11'111, 51'234, 77'777, 90'001};
    PlotCurve curve;
    curve.clear();
    QSignalSpy shown(&curve, &PlotCurve::shown);
    for (int i = 0; i < 100'000; ++i) {
        curve.add(i * 0.04, peaks.contains(i) ? 1e6 : i);
    }
    QCOMPARE(shown.count(), 0);
    curve.show();
    QCOMPARE(shown.count(), 1);
    const QVector<QPointF> points = curve.points();
    QVERIFY(points.size() <= 2 * PlotCurve::most);
    QVERIFY(points.size() >= PlotCurve::most);
    QCOMPARE(points.last().x(), 99'999 * 0.04);
    const double widest = 2 * 4000.0 / PlotCurve::most;
    for (int i = 1; i < points.size(); ++i) {
        QVERIFY(points.at(i).x() - points.at(i - 1).x() <= widest);
    }
    for (const int peak : peaks) {
        const auto isIt = [&](const QPointF &point) {
            return point.y() == 1e6 && qAbs(point.x() - peak * 0.04) <= widest;
        };
        QVERIFY2(std::any_of(points.begin(), points.end(), isIt),
                 qPrintable(QString::number(peak)));
    }
    curve.clear();
    curve.show();
    QVERIFY(curve.points().isEmpty());
}

void tst_Recording::aValueHoldsUntilTheNextOne()
{
    PlotCurve curve;
    curve.clear();
    curve.add(0, 3);
    curve.add(7, 5);
    curve.show();
    QVector<QPointF> points = curve.points();
    QCOMPARE(points.takeLast(), QPointF(7, 5));
    QVERIFY(points.size() > 2);
    for (const QPointF &point : qAsConst(points)) {
        QCOMPARE(point.y(), 3.0);
    }
}

void tst_Recording::axesSuitTheValues_data()
{
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::addColumn<QVector<double>>("axes"); // low, high, step, duration, time step

    QTest::newRow("no points") << QVector<QPointF>() << QVector<double>{-1, 1, 1, 10, 2};
    QTest::newRow("always the same")
        << QVector<QPointF>{{0, 0}, {30, 0}} << QVector<double>{-1, 1, 1, 30, 5};
    QTest::newRow("a drive") << QVector<QPointF>{{0, 0}, {7, 1.344}}
                             << QVector<double>{0, 2, 1, 10, 2};
    QTest::newRow("to both sides")
        << QVector<QPointF>{{0, -60}, {100, 60}} << QVector<double>{-100, 100, 100, 100, 20};
    QTest::newRow("far in the pipe") << QVector<QPointF>{{0, 120.3}, {1800, 121.1}}
                                     << QVector<double>{120, 121.5, 0.5, 1800, 500};
}

void tst_Recording::axesSuitTheValues()
{
    QFETCH(QVector<QPointF>, points);
    QFETCH(QVector<double>, axes);

    PlotCurve curve;
    curve.clear();
    for (const QPointF &point : points) {
        curve.add(point.x(), point.y());
    }
    curve.show();
    QCOMPARE(curve.low(), axes.at(0));
    QCOMPARE(curve.high(), axes.at(1));
    QCOMPARE(curve.step(), axes.at(2));
    QCOMPARE(curve.duration(), axes.at(3));
    QCOMPARE(curve.timeStep(), axes.at(4));
}

void tst_Recording::aCurveIsDrawnIntoASeries()
{
    PlotCurve curve;
    curve.setStretches({{1, 3}, {3, 3}}, 4);
    curve.show();
    QtCharts::QLineSeries series;
    series.append(9, 9);
    curve.drawInto(&series);
    QCOMPARE(series.pointsVector(), (QVector<QPointF>{{0, 1}, {2, 3}, {2, 3}, {4, 3}}));
}

void tst_Recording::aTraceIsThatOfItsFile()
{
    makeFile(m_info,
             "[IndexInfo]\nDistanceUnit=ft\n[Indexing]\n"
             "Val00000=0.000;0.000;0;0.000;0.000\n"
             "Val00001=10.000;2.000;0;0.000;0.000\n"
             "Val00002=20.000;2.000;0;-45.000;0.000\n");
    ClipTrace trace;
    read(trace, m_clip);
    QCOMPARE(trace.problem(), QString());
    QCOMPARE(trace.headline(),
             QStringLiteral("\"%1\": 3 samples, 20.0 s, 1 recording").arg(m_info));
    QVERIFY(trace.doubts().isEmpty());
    QCOMPARE(trace.unit(), QStringLiteral("ft"));
    QCOMPARE(trace.distance()->points().first().y(), 0.0);
    QCOMPARE(trace.distance()->points().last(), QPointF(20, 2));
    QCOMPARE(trace.distance()->high(), 2.0);
    QCOMPARE(trace.distance()->duration(), 20.0);
    QCOMPARE(trace.pan()->points().last(), QPointF(20, -45));
    QCOMPARE(trace.tilt()->points().last(), QPointF(20, 0));
    // a value holds until the next sample
    for (const QPointF &point : trace.distance()->points()) {
        QCOMPARE(point.y() > 0, point.x() > 10);
    }
    read(trace, m_info); // the file itself
    QVERIFY(trace.headline().contains(QLatin1String("3 samples")));
}

void tst_Recording::aTraceWithDoubtsNamesThem()
{
    makeFile(m_info,
             "[Indexing]\nVal00000=0.000;0.000;0;0.000;0.000\nVal0\n"
             "Val00001=1.000;0.000;0;0.000;0.000\nVal00001=2.000;0.000;0;0.000;0.000\n");
    ClipTrace trace;
    read(trace, m_clip);
    QCOMPARE(trace.problem(), QString());
    QCOMPARE(
        trace.doubts(),
        (QStringList{QStringLiteral("Line 3 could not be read."),
                     QStringLiteral("1 sample has the number of a later one, which was taken.")}));
}

void tst_Recording::aTraceThatCannotBeReadIsExplained()
{
    ClipTrace trace;
    read(trace, m_clip);
    QCOMPARE(trace.problem(),
             QStringLiteral("Cannot read \"%1\": No such file or directory").arg(m_info));
    QCOMPARE(trace.headline(), QString());
    makeFile(m_info, "[Indexing]\n");
    read(trace, m_clip);
    QCOMPARE(trace.problem(), QStringLiteral("There is no sample to draw."));
    QVERIFY(trace.distance()->points().isEmpty());
}

QTEST_GUILESS_MAIN(tst_Recording)

#include "tst_Recording.moc"
