// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>
#include <QThread>

#include <utility>

namespace Test {

/** Writes down every signal that the workers share, in order, on the thread that emits it. */
template<typename Worker> class SignalLog
{
public:
    explicit SignalLog(Worker &worker)
    {
        QObject::connect(&worker, &Worker::finished, &worker,
                         [this] { add(QStringLiteral("finished")); });
        QObject::connect(&worker, &Worker::stateChanged, &worker,
                         [this](int s) { add(QStringLiteral("state %1").arg(s)); });
        QObject::connect(&worker, &Worker::errorOccurred, &worker,
                         [this](int e) { add(QStringLiteral("error %1").arg(e)); });
        QObject::connect(&worker, &Worker::processedBytesChanged, &worker,
                         [this](qlonglong n) { add(QStringLiteral("processed %1").arg(n)); });
        QObject::connect(&worker, &Worker::totalBytesChanged, &worker,
                         [this](qlonglong n) { add(QStringLiteral("total %1").arg(n)); });
    }

    void add(const QString &line) { m_lines.append(line); }
    /** What was emitted since the last call, separated by commas. */
    QString take() { return std::exchange(m_lines, {}).join(QStringLiteral(", ")); }

private:
    QStringList m_lines;
};

/** Runs a worker on a thread of its own, and stops both at the end. */
template<typename Worker> class RunningWorker
{
    Q_DISABLE_COPY(RunningWorker)

public:
    explicit RunningWorker(Worker &worker)
        : m_worker(worker)
    {
        worker.moveToThread(&m_thread);
        QObject::connect(&m_thread, &QThread::started, &worker, &Worker::doWork);
        QObject::connect(&worker, &Worker::finished, &m_thread, &QThread::quit,
                         Qt::DirectConnection);
        m_thread.start();
    }
    ~RunningWorker()
    {
        m_worker.cancelWork();
        m_thread.quit();
        m_thread.wait();
    }

    bool hasEnded(int ms = 30000) { return m_thread.wait(static_cast<unsigned long>(ms)); }
    bool isAtWork(int ms) { return !hasEnded(ms); }

private:
    Worker &m_worker;
    QThread m_thread;
};

} // namespace Test
