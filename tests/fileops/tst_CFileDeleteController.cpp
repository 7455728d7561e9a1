// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileDeleteController.h"
#include "tests/support/FileTree.h"
#include "tests/support/LogRecorder.h"
#include "tests/support/MetaObjectChecks.h"
#include "tests/support/Threads.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <fcntl.h>
#include <unistd.h>

#include <functional>
#include <memory>

using Tavro::Shared::CFileDeleteController;

namespace {

bool waitForIdle(const CFileDeleteController &controller)
{
    return QTest::qWaitFor([&] { return controller.state() == CFileDeleteController::StateIdle; },
                           60000);
}

/** Tries what can be lost against another thread; not QTRY_VERIFY, which tries once more. */
bool succeedsOnce(const std::function<bool()> &attempt)
{
    bool hasSucceeded = false;
    for (int i = 0; i < 100 && !hasSucceeded; ++i) {
        hasSucceeded = attempt();
    }
    return hasSucceeded;
}

/** Writes down every state of a controller, and counts what must not happen. */
class StateLog
{
public:
    explicit StateLog(CFileDeleteController &controller)
    {
        QObject::connect(&controller, &CFileDeleteController::stateChanged, &controller,
                         [this, &controller] {
                             m_states.append(QString::number(controller.state()));
                             m_ends += controller.state() == 0 ? 1 : 0;
                         });
        QObject::connect(&controller, &CFileDeleteController::errorOccurred, &controller,
                         [this] { ++m_errors; });
    }

    /**
     * Processes events until that many runs have ended; false after 60 s. Only for runs that do
     * not overlap: a request is a clean slate, and so shows StateIdle, too.
     */
    bool waitForEnds(int ends)
    {
        return QTest::qWaitFor([&] { return m_ends >= ends; }, 60000);
    }
    QString states() const { return m_states.join(QLatin1Char(' ')); }
    int errorCount() const { return m_errors; }

private:
    QStringList m_states;
    int m_ends = 0;
    int m_errors = 0;
};

} // namespace

class tst_CFileDeleteController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void methodsStandInOrder();
    void propertiesStandInOrder();
    void enumerationsStandInOrder();
    void startsIdle();
    void errorCodesArePacked_data();
    void errorCodesArePacked();
    void numbersAnnounceOnlyAChange_data();
    void numbersAnnounceOnlyAChange();
    void errorSlotPassesTheErrorOn();

    void directoryIsDeleted();
    void directoriesAreDeleted();
    void progressIsAnnouncedForEachFileAndEndsAtZero();
    void missingDirectoryEndsIdleWithoutAnError();
    void emptyPathRemovesNothing();
    void failureShowsInNothingButTheTree();
    void nextRunCanBeStartedFromTheEndOfTheLast();

    void abortBeforeTheWalkIsOverDeletesNothing();
    void pauseBeforeTheDeletionHoldsAndResumeGoesOn();
    void abortEndsAPausedRun();

    void requestDuringARunDoesNotBlockAndRunsNext();
    void severalRequestsDuringARunAllRunInOrder();
    void requestWakesAPausedRun();
    void requestNeedsNoEventLoopInBetween();
    void requestInTheMomentOfTheEndIsNotLost();
    void stateIsNotIdleWhileARequestIsLeft();
    void abortReachesRequestsThatHaveNotBegun();

    void destroyedUnused();
    void destroyedInTheSlotThatHearsTheEnd();
    void destroyedDuringADeletionDoesNotWait();
    void destroyedWithRequestsLeft();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString path(const char *name) const { return path(QString::fromUtf8(name)); }
    bool exists(const char *name) const { return QFileInfo::exists(path(name)); }
    void makeTree(const QString &name, int files = 3) const
    {
        for (int i = 0; i < files; ++i) {
            Test::makeFile(path(name) + QStringLiteral("/sub%1/%2").arg(i % 10).arg(i), "1234567");
        }
    }

    bool requestTwoAndCatch(CFileDeleteController &controller,
                            const std::function<void()> &catchThem);
    bool requestAndCatch(CFileDeleteController &controller, const std::function<void()> &catchIt);

    QScopedPointer<Test::TemporaryFolder> m_folder;
};

void tst_CFileDeleteController::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_CFileDeleteController::cleanup()
{
    m_folder.reset();
}

void tst_CFileDeleteController::methodsStandInOrder()
{
    const auto signal = QMetaMethod::Signal;
    const auto slot = QMetaMethod::Slot;
    const auto method = QMetaMethod::Method;
    const auto open = QMetaMethod::Public;
    const auto closed = QMetaMethod::Private;
    const QVector<Test::Method> expected = {
        {"stateChanged()", signal, open, {}},
        {"processedBytesChanged()", signal, open, {}},
        {"totalBytesChanged()", signal, open, {}},
        {"errorOccurred(Error)", signal, open, {"errorCode"}},
        {"setProcessedBytes(qlonglong)", slot, closed, {"processedBytes"}},
        {"setTotalBytes(qlonglong)", slot, closed, {"totalBytes"}},
        {"setState(int)", slot, closed, {"newState"}},
        {"onErrorOccurred(int)", slot, closed, {"errorCode"}},
        {"deleteDirectory(QString)", method, open, {"path"}},
        {"deleteDirectories(QStringList)", method, open, {"path"}},
        {"pause()", method, open, {}},
        {"resume()", method, open, {}},
        {"abort()", method, open, {}},
    };
    Test::compareMethods(CFileDeleteController::staticMetaObject, expected);
}

void tst_CFileDeleteController::propertiesStandInOrder()
{
    const QVector<QVector<QByteArray>> expected = {
        {"processedBytes", "qlonglong", "processedBytesChanged"},
        {"totalBytes", "qlonglong", "totalBytesChanged"},
        {"state", "State", "stateChanged"},
    };
    Test::compareProperties(CFileDeleteController::staticMetaObject, expected);
}

void tst_CFileDeleteController::enumerationsStandInOrder()
{
    const QVector<QPair<QByteArray, QList<QByteArray>>> expected = {
        {"State", {"StateIdle", "StateEnumeratingFiles", "StateDeleting"}},
        {"Error",
         {"ErrorNone", "ErrorInternal", "ErrorFileDeletionFailed", "ErrorDirectoryDeletionFailed"}},
    };
    Test::compareEnumerations(CFileDeleteController::staticMetaObject, expected);
}

void tst_CFileDeleteController::startsIdle()
{
    const CFileDeleteController controller;
    QCOMPARE(controller.processedBytes(), Q_INT64_C(0));
    QCOMPARE(controller.totalBytes(), Q_INT64_C(0));
    QCOMPARE(controller.state(), CFileDeleteController::StateIdle);
}

void tst_CFileDeleteController::errorCodesArePacked_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<quint32>("code");
    QTest::newRow("none") << 0 << 721408U;
    QTest::newRow("internal") << 1 << 0x000B0201U;
    QTest::newRow("file not deleted") << 2 << 0x000B0202U;
    QTest::newRow("directory not deleted") << 3 << 0x000B0203U;
}

void tst_CFileDeleteController::errorCodesArePacked()
{
    QFETCH(int, error);
    QTEST(CFileDeleteController::createErrorCode(static_cast<CFileDeleteController::Error>(error)),
          "code");
}

void tst_CFileDeleteController::numbersAnnounceOnlyAChange_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("processed bytes") << QByteArray("setProcessedBytes")
                                     << QByteArray("processedBytes") << QByteArray("qlonglong");
    QTest::newRow("total bytes") << QByteArray("setTotalBytes") << QByteArray("totalBytes")
                                 << QByteArray("qlonglong");
    QTest::newRow("state") << QByteArray("setState") << QByteArray("state") << QByteArray("int");
}

void tst_CFileDeleteController::numbersAnnounceOnlyAChange()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, type);
    CFileDeleteController controller;
    Test::checkThatOnlyAChangeIsAnnounced(controller, slot, property, type);
}

void tst_CFileDeleteController::errorSlotPassesTheErrorOn()
{
    CFileDeleteController controller;
    QList<int> errors;
    connect(&controller, &CFileDeleteController::errorOccurred, &controller,
            [&](CFileDeleteController::Error error) { errors.append(error); });
    for (int i = 0; i < 2; ++i) { // each time, changed or not
        QVERIFY(QMetaObject::invokeMethod(&controller, "onErrorOccurred", Q_ARG(int, 3)));
    }
    QCOMPARE(errors, (QList<int>{3, 3}));
}

void tst_CFileDeleteController::directoryIsDeleted()
{
    makeTree(QStringLiteral("tree"));
    makeTree(QStringLiteral("other"));
    const Test::LogRecorder log;
    CFileDeleteController controller;
    StateLog states(controller);
    controller.deleteDirectory(path("tree"));
    QCOMPARE(controller.state(), CFileDeleteController::StateEnumeratingFiles);
    QVERIFY(states.waitForEnds(1));
    QVERIFY(!exists("tree"));

    // a later run's end proves that the first has no second one
    controller.deleteDirectory(path("other"));
    QVERIFY(states.waitForEnds(2));
    QCOMPARE(states.states(), QStringLiteral("1 2 0 1 2 0"));
    QCOMPARE(states.errorCount(), 0);
    QCOMPARE(log.entries(), QStringList());
}

void tst_CFileDeleteController::directoriesAreDeleted()
{
    makeTree(QStringLiteral("one"));
    makeTree(QStringLiteral("two"));
    CFileDeleteController controller;
    StateLog states(controller);
    QList<qlonglong> totals;
    connect(&controller, &CFileDeleteController::totalBytesChanged, &controller,
            [&] { totals.append(controller.totalBytes()); });
    controller.deleteDirectories({path("one"), path("two")});
    QVERIFY(states.waitForEnds(1));
    QVERIFY(QTest::qWaitFor([&] { return totals.size() >= 2; }));
    QCOMPARE(totals, (QList<qlonglong>{42, 0}));
    QCOMPARE(states.states(), QStringLiteral("1 2 0"));
    QVERIFY(!exists("one"));
    QVERIFY(!exists("two"));
}

void tst_CFileDeleteController::progressIsAnnouncedForEachFileAndEndsAtZero()
{
    makeTree(QStringLiteral("tree"), 50);
    CFileDeleteController controller;
    StateLog states(controller);
    QList<qlonglong> progress;
    connect(&controller, &CFileDeleteController::processedBytesChanged, &controller,
            [&] { progress.append(controller.processedBytes()); });
    controller.deleteDirectory(path("tree"));
    QVERIFY(states.waitForEnds(1));
    QVERIFY(QTest::qWaitFor([&] { return progress.size() >= 51; }));
    QList<qlonglong> expected;
    for (int i = 1; i <= 50; ++i) {
        expected.append(7LL * i);
    }
    expected.append(0);
    QCOMPARE(progress, expected);
    QCOMPARE(controller.processedBytes(), Q_INT64_C(0));
    QCOMPARE(controller.totalBytes(), Q_INT64_C(0));
}

void tst_CFileDeleteController::missingDirectoryEndsIdleWithoutAnError()
{
    CFileDeleteController controller;
    StateLog states(controller);
    controller.deleteDirectory(path("missing"));
    QVERIFY(states.waitForEnds(1));
    QCOMPARE(states.states(), QStringLiteral("1 2 0"));
    QCOMPARE(states.errorCount(), 0);
}

void tst_CFileDeleteController::emptyPathRemovesNothing()
{
    makeTree(QStringLiteral("tree"));
    const auto restore = qScopeGuard([before = QDir::currentPath()] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(path("tree")));
    CFileDeleteController controller;
    StateLog states(controller);
    controller.deleteDirectory(QString());
    QVERIFY(states.waitForEnds(1));
    controller.deleteDirectories({QString(), QLatin1String("")});
    QVERIFY(states.waitForEnds(2));
    QCOMPARE(states.states(), QStringLiteral("1 2 0 1 2 0"));
    QVERIFY(exists("tree/sub0/0"));
}

void tst_CFileDeleteController::failureShowsInNothingButTheTree()
{
    makeTree(QStringLiteral("tree"));
    // no QString names it, so that it stays, and its directory with it
    const int file = ::open(path("tree/\\").toUtf8().replace('\\', '\xff').constData(),
                            O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    QVERIFY(file >= 0);
    ::close(file);
    const Test::LogRecorder log;
    CFileDeleteController controller;
    StateLog states(controller);
    controller.deleteDirectory(path("tree"));
    QVERIFY(states.waitForEnds(1));
    QCOMPARE(states.states(), QStringLiteral("1 2 0"));
    QCOMPARE(states.errorCount(), 0);
    QCOMPARE(log.entries(), QStringList());
    QVERIFY(exists("tree"));
    QVERIFY(!exists("tree/sub0"));
}

void tst_CFileDeleteController::nextRunCanBeStartedFromTheEndOfTheLast()
{
    constexpr int runs = 50;
    for (int i = 0; i < runs; ++i) {
        makeTree(QString::number(i), 2);
    }
    CFileDeleteController controller;
    int next = 0;
    connect(&controller, &CFileDeleteController::stateChanged, &controller, [&] {
        if (controller.state() == CFileDeleteController::StateIdle && next < runs) {
            controller.deleteDirectory(path(QString::number(next++)));
        }
    });
    controller.deleteDirectory(path("missing"));
    QVERIFY(QTest::qWaitFor(
        [&] { return next == runs && controller.state() == CFileDeleteController::StateIdle; },
        60000));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList());
}

// Whether the request was caught before it began; it may have been too quick.
bool tst_CFileDeleteController::requestAndCatch(CFileDeleteController &controller,
                                                const std::function<void()> &catchIt)
{
    controller.abort(); // what an earlier attempt has left
    if (!waitForIdle(controller)) {
        return false;
    }
    makeTree(QStringLiteral("tree"), 200);
    controller.deleteDirectory(path("missing")); // keeps the thread busy for a moment
    controller.deleteDirectory(path("tree"));
    catchIt();
    QTest::qWait(20);
    return exists("tree/sub0/0");
}

void tst_CFileDeleteController::abortBeforeTheWalkIsOverDeletesNothing()
{
    CFileDeleteController controller;
    QVERIFY(succeedsOnce([&] { return requestAndCatch(controller, [&] { controller.abort(); }); }));
    QVERIFY(waitForIdle(controller));
    QVERIFY(exists("tree/sub0/0"));
}

void tst_CFileDeleteController::pauseBeforeTheDeletionHoldsAndResumeGoesOn()
{
    CFileDeleteController controller;
    QVERIFY(succeedsOnce([&] { return requestAndCatch(controller, [&] { controller.pause(); }); }));
    QVERIFY(controller.state() != CFileDeleteController::StateIdle);
    controller.resume();
    QTRY_VERIFY_WITH_TIMEOUT(!exists("tree"), 60000);
}

void tst_CFileDeleteController::abortEndsAPausedRun()
{
    CFileDeleteController controller;
    QVERIFY(succeedsOnce([&] { return requestAndCatch(controller, [&] { controller.pause(); }); }));
    controller.abort();
    QVERIFY(waitForIdle(controller));
    QVERIFY(exists("tree/sub0/0"));
}

void tst_CFileDeleteController::requestDuringARunDoesNotBlockAndRunsNext()
{
    makeTree(QStringLiteral("beside"));
    CFileDeleteController controller;
    const auto request = [&] {
        makeTree(QStringLiteral("one"), 3000);
        makeTree(QStringLiteral("two"));
        controller.deleteDirectory(path("one"));
        const bool isAtWork =
            QTest::qWaitFor([&] { return controller.processedBytes() > 0; }, 60000);
        controller.deleteDirectory(path("two"));
        const bool hasWaited = !exists("one"); // or the run was too quick
        return isAtWork && waitForIdle(controller) && !hasWaited;
    };
    QVERIFY(succeedsOnce(request));
    QVERIFY(!exists("one"));
    QVERIFY(!exists("two"));
    QVERIFY(exists("beside/sub0/0"));
}

void tst_CFileDeleteController::severalRequestsDuringARunAllRunInOrder()
{
    makeTree(QStringLiteral("0"), 2000);
    for (int i = 1; i < 20; ++i) {
        makeTree(QString::number(i), 2);
    }
    CFileDeleteController controller;
    for (int i = 0; i < 20; ++i) {
        controller.deleteDirectory(path(QString::number(i)));
    }
    QVERIFY(waitForIdle(controller));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList());
}

void tst_CFileDeleteController::requestWakesAPausedRun()
{
    makeTree(QStringLiteral("one"));
    makeTree(QStringLiteral("two"));
    CFileDeleteController controller;
    controller.deleteDirectory(path("one"));
    controller.pause();
    QTest::qWait(20);
    controller.deleteDirectory(path("two"));
    QTRY_VERIFY_WITH_TIMEOUT(!exists("one") && !exists("two"), 60000);
}

void tst_CFileDeleteController::requestNeedsNoEventLoopInBetween()
{
    CFileDeleteController controller;
    const int threads = Test::threadCount();
    for (int i = 0; i < 20; ++i) {
        makeTree(QStringLiteral("tree"));
        controller.deleteDirectory(path("tree"));
        // no events are delivered here, but the thread comes to its end
        QElapsedTimer elapsed;
        elapsed.start();
        while ((exists("tree") || Test::threadCount() > threads) && elapsed.elapsed() < 60000) {
            QThread::msleep(1);
        }
        QVERIFY(!exists("tree"));
    }
    QVERIFY(waitForIdle(controller));
}

void tst_CFileDeleteController::requestInTheMomentOfTheEndIsNotLost()
{
    CFileDeleteController controller;
    StateLog states(controller);
    for (int i = 0; i < 300; ++i) {
        makeTree(QStringLiteral("tree"), 1);
        controller.deleteDirectory(path("missing"));
        QElapsedTimer elapsed;
        elapsed.start();
        while (elapsed.nsecsElapsed() < i * 1000LL) { // a little later each time
        }
        controller.deleteDirectory(path("tree"));
        for (elapsed.restart(); exists("tree") && elapsed.elapsed() < 60000;) {
            QCoreApplication::processEvents();
        }
        QVERIFY(!exists("tree"));
    }
    QVERIFY(waitForIdle(controller));
}

void tst_CFileDeleteController::stateIsNotIdleWhileARequestIsLeft()
{
    CFileDeleteController controller;
    for (int i = 0; i < 50; ++i) {
        for (int k = 0; k < 5; ++k) {
            makeTree(QString::number(k), 1);
            controller.deleteDirectory(path(QString::number(k)));
        }
        while (controller.state() != CFileDeleteController::StateIdle) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        QVERIFY(!exists("4"));
    }
}

// Whether the second of two requests was caught before it began, and the first one after.
bool tst_CFileDeleteController::requestTwoAndCatch(CFileDeleteController &controller,
                                                   const std::function<void()> &catchThem)
{
    makeTree(QStringLiteral("one"), 3000);
    makeTree(QStringLiteral("two"));
    controller.deleteDirectory(path("one"));
    if (!QTest::qWaitFor([&] { return controller.processedBytes() > 0; }, 60000)) {
        return false;
    }
    controller.deleteDirectory(path("two"));
    catchThem();
    // had begun
    return QTest::qWaitFor([&] { return !exists("one"); }, 60000) && exists("two/sub0/0");
}

void tst_CFileDeleteController::abortReachesRequestsThatHaveNotBegun()
{
    CFileDeleteController controller;
    QVERIFY(
        succeedsOnce([&] { return requestTwoAndCatch(controller, [&] { controller.abort(); }); }));
    QVERIFY(waitForIdle(controller));
    QVERIFY(exists("two/sub0/0"));
}

void tst_CFileDeleteController::destroyedUnused()
{
    for (int i = 0; i < 20; ++i) {
        const CFileDeleteController controller;
        QCOMPARE(controller.state(), CFileDeleteController::StateIdle);
    }
}

void tst_CFileDeleteController::destroyedInTheSlotThatHearsTheEnd()
{
    makeTree(QStringLiteral("tree"));
    auto *controller = new CFileDeleteController;
    const auto isGone = std::make_shared<bool>(false);
    connect(controller, &CFileDeleteController::stateChanged, controller, [controller, isGone] {
        if (controller->state() == CFileDeleteController::StateIdle) {
            *isGone = true;
            delete controller;
        }
    });
    controller->deleteDirectory(path("tree"));
    QVERIFY(QTest::qWaitFor([&] { return *isGone; }, 60000));
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteController::destroyedDuringADeletionDoesNotWait()
{
    makeTree(QStringLiteral("tree"), 5000);
    auto controller = std::make_unique<CFileDeleteController>();
    controller->deleteDirectory(path("tree"));
    QVERIFY(QTest::qWaitFor([&] { return controller->processedBytes() > 0; }, 60000));
    controller.reset();
    QTRY_VERIFY_WITH_TIMEOUT(!exists("tree"), 60000); // a deletion that has begun is completed
    QTest::qWait(100); // thread and worker go by themselves
}

void tst_CFileDeleteController::destroyedWithRequestsLeft()
{
    std::unique_ptr<CFileDeleteController> controller;
    const auto isCaught = [&] {
        controller = std::make_unique<CFileDeleteController>();
        return requestTwoAndCatch(*controller, [&] { controller.reset(); });
    };
    QVERIFY(succeedsOnce(isCaught));
    QTest::qWait(100); // thread and worker go by themselves
    QVERIFY(exists("two/sub0/0"));
}

QTEST_GUILESS_MAIN(tst_CFileDeleteController)

#include "tst_CFileDeleteController.moc"
