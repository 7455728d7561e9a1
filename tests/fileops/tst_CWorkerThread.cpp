// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CWorkerThread.h"

#include <QSemaphore>
#include <QTest>

#include <atomic>
#include <memory>
#include <vector>

using Tavro::Shared::CWorkerThread;

namespace {

/** Ends as soon as it has begun. */
class ShortThread : public CWorkerThread
{
protected:
    void run() override { }
};

/** Runs until it is let go. */
class HeldThread : public CWorkerThread
{
public:
    QSemaphore letGo;

protected:
    void run() override { letGo.acquire(); }
};

} // namespace

class tst_CWorkerThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObjectHasOnePrivateSlot();
    void startIsPendingUntilTheFirstRun();
    void blockingStartReturnsAfterTheSlotRanInTheNewThread();
    void secondStartReturnsAsSoonAsTheThreadRunsAgain();
    void veryShortRunsDoNotSpinForEver();
    void refusedThreadIsReported();
    void refusedSecondRunIsReported();
    void startWhileRunningReturnsAtOnce();
};

void tst_CWorkerThread::metaObjectHasOnePrivateSlot()
{
    const QMetaObject &meta = CWorkerThread::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod slot = meta.method(meta.methodOffset());
    QCOMPARE(slot.methodSignature(), QByteArray("onThreadStarted()"));
    QCOMPARE(slot.methodType(), QMetaMethod::Slot);
    QCOMPARE(slot.access(), QMetaMethod::Private);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void tst_CWorkerThread::startIsPendingUntilTheFirstRun()
{
    CWorkerThread thread;
    QVERIFY(thread.isThreadStartPending());
    thread.start();
    thread.quit();
    QVERIFY(thread.wait());
    QVERIFY(!thread.isThreadStartPending());
}

void tst_CWorkerThread::blockingStartReturnsAfterTheSlotRanInTheNewThread()
{
    HeldThread thread;
    std::atomic<bool> pendingInSlot{true};
    std::atomic<Qt::HANDLE> startedIn{nullptr};
    // connected after the thread's own slot, so it runs behind it
    connect(
        &thread, &QThread::started, &thread,
        [&] {
            pendingInSlot = thread.isThreadStartPending();
            startedIn = QThread::currentThreadId();
            thread.letGo.release();
        },
        Qt::DirectConnection);
    QVERIFY(thread.blockingStart());
    QVERIFY(!thread.isThreadStartPending());
    QVERIFY(thread.wait());
    QVERIFY(!pendingInSlot);
    QVERIFY(startedIn);
    QVERIFY(startedIn != QThread::currentThreadId());
}

void tst_CWorkerThread::secondStartReturnsAsSoonAsTheThreadRunsAgain()
{
    HeldThread thread;
    thread.letGo.release();
    QVERIFY(thread.blockingStart());
    QVERIFY(thread.wait());

    QVERIFY(thread.blockingStart());
    QVERIFY(thread.isRunning());
    QVERIFY(!thread.isThreadStartPending());
    thread.letGo.release();
    QVERIFY(thread.wait());
}

void tst_CWorkerThread::veryShortRunsDoNotSpinForEver()
{
    // all kept to the end: the thread sanitizer cannot see how QThread::wait() orders the end of
    // a thread before the reuse of its memory
    std::vector<std::unique_ptr<ShortThread>> threads;
    for (int i = 0; i < 2000; ++i) {
        threads.push_back(std::make_unique<ShortThread>());
        ShortThread &thread = *threads.back();
        QVERIFY(thread.blockingStart());
        QVERIFY(thread.blockingStart()); // may meet the first run at its end, or after it
        QVERIFY(thread.wait());
    }
}

void tst_CWorkerThread::refusedThreadIsReported()
{
    CWorkerThread thread;
    thread.setStackSize(1); // below what the system grants a thread
    QTest::ignoreMessage(QtCriticalMsg,
                         "QThread::start: Thread stack size error (Invalid argument)");
    QVERIFY(!thread.blockingStart());
    QVERIFY(thread.isThreadStartPending());
}

void tst_CWorkerThread::refusedSecondRunIsReported()
{
    ShortThread thread;
    QVERIFY(thread.blockingStart());
    QVERIFY(thread.wait());
    thread.setStackSize(1);
    QTest::ignoreMessage(QtCriticalMsg,
                         "QThread::start: Thread stack size error (Invalid argument)");
    QVERIFY(!thread.blockingStart());
}

void tst_CWorkerThread::startWhileRunningReturnsAtOnce()
{
    HeldThread thread;
    QVERIFY(thread.blockingStart());
    QVERIFY(thread.blockingStart());
    thread.letGo.release();
    QVERIFY(thread.wait());
}

QTEST_GUILESS_MAIN(tst_CWorkerThread)

#include "tst_CWorkerThread.moc"
