#include "fieldhost/jobs/ExportRun.h"

#include "fieldhost/cli/Console.h"
#include "fieldhost/jobs/CopyCheck.h"
#include "fieldhost/jobs/Text.h"

#include <QMetaObject>

#include <iterator>

namespace Tavro::FieldHost {

using Shared::CFileCopyController;

namespace {

constexpr int s_liveInterval = 100; // ms
constexpr int s_plainInterval = 1000; // ms
constexpr int s_directoryColumns = 30; // a longer name would push the figures off the line
constexpr int s_shownFolders = 5;

QString leftOut(const ExportPlan &plan)
{
    int hidden = 0;
    int broken = 0;
    int special = 0;
    for (const ExportJob &job : plan.jobs) {
        hidden += job.survey.hiddenEntries;
        broken += job.survey.brokenLinks;
        special += job.survey.specialEntries;
    }
    QStringList parts;
    if (hidden > 0) {
        parts.append(counted(hidden, "hidden entry", "hidden entries"));
    }
    if (broken > 0) {
        parts.append(counted(broken, "link that leads nowhere", "links that lead nowhere"));
    }
    if (special > 0) {
        parts.append(counted(special, "pipe, socket or device", "pipes, sockets or devices"));
    }
    return parts.join(QLatin1String(", "));
}

QString withoutSlash(const QString &folder)
{
    return folder.size() > 1 && folder.endsWith(QLatin1Char('/')) ? folder.chopped(1) : folder;
}

QString quotedList(const QStringList &paths)
{
    QStringList texts;
    for (const QString &path : paths) {
        texts.append(quoted(path));
    }
    return texts.join(QLatin1String(", "));
}

} // namespace

ExportRun::ExportRun(ExportPlan plan, Console &console, bool verify, QObject *parent)
    : QObject(parent)
    , m_plan(std::move(plan))
    , m_console(console)
    , m_verify(verify)
{
    Step folders;
    std::vector<Step> files;
    for (const ExportJob &job : m_plan.jobs) {
        m_tasks.push_back(std::unique_ptr<Task>(new Task{job, StagedCopy(job)}));
        if (job.isFolder) {
            folders.push_back(m_tasks.back().get());
        } else {
            files.push_back({m_tasks.back().get()});
        }
    }
    if (!folders.empty()) {
        m_steps.push_back(folders);
    }
    m_steps.insert(m_steps.end(), files.begin(), files.end());

    connect(&m_controller, &CFileCopyController::operationCompleted, this,
            &ExportRun::onStepCompleted);
    connect(&m_controller, &CFileCopyController::operationCanceled, this,
            &ExportRun::onStepCanceled);
    connect(&m_controller, &CFileCopyController::processedBytesChanged, this, [this] {
        m_stepBytes = m_controller.processedBytes();
        if (!m_aborting && !isInPlace()) {
            m_isGone = true;
            m_aborting = true;
            m_controller.abort();
        }
    });
    m_display.setInterval(console.isLive() ? s_liveInterval : s_plainInterval);
    connect(&m_display, &QTimer::timeout, this, &ExportRun::showProgress);
}

ExportRun::~ExportRun() = default;

void ExportRun::start()
{
    announce();
    if (!prepare()) {
        return;
    }
    m_running = true;
    m_progress.start(m_plan.bytes);
    m_display.start();
    beginStep();
}

void ExportRun::announce()
{
    for (const ExportJob &job : m_plan.jobs) {
        m_console.print(QStringLiteral("Copying %1 (%2) from %3 to %4")
                            .arg(counted(job.survey.files.size(), "file"),
                                 formatBytes(job.survey.bytes), quoted(withoutSlash(job.source)),
                                 quoted(job.landing)));
        if (job.replacedFiles > 0) {
            m_console.print(QStringLiteral("  replaces %1 there, once all of the copy is whole")
                                .arg(counted(job.replacedFiles, "file")));
        }
    }
    const QString omitted = leftOut(m_plan);
    if (!omitted.isEmpty()) {
        m_console.print(QStringLiteral("Left out: %1").arg(omitted));
    }
}

bool ExportRun::prepare()
{
    clearRemains();
    for (const auto &task : m_tasks) {
        if (task->copy.prepare()) {
            continue;
        }
        m_console.printError(task->copy.error());
        discardAll();
        finish(ExitDestinationRefused);
        return false;
    }
    return true;
}

// what exports have left that were killed, or met a power cut
void ExportRun::clearRemains()
{
    QStringList places{m_plan.held->reach(m_plan.destination)};
    for (const auto &task : m_tasks) {
        if (task->job.isFolder && task->job.landingExists) {
            places.append(task->copy.landing());
        }
    }
    places.removeDuplicates();
    for (const QString &place : qAsConst(places)) {
        const QStringList staying = StagingFolder::discardAbandoned(place);
        for (const QString &path : staying) {
            m_console.printError(
                QStringLiteral("Warning: an earlier export did not come to its end, and has left "
                               "%1. It may be removed once the volume has been checked.")
                    .arg(quoted(shown(path))));
        }
    }
}

void ExportRun::beginStep()
{
    const Step &step = m_steps.at(m_step);
    if (!step.front()->job.isFolder) {
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
    if (m_paused) {
        m_controller.pause();
    }
}

void ExportRun::togglePause()
{
    if (!m_running || m_aborting || m_verification) {
        return;
    }
    m_paused = !m_paused;
    if (m_paused) {
        m_controller.pause();
        m_progress.pause();
    } else {
        m_progress.resume();
        m_controller.resume();
    }
    showProgress();
}

void ExportRun::abort()
{
    if (!m_running || m_aborting) {
        return;
    }
    m_aborting = true;
    if (m_verification) {
        m_verification->cancel(); // onVerified() follows
    } else {
        m_controller.abort();
    }
    showProgress();
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
    for (const Task *task : m_steps.at(m_step)) {
        const CopyCheck check = checkCopy(task->job, task->copy.root());
        m_wholeFiles += check.wholeFiles;
        m_wholeBytes += check.wholeBytes;
        surveyed += task->job.survey.files.size();
        if (reason.isEmpty() && check.fault) {
            reason = QStringLiteral("%1 was not copied: %2.")
                         .arg(quoted(check.fault->source), check.fault->cause);
        }
    }
    // what nobody looked for would not be moved to its place
    if (reason.isEmpty() && anyStaged() && m_controller.lastResult().files > surveyed) {
        reason = QStringLiteral("The source holds %1 more than when it was looked through.")
                     .arg(counted(m_controller.lastResult().files - surveyed, "file"));
    }
    if (!reason.isEmpty()) {
        fail(reason);
    } else if (++m_step < m_steps.size()) {
        beginStep();
    } else {
        m_copyTime = m_progress.elapsed();
        settle();
    }
}

bool ExportRun::isInPlace() const
{
    for (const auto &task : m_tasks) {
        if (!task->job.held->isInPlace()) {
            return false;
        }
    }
    return true;
}

// what the controller says of the last request; empty when nothing failed
QString ExportRun::failure() const
{
    const Shared::CFileOperationResult result = m_controller.lastResult();
    if (result.isWhole()) {
        return {};
    }
    static constexpr const char *verbs[] = {"copied", "opened", "read", "created", "written"};
    const quint32 error = result.errorCode & 0xFFU;
    const QString cause = result.systemError != 0
        ? QStringLiteral(": %1.").arg(systemText(result.systemError))
        : QStringLiteral(".");
    if (error != CFileCopyController::ErrorNone && result.path.isEmpty()) {
        return QStringLiteral("The copy could not begin") + cause; // there is no thread to be had
    }
    if (error != CFileCopyController::ErrorNone) {
        return QStringLiteral("%1 cannot be %2")
                   .arg(quoted(shown(result.path)),
                        QLatin1String(verbs[error < std::size(verbs) ? error : 0]))
            + cause;
    }
    const QStringList &folders = result.unreadableDirectories;
    QStringList lines;
    for (int i = 0; i < qMin(folders.size(), s_shownFolders); ++i) {
        lines.append(QStringLiteral("The folder %1 cannot be read as a whole")
                         .arg(quoted(shown(folders.at(i))))
                     + cause);
    }
    if (folders.size() > s_shownFolders) {
        lines.append(QStringLiteral("The same goes for %1.")
                         .arg(counted(folders.size() - s_shownFolders, "more folder")));
    }
    return lines.join(QLatin1Char('\n'));
}

void ExportRun::settle()
{
    for (const auto &task : m_tasks) {
        if (task->copy.settle()) {
            continue;
        }
        m_console.clearLiveLine();
        m_console.printError(QStringLiteral("Failed: %1").arg(task->copy.error()));
        for (const auto &other : m_tasks) {
            if (other != task && other->copy.isStaged()) {
                m_console.printError(QStringLiteral("As before: %1, with all that it holds.")
                                         .arg(quoted(other->job.landing)));
            }
        }
        discardStaged();
        finish(ExitFailed);
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
    std::vector<CopiedFile> files;
    for (const auto &task : m_tasks) {
        const std::vector<CopiedFile> some = copiedFiles(task->job, task->copy.landing());
        files.insert(files.end(), some.begin(), some.end());
    }
    m_progress = Progress();
    m_progress.start(m_wholeBytes);
    m_paused = false; // a comparison is not worth a pause
    m_verification = std::make_unique<CopyVerification>(std::move(files));
    connect(m_verification.get(), &CopyVerification::finished, this, &ExportRun::onVerified);
    m_verification->start();
}

void ExportRun::onVerified()
{
    const std::optional<CopyFault> fault = m_verification->fault();
    if (m_aborting) {
        onStepCanceled();
    } else if (fault) {
        // of files that were all counted as whole, none can be trusted now
        m_wholeFiles = 0;
        fail(QStringLiteral("The copy of %1 is not good: %2.")
                 .arg(quoted(fault->source), fault->cause));
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
    const QStringList removed = discardAll();
    m_console.clearLiveLine();
    if (removed.isEmpty() && m_verification) {
        m_console.print(QStringLiteral("Aborted. The copy is in its place, but was not compared."));
    } else {
        m_console.print(QStringLiteral("Aborted. Removed: %1").arg(quotedList(removed)));
    }
    if (staged) {
        m_console.print(QStringLiteral("What was in the destination before is unchanged."));
    }
    finish(ExitAborted);
}

void ExportRun::complete()
{
    if (!isInPlace()) {
        failWithoutDrive();
        return;
    }
    const qint64 elapsed = m_copyTime;
    const double rate =
        static_cast<double>(m_wholeBytes) * 1000 / static_cast<double>(qMax<qint64>(elapsed, 1));
    m_console.clearLiveLine();
    if (m_verification) {
        m_console.print(QStringLiteral("Verified: every copy equals its source"));
    }
    m_console.print(QStringLiteral("Done: %1, %2 in %3 (%4)")
                        .arg(counted(m_wholeFiles, "file"), formatBytes(m_wholeBytes),
                             formatDuration(elapsed), formatRate(rate)));
    finish(ExitDone);
}

void ExportRun::fail(const QString &reason)
{
    const bool staged = anyStaged();
    m_console.clearLiveLine();
    m_console.printError(QStringLiteral("Failed: %1").arg(reason));
    if (m_wholeFiles == 0 || staged) {
        const bool isRemoved = discardAll().size() == static_cast<int>(m_tasks.size());
        if (staged) {
            m_console.printError((isRemoved
                                      ? QStringLiteral("The unfinished copy was removed; what was ")
                                      : QStringLiteral("What was "))
                                 + QStringLiteral("in the destination before is unchanged."));
        } else if (isRemoved) {
            m_console.printError(QStringLiteral("Nothing was left in the destination."));
        } else if (m_verification) {
            m_console.printError(QStringLiteral("The copies that replaced files of the same name "
                                                "stay where they are. Export again."));
        }
    } else {
        m_console.printError(QStringLiteral("%1 of %2 are whole in %3, the others are missing; "
                                            "no partial file is left.")
                                 .arg(m_wholeFiles)
                                 .arg(counted(m_plan.files, "file"), quoted(m_plan.destination)));
    }
    finish(ExitFailed);
}

void ExportRun::failWithoutDrive()
{
    discardAll(); // on the drive, as far as it can still be reached
    m_console.clearLiveLine();
    m_console.printError(QStringLiteral("Failed: the drive was taken away, or the folder moved: %1 "
                                        "is not what it was when the copy began.")
                             .arg(quoted(m_plan.destination)));
    m_console.printError(QStringLiteral("Nothing was written anywhere else. What the drive holds "
                                        "of the copy is not whole."));
    finish(ExitFailed);
}

void ExportRun::finish(ExitCode code)
{
    m_running = false;
    m_display.stop();
    m_console.clearLiveLine();
    QMetaObject::invokeMethod(
        this, [this, code] { Q_EMIT finished(code); }, Qt::QueuedConnection);
}

QStringList ExportRun::discardAll()
{
    QStringList removed;
    // the last first: folders made for one copy may hold those of the next
    for (auto task = m_tasks.rbegin(); task != m_tasks.rend(); ++task) {
        removed = (*task)->copy.discard() + removed;
        if (!(*task)->copy.error().isEmpty()) {
            m_console.printError((*task)->copy.error());
        }
    }
    return removed;
}

void ExportRun::discardStaged()
{
    for (const auto &task : m_tasks) {
        if (task->copy.isStaged()) {
            task->copy.discard();
            if (!task->copy.error().isEmpty()) {
                m_console.printError(task->copy.error());
            }
        }
    }
}

bool ExportRun::anyStaged() const
{
    for (const auto &task : m_tasks) {
        if (task->copy.isStaged()) {
            return true;
        }
    }
    return false;
}

// paths of the destination go by way of a held folder
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

void ExportRun::showProgress()
{
    m_progress.update(m_verification ? m_verification->comparedBytes()
                                     : m_wholeBytes + m_stepBytes);
    QString line = m_progress.text();
    if (m_aborting) {
        line = QStringLiteral("Aborting, once the data on its way is written");
    } else if (m_paused) {
        line += QStringLiteral("  paused, p resumes");
    }
    const QString directory =
        m_verification ? QStringLiteral("verifying") : m_controller.processingDirectory();
    if (!m_console.isLive()) {
        m_console.print(line);
        return;
    }
    if (!directory.isEmpty() && !m_aborting) {
        QString name = quoted(directory);
        name = name.mid(1, name.size() - 2);
        line.prepend(fitToColumns(name, s_directoryColumns) + QLatin1String("  "));
    }
    m_console.setLiveLine(line);
}

} // namespace Tavro::FieldHost
