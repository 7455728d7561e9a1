#include "fieldhost/jobs/RecordRun.h"

#include "fieldhost/cli/Console.h"
#include "fieldhost/jobs/ClipInfoFile.h"
#include "fieldhost/jobs/Text.h"
#include "fieldhost/services/FieldApplication.h"
#include "shared/locale/CConversionServices.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/CProjectLocaleData.h"

#include <QFileInfo>

namespace Tavro::FieldHost {

namespace {

constexpr int s_refreshInterval = 40; // ms between two looks at the clock
constexpr qint64 s_pauseLength = 2000; // ms
// so that Ctrl-C is heard however fast the clock is to run
constexpr int s_mostFramesAtOnce = 5000;

} // namespace

RecordRun::RecordRun(const RecordPlan &plan, FieldApplication &host, Console &console)
    : m_plan(plan)
    , m_host(host)
    , m_console(console)
    , m_drive(host.crawler())
    , m_handler(new Shared::ClipInfoHandler(host.crawler().videoCreation()))
    , m_infoPath(Shared::ClipInfoHandler::videoPathToFilePath(plan.clip))
{
    m_timer.setInterval(s_refreshInterval);
    connect(&m_timer, &QTimer::timeout, this, &RecordRun::followRealTime);
}

RecordRun::~RecordRun()
{
    delete m_handler;
}

void RecordRun::start()
{
    Shared::CProjectLocaleData::instance()->setUnitType(m_plan.unit);
    m_host.settings().setVideoIndexingEnabled(true);
    // a camera as one would be calibrated
    m_host.crawler().panTilt()->setCalibration(123, 456);
    if (QFileInfo::exists(m_infoPath)) {
        m_samplesBefore = ClipInfoFile::read(m_infoPath).samples.size();
        m_console.print(QStringLiteral("Continues %1 after %2")
                            .arg(quoted(m_infoPath), counted(m_samplesBefore, "sample")));
    }

    SimulatedCrawler &crawler = m_host.crawler();
    crawler.videoCreation()->begin(Database::CDomainObjectPointer(new Database::CDomainObject));
    m_handler->connectToVideoRecorder(crawler.recorder());
    m_handler->initRecordedVideoIndexing(m_plan.clip);
    crawler.recorder()->record();
    m_sinceStart.start();
    m_timer.start();
}

void RecordRun::end()
{
    if (m_timer.isActive()) {
        m_isEndedByUser = true;
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
    showProgress();
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
    m_console.clearLiveLine();
    SimulatedCrawler &crawler = m_host.crawler();
    crawler.recorder()->stop();
    crawler.videoCreation()->end();

    const QString problem = problemOfFile();
    if (!problem.isEmpty()) {
        m_console.printError(QStringLiteral("%1 was not written as it should be: %2")
                                 .arg(quoted(m_infoPath), problem));
        Q_EMIT finished(ExitFailed);
        return;
    }
    const int samples = ClipInfoFile::read(m_infoPath).samples.size() - m_samplesBefore;
    m_console.print(
        QStringLiteral("%1 %2 of video, %3 in %4")
            .arg(m_isEndedByUser ? QStringLiteral("Ended after") : QStringLiteral("Recorded"),
                 formatDuration(crawler.recorder()->duration()), counted(samples, "sample"),
                 quoted(m_infoPath)));
    Q_EMIT finished(m_isEndedByUser ? ExitAborted : ExitDone);
}

void RecordRun::showProgress()
{
    const SimulatedCrawler &crawler = m_host.crawler();
    const qint64 recorded = crawler.recorder()->duration();
    double distance = crawler.distanceCounter()->distanceValue();
    if (Shared::CLocaleSupport::getDistanceUnit() == Base::DistanceUnit::Feet) {
        distance = Shared::CConversionServices::convertMetersToFeet(distance);
    }
    const bool isPaused = m_restLeft > 0;
    m_console.setLiveLine(
        QStringLiteral("%1  %2 of %3  %4 %  %5  pan %6°  tilt %7°")
            .arg(isPaused ? QStringLiteral("paused   ") : QStringLiteral("recording"),
                 formatClock(recorded), formatClock(m_plan.duration))
            .arg(recorded * 100 / m_plan.duration)
            .arg(Shared::CLocaleSupport::distanceValueToLocalizedString(distance, true, true))
            .arg(crawler.panTilt()->getPan(), 0, 'f', 1)
            .arg(crawler.panTilt()->getTilt(), 0, 'f', 1));
}

// The handler announces nothing and a full disk stops no stream, so the file itself is asked.
QString RecordRun::problemOfFile() const
{
    const ClipInfoFile file = ClipInfoFile::read(m_infoPath);
    if (!file.error.isEmpty()) {
        return file.error;
    }
    if (!file.endsWhole) {
        return QStringLiteral("its last line is not complete");
    }
    // the initial sample is always there
    if (file.samples.size() <= m_samplesBefore) {
        return QStringLiteral("it lacks what was recorded");
    }
    return {};
}

} // namespace Tavro::FieldHost
