// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ExportRun.h"

#include "fieldhost/jobs/CopyCheck.h"
#include "fieldhost/jobs/Text.h"

#include <QMetaObject>

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace Tavro::FieldHost {

using Shared::CFileCopyController;

namespace {

constexpr qint64 s_lookInterval = 20; // ms; in one of them, many small files are copied

// a clause with a place for the path
QString clauseOf(quint32 error)
{
    switch (error) {
    case CFileCopyController::ErrorSourceFileOpenFailed:
        return ExportRun::tr("%1 cannot be opened");
    case CFileCopyController::ErrorSourceFileReadFailed:
        return ExportRun::tr("%1 cannot be read");
    case CFileCopyController::ErrorDestinationFileOpenFailed:
        return ExportRun::tr("%1 cannot be created");
    case CFileCopyController::ErrorDestinationFileWriteFailed:
        return ExportRun::tr("%1 cannot be written");
    default:
        return ExportRun::tr("%1 cannot be copied");
    }
}

} // namespace

ExportRun::ExportRun(ExportPlan plan, bool verify, QObject *parent)
    : QObject(parent)
    , m_plan(std::move(plan))
    , m_verify(verify)
{
    Step directories;
    std::vector<Step> files;
    for (const ExportJob &job : m_plan.jobs) {
        m_tasks.push_back(std::unique_ptr<Task>(new Task{job, StagedCopy(job)}));
        if (job.isDirectory) {
            directories.push_back(m_tasks.back().get());
        } else {
            files.push_back({m_tasks.back().get()});
        }
    }
    if (!directories.empty()) {
        m_steps.push_back(directories);
    }
    m_steps.insert(m_steps.end(), files.begin(), files.end());

    connect(&m_controller, &CFileCopyController::operationCompleted, this,
            &ExportRun::onStepCompleted);
    connect(&m_controller, &CFileCopyController::operationCanceled, this,
            &ExportRun::onStepCanceled);
    connect(&m_controller, &CFileCopyController::processedBytesChanged, this,
            &ExportRun::onProcessedBytes);
}

ExportRun::~ExportRun() = default;

void ExportRun::start()
{
    if (!prepare()) {
        return;
    }
    m_running = true;
    m_progress.start(m_plan.bytes);
    beginStep();
}

bool ExportRun::prepare()
{
    clearRemains();
    for (const auto &task : m_tasks) {
        if (!task->copy.prepare()) {
            m_result.problems.append(task->copy.error());
            discard(false);
            finish(ExportResult::End::NotBegun);
            return false;
        }
    }
    return true;
}

// what exports have left that were killed, or met a power cut
void ExportRun::clearRemains()
{
    QStringList places{m_plan.held->reach(m_plan.destination)};
    for (const auto &task : m_tasks) {
        if (task->job.isDirectory && task->job.landingExists) {
            places.append(task->copy.landing());
        }
    }
    places.removeDuplicates();
    for (const QString &place : qAsConst(places)) {
        const QStringList staying = StagingDirectory::discardAbandoned(place);
        for (const QString &path : staying) {
            Q_EMIT warned(tr("Warning: an earlier export did not come to its end, and has left "
                             "%1. It may be removed once the volume has been checked.")
                              .arg(quoted(shown(path))));
        }
    }
}

void ExportRun::beginStep()
{
    const Step &step = m_steps.at(m_step);
    if (!step.front()->job.isDirectory) {
        m_controller.copyDatabaseFile(step.front()->job.source, step.front()->copy.root());
    } else {
        QStringList sources;
        QStringList destinations;
        for (const Task *task : step) {
            sources.append(task->job.source);
            // with "/" at its end no blank of the name is at the end
            destinations.append(task->copy.root() + QLatin1Char('/'));
        }
        m_controller.copyDirectories(sources, destinations);
    }
    // a request begins by resuming
    if (m_state == State::Paused) {
        m_controller.pause();
    }
}

void ExportRun::onProcessedBytes()
{
    m_stepBytes = m_controller.processedBytes();
    Q_EMIT progressChanged();
    if (m_state == State::Aborting
        || (m_sinceLook.isValid() && !m_sinceLook.hasExpired(s_lookInterval))) {
        return;
    }
    m_sinceLook.start();
    if (!isInPlace()) {
        m_isGone = true;
        abort();
    }
}

void ExportRun::setPaused(bool paused)
{
    if (!m_running || m_state != (paused ? State::Copying : State::Paused)) {
        return;
    }
    if (paused) {
        m_controller.pause();
        m_progress.pause();
    } else {
        m_progress.resume();
        m_controller.resume();
    }
    setState(paused ? State::Paused : State::Copying);
}

void ExportRun::abort()
{
    if (!m_running || m_state == State::Aborting) {
        return;
    }
    if (m_verification) {
        m_verification->cancel(); // onVerified() follows
    } else {
        m_controller.abort();
    }
    setState(State::Aborting);
}

void ExportRun::setState(State state)
{
    m_state = state;
    Q_EMIT stateChanged();
}

const Progress &ExportRun::progress()
{
    m_progress.update(m_verification ? m_verification->comparedBytes()
                                     : m_result.bytes + m_stepBytes);
    return m_progress;
}

void ExportRun::onStepCompleted()
{
    m_stepBytes = 0;
    if (!isInPlace()) {
        failWithoutDrive();
        return;
    }
    // that a request has completed does not say that its files are copied
    QString reason = failure();
    qint64 surveyed = 0;
    qint64 whole = 0;
    for (const Task *task : m_steps.at(m_step)) {
        const CopyCheck check = checkCopy(task->job, task->copy.root());
        whole += check.wholeFiles;
        m_result.bytes += check.wholeBytes;
        surveyed += task->job.survey.files.size();
        if (reason.isEmpty() && check.fault) {
            reason =
                tr("%1 was not copied: %2.").arg(quoted(check.fault->source), check.fault->cause);
        }
    }
    // a file that did not get to the drive can look whole, where it cannot be removed either
    m_result.files += qMin(whole, m_controller.lastResult().files);
    // what nobody looked for would not be moved to its place
    if (reason.isEmpty() && anyStaged() && m_controller.lastResult().files > surveyed) {
        reason = counted(m_controller.lastResult().files - surveyed,
                         tr("The source holds 1 file more than when it was looked through."),
                         tr("The source holds %1 files more than when it was looked through."));
    }
    if (!reason.isEmpty()) {
        fail(reason);
    } else if (++m_step < m_steps.size()) {
        beginStep();
    } else {
        m_result.time = m_progress.elapsed();
        settle();
    }
}

bool ExportRun::isInPlace() const
{
    return std::all_of(m_tasks.begin(), m_tasks.end(),
                       [](const auto &task) { return task->job.held->isInPlace(); });
}

// what the controller says of the last request; empty when nothing failed
QString ExportRun::failure() const
{
    const Shared::CFileOperationResult result = m_controller.lastResult();
    if (result.isWhole()) {
        return {};
    }
    const quint32 error = result.errorCode & 0xFFU;
    if (error != CFileCopyController::ErrorNone) {
        return withCause(result.path.isEmpty() // there is no thread to be had
                             ? tr("The copy could not begin")
                             : clauseOf(error).arg(quoted(shown(result.path))),
                         result.systemError);
    }
    QStringList sentences;
    for (const QString &directory : result.unreadableDirectories) {
        sentences.append(withCause(
            tr("The directory %1 cannot be read as a whole").arg(quoted(shown(directory))),
            result.systemError));
    }
    return listed(sentences, tr("The same goes for 1 more directory."),
                  tr("The same goes for %1 more directories."))
        .join(QLatin1Char('\n'));
}

// the drive was pulled out, or fails: then nothing is removed from it either
bool ExportRun::isDriveFailing() const
{
    const Shared::CFileOperationResult result = m_controller.lastResult();
    const quint32 error = result.errorCode & 0xFFU;
    const bool isOfDestination = error == CFileCopyController::ErrorDestinationFileOpenFailed
        || error == CFileCopyController::ErrorDestinationFileWriteFailed;
    // of the device, with what a drive reports of itself, and of the file system on it
    static constexpr int errors[] = {EIO,     ENXIO,   ENODEV, ETIMEDOUT, EREMOTEIO,
                                     ENODATA, ENOLINK, EROFS,  EUCLEAN,   EBADMSG};
    return isOfDestination
        && std::find(std::begin(errors), std::end(errors), result.systemError) != std::end(errors);
}

void ExportRun::settle()
{
    for (const auto &task : m_tasks) {
        if (task->copy.settle()) {
            continue;
        }
        m_result.problems.append(tr("Failed: %1").arg(task->copy.error()));
        for (const auto &other : m_tasks) {
            if (other != task && other->copy.isStaged()) {
                m_result.problems.append(
                    tr("As before: %1, with all that it holds.").arg(quoted(other->job.landing)));
            }
        }
        discard(true);
        finish(ExportResult::End::Failed);
        return;
    }
    if (m_verify) {
        verify();
    } else {
        complete();
    }
}

void ExportRun::verify()
{
    std::vector<FinishedCopy> copies;
    for (const auto &task : m_tasks) {
        copies.push_back({task->job, task->copy.landing()});
    }
    m_progress = Progress();
    m_progress.start(m_result.bytes);
    m_verification = std::make_unique<CopyVerification>(std::move(copies));
    connect(m_verification.get(), &CopyVerification::finished, this, &ExportRun::onVerified);
    connect(m_verification.get(), &CopyVerification::progressChanged, this,
            &ExportRun::progressChanged);
    m_verification->start();
    setState(State::Verifying); // a comparison is not worth a pause
}

void ExportRun::onVerified()
{
    const std::optional<CopyFault> fault = m_verification->fault();
    if (m_state == State::Aborting) {
        onStepCanceled();
    } else if (fault) {
        // of files that were all counted as whole, none can be trusted now
        m_result.files = 0;
        fail(tr("The copy of %1 is not good: %2.").arg(quoted(fault->source), fault->cause));
    } else {
        complete();
    }
}

void ExportRun::onStepCanceled()
{
    if (m_isGone) {
        failWithoutDrive();
        return;
    }
    const bool staged = anyStaged();
    const QStringList removed = discard(false);
    m_result.report.append(removed.isEmpty() && m_verification
                               ? tr("Aborted. The copy is in its place, but was not compared.")
                               : tr("Aborted. Removed: %1").arg(quotedList(removed)));
    if (staged) {
        m_result.report.append(tr("What was in the destination before is unchanged."));
    }
    finish(ExportResult::End::Aborted);
}

void ExportRun::complete()
{
    if (!isInPlace()) {
        failWithoutDrive();
        return;
    }
    if (m_verification) {
        m_result.report.append(tr("Verified: every copy equals its source"));
    }
    const double rate = static_cast<double>(m_result.bytes) * 1000
        / static_cast<double>(qMax<qint64>(m_result.time, 1));
    m_result.report.append(tr("Done: %1, %2 in %3 (%4)")
                               .arg(counted(m_result.files, tr("1 file"), tr("%1 files")),
                                    formatBytes(m_result.bytes), formatDuration(m_result.time),
                                    formatRate(rate)));
    finish(ExportResult::End::Done);
}

void ExportRun::fail(const QString &reason)
{
    const bool staged = anyStaged();
    QStringList &problems = m_result.problems;
    problems.append(tr("Failed: %1").arg(reason));
    if (m_result.files > 0 && !staged) {
        problems.append((isDriveFailing()
                             ? tr("%1 of %2 are whole in %3. The drive does not take what is "
                                  "written: one more file may be there, cut off.")
                             : tr("%1 of %2 are whole in %3, the others are missing; no "
                                  "partial file is left."))
                            .arg(m_result.files)
                            .arg(counted(m_plan.files, tr("1 file"), tr("%1 files")),
                                 quoted(m_plan.destination)));
        finish(ExportResult::End::Failed);
        return;
    }
    const bool isRemoved = discard(false).size() == static_cast<int>(m_tasks.size());
    if (isDriveFailing()) {
        problems.append(tr("The drive does not take what is written: files of the copy may be left "
                           "there, cut off."));
    } else if (staged) {
        problems.append(
            isRemoved ? tr(
                "The unfinished copy was removed; what was in the destination before is unchanged.")
                      : tr("What was in the destination before is unchanged."));
    } else if (isRemoved) {
        problems.append(tr("Nothing was left in the destination."));
    } else if (m_verification) {
        problems.append(tr("The copies that replaced files of the same name stay "
                           "where they are. Export again."));
    }
    finish(ExportResult::End::Failed);
}

void ExportRun::failWithoutDrive()
{
    QStringList &problems = m_result.problems;
    discard(false); // on the drive, as far as it can still be reached
    problems.append(tr("Failed: the drive was taken away, or the directory moved: %1 is "
                       "not what it was when the copy began.")
                        .arg(quoted(m_plan.destination)));
    problems.append(tr("Nothing was written anywhere else. What the drive holds of "
                       "the copy is not whole."));
    finish(ExportResult::End::Failed);
}

void ExportRun::finish(ExportResult::End end)
{
    m_running = false;
    m_result.end = end;
    QMetaObject::invokeMethod(this, &ExportRun::finished, Qt::QueuedConnection);
}

QStringList ExportRun::discard(bool stagedOnly)
{
    QStringList removed;
    // the last first: directories made for one copy may hold those of the next
    for (auto task = m_tasks.rbegin(); task != m_tasks.rend(); ++task) {
        StagedCopy &copy = (*task)->copy;
        if (stagedOnly && !copy.isStaged()) {
            continue;
        }
        removed = copy.discard() + removed;
        if (!copy.error().isEmpty()) {
            m_result.problems.append(copy.error());
        }
    }
    return removed;
}

bool ExportRun::anyStaged() const
{
    return std::any_of(m_tasks.begin(), m_tasks.end(),
                       [](const auto &task) { return task->copy.isStaged(); });
}

// paths of the destination go by way of a held directory
QString ExportRun::shown(const QString &path) const
{
    for (const auto &task : m_tasks) {
        QString known = task->job.held->shown(path);
        if (known != path) {
            return known;
        }
    }
    return path;
}

} // namespace Tavro::FieldHost
