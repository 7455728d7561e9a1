// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/recording/Recording.h"

#include "fieldhost/jobs/RecordPlan.h"
#include "fieldhost/jobs/Text.h"
#include "fieldhost/services/FieldApplication.h"
#include "shared/locale/CConversionServices.h"
#include "shared/locale/CLocaleSupport.h"

#include <QDir>

namespace Tavro::FieldHost {

namespace {

constexpr int s_refreshInterval = 200; // ms: drawing costs more than recording

const SimulatedCrawler &crawler()
{
    return FieldApplication::instance()->crawler();
}

} // namespace

Recording::Recording(QObject *parent)
    : QObject(parent)
    , m_clip(QDir::home().filePath(QStringLiteral("inspection.mp4")))
{
    m_refresh.setInterval(s_refreshInterval);
    connect(&m_refresh, &QTimer::timeout, this, &Recording::show);
}

Recording::~Recording()
{
    if (m_run) {
        m_run->disconnect(this);
        m_run->end();
    }
}

Recording::State Recording::state() const
{
    if (!m_run) {
        return Idle;
    }
    return m_run->isPaused() ? Paused : Running;
}

void Recording::setClip(const QString &clip)
{
    if (clip != m_clip) {
        m_clip = clip;
        Q_EMIT clipChanged();
    }
}

void Recording::setSpeed(double speed)
{
    if (speed != m_speed && speed > 0) {
        m_speed = speed;
        Q_EMIT speedChanged();
    }
}

QString Recording::clock() const
{
    return formatClock(crawler().recorder()->duration());
}

double Recording::distanceInMeters() const
{
    return crawler().distanceCounter()->distanceValue();
}

double Recording::panAngle() const
{
    return crawler().panTilt()->getPan();
}

double Recording::tiltAngle() const
{
    return crawler().panTilt()->getTilt();
}

void Recording::start()
{
    if (m_run) {
        return;
    }
    RecordPlan plan;
    plan.clip = m_clip;
    plan.speed = m_speed;
    m_summary.clear();
    m_continued.clear();
    m_problem = objectionToPlace(plan);
    if (m_problem.isEmpty()) {
        m_observations = 0;
        m_unit = Shared::CLocaleSupport::getDistanceUnitString();
        m_isInFeet = m_unit == Shared::CLocaleSupport::distanceUnits_ft;
        for (PlotCurve *curve : {&m_distance, &m_pan, &m_tilt}) {
            curve->clear();
        }
        m_run = std::make_unique<RecordRun>(plan, *FieldApplication::instance());
        // pan and tilt are turned one after the other
        connect(crawler().distanceCounter(), &SimulatedDistanceCounter::distanceValueChanged,
                m_run.get(), [this] { addValues(); });
        connect(crawler().panTilt(), &SimulatedPanTilt::tiltChanged, m_run.get(),
                [this] { addValues(); });
        connect(m_run.get(), &RecordRun::finished, this, &Recording::finish);
        m_infoPath = m_run->infoPath();
        m_run->start();
        if (m_run->samplesBefore() >= 0) {
            m_continued =
                tr("Continues %1 after %2.")
                    .arg(quoted(m_infoPath),
                         counted(m_run->samplesBefore(), tr("1 sample"), tr("%1 samples")));
        }
        m_refresh.start();
        show();
    }
    Q_EMIT stateChanged();
}

void Recording::pause()
{
    if (m_run) {
        m_run->pause();
        show(); // where it stands
        Q_EMIT stateChanged();
    }
}

void Recording::resume()
{
    if (m_run) {
        m_run->resume();
        Q_EMIT stateChanged();
    }
}

void Recording::observe()
{
    if (m_run) {
        m_run->observe();
        ++m_observations;
        Q_EMIT moved();
    }
}

void Recording::stop()
{
    if (m_run) {
        m_run->end();
    }
}

void Recording::addValues()
{
    const double time = static_cast<double>(m_run->recorded()) / 1000;
    const double distance = distanceInMeters();
    m_distance.add(
        time, m_isInFeet ? Shared::CConversionServices::convertMetersToFeet(distance) : distance);
    m_pan.add(time, panAngle());
    m_tilt.add(time, tiltAngle());
}

void Recording::show()
{
    addValues();
    for (PlotCurve *curve : {&m_distance, &m_pan, &m_tilt}) {
        curve->show();
    }
    Q_EMIT moved();
}

void Recording::finish()
{
    m_refresh.stop();
    show();
    const RecordResult &result = m_run->result();
    if (result.problem.isEmpty()) {
        m_summary =
            tr("Recorded %1 of video, %2 in %3.")
                .arg(formatDuration(result.duration),
                     counted(result.samples, tr("1 sample"), tr("%1 samples")), quoted(m_infoPath));
    } else {
        m_problem =
            tr("%1 was not written as it should be: %2").arg(quoted(m_infoPath), result.problem);
    }
    m_run.release()->deleteLater(); // it is in the middle of its own signal
    Q_EMIT stateChanged();
    Q_EMIT finished();
}

} // namespace Tavro::FieldHost
