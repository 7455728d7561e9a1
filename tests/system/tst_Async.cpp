// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/Async.h"

#include <QPointer>
#include <QRunnable>
#include <QScopedPointer>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <type_traits>
#include <vector>

using Tavro::Shared::Async;

// the host's results, as a host defines them
class Tavro::Database::SqlResult
{
public:
    int rows = 0;
};
class LoadObservationDataResult
{
public:
    int loaded = 0;
};
class RemoveObservationDataResult
{
public:
    int removed = 0;
};
Q_DECLARE_METATYPE(Tavro::Database::SqlResult)
Q_DECLARE_METATYPE(LoadObservationDataResult)
Q_DECLARE_METATYPE(RemoveObservationDataResult)

namespace {

constexpr int s_patience = 60'000; // ms
constexpr int s_poolThreads = 8;

/** What the tasks of a test do, in the order in which they do it. */
class Journal
{
public:
    void append(const QString &line)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_lines.append(line);
    }
    QStringList lines() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_lines;
    }

private:
    mutable std::mutex m_mutex;
    QStringList m_lines;
};

/** Begins, is held until it is let go, finishes. */
class Task : public QRunnable
{
public:
    Task(Async &async, Journal &journal, const char *name)
        : m_async(async)
        , m_journal(journal)
        , m_name(QString::fromLatin1(name))
    {
    }
    ~Task() override { m_journal.append(m_name + QStringLiteral(" deleted")); }

    void run() override
    {
        m_journal.append(m_name + QStringLiteral(" runs"));
        if (m_begun) {
            m_begun->release();
        }
        if (m_letGo) {
            m_letGo->acquire();
        }
        m_async.startNext();
        if (m_afterwards) {
            m_afterwards();
        }
    }

    Task *tells(QSemaphore &begun)
    {
        m_begun = &begun;
        return this;
    }
    Task *heldBy(QSemaphore &letGo)
    {
        m_letGo = &letGo;
        return this;
    }
    Task *then(std::function<void()> afterwards)
    {
        m_afterwards = std::move(afterwards);
        return this;
    }
    Task *kept()
    {
        setAutoDelete(false);
        return this;
    }

private:
    Async &m_async;
    Journal &m_journal;
    QString m_name;
    QSemaphore *m_begun = nullptr;
    QSemaphore *m_letGo = nullptr;
    std::function<void()> m_afterwards;
};

QStringList list(std::initializer_list<const char *> lines)
{
    QStringList result;
    for (const char *line : lines) {
        result.append(QString::fromLatin1(line));
    }
    return result;
}

// until nothing runs and what has run is deleted
void waitUntilIdle(std::unique_ptr<Async> &async)
{
    while (async->isRunning()) {
        async->waitDone();
    }
    async.reset();
}

constexpr auto s_unknownMode = static_cast<Async::Mode>(7);

} // namespace

Q_DECLARE_METATYPE(Async::Mode)

class tst_Async : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void metaObjectStandsInOrder();
    void modesHaveTheirNumbers();
    void queueModes_data();
    void queueModes();
    void startsIdle_data();
    void startsIdle();

    void sequentialRunsOneAfterTheOther();
    void sequentialStartsAtOnceWhenIdle();
    void parallelRunsAtOnce();
    void allObjectsShareEightThreads();
    void thePoolIsNotTheGlobalOne();
    void latestDiscardsWhatWaits();
    void latestStartsAtOnceWhenIdle();
    void latestStartsWhatIsNewWhenTheRunningOneEndsMeanwhile();
    void discardedTasksAreDeletedEitherWay();
    void unknownModeLeavesTheTaskAlone();

    void runInThreadDoesNotQueue();
    void aQueuedTaskStartsWhenToldTo();
    void theOldestIsStartedFirst();
    void anEmptyQueueStartsNothing();
    void clearQueueDeletesWhatWaits();
    void parallelFinishesWithoutTheQueue();
    void objectsDoNotShareTheirQueues();
    void aNullTaskIsPassedOver_data();
    void aNullTaskIsPassedOver();
    void aNullTaskBetweenOthersChangesNothing_data();
    void aNullTaskBetweenOthersChangesNothing();
    void aNullTaskDiscardsWhatWaits();

    void tasksThatDeleteThemselvesAreDeletedAfterTheirRun();
    void otherTasksStayAndCanRunAgain();

    void isRunningUntilEveryTaskHasFinished();
    void oneFinishTooManyCountsAsRunning();
    void waitDoneReturnsAtOnceWhenIdle_data() { startsIdle_data(); }
    void waitDoneReturnsAtOnceWhenIdle();
    void waitDoneOutlastsTheOnlyTask();
    void waitDoneReturnsAfterTheNextTask();
    void waitDoneDoesNotWaitForTheQueue();
    void waitDoneWakesEverybody();

    void resultsReachTheOwnersThread();
    void deletesItselfOnlyWhenAllowed();
    void deletesItselfOnTheOwnersThread();

    void destructorWaitsForEveryTask();
    void destructorStartsAndDeletesNothingOfTheQueue();
    void destructorWaitsForATaskThatFinishesElsewhere();
    void destructorWaitsUntilNoTaskCanCall();

private:
    std::unique_ptr<Async> m_async;
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<QSemaphore> m_begun;
    std::unique_ptr<QSemaphore> m_letGo;

    void make(Async::Mode mode) { m_async = std::make_unique<Async>(mode); }
    Task *task(const char *name) { return new Task(*m_async, *m_journal, name); }
    Task *heldTask(const char *name) { return task(name)->tells(*m_begun)->heldBy(*m_letGo); }
    // whether waitDone() returns after the end of one task, others still running
    bool waitEndsWhile(const std::function<void()> &finishOne);
    bool haveBegun(int n) { return m_begun->tryAcquire(n, s_patience); }
};

void tst_Async::init()
{
    m_journal = std::make_unique<Journal>();
    m_begun = std::make_unique<QSemaphore>();
    m_letGo = std::make_unique<QSemaphore>();
}

void tst_Async::cleanup()
{
    m_letGo->release(1000); // so that a test that has failed ends
    m_async.reset();
}

void tst_Async::metaObjectStandsInOrder()
{
    const QMetaObject &meta = Async::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::Async");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    const char *signatures[] = {
        "taskDone()",
        "taskDone(bool)",
        "taskDone(Tavro::Database::SqlResult)",
        "taskDone(LoadObservationDataResult)",
        "taskDone(RemoveObservationDataResult)",
    };
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 5);
    for (int i = 0; i < 5; ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), QByteArray(signatures[i]));
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
    }
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_Async::modesHaveTheirNumbers()
{
    static_assert(std::is_same_v<std::underlying_type_t<Async::Mode>, int>);
    QCOMPARE(int(Async::Sequential), 0);
    QCOMPARE(int(Async::Parallel), 1);
    QCOMPARE(int(Async::SequentialLatest), 2);
}

void tst_Async::queueModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("queues");

    QTest::newRow("sequential") << 0 << true;
    QTest::newRow("parallel") << 1 << false;
    QTest::newRow("latest") << 2 << true;
    QTest::newRow("the next number") << 3 << false;
    QTest::newRow("a negative number") << -1 << false;
    QTest::newRow("a large number") << 0x7FFFFFFF << false;
}

void tst_Async::queueModes()
{
    QFETCH(int, mode);
    QFETCH(bool, queues);

    QCOMPARE(Async::isQueueMode(static_cast<Async::Mode>(mode)), queues);
}

void tst_Async::startsIdle_data()
{
    QTest::addColumn<Async::Mode>("mode");

    QTest::newRow("sequential") << Async::Sequential;
    QTest::newRow("parallel") << Async::Parallel;
    QTest::newRow("latest") << Async::SequentialLatest;
    QTest::newRow("unknown") << s_unknownMode;
}

void tst_Async::startsIdle()
{
    QFETCH(Async::Mode, mode);

    make(mode);
    QVERIFY(!m_async->parent());
    QVERIFY(!m_async->isRunning());
}

void tst_Async::sequentialRunsOneAfterTheOther()
{
    make(Async::Sequential);
    m_async->startTask(heldTask("1"));
    m_async->startTask(heldTask("2"));
    m_async->startTask(heldTask("3"));

    for (int i = 0; i < 3; ++i) {
        QVERIFY(haveBegun(1));
        QCOMPARE(m_begun->available(), 0);
        QVERIFY(m_async->isRunning());
        m_letGo->release();
    }
    waitUntilIdle(m_async);

    const QStringList lines = m_journal->lines();
    QCOMPARE(lines.filter(QStringLiteral("runs")), list({"1 runs", "2 runs", "3 runs"}));
}

void tst_Async::sequentialStartsAtOnceWhenIdle()
{
    make(Async::Sequential);
    for (int i = 0; i < 3; ++i) {
        m_async->startTask(heldTask("again"));
        QVERIFY(haveBegun(1));
        m_letGo->release();
        m_async->waitDone();
        QVERIFY(!m_async->isRunning());
    }
}

void tst_Async::parallelRunsAtOnce()
{
    make(Async::Parallel);
    for (int i = 0; i < s_poolThreads; ++i) {
        m_async->startTask(heldTask("one of many"));
    }
    QVERIFY(haveBegun(s_poolThreads)); // none has been let go
    m_letGo->release(s_poolThreads);
}

void tst_Async::allObjectsShareEightThreads()
{
    Async first(Async::Parallel);
    Async second(Async::Parallel);
    constexpr int all = 3 * s_poolThreads;
    std::atomic<int> running{0};
    std::atomic<int> most{0};
    class CountingTask : public QRunnable
    {
    public:
        std::function<void()> work;
        void run() override { work(); }
    };
    for (int i = 0; i < all; ++i) {
        Async &async = i % 2 ? first : second;
        auto *counting = new CountingTask;
        counting->work = [this, &async, &running, &most] {
            const int now = ++running;
            int before = most;
            while (before < now && !most.compare_exchange_weak(before, now)) { }
            m_begun->release();
            m_letGo->acquire();
            --running;
            async.startNext();
        };
        async.startTask(counting);
    }
    // each one let go makes room for the next
    QVERIFY(haveBegun(s_poolThreads));
    for (int i = s_poolThreads; i < all; ++i) {
        m_letGo->release();
        QVERIFY(haveBegun(1));
    }
    m_letGo->release(s_poolThreads);
    while (first.isRunning() || second.isRunning()) {
        first.waitDone();
        second.waitDone();
    }
    QCOMPARE(most.load(), s_poolThreads);
}

void tst_Async::thePoolIsNotTheGlobalOne()
{
    make(Async::Parallel);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
    m_letGo->release();
}

void tst_Async::latestDiscardsWhatWaits()
{
    make(Async::SequentialLatest);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    m_async->startTask(task("2"));
    QCOMPARE(m_journal->lines(), list({"1 runs"}));
    m_async->startTask(task("3"));
    QCOMPARE(m_journal->lines(), list({"1 runs", "2 deleted"}));
    m_letGo->release();
    waitUntilIdle(m_async);

    const QStringList lines = m_journal->lines();
    QCOMPARE(lines.filter(QStringLiteral("runs")), list({"1 runs", "3 runs"}));
    QCOMPARE(lines.count(QStringLiteral("2 deleted")), 1);
    QCOMPARE(lines.size(), 5);
}

void tst_Async::latestStartsAtOnceWhenIdle()
{
    make(Async::SequentialLatest);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    m_letGo->release();
    waitUntilIdle(m_async);
    QCOMPARE(m_journal->lines(), list({"1 runs", "1 deleted"}));
}

void tst_Async::latestStartsWhatIsNewWhenTheRunningOneEndsMeanwhile()
{
    // the task that is discarded takes so long to go that nothing runs any more
    class LingeringTask : public QRunnable
    {
    public:
        explicit LingeringTask(std::function<void()> farewell)
            : m_farewell(std::move(farewell))
        {
        }
        ~LingeringTask() override { m_farewell(); }
        void run() override { }

    private:
        std::function<void()> m_farewell;
    };
    make(Async::SequentialLatest);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    m_async->startTask(new LingeringTask([this] {
        m_letGo->release();
        m_async->waitDone();
    }));
    m_async->startTask(task("3"));
    waitUntilIdle(m_async);
    QCOMPARE(m_journal->lines().filter(QStringLiteral("runs")), list({"1 runs", "3 runs"}));
}

void tst_Async::discardedTasksAreDeletedEitherWay()
{
    make(Async::SequentialLatest);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    m_async->startTask(task("2")->kept());
    m_async->startTask(task("3"));
    QCOMPARE(m_journal->lines(), list({"1 runs", "2 deleted"}));
    m_letGo->release();
    waitUntilIdle(m_async); // else the end may come before the third, which then is nobody's
}

void tst_Async::unknownModeLeavesTheTaskAlone()
{
    make(s_unknownMode);
    const std::unique_ptr<Task> ours(task("1"));
    m_async->startTask(ours.get());
    QVERIFY(!m_async->isRunning());
    // neither started nor queued
    m_async->startFromQueue();
    QVERIFY(!m_async->isRunning());
    m_async->clearQueue();
    m_async.reset();
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_Async::runInThreadDoesNotQueue()
{
    make(Async::Sequential);
    m_async->startTask(heldTask("1"));
    m_async->runInThread(heldTask("2"));
    QVERIFY(haveBegun(2));
    m_letGo->release(2);
}

void tst_Async::aQueuedTaskStartsWhenToldTo()
{
    make(Async::Parallel);
    m_async->addToQueue(heldTask("1"));
    QVERIFY(!m_async->isRunning());
    m_async->startFromQueue();
    QVERIFY(m_async->isRunning());
    QVERIFY(haveBegun(1));
    m_letGo->release();
}

void tst_Async::theOldestIsStartedFirst()
{
    make(Async::Sequential);
    m_async->addToQueue(task("1"));
    m_async->addToQueue(task("2"));
    m_async->addToQueue(task("3"));
    m_async->startFromQueue();
    waitUntilIdle(m_async);
    QCOMPARE(m_journal->lines().filter(QStringLiteral("runs")),
             list({"1 runs", "2 runs", "3 runs"}));
}

void tst_Async::anEmptyQueueStartsNothing()
{
    make(Async::Sequential);
    m_async->startFromQueue();
    QVERIFY(!m_async->isRunning());
}

void tst_Async::clearQueueDeletesWhatWaits()
{
    make(Async::Sequential);
    m_async->addToQueue(task("1"));
    m_async->addToQueue(nullptr);
    m_async->addToQueue(task("2")->kept());
    m_async->clearQueue();
    QCOMPARE(m_journal->lines(), list({"1 deleted", "2 deleted"}));
    m_async->clearQueue();
    m_async->startFromQueue();
    QVERIFY(!m_async->isRunning());
}

void tst_Async::parallelFinishesWithoutTheQueue()
{
    make(Async::Parallel);
    m_async->addToQueue(task("waiting"));
    m_async->startTask(task("1"));
    m_async->waitDone();
    QVERIFY(!m_async->isRunning());
    m_async->clearQueue();
    QVERIFY(m_journal->lines().contains(QStringLiteral("waiting deleted")));
    QVERIFY(!m_journal->lines().contains(QStringLiteral("waiting runs")));
}

void tst_Async::objectsDoNotShareTheirQueues()
{
    make(Async::Sequential);
    m_async->startTask(heldTask("1"));
    Async other(Async::Sequential);
    other.startTask((new Task(other, *m_journal, "2"))->tells(*m_begun));
    QVERIFY(haveBegun(2)); // although the first is held
    m_letGo->release();
}

void tst_Async::aNullTaskIsPassedOver_data()
{
    QTest::addColumn<Async::Mode>("mode");

    QTest::newRow("Sequential") << Async::Sequential;
    QTest::newRow("Parallel") << Async::Parallel;
    QTest::newRow("SequentialLatest") << Async::SequentialLatest;
    QTest::newRow("unknown") << s_unknownMode;
}

void tst_Async::aNullTaskIsPassedOver()
{
    QFETCH(Async::Mode, mode);
    make(mode);
    m_async->startTask(nullptr);
    QVERIFY(!m_async->isRunning());
    m_async->runInThread(nullptr);
    QVERIFY(!m_async->isRunning());
    m_async->addToQueue(nullptr);
    m_async->startFromQueue();
    QVERIFY(!m_async->isRunning());
    m_async->waitDone(); // returns

    // what comes behind it in the queue is the oldest
    m_async->addToQueue(nullptr);
    m_async->addToQueue(task("1"));
    m_async->startFromQueue();
    waitUntilIdle(m_async);
    QCOMPARE(m_journal->lines(), list({"1 runs", "1 deleted"}));
}

void tst_Async::aNullTaskBetweenOthersChangesNothing_data()
{
    QTest::addColumn<Async::Mode>("mode");

    QTest::newRow("Sequential") << Async::Sequential;
    QTest::newRow("Parallel") << Async::Parallel;
}

void tst_Async::aNullTaskBetweenOthersChangesNothing()
{
    QFETCH(Async::Mode, mode);
    make(mode);
    m_async->startTask(nullptr);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    m_async->startTask(nullptr); // does not run beside the first, nor does it wait behind it
    m_async->startTask(heldTask("2"));
    m_async->startTask(nullptr);
    QCOMPARE(m_begun->tryAcquire(1, mode == Async::Parallel ? s_patience : 0),
             mode == Async::Parallel);
    m_letGo->release(2);
    waitUntilIdle(m_async); // not for good: each task was counted once, and no other
    QStringList lines = m_journal->lines();
    if (mode == Async::Parallel) {
        lines.sort();
        QCOMPARE(lines, list({"1 deleted", "1 runs", "2 deleted", "2 runs"}));
    } else {
        QCOMPARE(lines.filter(QStringLiteral("runs")), list({"1 runs", "2 runs"}));
    }
}

void tst_Async::aNullTaskDiscardsWhatWaits()
{
    make(Async::SequentialLatest);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    m_async->startTask(task("2"));
    m_async->startTask(nullptr);
    QCOMPARE(m_journal->lines(), list({"1 runs", "2 deleted"}));
    m_letGo->release();
    waitUntilIdle(m_async);
    QCOMPARE(m_journal->lines(), list({"1 runs", "2 deleted", "1 deleted"}));
}

void tst_Async::tasksThatDeleteThemselvesAreDeletedAfterTheirRun()
{
    make(Async::Parallel);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    QCOMPARE(m_journal->lines(), list({"1 runs"}));
    m_letGo->release();
    m_async.reset();
    QCOMPARE(m_journal->lines(), list({"1 runs", "1 deleted"}));
}

void tst_Async::otherTasksStayAndCanRunAgain()
{
    make(Async::Sequential);
    const std::unique_ptr<Task> ours(task("1")->kept());
    for (int i = 0; i < 3; ++i) {
        m_async->startTask(ours.get());
    }
    waitUntilIdle(m_async);
    QCOMPARE(m_journal->lines(), list({"1 runs", "1 runs", "1 runs"}));
}

void tst_Async::isRunningUntilEveryTaskHasFinished()
{
    make(Async::Parallel);
    QSemaphore finished;
    QSemaphore letGoOther;
    m_async->startTask(heldTask("1")->then([&] { finished.release(); }));
    m_async->startTask(task("2")->heldBy(letGoOther)->then([&] { finished.release(); }));
    QVERIFY(m_async->isRunning());
    m_letGo->release();
    QVERIFY(finished.tryAcquire(1, s_patience));
    QVERIFY(m_async->isRunning());
    letGoOther.release();
    QVERIFY(finished.tryAcquire(1, s_patience));
    QVERIFY(!m_async->isRunning());
    m_async.reset(); // the tasks still refer to what is local here
}

void tst_Async::oneFinishTooManyCountsAsRunning()
{
    make(Async::Parallel);
    m_async->startNext();
    // "not none" is running, "at least one" is waited for
    QVERIFY(m_async->isRunning());
    m_async->waitDone();
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    QVERIFY(!m_async->isRunning());
    m_letGo->release();
}

void tst_Async::waitDoneReturnsAtOnceWhenIdle()
{
    QFETCH(Async::Mode, mode);

    make(mode);
    m_async->waitDone();
    m_async->addToQueue(task("waiting"));
    m_async->waitDone();
    m_async->clearQueue();
}

void tst_Async::waitDoneOutlastsTheOnlyTask()
{
    make(Async::Parallel);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    std::atomic<bool> isLetGo{false};
    std::thread host([this, &isLetGo] {
        QThread::msleep(50); // a wait that ends at once has ended by now
        isLetGo = true;
        m_letGo->release();
    });
    m_async->waitDone();
    const bool wasLetGo = isLetGo;
    host.join();
    QVERIFY(wasLetGo);
}

bool tst_Async::waitEndsWhile(const std::function<void()> &finishOne)
{
    QSemaphore returned;
    std::thread waiting([&] {
        m_async->waitDone();
        returned.release();
    });
    // nobody sees when it has begun to wait: it may be the second task, or a later one, that it
    // takes for the next
    bool ended = false;
    for (int i = 0; i < s_patience / 10 && !ended; ++i) {
        finishOne();
        ended = returned.tryAcquire(1, 10);
    }
    const bool othersRun = m_async->isRunning();
    m_letGo->release(1000);
    waiting.join();
    return ended && othersRun;
}

void tst_Async::waitDoneReturnsAfterTheNextTask()
{
    make(Async::Parallel);
    m_async->startTask(heldTask("held throughout"));
    QVERIFY(haveBegun(1));
    QVERIFY(waitEndsWhile([this] { m_async->startTask(task("short")); }));
}

void tst_Async::waitDoneDoesNotWaitForTheQueue()
{
    make(Async::Sequential);
    m_async->startTask(heldTask("the first"));
    QVERIFY(waitEndsWhile([this] {
        m_async->startTask(heldTask("always one more")); // than are let go
        m_letGo->release();
    }));
    m_letGo->release(1000);
    waitUntilIdle(m_async);
}

void tst_Async::waitDoneWakesEverybody()
{
    make(Async::Parallel);
    m_async->startTask(heldTask("1"));
    QVERIFY(haveBegun(1));
    QSemaphore aboutToWait;
    std::vector<std::thread> waiting;
    waiting.reserve(5);
    for (int i = 0; i < 5; ++i) {
        waiting.emplace_back([&] {
            aboutToWait.release();
            m_async->waitDone();
        });
    }
    aboutToWait.acquire(5);
    QTest::qWait(20); // most of them wait by now; a late one finds nothing running
    m_letGo->release();
    for (std::thread &thread : waiting) {
        thread.join();
    }
    QVERIFY(!m_async->isRunning());
}

void tst_Async::resultsReachTheOwnersThread()
{
    qRegisterMetaType<Tavro::Database::SqlResult>();
    qRegisterMetaType<LoadObservationDataResult>();
    qRegisterMetaType<RemoveObservationDataResult>();
    make(Async::Parallel);
    QStringList heard;
    const auto note = [&heard](const QString &line) {
        QVERIFY(QThread::currentThread() == QCoreApplication::instance()->thread());
        heard.append(line);
    };
    const QObject context;
    Async *async = m_async.get();
    connect(async, qOverload<>(&Async::taskDone), &context,
            [note] { note(QStringLiteral("done")); });
    connect(async, qOverload<const bool &>(&Async::taskDone), &context,
            [note](bool result) { note(QStringLiteral("bool %1").arg(result)); });
    connect(async, qOverload<const Tavro::Database::SqlResult &>(&Async::taskDone), &context,
            [note](const Tavro::Database::SqlResult &result) {
                note(QStringLiteral("rows %1").arg(result.rows));
            });
    connect(async, qOverload<const LoadObservationDataResult &>(&Async::taskDone), &context,
            [note](const LoadObservationDataResult &result) {
                note(QStringLiteral("loaded %1").arg(result.loaded));
            });
    connect(async, qOverload<const RemoveObservationDataResult &>(&Async::taskDone), &context,
            [note](const RemoveObservationDataResult &result) {
                note(QStringLiteral("removed %1").arg(result.removed));
            });

    m_async->startTask(task("1")->then([async] {
        Q_EMIT async->taskDone();
        Q_EMIT async->taskDone(true);
        Tavro::Database::SqlResult rows;
        rows.rows = 2;
        Q_EMIT async->taskDone(rows);
        LoadObservationDataResult loaded;
        loaded.loaded = 3;
        Q_EMIT async->taskDone(loaded);
        RemoveObservationDataResult removed;
        removed.removed = 4;
        Q_EMIT async->taskDone(removed);
    }));
    QTRY_COMPARE_WITH_TIMEOUT(heard, list({"done", "bool 1", "rows 2", "loaded 3", "removed 4"}),
                              s_patience);
}

void tst_Async::deletesItselfOnlyWhenAllowed()
{
    const QPointer<Async> async(new Async(Async::Parallel));
    async->asyncDeleteLater();
    async->setDeleteLater(true);
    async->setDeleteLater(false);
    async->asyncDeleteLater();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(async);
    async->setDeleteLater(true);
    async->asyncDeleteLater();
    QVERIFY(async);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!async);
}

void tst_Async::deletesItselfOnTheOwnersThread()
{
    auto *async = new Async(Async::Sequential);
    const auto deletedBy = std::make_shared<std::atomic<QThread *>>(nullptr);
    connect(
        async, &QObject::destroyed, async, [deletedBy] { *deletedBy = QThread::currentThread(); },
        Qt::DirectConnection);
    async->setDeleteLater(true);
    async->startTask(
        (new Task(*async, *m_journal, "1"))->then([async] { async->asyncDeleteLater(); }));
    QTRY_COMPARE_WITH_TIMEOUT(deletedBy->load(), QThread::currentThread(), s_patience);
    QCOMPARE(m_journal->lines(), list({"1 runs", "1 deleted"}));
}

void tst_Async::destructorWaitsForEveryTask()
{
    make(Async::Parallel);
    // more than there are threads: the last ones have not begun yet
    constexpr int all = 2 * s_poolThreads;
    for (int i = 0; i < all; ++i) {
        m_async->startTask(heldTask("1"));
    }
    QVERIFY(haveBegun(s_poolThreads));
    QSemaphore destroyed;
    std::thread destroyer([&] {
        m_async.reset();
        destroyed.release();
    });
    m_letGo->release(all - 1);
    const bool early = destroyed.tryAcquire(1, 100);
    m_letGo->release();
    destroyer.join();
    QVERIFY(!early);
    QCOMPARE(m_journal->lines().count(QStringLiteral("1 runs")), all);
    QCOMPARE(m_journal->lines().count(QStringLiteral("1 deleted")), all);
}

void tst_Async::destructorStartsAndDeletesNothingOfTheQueue()
{
    // nobody sees when the destructor has begun; where it comes too late, the second task rightly
    // starts, and it is tried again
    bool startedNothing = false;
    for (int delay = 10; delay <= 10'000 && !startedNothing; delay *= 3) {
        m_journal = std::make_unique<Journal>();
        make(Async::Sequential);
        const std::unique_ptr<Task> first(heldTask("1")->kept());
        const std::unique_ptr<Task> second(task("2")->kept());
        m_async->startTask(first.get());
        m_async->startTask(second.get());
        QVERIFY(haveBegun(1));
        QSemaphore aboutToDestroy;
        std::thread destroyer([&] {
            aboutToDestroy.release();
            m_async.reset();
        });
        aboutToDestroy.acquire();
        QTest::qWait(delay);
        m_letGo->release();
        destroyer.join();
        startedNothing = m_journal->lines() == list({"1 runs"}); // and has deleted nothing
    }
    QVERIFY(startedNothing);
}

void tst_Async::destructorWaitsForATaskThatFinishesElsewhere()
{
    class LeavingTask : public QRunnable
    {
    public:
        void run() override { }
    };
    make(Async::Parallel);
    Async *async = m_async.get();
    m_async->startTask(new LeavingTask);
    QSemaphore destroyed;
    std::thread destroyer([&] {
        m_async.reset();
        destroyed.release();
    });
    const bool early = destroyed.tryAcquire(1, 100);
    if (!early) {
        async->startNext();
    }
    destroyer.join();
    QVERIFY(!early);
}

void tst_Async::destructorWaitsUntilNoTaskCanCall()
{
    make(Async::Parallel);
    QSemaphore finished;
    Async *async = m_async.get();
    m_async->startTask(task("1")->then([&, async] {
        finished.release();
        m_letGo->acquire();
        async->asyncDeleteLater();
    }));
    finished.acquire();
    QVERIFY(!m_async->isRunning());
    QSemaphore destroyed;
    std::thread destroyer([&] {
        m_async.reset();
        destroyed.release();
    });
    const bool early = destroyed.tryAcquire(1, 100);
    m_letGo->release();
    destroyer.join();
    QVERIFY(!early);
    QCOMPARE(m_journal->lines(), list({"1 runs", "1 deleted"}));
}

QTEST_GUILESS_MAIN(tst_Async)

#include "tst_Async.moc"
