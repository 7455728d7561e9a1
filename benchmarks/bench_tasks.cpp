// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Short tasks through each mode of Async, beside a bare pool that gives the same promise.
#include "benchmarks/MicroBenchmark.h"
#include "shared/system/Async.h"

#include <QRunnable>
#include <QSemaphore>
#include <QThreadPool>

#include <atomic>

using Tavro::Shared::Async;

namespace {

constexpr int s_tasks = 1000;
constexpr int s_threads = 8; // as many as Async has

std::atomic<int> s_work{0};

class BareTask : public QRunnable
{
public:
    void run() override { s_work.fetch_add(1, std::memory_order_relaxed); }
};

// A thousand tasks; over when each of them has run or was discarded. To be woken for each single
// one, as waitDone() does, would measure the waiting.
class Batch
{
public:
    void endOne()
    {
        if (--m_left == 0) {
            m_over.release();
        }
    }
    void wait() { m_over.acquire(); }

private:
    std::atomic<int> m_left{s_tasks};
    QSemaphore m_over;
};

class AsyncTask : public QRunnable
{
public:
    AsyncTask(Async &async, Batch &batch)
        : m_async(async)
        , m_batch(batch)
    {
    }
    ~AsyncTask() override { m_batch.endOne(); }

    void run() override
    {
        s_work.fetch_add(1, std::memory_order_relaxed);
        m_async.startNext();
    }

private:
    Async &m_async;
    Batch &m_batch;
};

// starts the next one when it is done, as a task of a queue does
class ChainedTask : public QRunnable
{
public:
    ChainedTask(QThreadPool &pool, int following)
        : m_pool(pool)
        , m_following(following)
    {
    }

    void run() override
    {
        s_work.fetch_add(1, std::memory_order_relaxed);
        if (m_following > 0) {
            m_pool.start(new ChainedTask(m_pool, m_following - 1));
        }
    }

private:
    QThreadPool &m_pool;
    const int m_following;
};

void throughAsync(Async &async)
{
    Batch batch;
    for (int i = 0; i < s_tasks; ++i) {
        async.startTask(new AsyncTask(async, batch));
    }
    batch.wait();
}

void throughPool(QThreadPool &pool)
{
    for (int i = 0; i < s_tasks; ++i) {
        pool.start(new BareTask);
    }
    pool.waitForDone();
}

void throughChain(QThreadPool &pool)
{
    pool.start(new ChainedTask(pool, s_tasks - 1));
    pool.waitForDone();
}

} // namespace

int main(int argc, char **argv)
{
    using Tavro::Benchmarks::MicroBenchmark;

    Async parallel(Async::Parallel);
    Async sequential(Async::Sequential);
    Async latest(Async::SequentialLatest);
    QThreadPool eightThreads;
    eightThreads.setMaxThreadCount(s_threads);
    QThreadPool oneThread;
    oneThread.setMaxThreadCount(1);

    MicroBenchmark page("Background tasks, 1000 at a time", MicroBenchmark::Time::Clock);
    page.compare(
        "Async, parallel", [&] { throughAsync(parallel); }, "QThreadPool, 8 threads",
        [&] { throughPool(eightThreads); }, 2.0);
    page.compare(
        "Async, sequential", [&] { throughAsync(sequential); }, "QThreadPool, each starts the next",
        [&] { throughChain(eightThreads); }, 2.0);
    page.compare(
        "Async, latest", [&] { throughAsync(latest); }, "QThreadPool, 1 thread",
        [&] { throughPool(oneThread); }, 2.0);
    return page.run(argc, argv);
}
