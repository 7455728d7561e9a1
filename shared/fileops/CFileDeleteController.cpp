// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileDeleteController.h"

#include "shared/fileops/detail/CFileDeleteWorkerPrivate.h"
#include "shared/fileops/detail/WorkerHandle.h"

#include <QPointer>

#include <cerrno>

namespace Tavro::Shared {

namespace {

constexpr quint32 s_moduleAndComponent = 0x000B0200; // this library, deleting

} // namespace

class Q_DECL_HIDDEN CFileDeleteController::Private
{
public:
    using Handle = detail::WorkerHandle<CFileDeleteWorker, detail::DeleteCore>;
    using RequestPointer = detail::DeleteCore::RequestPointer;

    explicit Private(CFileDeleteController *controller);

    void onWorkerState(int newState);
    void startNextRun();

    CFileDeleteController *const q;
    const std::shared_ptr<Handle> handle; // worker and thread
    qlonglong totalBytes = 0;
    qlonglong processedBytes = 0;
    int state = StateIdle;
    CFileOperationResult lastResult;
};

CFileDeleteController::Private::Private(CFileDeleteController *controller)
    : q(controller)
    , handle(std::make_shared<Handle>(
          controller, [](CFileDeleteWorker &worker) -> detail::DeleteCore & { return *worker.d; }))
{
    // finished() and errorOccurred() end at the worker: that a run is over shows in the state
    using Worker = CFileDeleteWorker;
    handle->onResult([this](const RequestPointer &request) { lastResult = request->result; });
    handle->onReport(&Worker::processedBytesChanged,
                     [this](qlonglong value) { q->setProcessedBytes(value); });
    handle->onReport(&Worker::totalBytesChanged,
                     [this](qlonglong value) { q->setTotalBytes(value); });
    handle->onReport(&Worker::stateChanged, [this](int value) { onWorkerState(value); });
    handle->onThreadEnd([this] { startNextRun(); });
}

CFileDeleteController::CFileDeleteController(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
}

CFileDeleteController::~CFileDeleteController()
{
    d->handle->letGo();
}

qlonglong CFileDeleteController::processedBytes() const
{
    return d->processedBytes;
}

qlonglong CFileDeleteController::totalBytes() const
{
    return d->totalBytes;
}

CFileDeleteController::State CFileDeleteController::state() const
{
    return static_cast<State>(d->state);
}

CFileOperationResult CFileDeleteController::lastResult() const
{
    return d->lastResult;
}

quint32 CFileDeleteController::createErrorCode(Error error)
{
    return s_moduleAndComponent | static_cast<quint32>(error);
}

void CFileDeleteController::deleteDirectory(const QString &path)
{
    deleteDirectories({path});
}

void CFileDeleteController::deleteDirectories(const QStringList &path)
{
    const auto handle = d->handle; // loading announces things, and a slot may be the end of this
    handle->core().load(CFileDeleteWorker::Private::requestFor(path),
                        detail::DeleteCore::Claim::OwnRun);
    if (!handle->isOwned()) {
        return;
    }
    // behind the end of an older run, should that not have been delivered yet
    handle->reports()->reportUrgently([this] { setState(StateEnumeratingFiles); });
    d->startNextRun();
}

// Called for each request and for each end of the thread, so that no request waits for longer
// than the run in progress. A thread that has reported its end is waited for, for the few
// instructions that it has left.
void CFileDeleteController::Private::startNextRun()
{
    if (!handle->core().hasClaims() || handle->thread()->isRunning()) {
        return;
    }
    if (!handle->startThread()) {
        handle->core().takeClaims();
        // behind the state that the request has announced
        handle->reports()->reportUrgently([this] {
            lastResult = CFileOperationResult();
            lastResult.errorCode = createErrorCode(ErrorInternal);
            lastResult.systemError = EAGAIN; // what Qt's thread does not pass on
            const auto keptHandle = handle; // a slot may be the end of this object
            keptHandle->core().reset();
        });
    }
}

void CFileDeleteController::pause()
{
    d->handle->core().pause();
}

void CFileDeleteController::resume()
{
    d->handle->core().resume();
}

void CFileDeleteController::abort()
{
    d->handle->core().cancel();
}

// The end of one run is idle, and not the last word as long as there is another to begin.
void CFileDeleteController::Private::onWorkerState(int newState)
{
    const bool isMoreToDo = newState == StateIdle && handle->core().hasClaims();
    const QPointer<CFileDeleteController> controller(q); // a slot may be the end of it
    q->setState(newState);
    if (isMoreToDo && controller) {
        q->setState(StateEnumeratingFiles);
    }
}

void CFileDeleteController::setProcessedBytes(qlonglong processedBytes)
{
    if (d->processedBytes != processedBytes) {
        d->processedBytes = processedBytes;
        Q_EMIT processedBytesChanged();
    }
}

void CFileDeleteController::setTotalBytes(qlonglong totalBytes)
{
    if (d->totalBytes != totalBytes) {
        d->totalBytes = totalBytes;
        Q_EMIT totalBytesChanged();
    }
}

void CFileDeleteController::setState(int newState)
{
    if (d->state != newState) {
        d->state = newState;
        Q_EMIT stateChanged();
    }
}

void CFileDeleteController::onErrorOccurred(int errorCode)
{
    Q_EMIT errorOccurred(static_cast<Error>(errorCode));
}

} // namespace Tavro::Shared
