#include "shared/fileops/CFileCopyController.h"

#include "host/CLogger.h"
#include "shared/fileops/CFileCopyWorker.h"
#include "shared/fileops/detail/ReportQueue.h"
#include "shared/fileops/detail/TrimmedDestination.h"
#include "shared/fileops/detail/WorkerThreadOwner.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Tavro::Shared {

namespace {

constexpr quint32 s_moduleAndComponent = 0x000B0100; // this library, copying

} // namespace

CFileCopyController::CFileCopyController(QObject *parent)
    : QObject(parent)
    , m_worker(new CFileCopyWorker)
    , m_thread(std::make_unique<detail::WorkerThreadOwner>(m_worker))
    , m_reports(detail::ReportQueue::create(this))
{
    QThread *thread = m_thread->thread();
    connect(thread, &QThread::started, m_worker, &CFileCopyWorker::doWork);
    // direct: the next request may be waiting for the thread's end in the thread that would have
    // to deliver a queued call
    connect(m_worker, &CFileCopyWorker::finished, thread, &QThread::quit, Qt::DirectConnection);
    connectReports();
}

// The worker's signals reach the slots as if by queued connections, in order and one by one, but
// without a wake-up for each. errorOccurred() ends here: a run that failed is announced as
// completed.
void CFileCopyController::connectReports()
{
    const auto reports = m_reports;
    connect(
        m_worker, &CFileCopyWorker::finished, m_worker,
        [this, reports] { reports->reportUrgently([this] { onWorkerFinished(); }); },
        Qt::DirectConnection);
    connect(
        m_worker, &CFileCopyWorker::processedBytesChanged, m_worker,
        [this, reports](qlonglong value) {
            reports->report([this, value] { setProcessedBytes(value); });
        },
        Qt::DirectConnection);
    connect(
        m_worker, &CFileCopyWorker::processingDirectoryChanged, m_worker,
        [this, reports](const QString &directory) {
            reports->report([this, directory] { setProcessingDirectory(directory); });
        },
        Qt::DirectConnection);
    connect(
        m_worker, &CFileCopyWorker::totalBytesChanged, m_worker,
        [this, reports](qlonglong value) {
            reports->report([this, value] { setTotalBytes(value); });
        },
        Qt::DirectConnection);
    connect(
        m_worker, &CFileCopyWorker::stateChanged, m_worker,
        [this, reports](int state) { reports->report([this, state] { setState(state); }); },
        Qt::DirectConnection);
}

CFileCopyController::~CFileCopyController()
{
    m_reports->close();
    m_worker->abandonWork();
}

qlonglong CFileCopyController::processedBytes() const
{
    return m_processedBytes;
}

QString CFileCopyController::processingDirectory() const
{
    return m_processingDirectory;
}

qlonglong CFileCopyController::totalBytes() const
{
    return m_totalBytes;
}

CFileCopyController::State CFileCopyController::state() const
{
    return static_cast<State>(m_state);
}

quint32 CFileCopyController::createErrorCode(Error error)
{
    return s_moduleAndComponent | static_cast<quint32>(error);
}

void CFileCopyController::copyDirectory(const QString &sourcePath, const QString &destinationPath)
{
    m_destinations.append(destinationPath); // earlier ones stay: an abort removes them as well
    m_worker->copyDirectory(sourcePath, destinationPath);
    startRun();
}

void CFileCopyController::copyDirectories(const QStringList &sourcePath,
                                          const QStringList &destinationPath)
{
    m_destinations = destinationPath;
    m_worker->copyDirectories(sourcePath, destinationPath);
    startRun();
}

void CFileCopyController::copyDatabaseFile(const QString &sourcePath,
                                           const QString &destinationPath)
{
    m_destinations = QStringList(destinationPath);
    m_worker->copyLargeFile(sourcePath, destinationPath);
    startRun();
}

// Waits for the run in progress, which works on what was loaded before, and starts the next.
void CFileCopyController::startRun()
{
    QThread *thread = m_thread->thread();
    thread->wait();

    if (!m_runs.isEmpty()) {
        // Their ends are still to be delivered. What an abort removes has to go now, or it
        // would go from under the new run; and the old runs' progress is delivered only after
        // this call, so the clean slate is announced once more behind it.
        for (Run &run : m_runs) {
            removeDestinations(run);
        }
        const int loadedState = m_worker->state();
        m_reports->reportUrgently([this, loadedState] {
            setState(loadedState);
            setProcessedBytes(0);
            setTotalBytes(0);
        });
    }

    m_runs.append({m_destinations});
    m_worker->claimLoadedRequest();
    thread->start(QThread::InheritPriority);
    if (!thread->isRunning() && !thread->isFinished()) {
        // the system has no thread to give: the run ends, like any that failed, without a byte
        m_worker->reset();
        m_reports->reportUrgently([this] { onWorkerFinished(); });
    }
}

void CFileCopyController::copyFile(const QString &sourcePath, const QString &destinationPath)
{
    CFileCopyWorker worker;
    const int error = worker.copyFile(sourcePath, destinationPath);
    if (error != ErrorNone) {
        Logging::CLogger::logMessage(
            Logging::LogLevel::Error, QStringLiteral("CFileCopyController"),
            QLatin1String("Failed to copy file from \"") + sourcePath + QLatin1String("\" to \"")
                + destinationPath + QLatin1String("\" Error code is: ")
                + QString::number(createErrorCode(static_cast<Error>(error))));
    }
}

void CFileCopyController::pause()
{
    m_worker->pause();
}

void CFileCopyController::resume()
{
    m_worker->resume();
}

void CFileCopyController::abort()
{
    // older runs have returned before the last one was started: nobody means them any more
    if (!m_runs.isEmpty()) {
        m_runs.last().aborted = true;
    }
    m_worker->cancelWork();
}

void CFileCopyController::reset()
{
    m_worker->reset();
}

void CFileCopyController::setProcessedBytes(qlonglong processedBytes)
{
    if (m_processedBytes != processedBytes) {
        m_processedBytes = processedBytes;
        Q_EMIT processedBytesChanged();
    }
}

void CFileCopyController::setProcessingDirectory(const QString &processingDirectory)
{
    m_processingDirectory = processingDirectory;
    Q_EMIT processingDirectoryChanged();
}

void CFileCopyController::setTotalBytes(qlonglong totalBytes)
{
    if (m_totalBytes != totalBytes) {
        m_totalBytes = totalBytes;
        Q_EMIT totalBytesChanged();
    }
}

void CFileCopyController::setState(int newState)
{
    if (m_state != newState) {
        m_state = newState;
        Q_EMIT stateChanged();
    }
}

void CFileCopyController::onWorkerFinished()
{
    Run run = m_runs.isEmpty() ? Run{m_destinations, m_worker->isCanceled()} : m_runs.takeFirst();
    if (!run.aborted) { // not the worker's word: it speaks of what was loaded last
        Q_EMIT operationCompleted();
        return;
    }
    removeDestinations(run);
    Q_EMIT operationCanceled();
}

void CFileCopyController::removeDestinations(Run &run)
{
    if (!run.aborted || run.removed) {
        return;
    }
    run.removed = true;
    for (const QString &destination : qAsConst(run.destinations)) {
        // under the name that was written to, and never all there is
        const QFileInfo info(detail::trimmedDestination(destination));
        if (info.isDir() && !QDir(info.filePath()).isRoot()) {
            QDir(info.filePath()).removeRecursively();
        } else if (info.isFile()) {
            QFile(info.absoluteFilePath()).remove();
        }
    }
}

} // namespace Tavro::Shared
