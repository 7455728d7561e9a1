// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ClipInfoFile.h"
#include "fieldhost/jobs/RecordRun.h"
#include "fieldhost/services/FieldApplication.h"
#include "shared/locale/CProjectLocaleData.h"
#include "tests/support/FileTree.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Tavro::FieldHost;
using namespace Test;

/** A recording that is steered while it runs, as a screen does it. */
class tst_RecordRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void withoutADurationItLastsUntilItIsEnded();
    void aPauseLastsUntilItIsLifted();
    void aPauseOfThePlanCanBeLiftedAtOnce();
    void aPauseOfThePlanCanBeProlonged();
    void observationsAreSamples();
    void nothingHappensBeforeTheStartAndAfterTheEnd();
    void theUnitIsThatOfTheProject();

private:
    std::unique_ptr<RecordRun> makeRun(const QVector<qint64> &pauses = {})
    {
        RecordPlan plan;
        plan.clip = m_directory->filePath(QStringLiteral("clip.mp4"));
        plan.speed = 50;
        plan.pauses = pauses;
        return std::make_unique<RecordRun>(plan, *m_host);
    }
    static bool waitForVideo(RecordRun &run, qint64 duration)
    {
        return QTest::qWaitFor([&] { return run.recorded() >= duration; }, 30'000);
    }
    // at once: on a busy machine a pause of the plan begins and ends between two looks at the clock
    bool pauseInPauseOfPlan(RecordRun &run)
    {
        const SimulatedRecorder *recorder = m_host->crawler().recorder();
        const QObject connection;
        m_isProlonged = false;
        connect(recorder, &SimulatedRecorder::stateChanged, &connection, [this, &run] {
            if (m_host->crawler().recorder()->state() == SimulatedRecorder::Paused
                && !m_isProlonged) {
                m_isProlonged = true;
                run.pause();
            }
        });
        return QTest::qWaitFor([this] { return m_isProlonged; }, 30'000);
    }
    // real time in which a video of the speed above would grow by far more than a planned pause
    static bool waitForTicks(RecordRun &run)
    {
        QSignalSpy passed(&run, &RecordRun::progressChanged);
        return QTest::qWaitFor([&] { return passed.count() >= 5; }, 30'000);
    }

    std::unique_ptr<TemporaryFolder> m_directory;
    std::unique_ptr<FieldApplication> m_host;
    bool m_isProlonged = false; // the pause of a plan
};

void tst_RecordRun::init()
{
    m_directory = std::make_unique<TemporaryFolder>();
    QVERIFY(m_directory->isValid());
    m_host = std::make_unique<FieldApplication>();
}

void tst_RecordRun::cleanup()
{
    m_host.reset();
    m_directory.reset();
}

void tst_RecordRun::withoutADurationItLastsUntilItIsEnded()
{
    const auto run = makeRun();
    QSignalSpy finished(run.get(), &RecordRun::finished);
    run->start();
    QVERIFY(waitForVideo(*run, 8000));
    QCOMPARE(finished.count(), 0);
    run->end();
    QCOMPARE(finished.count(), 1);
    QVERIFY(run->result().isEndedByUser);
    QCOMPARE(run->result().problem, QString());
    QCOMPARE(run->result().duration, run->recorded());
    const ClipInfoFile file = ClipInfoFile::read(run->infoPath());
    QCOMPARE(file.samples.size(), run->result().samples);
    QVERIFY(file.samples.size() > 25); // as many as in the first seven seconds
}

void tst_RecordRun::aPauseLastsUntilItIsLifted()
{
    const auto run = makeRun();
    run->start();
    QVERIFY(waitForVideo(*run, 1000));
    run->pause();
    QVERIFY(run->isPaused());
    QCOMPARE(m_host->crawler().recorder()->state(), int(SimulatedRecorder::Paused));
    const qint64 before = run->recorded();
    const double distance = m_host->crawler().distanceCounter()->distanceValue();
    QVERIFY(waitForTicks(*run));
    QCOMPARE(run->recorded(), before);
    QCOMPARE(m_host->crawler().distanceCounter()->distanceValue(), distance);
    run->resume();
    QVERIFY(!run->isPaused());
    QCOMPARE(m_host->crawler().recorder()->state(), int(SimulatedRecorder::Recording));
    QVERIFY(waitForVideo(*run, before + 1000));
    run->end();
    QCOMPARE(run->result().problem, QString());
}

void tst_RecordRun::aPauseOfThePlanCanBeLiftedAtOnce()
{
    const auto run = makeRun({1000});
    connect(run.get(), &RecordRun::progressChanged, run.get(), [&] {
        if (run->isPaused()) {
            run->resume();
        }
    });
    QSignalSpy states(m_host->crawler().recorder(), &SimulatedRecorder::stateChanged);
    run->start();
    QVERIFY(waitForVideo(*run, 2000));
    QCOMPARE(states.count(), 3); // recording, paused, recording
    QVERIFY(!run->isPaused());
    run->end();
}

void tst_RecordRun::aPauseOfThePlanCanBeProlonged()
{
    const auto run = makeRun({1000});
    run->start();
    QVERIFY(pauseInPauseOfPlan(*run));
    QVERIFY(waitForTicks(*run));
    QVERIFY(run->isPaused());
    QCOMPARE(run->recorded(), qint64(1000));
    run->resume();
    QVERIFY(waitForVideo(*run, 1500));
    run->end();
}

void tst_RecordRun::observationsAreSamples()
{
    // where the crawler stands still, and makes no sample of its own
    const auto run = makeRun({500});
    run->start();
    QVERIFY(pauseInPauseOfPlan(*run));
    run->observe();
    run->observe();
    const double at = static_cast<double>(run->recorded()) / 1000;
    run->end();
    const ClipInfoFile file = ClipInfoFile::read(run->infoPath());
    QVERIFY(file.samples.size() > 2);
    // two of the same time, behind those of the drive
    for (int i = file.samples.size() - 2; i < file.samples.size(); ++i) {
        QCOMPARE(file.samples.at(i).time, at);
    }
    QVERIFY(file.samples.at(file.samples.size() - 3).time < at);
}

void tst_RecordRun::nothingHappensBeforeTheStartAndAfterTheEnd()
{
    const auto run = makeRun();
    QSignalSpy progress(run.get(), &RecordRun::progressChanged);
    QSignalSpy observed(&m_host->state(), &Tavro::AppState::observationCreated);
    QSignalSpy states(m_host->crawler().recorder(), &SimulatedRecorder::stateChanged);
    run->pause();
    run->resume();
    run->observe();
    run->end();
    QCOMPARE(states.count(), 0);
    run->start();
    run->end();
    QCOMPARE(states.count(), 2); // recording, idle
    run->pause();
    run->resume();
    run->observe();
    run->end();
    QCOMPARE(states.count(), 2);
    QCOMPARE(progress.count(), 0);
    QCOMPARE(observed.count(), 0);
    QVERIFY(!run->isPaused());
}

void tst_RecordRun::theUnitIsThatOfTheProject()
{
    auto *project = Tavro::Shared::CProjectLocaleData::instance();
    project->setUnitType(Tavro::Base::DistanceUnit::Feet);
    const auto run = makeRun();
    run->start();
    run->end();
    QCOMPARE(project->distanceUnitType(), Tavro::Base::DistanceUnit::Feet);
    project->setUnitType(Tavro::Base::DistanceUnit::Undefined);
    QCOMPARE(ClipInfoFile::read(run->infoPath()).unit, QStringLiteral("ft"));
}

QTEST_GUILESS_MAIN(tst_RecordRun)

#include "tst_RecordRun.moc"
