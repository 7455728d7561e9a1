#include "shared/fileops/CFileCopyController.h"

#include "host/CLogger.h"
#include "shared/fileops/CFileCopyWorker.h"
#include "shared/fileops/detail/CopyPaths.h"
#include "shared/fileops/detail/DestinationRemoval.h"
#include "shared/fileops/detail/WorkerHandle.h"

#include <QPointer>

#include <algorithm>
#include <cerrno>

namespace Tavro::Shared {

namespace {

constexpr quint32 s_moduleAndComponent = 0x000B0100; // this library, copying

} // namespace

CFileCopyController::CFileCopyController(QObject *parent)
    : QObject(parent)
    , m_handle(std::make_shared<detail::WorkerHandle<CFileCopyWorker>>(this))
{
    connectReports();
}

CFileCopyController::~CFileCopyController()
{
    m_handle->letGo();
}

// The worker's signals reach the slots as if by queued connections, in order and one by one, but
// without a wake-up for each. errorOccurred() ends here: a run that failed is announced as
// completed.
void CFileCopyController::connectReports()
{
    using Worker = CFileCopyWorker;
    m_handle->onResult([this](const CFileOperationResult &result) {
        m_lastResult = result;
        // an abort counts until the end is announced, even if the worker was done before
        m_lastResult.canceled |= !m_runs.isEmpty() && m_runs.constFirst().aborted;
    });
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
    // earlier ones stay: an abort removes them as well
    m_destinations.append(
        {detail::destination(destinationPath), {detail::sourceDirectory(sourcePath)}});
    load([&](CFileCopyWorker &worker) { worker.copyDirectory(sourcePath, destinationPath); });
}

void CFileCopyController::copyDirectories(const QStringList &sourcePath,
                                          const QStringList &destinationPath)
{
    QStringList sources;
    for (int i = 0; i < std::min(sourcePath.size(), destinationPath.size()); ++i) {
        sources.append(detail::sourceDirectory(sourcePath.at(i)));
    }
    m_destinations.clear();
    for (const QString &destination : destinationPath) { // those without a source, too
        m_destinations.append({detail::destination(destination), sources});
    }
    load([&](CFileCopyWorker &worker) { worker.copyDirectories(sourcePath, destinationPath); });
}

void CFileCopyController::copyDatabaseFile(const QString &sourcePath,
                                           const QString &destinationPath)
{
    m_destinations = {{detail::destination(destinationPath), {detail::sourceFile(sourcePath)}}};
    load([&](CFileCopyWorker &worker) { worker.copyLargeFile(sourcePath, destinationPath); });
}

// Loading announces more than one thing. A slot that hears of it may make another request, which
// comes behind this one, abort this one, or be the end of this object.
template<typename Load> void CFileCopyController::load(Load load)
{
    const auto handle = m_handle;
    m_runs.append({m_destinations});
    handle->runs().claimNextRequest();
    load(handle->worker());
    if (handle->isOwned()) {
        startRun();
    }
}

// Waits for the run in progress, which works on what was loaded before, and starts the next.
void CFileCopyController::startRun()
{
    m_handle->thread()->wait();

    if (m_runs.size() > 1) {
        // Their ends are still to be delivered. What an abort removes has to go now, or it
        // would go from under the new run; and the old runs' progress is delivered only after
        // this call, so the clean slate is announced once more behind it.
        for (int i = 0; i < m_runs.size() - 1; ++i) {
            removeDestinations(m_runs[i]);
        }
        const int loadedState = m_handle->runs().loadedStep();
        m_handle->reports()->reportUrgently([this, loadedState] { setState(loadedState); });
        m_handle->reports()->reportUrgently([this] { setProcessedBytes(0); });
        m_handle->reports()->reportUrgently([this] { setTotalBytes(0); });
    }

    if (!m_handle->startThread()) {
        const auto handle = m_handle;
        handle->worker().reset();
        // the run ends, like any that failed, without a byte
        handle->reports()->reportUrgently([this] {
            m_lastResult = {};
            m_lastResult.errorCode = createErrorCode(ErrorSourceFileOpenFailed);
            m_lastResult.systemError = EAGAIN;
            onWorkerFinished();
        });
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
    const auto handle = m_handle; // a slot may be the end of this object
    handle->worker().reset();
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
    // after a reset() during the run the worker has nothing new to say of its state
    const QPointer<CFileCopyController> self(this);
    if (m_runs.size() <= 1) {
        setState(StateIdle);
    }
    if (!self) {
        return; // a slot was the end of this object
    }
    // not before: a slot may have aborted the run
    Run run = m_runs.isEmpty() ? Run{m_destinations, m_handle->worker().isCanceled()}
                               : m_runs.takeFirst();
    if (!run.aborted) { // not the worker's word: it speaks of what was loaded last
        Q_EMIT operationCompleted();
        return;
    }
    m_lastResult.canceled = true;
    removeDestinations(run);
    Q_EMIT operationCanceled();
}

void CFileCopyController::removeDestinations(Run &run)
{
    if (!run.aborted || run.removed) {
        return;
    }
    run.removed = true;
    const QStringList sources =
        run.destinations.isEmpty() ? QStringList() : run.destinations.constLast().sources;
    for (const Destination &destination : qAsConst(run.destinations)) {
        detail::removeDestination(destination.path,
                                  detail::KeptSources(sources + destination.sources));
    }
}

} // namespace Tavro::Shared
