// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/export/ExportTask.h"

#include "fieldhost/jobs/Text.h"

#include <QThread>

namespace Tavro::FieldHost {

using namespace ExportStates;

namespace {

constexpr int s_pulse = 100; // ms; an eye follows no more

} // namespace

ExportTask::ExportTask()
    : m_pulse(this) // moves along to the thread
{
    // a connection to a lambda does not register what it queues
    qRegisterMetaType<ExportStates::State>();
    qRegisterMetaType<ExportSummary>();
    qRegisterMetaType<ExportFigures>();
    m_pulse.setInterval(s_pulse);
    connect(&m_pulse, &QTimer::timeout, this, &ExportTask::reportFigures);
}

ExportTask::~ExportTask() = default;

void ExportTask::begin(const QString &source, const QString &destination, bool verify)
{
    m_source = source;
    m_destination = destination;
    m_verify = verify;
    m_drive = std::make_unique<DriveAccess>(destination);
    connect(m_drive.get(), &DriveAccess::reported, this,
            [this](const QString &sentence) { say(QStringLiteral("info"), {sentence}); });
    connect(m_drive.get(), &DriveAccess::warned, this,
            [this](const QString &sentence) { say(QStringLiteral("warning"), {sentence}); });
    connect(m_drive.get(), &DriveAccess::unmounting, this,
            [this] { Q_EMIT stateChanged(Unmounting); });
    Q_EMIT stateChanged(Locking);
    if (m_drive->begin()) {
        plan();
    } else {
        release(Refused);
    }
}

void ExportTask::plan()
{
    Q_EMIT stateChanged(Planning);
    // what is there stays until all of the copy is whole
    m_plan = std::make_unique<ExportPlan>(
        planExport({m_source}, m_destination, true, [this]() -> bool { return m_isInterrupted; }));
    if (m_plan->refusal == Refusal::Canceled || m_isInterrupted) {
        say(QStringLiteral("info"), {tr("Aborted before anything was copied.")});
        release(Aborted);
        return;
    }
    if (m_plan->refusal != Refusal::None) {
        say(QStringLiteral("bad"), m_plan->reasons);
        release(Refused);
        return;
    }
    const QString warning = m_drive->largeFileWarning(*m_plan);
    if (!warning.isEmpty()) {
        say(QStringLiteral("warning"), {warning});
    }
    const QString omitted = leftOut(*m_plan);
    if (!omitted.isEmpty()) {
        say(QStringLiteral("info"), {tr("Left out: %1").arg(omitted)});
    }
    const ExportJob &job = m_plan->jobs.front();
    Q_EMIT planned(
        {job.landing, job.landingExists, m_plan->files, m_plan->bytes, job.replacedFiles});
    if (job.replacedFiles > 0) {
        Q_EMIT stateChanged(Confirming);
    } else {
        copy();
    }
}

void ExportTask::confirm(bool replace)
{
    if (!m_plan) {
        return;
    }
    if (replace) {
        copy();
        return;
    }
    say(QStringLiteral("info"), {tr("Nothing was copied.")});
    release(Aborted);
}

void ExportTask::copy()
{
    m_run = std::make_unique<ExportRun>(std::move(*m_plan), m_verify);
    m_plan.reset();
    connect(m_run.get(), &ExportRun::warned, this,
            [this](const QString &sentence) { say(QStringLiteral("warning"), {sentence}); });
    connect(m_run.get(), &ExportRun::stateChanged, this, &ExportTask::onRunStateChanged);
    // the run must be gone before the drive is unmounted: not while it emits
    connect(m_run.get(), &ExportRun::finished, this, &ExportTask::onRunFinished,
            Qt::QueuedConnection);
    onRunStateChanged();
    m_pulse.start();
    m_run->start();
}

void ExportTask::setPaused(bool paused)
{
    if (m_run) {
        m_run->setPaused(paused);
        reportFigures();
    }
}

void ExportTask::abort()
{
    if (m_run) {
        m_run->abort();
    } else {
        confirm(false);
    }
}

void ExportTask::close()
{
    m_isClosing = true;
    if (m_drive) {
        abort();
    } else {
        thread()->quit();
    }
}

void ExportTask::reportFigures()
{
    const Progress &progress = m_run->progress();
    Q_EMIT figuresChanged({progress.bytes(), progress.totalBytes(), progress.rate(),
                           progress.timeLeft(), m_run->directory()});
}

void ExportTask::onRunStateChanged()
{
    switch (m_run->state()) {
    case ExportRun::State::Copying:
        Q_EMIT stateChanged(Copying);
        break;
    case ExportRun::State::Paused:
        Q_EMIT stateChanged(Paused);
        break;
    case ExportRun::State::Verifying:
        Q_EMIT stateChanged(Verifying);
        break;
    case ExportRun::State::Aborting:
        Q_EMIT stateChanged(Aborting);
        break;
    }
}

void ExportTask::onRunFinished()
{
    reportFigures();
    m_pulse.stop();
    const ExportResult result = m_run->result();
    m_run.reset();
    const bool isDone = result.end == ExportResult::End::Done;
    say(QStringLiteral("bad"), result.problems);
    say(isDone ? QStringLiteral("good") : QStringLiteral("info"), result.report);
    switch (result.end) {
    case ExportResult::End::Done:
        release(Done);
        break;
    case ExportResult::End::Aborted:
        release(Aborted);
        break;
    case ExportResult::End::NotBegun:
        release(Refused);
        break;
    case ExportResult::End::Failed:
        release(Failed);
        break;
    }
}

void ExportTask::say(const QString &kind, const QStringList &sentences)
{
    for (const QString &sentence : sentences) {
        Q_EMIT said(kind, sentence);
    }
}

void ExportTask::release(State outcome)
{
    m_plan.reset(); // it holds a directory of the drive
    const bool isUnmounted = m_drive->end();
    m_drive.reset();
    Q_EMIT ended(outcome, isUnmounted);
    if (m_isClosing) {
        thread()->quit();
    }
}

} // namespace Tavro::FieldHost
