// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/ReportQueue.h"

#include <QThread>
#include <QTimer>

#include <iterator>
#include <utility>

namespace Tavro::Shared::detail {

namespace {

constexpr std::chrono::milliseconds s_interval(15); // a screen is drawn every 16 ms

// A small file takes less; a chunk of 4 MiB takes longer, and is worth being told of at once.
constexpr std::chrono::milliseconds s_quickSuccession(1);

} // namespace

std::shared_ptr<ReportQueue> ReportQueue::create(QObject *receiver)
{
    std::shared_ptr<ReportQueue> queue(new ReportQueue(receiver));
    // held weakly: the timer belongs to the receiver, and may outlast the queue
    QObject::connect(queue->m_nextLook, &QTimer::timeout, receiver,
                     [weak = queue->weak_from_this()] {
                         if (const auto strong = weak.lock()) {
                             strong->deliver();
                         }
                     });
    return queue;
}

ReportQueue::ReportQueue(QObject *receiver)
    : m_receivingThread(QThread::currentThread())
    , m_nextLook(new QTimer(receiver))
    , m_receiver(receiver)
{
    m_nextLook->setSingleShot(true);
    m_nextLook->setInterval(s_interval);
    m_nextLook->setTimerType(Qt::PreciseTimer);
}

void ReportQueue::report(Report report)
{
    if (QThread::currentThread() == m_receivingThread) {
        if (m_receiver != nullptr) { // no other thread changes it
            report();
        }
        return;
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    append(std::move(report));
    if (!isInQuickSuccession() || !m_isAwaited) {
        wakeReceiver();
    }
}

void ReportQueue::reportUrgently(Report report)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    append(std::move(report));
    wakeReceiver();
}

// with the mutex held
void ReportQueue::append(Report report)
{
    if (m_receiver) {
        m_reports.push_back(std::move(report));
    }
}

// with the mutex held, once for each report
bool ReportQueue::isInQuickSuccession()
{
    const auto now = std::chrono::steady_clock::now();
    return now - std::exchange(m_lastReport, now) < s_quickSuccession;
}

void ReportQueue::close()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_receiver = nullptr;
    m_reports.clear();
}

// with the mutex held: the receiver cannot go meanwhile
void ReportQueue::wakeReceiver()
{
    if (m_receiver && !m_isWoken) {
        m_isWoken = true;
        QMetaObject::invokeMethod(
            m_receiver, [self = shared_from_this()] { self->deliver(); }, Qt::QueuedConnection);
    }
}

// A report may run an event loop of its own, in which this function is called again and goes on
// with the next one; it may also be the end of the receiver.
void ReportQueue::deliver()
{
    const std::shared_ptr<ReportQueue> self = shared_from_this();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isWoken = false;
        m_isAwaited = m_receiver && !m_reports.empty();
        if (m_isAwaited) {
            m_nextLook->start();
        }
        std::move(m_reports.begin(), m_reports.end(), std::back_inserter(m_ready));
        m_reports.clear();
    }
    while (!m_ready.empty()) {
        const Report report = std::move(m_ready.front());
        m_ready.pop_front();
        report();
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_receiver) {
            m_ready.clear();
        }
    }
}

} // namespace Tavro::Shared::detail
