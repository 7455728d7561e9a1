// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/Async.h"

#include <QRunnable>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using Tavro::Shared::Async;

namespace {

constexpr int s_tasks = 100'000;

/** What became of each task of a run. */
struct Record
{
    explicit Record(int tasks)
        : runs(tasks)
        , deletions(tasks)
    {
    }

    std::vector<std::atomic<int>> runs;
    std::vector<std::atomic<int>> deletions;
    std::atomic<int> runningNow{0};
    std::atomic<int> mostAtOnce{0};
    // without protection: tasks that run one after the other need none
    std::vector<int> order;
};

class Task : public QRunnable
{
public:
    Task(Async &async, Record &record, int number, bool keepsOrder)
        : m_async(async)
        , m_record(record)
        , m_number(number)
        , m_keepsOrder(keepsOrder)
    {
    }
    ~Task() override { ++m_record.deletions[static_cast<size_t>(m_number)]; }

    void run() override
    {
        const int now = ++m_record.runningNow;
        int before = m_record.mostAtOnce;
        while (before < now && !m_record.mostAtOnce.compare_exchange_weak(before, now)) { }
        ++m_record.runs[static_cast<size_t>(m_number)];
        if (m_keepsOrder) {
            m_record.order.push_back(m_number);
        }
        --m_record.runningNow;
        Q_EMIT m_async.taskDone();
        m_async.startNext();
        m_async.asyncDeleteLater();
    }

private:
    Async &m_async;
    Record &m_record;
    const int m_number;
    const bool m_keepsOrder;
};

void waitUntilIdle(Async &async)
{
    while (async.isRunning()) {
        async.waitDone();
    }
}

} // namespace

/** Many short tasks, so that starts and ends meet in every way there is. */
class tst_AsyncStress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sequentialLosesNoneAndDoublesNone();
    void startsThatMeetAnEnd();
    void parallelLosesNoneAndDoublesNone();
    void latestRunsOrDeletesEach();
    void noWaitIsMissed();
    void waitsFromManyThreads();
    void destroyedAtAnyMoment_data();
    void destroyedAtAnyMoment();
};

void tst_AsyncStress::sequentialLosesNoneAndDoublesNone()
{
    Record record(s_tasks);
    record.order.reserve(s_tasks);
    {
        Async async(Async::Sequential);
        for (int i = 0; i < s_tasks; ++i) {
            async.startTask(new Task(async, record, i, true));
            if (i % 64 == 0) {
                async.waitDone(); // so that the queue runs empty again and again
            }
        }
        waitUntilIdle(async);
    }
    QCOMPARE(record.mostAtOnce.load(), 1);
    QCOMPARE(int(record.order.size()), s_tasks);
    for (int i = 0; i < s_tasks; ++i) {
        QCOMPARE(record.order[static_cast<size_t>(i)], i);
        QCOMPARE(record.deletions[static_cast<size_t>(i)].load(), 1);
    }
}

void tst_AsyncStress::startsThatMeetAnEnd()
{
    // A task that is started while the last one ends may be seen by nobody, or by two. Nothing
    // follows here that would start a forgotten one after all.
    Record record(s_tasks);
    Async async(Async::Sequential);
    int next = 0;
    while (next + 3 <= s_tasks) {
        async.startTask(new Task(async, record, next++, false));
        async.startTask(new Task(async, record, next++, false));
        std::atomic<int> moments{0};
        while (moments++ < next % 1000) { } // so that the third comes a little later each time
        async.startTask(new Task(async, record, next++, false));
        waitUntilIdle(async);
        QCOMPARE(record.runs[static_cast<size_t>(next - 1)].load(), 1);
    }
    QCOMPARE(record.mostAtOnce.load(), 1);
}

void tst_AsyncStress::parallelLosesNoneAndDoublesNone()
{
    Record record(s_tasks);
    {
        Async async(Async::Parallel);
        for (int i = 0; i < s_tasks; ++i) {
            async.startTask(new Task(async, record, i, false));
        }
        waitUntilIdle(async);
    }
    QVERIFY(record.mostAtOnce <= 8);
    for (int i = 0; i < s_tasks; ++i) {
        QCOMPARE(record.runs[static_cast<size_t>(i)].load(), 1);
        QCOMPARE(record.deletions[static_cast<size_t>(i)].load(), 1);
    }
}

void tst_AsyncStress::latestRunsOrDeletesEach()
{
    Record record(s_tasks);
    record.order.reserve(s_tasks);
    {
        Async async(Async::SequentialLatest);
        for (int i = 0; i < s_tasks; ++i) {
            async.startTask(new Task(async, record, i, true));
            if (i % 3 == 0) {
                std::this_thread::yield();
            }
        }
        waitUntilIdle(async);
    }
    QCOMPARE(record.mostAtOnce.load(), 1);
    QCOMPARE(record.order.back(), s_tasks - 1);
    QVERIFY(std::is_sorted(record.order.cbegin(), record.order.cend()));
    for (int i = 0; i < s_tasks; ++i) {
        QVERIFY(record.runs[static_cast<size_t>(i)] <= 1);
        QCOMPARE(record.deletions[static_cast<size_t>(i)].load(), 1);
    }
}

void tst_AsyncStress::noWaitIsMissed()
{
    Record record(s_tasks);
    Async async(Async::Sequential);
    for (int i = 0; i < s_tasks / 5; ++i) {
        async.startTask(new Task(async, record, i, false));
        async.waitDone(); // hangs if it misses the end
        QCOMPARE(record.runs[static_cast<size_t>(i)].load(), 1);
        QVERIFY(!async.isRunning());
    }
}

void tst_AsyncStress::waitsFromManyThreads()
{
    Record record(s_tasks);
    Async async(Async::Parallel);
    std::atomic<bool> over{false};
    std::vector<std::thread> waiting;
    waiting.reserve(3);
    for (int i = 0; i < 3; ++i) {
        waiting.emplace_back([&] {
            while (!over) {
                async.waitDone();
                std::this_thread::yield();
            }
        });
    }
    for (int i = 0; i < s_tasks / 5; ++i) {
        async.startTask(new Task(async, record, i, false));
    }
    waitUntilIdle(async);
    over = true;
    for (std::thread &thread : waiting) {
        thread.join();
    }
    QVERIFY(!async.isRunning());
}

void tst_AsyncStress::destroyedAtAnyMoment_data()
{
    QTest::addColumn<int>("mode");

    QTest::newRow("sequential") << int(Async::Sequential);
    QTest::newRow("parallel") << int(Async::Parallel);
    QTest::newRow("latest") << int(Async::SequentialLatest);
}

void tst_AsyncStress::destroyedAtAnyMoment()
{
    QFETCH(int, mode);

    constexpr int objects = 1000;
    constexpr int tasks = 10;
    for (int i = 0; i < objects; ++i) {
        Record record(tasks);
        std::vector<std::unique_ptr<Task>> ours;
        {
            Async async(static_cast<Async::Mode>(mode));
            for (int k = 0; k < tasks; ++k) {
                auto task = std::make_unique<Task>(async, record, k, false);
                if (mode == Async::SequentialLatest) {
                    async.startTask(task.release()); // it deletes those that it discards
                } else {
                    task->setAutoDelete(false);
                    async.startTask(task.get());
                    ours.push_back(std::move(task));
                }
            }
            if (mode == Async::SequentialLatest) {
                async.clearQueue(); // what is left behind would be nobody's
            }
        }
        const int left = record.runningNow;
        QCOMPARE(left, 0);
        for (int k = 0; k < tasks; ++k) {
            const int runs = record.runs[static_cast<size_t>(k)];
            QVERIFY(mode == Async::Parallel ? runs == 1 : runs <= 1);
        }
        ours.clear();
        for (int k = 0; k < tasks; ++k) {
            QCOMPARE(record.deletions[static_cast<size_t>(k)].load(), 1);
        }
    }
}

QTEST_GUILESS_MAIN(tst_AsyncStress)

#include "tst_AsyncStress.moc"
