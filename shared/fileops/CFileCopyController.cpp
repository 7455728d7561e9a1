// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"

#include "host/CLogger.h"
#include "shared/fileops/detail/CFileCopyWorkerPrivate.h"
#include "shared/fileops/detail/DestinationRemoval.h"
#include "shared/fileops/detail/RequestPaths.h"
#include "shared/fileops/detail/WorkerHandle.h"

#include <QPointer>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace Tavro::Shared {

namespace {

constexpr quint32 s_moduleAndComponent = 0x000B0100; // this library, copying

} // namespace

class Q_DECL_HIDDEN CFileCopyController::Private
{
public:
    using Handle = detail::WorkerHandle<CFileCopyWorker, detail::CopyCore>;
    using RequestPointer = detail::CopyCore::RequestPointer;

    struct Destination // with the sources of its request, which an abort never removes
    {
        QString path;
        QStringList sources;
    };
    struct Run
    {
        RequestPointer request;
        QList<Destination> destinations;
        bool aborted = false;
        bool removed = false;
    };

    explicit Private(CFileCopyController *controller);

    void load(const RequestPointer &request);
    void startRun();
    void refuseClaims();
    void announceEnd(const RequestPointer &request);
    Run takeRun(const RequestPointer &request);
    static void removeDestinations(Run &run);

    CFileCopyController *const q;
    const std::shared_ptr<Handle> handle; // worker and thread
    qlonglong totalBytes = 0;
    qlonglong processedBytes = 0;
    QString processingDirectory;
    int state = StateIdle;
    CFileOperationResult lastResult;
    QList<Destination> destinations;
    QList<Run> runs; // asked for, end not announced yet; only the last one can still be at work
};

// The worker's signals reach the slots as if by queued connections, in order and one by one, but
// without a wake-up for each. errorOccurred() ends here: a run that failed is announced as
// completed.
CFileCopyController::Private::Private(CFileCopyController *controller)
    : q(controller)
    , handle(std::make_shared<Handle>(
          controller, [](CFileCopyWorker &worker) -> detail::CopyCore & { return *worker.d; }))
{
    using Worker = CFileCopyWorker;
    handle->onResult([this](const RequestPointer &request) {
        lastResult = request->result;
        // an abort counts until the end is announced, even if the worker was done before
        lastResult.canceled |= std::any_of(runs.cbegin(), runs.cend(), [&](const Run &run) {
            return run.request == request && run.aborted;
        });
    });
    handle->onRunEnd([this](const RequestPointer &request) { announceEnd(request); });
    handle->onReport(&Worker::processedBytesChanged,
                     [this](qlonglong value) { q->setProcessedBytes(value); });
    handle->onReport(&Worker::processingDirectoryChanged,
                     [this](const QString &directory) { q->setProcessingDirectory(directory); });
    handle->onReport(&Worker::totalBytesChanged,
                     [this](qlonglong value) { q->setTotalBytes(value); });
    handle->onReport(&Worker::stateChanged, [this](int value) { q->setState(value); });
}

CFileCopyController::CFileCopyController(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
}

CFileCopyController::~CFileCopyController()
{
    d->handle->letGo();
}

qlonglong CFileCopyController::processedBytes() const
{
    return d->processedBytes;
}

QString CFileCopyController::processingDirectory() const
{
    return d->processingDirectory;
}

qlonglong CFileCopyController::totalBytes() const
{
    return d->totalBytes;
}

CFileCopyController::State CFileCopyController::state() const
{
    return static_cast<State>(d->state);
}

CFileOperationResult CFileCopyController::lastResult() const
{
    return d->lastResult;
}

quint32 CFileCopyController::createErrorCode(Error error)
{
    return s_moduleAndComponent | static_cast<quint32>(error);
}

void CFileCopyController::copyDirectory(const QString &sourcePath, const QString &destinationPath)
{
    const auto request =
        CFileCopyWorker::Private::requestForDirectories({sourcePath}, {destinationPath});
    // earlier ones stay: an abort removes them as well
    d->destinations.append({detail::destination(destinationPath), request->sources()});
    d->load(request);
}

void CFileCopyController::copyDirectories(const QStringList &sourcePath,
                                          const QStringList &destinationPath)
{
    const auto request =
        CFileCopyWorker::Private::requestForDirectories(sourcePath, destinationPath);
    d->destinations.clear();
    for (const QString &destination : destinationPath) { // those without a source, too
        d->destinations.append({detail::destination(destination), request->sources()});
    }
    d->load(request);
}

void CFileCopyController::copyDatabaseFile(const QString &sourcePath,
                                           const QString &destinationPath)
{
    const auto request = CFileCopyWorker::Private::requestForFile(sourcePath, destinationPath);
    d->destinations = {{detail::destination(destinationPath), request->sources()}};
    d->load(request);
}

// Loading announces more than one thing. A slot that hears of it may make another request, which
// comes behind this one, abort this one, or be the end of the controller.
void CFileCopyController::Private::load(const RequestPointer &request)
{
    const auto keptHandle = handle;
    runs.append({request, destinations});
    keptHandle->core().load(request, detail::CopyCore::Claim::OwnRun);
    if (keptHandle->isOwned()) {
        startRun();
    }
}

// Waits for the run in progress, which works on what was loaded before, and starts the next.
void CFileCopyController::Private::startRun()
{
    handle->thread()->wait();
    if (!handle->core().hasClaims()) {
        return; // refused together with one that a slot has asked for meanwhile
    }
    if (runs.size() > 1) {
        // Their ends are still to be delivered. What an abort removes has to go now, or it
        // would go from under the new run; and the old runs' progress is delivered only after
        // this call, so the clean slate is announced once more behind it.
        for (int i = 0; i < runs.size() - 1; ++i) {
            removeDestinations(runs[i]);
        }
        const int loadedState = handle->core().loaded()->step;
        handle->reports()->reportUrgently([this, loadedState] { q->setState(loadedState); });
        handle->reports()->reportUrgently([this] { q->setProcessedBytes(0); });
        handle->reports()->reportUrgently([this] { q->setTotalBytes(0); });
    }
    if (!handle->startThread()) {
        refuseClaims();
    }
}

// There is no thread to run on: what waits for one ends, like any run that failed, without a byte.
void CFileCopyController::Private::refuseClaims()
{
    const auto keptHandle = handle;
    const auto requests = keptHandle->core().takeClaims();
    keptHandle->core().reset();
    for (const RequestPointer &request : requests) {
        keptHandle->reports()->reportUrgently([this, request] {
            lastResult = {};
            lastResult.errorCode = createErrorCode(ErrorSourceFileOpenFailed);
            lastResult.systemError = EAGAIN;
            announceEnd(request);
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
    d->handle->core().pause();
}

void CFileCopyController::resume()
{
    d->handle->core().resume();
}

void CFileCopyController::abort()
{
    // older runs have returned before the last one was started: nobody means them any more
    if (!d->runs.isEmpty()) {
        d->runs.last().aborted = true;
    }
    d->handle->core().cancel();
}

void CFileCopyController::reset()
{
    const auto handle = d->handle; // a slot may be the end of this object
    handle->core().reset();
}

void CFileCopyController::setProcessedBytes(qlonglong processedBytes)
{
    if (d->processedBytes != processedBytes) {
        d->processedBytes = processedBytes;
        Q_EMIT processedBytesChanged();
    }
}

void CFileCopyController::setProcessingDirectory(const QString &processingDirectory)
{
    d->processingDirectory = processingDirectory;
    Q_EMIT processingDirectoryChanged();
}

void CFileCopyController::setTotalBytes(qlonglong totalBytes)
{
    if (d->totalBytes != totalBytes) {
        d->totalBytes = totalBytes;
        Q_EMIT totalBytesChanged();
    }
}

void CFileCopyController::setState(int newState)
{
    if (d->state != newState) {
        d->state = newState;
        Q_EMIT stateChanged();
    }
}

void CFileCopyController::onWorkerFinished()
{
    d->announceEnd(d->runs.isEmpty() ? nullptr : d->runs.constFirst().request);
}

void CFileCopyController::Private::announceEnd(const RequestPointer &request)
{
    // after a reset() during the run the worker has nothing new to say of its state
    const QPointer<CFileCopyController> controller(q);
    if (runs.size() <= 1) {
        q->setState(StateIdle);
    }
    if (!controller) {
        return; // a slot was its end, and the end of this object
    }
    Run run = takeRun(request); // not before: a slot may have aborted it
    if (!run.aborted) { // not the request's word: it may be canceled together with another
        Q_EMIT q->operationCompleted();
        return;
    }
    lastResult.canceled = true;
    removeDestinations(run);
    Q_EMIT q->operationCanceled();
}

CFileCopyController::Private::Run CFileCopyController::Private::takeRun(
    const RequestPointer &request)
{
    const auto run = std::find_if(runs.begin(), runs.end(),
                                  [&](const Run &each) { return each.request == request; });
    if (run == runs.end()) { // called by name, for no run
        return {{}, destinations, handle->core().loaded()->canceled};
    }
    Run taken = std::move(*run);
    runs.erase(run);
    return taken;
}

void CFileCopyController::Private::removeDestinations(Run &run)
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
