// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/Async.h"
#include "tests/support/FaultInjection.h"

#include <QRunnable>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <cerrno>
#include <functional>
#include <memory>

using Tavro::Shared::Async;
using Test::FaultInjection::Call;

namespace Faults = Test::FaultInjection;

namespace {

constexpr int s_patience = 60'000; // ms

class Task : public QRunnable
{
public:
    explicit Task(std::function<void()> work, std::shared_ptr<int> token = {})
        : m_work(std::move(work))
        , m_token(std::move(token))
    {
    }
    void run() override { m_work(); }

private:
    std::function<void()> m_work;
    std::shared_ptr<int> m_token; // goes with the task
};

// each attempt says so
void expectRefusals(int times)
{
    for (int i = 0; i < times; ++i) {
        QTest::ignoreMessage(
            QtCriticalMsg,
            "QThread::start: Thread creation error (Resource temporarily unavailable)");
    }
}

} // namespace

/**
 * What becomes of tasks where the system creates no thread. The threads of the pool stay for as
 * long as the program, so the functions build on each other: there is none at first.
 */
class tst_AsyncFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void callerRunsTheTask_data();
    void callerRunsTheTask();
    void tasksOfAQueueStayInOrder();
    void taskThatFinishesElsewhereHasTheNextOneRun();
    void resultIsHeard();
    void firstThreadRunsWhatGetsNoneOfItsOwn();

private:
    void refuseThreads(int attempts)
    {
        expectRefusals(attempts);
        Faults::watch(m_folder.path());
        Faults::failFrom(Call::CreateThread, 1, EAGAIN);
    }

    QTemporaryDir m_folder;
};

void tst_AsyncFaults::initTestCase()
{
    QVERIFY(m_folder.isValid());
}

void tst_AsyncFaults::cleanup()
{
    Faults::stop();
}

void tst_AsyncFaults::callerRunsTheTask_data()
{
    QTest::addColumn<int>("mode");

    QTest::newRow("Sequential") << int(Async::Sequential);
    QTest::newRow("Parallel") << int(Async::Parallel);
    QTest::newRow("SequentialLatest") << int(Async::SequentialLatest);
}

void tst_AsyncFaults::callerRunsTheTask()
{
    QFETCH(int, mode);
    const auto token = std::make_shared<int>(0);
    QThread *ranIn = nullptr;
    refuseThreads(1);
    {
        Async async(static_cast<Async::Mode>(mode));
        async.startTask(new Task(
            [&async, &ranIn] {
                ranIn = QThread::currentThread();
                async.startNext();
            },
            token));
        QVERIFY(Faults::hasStruck());
        QVERIFY(!async.isRunning());
        async.waitDone();
    }
    QCOMPARE(ranIn, QThread::currentThread());
    QCOMPARE(token.use_count(), 1L);
}

// started by the one before, from a slot, by itself
void tst_AsyncFaults::tasksOfAQueueStayInOrder()
{
    QStringList journal;
    refuseThreads(3);
    Async async(Async::Sequential);
    const auto task = [&async, &journal](const char *name) {
        return new Task([&async, &journal, name] {
            journal << QString::fromLatin1(name);
            Q_EMIT async.taskDone();
            async.startNext();
            journal << QString::fromLatin1(name) + QStringLiteral(" over");
        });
    };
    connect(&async, qOverload<>(&Async::taskDone), &async, [&] {
        if (journal.size() == 1) {
            async.startTask(task("2"));
            async.startTask(task("3"));
        }
    });
    async.startTask(task("1"));
    QCOMPARE(journal.join(QLatin1Char(',')), QStringLiteral("1,1 over,2,2 over,3,3 over"));
    QVERIFY(!async.isRunning());
}

void tst_AsyncFaults::taskThatFinishesElsewhereHasTheNextOneRun()
{
    bool hasRun = false;
    refuseThreads(2);
    Async async(Async::Sequential);
    async.startTask(new Task([] {}));
    async.startTask(new Task([&] {
        hasRun = true;
        async.startNext();
    }));
    QVERIFY(async.isRunning());
    QVERIFY(!hasRun);
    async.startNext(); // what the first has left out
    QVERIFY(hasRun);
    QVERIFY(!async.isRunning());
}

void tst_AsyncFaults::resultIsHeard()
{
    QList<bool> results;
    refuseThreads(1);
    Async async(Async::Parallel);
    connect(&async, qOverload<const bool &>(&Async::taskDone), this,
            [&results](bool result) { results << result; });
    async.startTask(new Task([&async] {
        Q_EMIT async.taskDone(true);
        async.startNext();
    }));
    QCOMPARE(results, QList<bool>{true});
}

void tst_AsyncFaults::firstThreadRunsWhatGetsNoneOfItsOwn()
{
    QSemaphore begun;
    QSemaphore letGo;
    QThread *ranIn[2] = {};
    Async async(Async::Parallel);
    const auto task = [&](int number) {
        return new Task([&, number] {
            ranIn[number] = QThread::currentThread();
            begun.release();
            letGo.acquire();
            async.startNext();
        });
    };
    async.startTask(task(0));
    QVERIFY(begun.tryAcquire(1, s_patience));
    refuseThreads(1);
    async.startTask(task(1));
    QVERIFY(Faults::hasStruck());
    QVERIFY(!ranIn[1]); // the caller was not kept
    letGo.release(2);
    while (async.isRunning()) {
        async.waitDone();
    }
    QVERIFY(ranIn[0] != QThread::currentThread());
    QCOMPARE(ranIn[1], ranIn[0]);
}

QTEST_GUILESS_MAIN(tst_AsyncFaults)

#include "tst_AsyncFaults.moc"
