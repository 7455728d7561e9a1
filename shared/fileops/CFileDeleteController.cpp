#include "shared/fileops/CFileDeleteController.h"

#include "shared/fileops/CFileDeleteWorker.h"
#include "shared/fileops/detail/WorkerHandle.h"

#include <QPointer>

#include <cerrno>

namespace Tavro::Shared {

namespace {

constexpr quint32 s_moduleAndComponent = 0x000B0200; // this library, deleting

} // namespace

CFileDeleteController::CFileDeleteController(QObject *parent)
    : QObject(parent)
    , m_handle(std::make_shared<detail::WorkerHandle<CFileDeleteWorker>>(this))
{
    // finished() and errorOccurred() end at the worker: that a run is over shows in the state
    using Worker = CFileDeleteWorker;
    m_handle->onResult([this](const CFileOperationResult &result) { m_lastResult = result; });
    m_handle->onReport(&Worker::processedBytesChanged,
                       [this](qlonglong value) { setProcessedBytes(value); });
    m_handle->onReport(&Worker::totalBytesChanged,
                       [this](qlonglong value) { setTotalBytes(value); });
    m_handle->onReport(&Worker::stateChanged, [this](int state) { onWorkerState(state); });
    m_handle->onThreadEnd([this] { startNextRun(); });
}

CFileDeleteController::~CFileDeleteController()
{
    m_handle->letGo();
}

qlonglong CFileDeleteController::processedBytes() const
{
    return m_processedBytes;
}

qlonglong CFileDeleteController::totalBytes() const
{
    return m_totalBytes;
}

CFileDeleteController::State CFileDeleteController::state() const
{
    return static_cast<State>(m_state);
}

CFileOperationResult CFileDeleteController::lastResult() const
{
    return m_lastResult;
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
    const auto handle = m_handle; // loading announces things, and a slot may be the end of this
    handle->runs().claimNextRequest();
    handle->worker().deleteDirectories(path);
    if (!handle->isOwned()) {
        return;
    }
    // behind the end of an older run, should that not have been delivered yet
    handle->reports()->reportUrgently([this] { setState(StateEnumeratingFiles); });
    startNextRun();
}

// Called for each request and for each end of the thread, so that no request waits for longer
// than the run in progress. A thread that has reported its end is waited for, for the few
// instructions that it has left.
void CFileDeleteController::startNextRun()
{
    if (!m_handle->runs().hasClaimedRequest() || m_handle->thread()->isRunning()) {
        return;
    }
    if (!m_handle->startThread()) {
        // behind the state that the request has announced
        m_handle->reports()->reportUrgently([this] {
            m_lastResult = CFileOperationResult();
            m_lastResult.errorCode = createErrorCode(ErrorInternal);
            m_lastResult.systemError = EAGAIN; // what Qt's thread does not pass on
            const auto handle = m_handle; // a slot may be the end of this object
            handle->worker().reset();
        });
    }
}

void CFileDeleteController::pause()
{
    m_handle->worker().pause();
}

void CFileDeleteController::resume()
{
    m_handle->worker().resume();
}

void CFileDeleteController::abort()
{
    m_handle->worker().cancelWork();
}

// The end of one run is idle, and not the last word as long as there is another to begin.
void CFileDeleteController::onWorkerState(int state)
{
    const bool isMoreToDo = state == StateIdle && m_handle->runs().hasClaimedRequest();
    const QPointer<CFileDeleteController> self(this); // a slot may be the end of it
    setState(state);
    if (isMoreToDo && self) {
        self->setState(StateEnumeratingFiles);
    }
}

void CFileDeleteController::setProcessedBytes(qlonglong processedBytes)
{
    if (m_processedBytes != processedBytes) {
        m_processedBytes = processedBytes;
        Q_EMIT processedBytesChanged();
    }
}

void CFileDeleteController::setTotalBytes(qlonglong totalBytes)
{
    if (m_totalBytes != totalBytes) {
        m_totalBytes = totalBytes;
        Q_EMIT totalBytesChanged();
    }
}

void CFileDeleteController::setState(int newState)
{
    if (m_state != newState) {
        m_state = newState;
        Q_EMIT stateChanged();
    }
}

void CFileDeleteController::onErrorOccurred(int errorCode)
{
    Q_EMIT errorOccurred(static_cast<Error>(errorCode));
}

} // namespace Tavro::Shared
