// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/RecordRun.h"

#include "fieldhost/jobs/ClipInfoFile.h"
#include "fieldhost/services/FieldApplication.h"

#include <QFileInfo>

#include <limits>

namespace Tavro::FieldHost {

namespace {

constexpr int s_refreshInterval = 10; // ms between two looks at the clock, a quarter of a frame
constexpr qint64 s_pauseLength = 2000; // ms
constexpr qint64 s_untilResumed = std::numeric_limits<qint64>::max(); // ms, more than pass
// so that Ctrl-C is heard however fast the clock is to run
constexpr int s_mostFramesAtOnce = 5000;

} // namespace

RecordRun::RecordRun(const RecordPlan &plan, FieldApplication &host)
    : m_plan(plan)
    , m_host(host)
    , m_drive(host.crawler())
    , m_handler(new Shared::ClipInfoHandler(host.crawler().videoCreation()))
    , m_infoPath(Shared::ClipInfoHandler::videoPathToFilePath(plan.clip))
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(s_refreshInterval);
    connect(&m_timer, &QTimer::timeout, this, &RecordRun::followRealTime);
}

RecordRun::~RecordRun()
{
    delete m_handler;
}

void RecordRun::start()
{
    m_host.settings().setVideoIndexingEnabled(true);
    // a camera as one would be calibrated
    m_host.crawler().panTilt()->setCalibration(123, 456);
    if (QFileInfo::exists(m_infoPath)) {
        m_samplesBefore = ClipInfoFile::read(m_infoPath).samples.size();
    }
    SimulatedCrawler &crawler = m_host.crawler();
    crawler.videoCreation()->begin(Database::CDomainObjectPointer(new Database::CDomainObject));
    m_handler->connectToVideoRecorder(crawler.recorder());
    m_handler->initRecordedVideoIndexing(m_plan.clip);
    crawler.recorder()->record();
    m_sinceStart.start();
    m_timer.start();
}

void RecordRun::pause()
{
    if (m_timer.isActive()) {
        m_restLeft = s_untilResumed;
        m_host.crawler().recorder()->pause();
        Q_EMIT progressChanged();
    }
}

void RecordRun::resume()
{
    if (m_timer.isActive()) {
        m_restLeft = 0;
        m_host.crawler().recorder()->resume();
        Q_EMIT progressChanged();
    }
}

void RecordRun::observe()
{
    if (m_timer.isActive()) {
        m_host.createObservation();
    }
}

void RecordRun::end()
{
    if (m_timer.isActive()) {
        m_result.isEndedByUser = true;
        finish();
    }
}

void RecordRun::followRealTime()
{
    const double due = static_cast<double>(m_sinceStart.elapsed()) * m_plan.speed;
    for (int i = 0; i < s_mostFramesAtOnce && static_cast<double>(m_passed) < due; ++i) {
        if (m_restLeft > 0) {
            rest();
        } else {
            passFrame();
        }
        if (!m_timer.isActive()) {
            return;
        }
    }
    Q_EMIT progressChanged();
}

qint64 RecordRun::recorded() const
{
    return m_host.crawler().recorder()->duration();
}

void RecordRun::passFrame()
{
    const SimulatedRecorder &recorder = *m_host.crawler().recorder();
    const qint64 frame = qMin(SimulatedDrive::frame, m_plan.duration - recorder.duration());
    m_drive.step(frame);
    m_passed += frame;
    const auto isDue = [&](const QVector<qint64> &times, int done) {
        return done < times.size() && recorder.duration() >= times.at(done);
    };
    while (isDue(m_plan.observations, m_observationsDone)) {
        m_host.createObservation();
        ++m_observationsDone;
    }
    if (recorder.duration() >= m_plan.duration) {
        finish();
    } else if (isDue(m_plan.pauses, m_pausesDone)) {
        ++m_pausesDone;
        m_restLeft = s_pauseLength;
        m_host.crawler().recorder()->pause();
    }
}

void RecordRun::rest()
{
    m_drive.rest();
    m_passed += SimulatedDrive::frame;
    m_restLeft -= SimulatedDrive::frame;
    if (m_restLeft <= 0) {
        m_host.crawler().recorder()->resume();
    }
}

void RecordRun::finish()
{
    m_timer.stop();
    SimulatedCrawler &crawler = m_host.crawler();
    crawler.recorder()->stop();
    crawler.videoCreation()->end();

    // The handler announces nothing and a full disk stops no stream, so the file itself is asked.
    const ClipInfoFile file = ClipInfoFile::read(m_infoPath);
    m_result.duration = recorded();
    m_result.samples = file.samples.size() - qMax(m_samplesBefore, 0);
    if (!file.error.isEmpty()) {
        m_result.problem = file.error;
    } else if (!file.endsWhole) {
        m_result.problem = tr("its last line is not complete");
    } else if (m_result.samples <= 0) { // the initial sample is always there
        m_result.problem = tr("it lacks what was recorded");
    }
    Q_EMIT finished();
}

} // namespace Tavro::FieldHost
