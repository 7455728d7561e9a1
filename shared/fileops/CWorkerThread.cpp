// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CWorkerThread.h"

#include <atomic>

namespace Tavro::Shared {

class Q_DECL_HIDDEN CWorkerThread::Private
{
public:
    std::atomic<bool> startPending{true};
};

CWorkerThread::CWorkerThread(QObject *parent)
    : QThread(parent)
    , d(std::make_unique<Private>())
{
    // direct: the slot runs in the new thread itself, before its event loop
    connect(this, &QThread::started, this, &CWorkerThread::onThreadStarted, Qt::DirectConnection);
}

CWorkerThread::~CWorkerThread() = default;

bool CWorkerThread::isThreadStartPending()
{
    return d->startPending;
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
    d->startPending = false;
}

} // namespace Tavro::Shared
