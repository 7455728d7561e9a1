// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/EventPoll.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>

namespace Tavro::Shared::detail {

namespace {

constexpr qint64 s_pollInterval = 5'000'000; // ns

} // namespace

void EventPoll::processEvents(const QObject &worker)
{
    if (worker.thread() != QThread::currentThread()) {
        return;
    }
    // What was queued is delivered every time. Timers and sockets cost a system call, as much as
    // a small file's own, so they have to wait for some milliseconds, as they do for any chunk of
    // a large file.
    QCoreApplication::sendPostedEvents();
    if (!m_sincePoll.isValid() || m_sincePoll.nsecsElapsed() >= s_pollInterval) {
        m_sincePoll.start();
        if (QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance()) {
            dispatcher->processEvents(QEventLoop::AllEvents);
        }
    }
}

} // namespace Tavro::Shared::detail
