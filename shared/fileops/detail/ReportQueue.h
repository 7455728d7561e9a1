// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

class QThread;
class QTimer;

namespace Tavro::Shared::detail {

/**
 * Carries what a worker reports to the thread of its controller: everything, and in order.
 *
 * A queued signal wakes the receiving thread each time, which shows with small files. Here reports
 * in quick succession are delivered together: a thread that was woken looks again by itself, for
 * as long as there is something to be had. A report that follows none for a while wakes it at once.
 *
 * Shared by both sides, so that a worker can report into a queue whose controller is gone.
 */
class ReportQueue : public std::enable_shared_from_this<ReportQueue>
{
public:
    using Report = std::function<void()>;

    /** Delivers in the current thread, for as long as @p receiver is there and close() not called.
     */
    static std::shared_ptr<ReportQueue> create(QObject *receiver);

    /** Delivers soon, or at once when called in the receiving thread. From any thread. */
    void report(Report report);
    /** Delivers with the next turn of the event loop, behind all that was reported before. */
    void reportUrgently(Report report);

    /** From here on nothing is delivered. In the receiving thread, before the receiver goes. */
    void close();

private:
    explicit ReportQueue(QObject *receiver);

    void append(Report report);
    bool isInQuickSuccession();
    void wakeReceiver();
    void deliver();

    QThread *const m_receivingThread;
    QTimer *const m_nextLook; // child of the receiver
    std::deque<Report> m_ready; // being delivered, in the receiving thread alone
    std::mutex m_mutex; // guards what follows
    QObject *m_receiver; // null when closed
    std::vector<Report> m_reports; // not seen by the receiving thread yet
    std::chrono::steady_clock::time_point m_lastReport;
    bool m_isAwaited = false; // the receiving thread will look without being woken
    bool m_isWoken = false;
};

} // namespace Tavro::Shared::detail
