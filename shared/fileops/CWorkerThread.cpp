#include "shared/fileops/CWorkerThread.h"

namespace Tavro::Shared {

CWorkerThread::CWorkerThread(QObject *parent)
    : QThread(parent)
{
    // direct: the slot runs in the new thread itself, before its event loop
    connect(this, &QThread::started, this, &CWorkerThread::onThreadStarted, Qt::DirectConnection);
}

bool CWorkerThread::isThreadStartPending()
{
    return m_startPending;
}

bool CWorkerThread::blockingStart()
{
    start(QThread::InheritPriority);

    // start() marks the thread as running before it returns, so one that does not run here
    // has already ended, or never came to be. Waiting for isRunning() to turn true would spin
    // for ever on a run that short.
    while (isRunning() && isThreadStartPending()) { }

    const bool refused = !isRunning() && !isFinished();
    return !refused && !isThreadStartPending();
}

void CWorkerThread::onThreadStarted()
{
    m_startPending = false;
}

} // namespace Tavro::Shared
