// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/ReportQueue.h"

#include <QEventLoop>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

using namespace std::chrono_literals;
using Tavro::Shared::detail::ReportQueue;

namespace {

/** Counts how often its thread is woken for it. */
class Receiver : public QObject
{
public:
    int wakeUps() const { return m_wakeUps; }

    bool event(QEvent *event) override
    {
        m_wakeUps += event->type() == QEvent::MetaCall ? 1 : 0;
        return QObject::event(event);
    }

private:
    int m_wakeUps = 0;
};

void inAnotherThread(const std::function<void()> &function)
{
    std::thread thread(function);
    thread.join();
}

} // namespace

class tst_ReportQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyReportArrivesInOrder();
    void manyReportsWakeTheReceiverFewTimes();
    void reportInTheReceivingThreadIsDeliveredAtOnce();
    void urgentReportWaitsForTheEventLoopAndForWhatCameBefore();
    void reportAfterAPauseIsDelivered();
    void reportThatFollowsNoneAtOnceDoesNotWaitForTheClock();
    void nestedEventLoopGoesOnWithTheNextReport();
    void nothingIsDeliveredAfterClose();
    void receiverMayGoInTheMiddle();
};

void tst_ReportQueue::everyReportArrivesInOrder()
{
    Receiver receiver;
    const auto queue = ReportQueue::create(&receiver);
    QList<int> seen;
    QThread *seenIn = nullptr;
    std::thread worker([&] {
        for (int i = 0; i < 20000; ++i) {
            queue->report([&, i] {
                seen.append(i);
                seenIn = QThread::currentThread();
            });
        }
    });
    QTRY_COMPARE_WITH_TIMEOUT(seen.size(), 20000, 30000);
    worker.join();
    for (int i = 0; i < seen.size(); ++i) {
        QCOMPARE(seen.at(i), i);
    }
    QCOMPARE(seenIn, QThread::currentThread());
}

void tst_ReportQueue::manyReportsWakeTheReceiverFewTimes()
{
    Receiver receiver;
    const auto queue = ReportQueue::create(&receiver);
    int seen = 0;
    int slow = 0; // reports that may have followed none for a while, as the machine was busy
    QSemaphore step;
    QSemaphore reported;
    const auto begin = std::chrono::steady_clock::now();
    std::thread worker([&] {
        auto last = begin - 1s;
        for (int i = 0; i < 1000; ++i) {
            step.acquire();
            const auto before = std::chrono::steady_clock::now();
            queue->report([&seen] { ++seen; });
            slow += std::chrono::steady_clock::now() - std::exchange(last, before) < 1ms ? 0 : 1;
            reported.release();
        }
    });
    for (int i = 0; i < 1000; ++i) {
        step.release();
        reported.acquire();
        QCoreApplication::processEvents(); // as eager as an idle event loop
    }
    worker.join();
    // It looks by itself each 15 ms. Where that leaves nothing to be found, at once or by a wake
    // that was on its way, the next report wakes it, too.
    const auto looks = (std::chrono::steady_clock::now() - begin) / 14ms + 1;
    QTRY_COMPARE_WITH_TIMEOUT(seen, 1000, 30000);
    QVERIFY2(receiver.wakeUps() <= slow + 2 * looks, QByteArray::number(receiver.wakeUps()));
}

void tst_ReportQueue::reportInTheReceivingThreadIsDeliveredAtOnce()
{
    Receiver receiver;
    const auto queue = ReportQueue::create(&receiver);
    bool isSeen = false;
    queue->report([&] { isSeen = true; });
    QVERIFY(isSeen);
}

void tst_ReportQueue::urgentReportWaitsForTheEventLoopAndForWhatCameBefore()
{
    Receiver receiver;
    const auto queue = ReportQueue::create(&receiver);
    QString seen;
    inAnotherThread([&] { queue->report([&] { seen += QLatin1Char('a'); }); });
    queue->reportUrgently([&] { seen += QLatin1Char('b'); });
    QCOMPARE(seen, QString());
    QCoreApplication::processEvents();
    QCOMPARE(seen, QStringLiteral("ab"));
    // awaited by the clock now, but an urgent one does not wait for that
    inAnotherThread([&] { queue->report([&] { seen += QLatin1Char('c'); }); });
    inAnotherThread([&] { queue->reportUrgently([&] { seen += QLatin1Char('d'); }); });
    QCoreApplication::sendPostedEvents(&receiver);
    QCOMPARE(seen, QStringLiteral("abcd"));
}

void tst_ReportQueue::reportAfterAPauseIsDelivered()
{
    Receiver receiver;
    const auto queue = ReportQueue::create(&receiver);
    int seen = 0;
    for (int i = 1; i <= 3; ++i) {
        inAnotherThread([&] { queue->report([&] { ++seen; }); });
        QTRY_COMPARE_WITH_TIMEOUT(seen, i, 30000);
        QTest::qWait(30); // long enough for the receiver to stop looking
    }
}

void tst_ReportQueue::reportThatFollowsNoneAtOnceDoesNotWaitForTheClock()
{
    Receiver receiver;
    const auto queue = ReportQueue::create(&receiver);
    int seen = 0;
    for (int i = 1; i <= 3; ++i) {
        inAnotherThread([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(2)); // as a large chunk takes
            queue->report([&] { ++seen; });
        });
        QCoreApplication::sendPostedEvents(&receiver); // no timers
        QCOMPARE(seen, i);
    }
}

void tst_ReportQueue::nestedEventLoopGoesOnWithTheNextReport()
{
    Receiver receiver;
    const auto queue = ReportQueue::create(&receiver);
    QString seen;
    inAnotherThread([&] {
        queue->report([&] {
            seen += QLatin1Char('a');
            QEventLoop loop;
            // ended by what is reported behind it
            queue->reportUrgently([&] {
                seen += QLatin1Char('c');
                loop.quit();
            });
            loop.exec();
            seen += QLatin1Char('d');
        });
        queue->report([&] { seen += QLatin1Char('b'); });
    });
    QTRY_COMPARE_WITH_TIMEOUT(seen, QStringLiteral("abcd"), 30000);
}

void tst_ReportQueue::nothingIsDeliveredAfterClose()
{
    Receiver receiver;
    const auto queue = ReportQueue::create(&receiver);
    int seen = 0;
    inAnotherThread([&] { queue->report([&] { ++seen; }); });
    queue->close();
    inAnotherThread([&] { queue->reportUrgently([&] { ++seen; }); });
    bool isProven = false;
    QMetaObject::invokeMethod(
        &receiver, [&] { isProven = true; }, Qt::QueuedConnection);
    QTRY_VERIFY_WITH_TIMEOUT(isProven, 30000);
    QCOMPARE(seen, 0);
}

void tst_ReportQueue::receiverMayGoInTheMiddle()
{
    auto receiver = std::make_unique<Receiver>();
    auto queue = ReportQueue::create(receiver.get());
    int seen = 0;
    inAnotherThread([&] {
        queue->report([&] {
            ++seen;
            queue->close();
            receiver.reset();
        });
        queue->report([&] { ++seen; });
    });
    QTRY_VERIFY_WITH_TIMEOUT(!receiver, 30000);
    QCOMPARE(seen, 1);
    inAnotherThread([&] { queue->report([&] { ++seen; }); });
    QTest::qWait(20);
    QCOMPARE(seen, 1);
}

QTEST_GUILESS_MAIN(tst_ReportQueue)

#include "tst_ReportQueue.moc"
