#include "shared/fileops/CFileCopyController.h"

#include "host/CLogger.h"
#include "shared/fileops/CFileCopyWorker.h"
#include "shared/fileops/detail/TrimmedDestination.h"
#include "shared/fileops/detail/WorkerHandle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Tavro::Shared {

namespace {

constexpr quint32 s_moduleAndComponent = 0x000B0100; // this library, copying

} // namespace

CFileCopyController::CFileCopyController(QObject *parent)
    : QObject(parent)
    , m_handle(std::make_unique<detail::WorkerHandle<CFileCopyWorker>>(this))
{
    connectReports();
}

CFileCopyController::~CFileCopyController() = default;

// The worker's signals reach the slots as if by queued connections, in order and one by one, but
// without a wake-up for each. errorOccurred() ends here: a run that failed is announced as
// completed.
void CFileCopyController::connectReports()
{
    using Worker = CFileCopyWorker;
    m_handle->onResult([this](const CFileOperationResult &result) { m_lastResult = result; });
    m_handle->onRunEnd([this] { onWorkerFinished(); });
    m_handle->onReport(&Worker::processedBytesChanged,
                       [this](qlonglong value) { setProcessedBytes(value); });
    m_handle->onReport(&Worker::processingDirectoryChanged,
                       [this](const QString &directory) { setProcessingDirectory(directory); });
    m_handle->onReport(&Worker::totalBytesChanged,
                       [this](qlonglong value) { setTotalBytes(value); });
    m_handle->onReport(&Worker::stateChanged, [this](int state) { setState(state); });
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

CFileOperationResult CFileCopyController::lastResult() const
{
    return m_lastResult;
}

quint32 CFileCopyController::createErrorCode(Error error)
{
    return s_moduleAndComponent | static_cast<quint32>(error);
}

void CFileCopyController::copyDirectory(const QString &sourcePath, const QString &destinationPath)
{
    m_destinations.append(destinationPath); // earlier ones stay: an abort removes them as well
    m_handle->worker().copyDirectory(sourcePath, destinationPath);
    startRun();
}

void CFileCopyController::copyDirectories(const QStringList &sourcePath,
                                          const QStringList &destinationPath)
{
    m_destinations = destinationPath;
    m_handle->worker().copyDirectories(sourcePath, destinationPath);
    startRun();
}

void CFileCopyController::copyDatabaseFile(const QString &sourcePath,
                                           const QString &destinationPath)
{
    m_destinations = QStringList(destinationPath);
    m_handle->worker().copyLargeFile(sourcePath, destinationPath);
    startRun();
}

// Waits for the run in progress, which works on what was loaded before, and starts the next.
void CFileCopyController::startRun()
{
    m_handle->thread()->wait();

    if (!m_runs.isEmpty()) {
        // Their ends are still to be delivered. What an abort removes has to go now, or it
        // would go from under the new run; and the old runs' progress is delivered only after
        // this call, so the clean slate is announced once more behind it.
        for (Run &run : m_runs) {
            removeDestinations(run);
        }
        const int loadedState = m_handle->worker().state();
        m_handle->reports()->reportUrgently([this, loadedState] {
            setState(loadedState);
            setProcessedBytes(0);
            setTotalBytes(0);
        });
    }

    m_runs.append({m_destinations});
    m_handle->runs().claimLoadedRequest();
    if (!m_handle->startThread()) {
        // the run ends, like any that failed, without a byte
        m_handle->worker().reset();
        m_handle->reports()->reportUrgently([this] { onWorkerFinished(); });
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
    m_handle->worker().pause();
}

void CFileCopyController::resume()
{
    m_handle->worker().resume();
}

void CFileCopyController::abort()
{
    // older runs have returned before the last one was started: nobody means them any more
    if (!m_runs.isEmpty()) {
        m_runs.last().aborted = true;
    }
    m_handle->worker().cancelWork();
}

void CFileCopyController::reset()
{
    m_handle->worker().reset();
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
    Run run = m_runs.isEmpty() ? Run{m_destinations, m_handle->worker().isCanceled()}
                               : m_runs.takeFirst();
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
