// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"
#include "tests/support/CopyOutcome.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"
#include "tests/support/LogRecorder.h"
#include "tests/support/MetaObjectChecks.h"
#include "tests/support/Threads.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <thread>
#include <utility>

using Tavro::FieldHost::HostLog;
using Tavro::Logging::LogLevel;
using Tavro::Shared::CFileCopyController;

namespace {

constexpr int s_mebibyte = 1024 * 1024;

} // namespace

class tst_CFileCopyController : public QObject
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
    void directoryIsAnnouncedEachTime();

    void directoryIsCopied();
    void directoriesAreCopied();
    void emptyListOfSourcesCompletes();
    void databaseFileIsCopied();
    void progressKeepsItsFinalValues();
    void statesAreMirroredInOrder();
    void failedCopyIsAnnouncedAsCompleted();
    void nextRunCanBeStartedFromTheEndOfTheLast();

    void pauseHoldsAndResumeGoesOn();
    void abortRemovesDestinationsWhole();
    void abortRemovesDestinationsOfEarlierCalls();
    void abortOfDirectoriesLeavesEarlierDestinations();
    void abortOfADatabaseFileRemovesTheFile();
    void abortWhilePausedEndsTheRun();
    void abortBeforeTheThreadRunsEndsTheRun();
    void abortDuringTheLastChunkEndsTheRunAsCanceled();
    void abortBeforeTheEndIsAnnouncedCounts();
    void abortRemovesTheNameThatWasWrittenTo();
    void abortWithoutARunRemovesNothing();
    void abortNeverMeansTheRoot();
    void abortLeavesWhatANameWithANulIsCutTo();

    void overlappingRequestRunsAfterTheFirst();
    void overlappingRequestWakesAPausedRun();
    void requestInASlotOfALoadingComesBehindIt();
    void overlappingRequestStartsFromACleanSlate();
    void abortThenRequestEndsEachAsMeant();
    void abortThenRequestToTheSameDestinationKeepsTheNewCopy();
    void abortOfTheSecondLeavesTheFirst();

    void resetZeroesTheProperties();
    void resetBeforeTheRunRemovesNothing();
    void resetDuringARunLeavesItsCopyWhole();

    void copyFileIsSynchronousAndSilent();
    void copyFileLogsItsFailure_data();
    void copyFileLogsItsFailure();

    void destroyedAfterTheEndIsAnnounced();
    void destroyedInTheSlotThatHearsTheEnd();
    void destroyedUnused();
    void destroyedDuringACopyLeavesNoPartOfAFile();
    void destroyedWhilePaused();
    void destroyedByAThreadThatEnds();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void makeTree(const char *name, int files = 3) const
    {
        for (int i = 0; i < files; ++i) {
            Test::makeFile(path(name) + QStringLiteral("/sub/%1").arg(i), Test::someBytes(100, i));
        }
    }
    // "sync" that tells when it runs, and holds the worker in the last chunk until it is let go
    void makeSyncWait() { m_commands->addHeld(QStringLiteral("sync"), path("letGo")); }
    void letSyncGo() { Test::makeFile(path("letGo")); }
    bool isInSync()
    {
        return QTest::qWaitFor([&] { return !m_commands->journal().isEmpty(); });
    }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Test::FakeCommands> m_commands;
};

void tst_CFileCopyController::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
    m_commands.reset(new Test::FakeCommands);
    m_commands->add(QStringLiteral("sync"));
}

void tst_CFileCopyController::cleanup()
{
    m_commands.reset();
    m_folder.reset();
}

void tst_CFileCopyController::methodsStandInOrder()
{
    const auto signal = QMetaMethod::Signal;
    const auto slot = QMetaMethod::Slot;
    const auto method = QMetaMethod::Method;
    const auto open = QMetaMethod::Public;
    const auto closed = QMetaMethod::Private;
    const QList<QByteArray> paths = {"sourcePath", "destinationPath"};
    const QVector<Test::Method> expected = {
        {"stateChanged()", signal, open, {}},
        {"processedBytesChanged()", signal, open, {}},
        {"processingDirectoryChanged()", signal, open, {}},
        {"totalBytesChanged()", signal, open, {}},
        {"errorOccurred(Error)", signal, open, {"errorCode"}},
        {"operationCompleted()", signal, open, {}},
        {"operationCanceled()", signal, open, {}},
        {"setProcessedBytes(qlonglong)", slot, closed, {"processedBytes"}},
        {"setProcessingDirectory(QString)", slot, closed, {"processingDirectory"}},
        {"setTotalBytes(qlonglong)", slot, closed, {"totalBytes"}},
        {"setState(int)", slot, closed, {"newState"}},
        {"onWorkerFinished()", slot, closed, {}},
        {"copyDirectory(QString,QString)", method, open, paths},
        {"copyDirectories(QStringList,QStringList)", method, open, paths},
        {"copyFile(QString,QString)", method, open, paths},
        {"copyDatabaseFile(QString,QString)", method, open, paths},
        {"pause()", method, open, {}},
        {"resume()", method, open, {}},
        {"abort()", method, open, {}},
        {"reset()", method, open, {}},
    };
    Test::compareMethods(CFileCopyController::staticMetaObject, expected);
}

void tst_CFileCopyController::propertiesStandInOrder()
{
    const QVector<QVector<QByteArray>> expected = {
        {"processedBytes", "qlonglong", "processedBytesChanged"},
        {"processingDirectory", "QString", "processingDirectoryChanged"},
        {"totalBytes", "qlonglong", "totalBytesChanged"},
        {"state", "State", "stateChanged"},
    };
    Test::compareProperties(CFileCopyController::staticMetaObject, expected);
}

void tst_CFileCopyController::enumerationsStandInOrder()
{
    const QVector<QPair<QByteArray, QList<QByteArray>>> expected = {
        {"State",
         {"StateIdle", "StateEnumeratingFiles", "StateCheckingSize", "StateCopying",
          "StateCopyingLargeFile"}},
        {"Error",
         {"ErrorNone", "ErrorSourceFileOpenFailed", "ErrorSourceFileReadFailed",
          "ErrorDestinationFileOpenFailed", "ErrorDestinationFileWriteFailed",
          "ErrorDestinationFileDeletionFailed"}},
    };
    Test::compareEnumerations(CFileCopyController::staticMetaObject, expected);
}

void tst_CFileCopyController::startsIdle()
{
    const CFileCopyController controller;
    QCOMPARE(controller.processedBytes(), Q_INT64_C(0));
    QCOMPARE(controller.totalBytes(), Q_INT64_C(0));
    QCOMPARE(controller.processingDirectory(), QString());
    QCOMPARE(controller.state(), CFileCopyController::StateIdle);
}

void tst_CFileCopyController::errorCodesArePacked_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<quint32>("code");
    QTest::newRow("none") << 0 << 721152U;
    QTest::newRow("source not opened") << 1 << 0x000B0101U;
    QTest::newRow("source not read") << 2 << 0x000B0102U;
    QTest::newRow("destination not opened") << 3 << 721155U;
    QTest::newRow("destination not written") << 4 << 721156U;
    QTest::newRow("destination not deleted") << 5 << 0x000B0105U;
}

void tst_CFileCopyController::errorCodesArePacked()
{
    QFETCH(int, error);
    QTEST(CFileCopyController::createErrorCode(static_cast<CFileCopyController::Error>(error)),
          "code");
}

void tst_CFileCopyController::numbersAnnounceOnlyAChange_data()
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

void tst_CFileCopyController::numbersAnnounceOnlyAChange()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, type);
    CFileCopyController controller;
    Test::checkThatOnlyAChangeIsAnnounced(controller, slot, property, type);
}

void tst_CFileCopyController::directoryIsAnnouncedEachTime()
{
    CFileCopyController controller;
    QSignalSpy spy(&controller, &CFileCopyController::processingDirectoryChanged);
    for (int i = 1; i <= 2; ++i) {
        QVERIFY(QMetaObject::invokeMethod(&controller, "setProcessingDirectory",
                                          Q_ARG(QString, QStringLiteral("clips"))));
        QCOMPARE(spy.count(), i);
    }
    QCOMPARE(controller.processingDirectory(), QStringLiteral("clips"));
}

void tst_CFileCopyController::directoryIsCopied()
{
    makeTree("src");
    const Test::LogRecorder log;
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(ends.waitFor(1));
    QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("src")));
    QCOMPARE(controller.processingDirectory(), QStringLiteral("dst"));

    // a later run's end proves that the first has no second one
    controller.copyDirectory(path("src"), path("dst2"));
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("completed completed"));
    QCOMPARE(ends.errorCount(), 0);
    QCOMPARE(log.entries(), QStringList());
}

void tst_CFileCopyController::directoriesAreCopied()
{
    makeTree("one");
    makeTree("two");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    QSignalSpy directories(&controller, &CFileCopyController::processingDirectoryChanged);
    controller.copyDirectories({path("one"), path("two")}, {path("a"), path("b")});
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("completed"));
    QCOMPARE(directories.count(), 2);
    QCOMPARE(Test::treeOf(path("a")), Test::treeOf(path("one")));
    QCOMPARE(Test::treeOf(path("b")), Test::treeOf(path("two")));
    QCOMPARE(controller.totalBytes(), Q_INT64_C(600));
}

void tst_CFileCopyController::emptyListOfSourcesCompletes()
{
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectories({}, {path("dst")});
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("completed"));
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CFileCopyController::databaseFileIsCopied()
{
    const QByteArray content = Test::someBytes(5 * s_mebibyte);
    Test::makeFile(path("db"), content);
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    QSignalSpy processed(&controller, &CFileCopyController::processedBytesChanged);
    controller.copyDatabaseFile(path("db"), path("copy"));
    QCOMPARE(controller.state(), CFileCopyController::StateCopyingLargeFile);
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("completed"));
    QCOMPARE(processed.count(), 2); // chunks
    QVERIFY(Test::contentOf(path("copy")) == content);
}

void tst_CFileCopyController::progressKeepsItsFinalValues()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(ends.waitFor(1));
    QCOMPARE(controller.processedBytes(), Q_INT64_C(300));
    QCOMPARE(controller.totalBytes(), Q_INT64_C(300));
    QCOMPARE(controller.state(), CFileCopyController::StateIdle);

    // the next request's loading is what clears them, at once
    controller.copyDirectory(path("missing"), path("dst"));
    QCOMPARE(controller.processedBytes(), Q_INT64_C(0));
    QCOMPARE(controller.totalBytes(), Q_INT64_C(0));
    QCOMPARE(controller.state(), CFileCopyController::StateEnumeratingFiles);
    QVERIFY(ends.waitFor(2));
}

void tst_CFileCopyController::statesAreMirroredInOrder()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    QList<int> states;
    connect(&controller, &CFileCopyController::stateChanged, this,
            [&] { states.append(controller.state()); });
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(ends.waitFor(1));
    QCOMPARE(states, QList<int>({1, 2, 3, 0}));
    states.clear();
    controller.copyDatabaseFile(path("src/sub/0"), path("copy"));
    QVERIFY(ends.waitFor(2));
    QCOMPARE(states, QList<int>({4, 0}));
}

void tst_CFileCopyController::failedCopyIsAnnouncedAsCompleted()
{
    makeTree("src");
    QVERIFY(QDir().mkpath(path("dst/sub/1"))); // stands in the way of a file
    const Test::LogRecorder log;
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("completed"));
    QCOMPARE(ends.errorCount(), 0);
    QCOMPARE(controller.processedBytes(), Q_INT64_C(100));
    QCOMPARE(controller.totalBytes(), Q_INT64_C(300));
    QCOMPARE(log.entries(), QStringList());
    QVERIFY(QFileInfo::exists(path("dst/sub/0")));
}

void tst_CFileCopyController::nextRunCanBeStartedFromTheEndOfTheLast()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    int runs = 1;
    connect(&controller, &CFileCopyController::operationCompleted, this, [&] {
        if (runs < 20) {
            controller.copyDirectory(path("src"), path("dst") + QString::number(runs++));
        }
    });
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(ends.waitFor(20));
    QCOMPARE(ends.ends().count(QStringLiteral("completed")), 20);
    QCOMPARE(ends.ends().count(QStringLiteral("canceled")), 0);
}

void tst_CFileCopyController::pauseHoldsAndResumeGoesOn()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    makeSyncWait();
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(isInSync());
    controller.pause();
    letSyncGo();
    QTRY_COMPARE_WITH_TIMEOUT(controller.processedBytes(), Q_INT64_C(300), 30000);
    QTest::qWait(50);
    QCOMPARE(ends.ends(), QString()); // the file is not closed yet
    controller.resume();
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("completed"));
}

void tst_CFileCopyController::abortRemovesDestinationsWhole()
{
    makeTree("src");
    makeTree("dst/older");
    Test::makeFile(path("neighbour"), "1");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    bool isGone = false;
    connect(&controller, &CFileCopyController::operationCanceled, this,
            [&] { isGone = !QFileInfo::exists(path("dst")); });
    makeSyncWait();
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(isInSync());
    QVERIFY(QFileInfo::exists(path("dst/sub/2")));
    controller.abort();
    letSyncGo();
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("canceled"));
    QVERIFY(isGone); // before the signal, with what it held before
    QVERIFY(QFileInfo::exists(path("neighbour")));
    QCOMPARE(Test::treeOf(path("src")).size(), 4);
}

void tst_CFileCopyController::abortRemovesDestinationsOfEarlierCalls()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("first"));
    QVERIFY(ends.waitFor(1));
    controller.copyDirectory(path("src"), path("second"));
    controller.abort();
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("completed canceled"));
    QVERIFY(!QFileInfo::exists(path("first")));
    QVERIFY(!QFileInfo::exists(path("second")));
}

void tst_CFileCopyController::abortOfDirectoriesLeavesEarlierDestinations()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("first"));
    QVERIFY(ends.waitFor(1));
    controller.copyDirectories({path("src")}, {path("second"), path("surplus")});
    QVERIFY(QDir().mkpath(path("surplus")));
    controller.abort();
    QVERIFY(ends.waitFor(2));
    QVERIFY(QFileInfo::exists(path("first")));
    QVERIFY(!QFileInfo::exists(path("second")));
    QVERIFY(!QFileInfo::exists(path("surplus"))); // named as a destination, so removed as one
}

void tst_CFileCopyController::abortOfADatabaseFileRemovesTheFile()
{
    Test::makeFile(path("db"), "12345");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("missing"), path("first"));
    QVERIFY(ends.waitFor(1));
    QVERIFY(QDir().mkpath(path("first")));
    makeSyncWait();
    controller.copyDatabaseFile(path("db"), path("copy"));
    QVERIFY(isInSync());
    QVERIFY(QFileInfo::exists(path("copy")));
    controller.abort();
    letSyncGo();
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("completed canceled"));
    QVERIFY(!QFileInfo::exists(path("copy")));
    QVERIFY(QFileInfo::exists(path("first")));
    QVERIFY(QFileInfo::exists(path("db")));
}

void tst_CFileCopyController::abortWhilePausedEndsTheRun()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    makeSyncWait();
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(isInSync());
    controller.pause();
    letSyncGo();
    QTRY_COMPARE_WITH_TIMEOUT(controller.processedBytes(), Q_INT64_C(300),
                              30000); // waits before it closes the file
    controller.abort();
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("canceled"));
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CFileCopyController::abortBeforeTheThreadRunsEndsTheRun()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("dst"));
    controller.abort();
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("canceled"));
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CFileCopyController::abortDuringTheLastChunkEndsTheRunAsCanceled()
{
    Test::makeFile(path("src/f"), "1");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    makeSyncWait();
    controller.copyDirectories({path("src"), path("missing")}, {path("a"), path("b")});
    QVERIFY(isInSync());
    controller.abort();
    controller.abort();
    letSyncGo();
    QVERIFY(ends.waitFor(1));
    controller.copyDirectories({}, {});
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("canceled completed"));
    QVERIFY(!QFileInfo::exists(path("a")));
}

void tst_CFileCopyController::abortBeforeTheEndIsAnnouncedCounts()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QElapsedTimer timer;
    timer.start();
    while (m_commands->journal().isEmpty() && timer.elapsed() < 20000) {
        QTest::qSleep(1); // no events: the end must not be delivered yet
    }
    QTest::qSleep(100);
    controller.abort();
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("canceled"));
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CFileCopyController::abortRemovesTheNameThatWasWrittenTo()
{
    makeTree("src");
    Test::makeFile(path("dst \t/unrelated"), "1");
    Test::makeFile(path("copy  "), "unrelated");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    makeSyncWait();
    controller.copyDirectory(path("src"), path("dst \t"));
    QVERIFY(isInSync());
    QVERIFY(QFileInfo::exists(path("dst/sub/2")));
    controller.abort();
    letSyncGo();
    QVERIFY(ends.waitFor(1));
    QVERIFY(!QFileInfo::exists(path("dst")));
    QVERIFY(QFileInfo::exists(path("dst \t/unrelated")));

    Test::makeFile(path("copy"), "1");
    controller.copyDatabaseFile(path("src/sub/0"), path("copy  "));
    controller.abort();
    QVERIFY(ends.waitFor(2));
    QVERIFY(!QFileInfo::exists(path("copy")));
    QVERIFY(QFileInfo::exists(path("copy  ")));
}

void tst_CFileCopyController::abortWithoutARunRemovesNothing()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.abort();
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(ends.waitFor(1));
    controller.abort(); // the end has been announced
    controller.copyDirectories({}, {});
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("completed completed"));
    QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("src")));
}

void tst_CFileCopyController::abortNeverMeansTheRoot()
{
    makeTree("src");
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(path("src")));
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectories({path("src"), path("src")}, {QString(), QStringLiteral("  ")});
    controller.abort();
    const bool hasEnded = ends.waitFor(1);
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(hasEnded);
    QCOMPARE(ends.ends(), QStringLiteral("canceled"));
    QCOMPARE(Test::treeOf(path("src")).size(), 4);
}

void tst_CFileCopyController::abortLeavesWhatANameWithANulIsCutTo()
{
    makeTree("src");
    Test::makeFile(path("dst/unrelated"), "1");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("dst") + QChar(0));
    controller.abort();
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("canceled"));
    QVERIFY(QFileInfo::exists(path("dst/unrelated")));
}

void tst_CFileCopyController::overlappingRequestRunsAfterTheFirst()
{
    Test::makeFile(path("one/a"), Test::someBytes(8 * s_mebibyte, 1));
    Test::makeFile(path("two/b"), Test::someBytes(8 * s_mebibyte, 2));
    makeTree("three");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("one"), path("first"));
    controller.copyDirectories({path("two")}, {path("second")});
    // the caller was held until the first had ended, and no longer
    QCOMPARE(Test::contentOf(path("first/a")), Test::contentOf(path("one/a")));
    QCOMPARE(ends.ends(), QString());
    controller.copyDirectory(path("three"), path("third"));
    QVERIFY(ends.waitFor(3));
    QCOMPARE(ends.ends(), QStringLiteral("completed completed completed"));
    QVERIFY(Test::treeOf(path("first")) == Test::treeOf(path("one")));
    QVERIFY(Test::treeOf(path("second")) == Test::treeOf(path("two")));
    QVERIFY(Test::treeOf(path("third")) == Test::treeOf(path("three")));
    QCOMPARE(controller.state(), CFileCopyController::StateIdle);
    QCOMPARE(controller.processedBytes(), Q_INT64_C(300));
}

// as a host does that copies one directory after the other whenever it hears of idle
void tst_CFileCopyController::requestInASlotOfALoadingComesBehindIt()
{
    makeTree("first");
    makeTree("second", 2);
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    QList<qint64> files;
    connect(&controller, &CFileCopyController::operationCompleted, &controller,
            [&] { files.append(controller.lastResult().files); });
    bool isRequested = false;
    connect(&controller, &CFileCopyController::stateChanged, &controller, [&] {
        if (!std::exchange(isRequested, true)) {
            controller.copyDirectory(path("second"), path("copy of second"));
        }
    });
    controller.copyDirectory(path("first"), path("copy of first"));
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("completed completed"));
    QCOMPARE(files, (QList<qint64>{3, 2}));
    QCOMPARE(Test::treeOf(path("copy of first")), Test::treeOf(path("first")));
    QCOMPARE(Test::treeOf(path("copy of second")), Test::treeOf(path("second")));
}

void tst_CFileCopyController::overlappingRequestWakesAPausedRun()
{
    makeTree("one");
    makeTree("two");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    makeSyncWait();
    controller.copyDirectory(path("one"), path("first"));
    QVERIFY(isInSync());
    controller.pause();
    letSyncGo();
    QTRY_COMPARE_WITH_TIMEOUT(controller.processedBytes(), Q_INT64_C(300), 30000);
    QCOMPARE(ends.ends(), QString());
    controller.copyDirectory(path("two"), path("second"));
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("completed completed"));
    QVERIFY(QFileInfo::exists(path("first/sub/2")));
    QVERIFY(QFileInfo::exists(path("second/sub/2")));
}

void tst_CFileCopyController::overlappingRequestStartsFromACleanSlate()
{
    makeTree("one", 5);
    makeTree("two", 2);
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    QStringList seen;
    const auto note = [&](const char *what, qlonglong value) {
        seen.append(QString::fromLatin1(what) + QString::number(value));
    };
    connect(&controller, &CFileCopyController::processedBytesChanged, this,
            [&] { note("p", controller.processedBytes()); });
    connect(&controller, &CFileCopyController::totalBytesChanged, this,
            [&] { note("t", controller.totalBytes()); });
    connect(&controller, &CFileCopyController::stateChanged, this,
            [&] { note("s", controller.state()); });
    connect(&controller, &CFileCopyController::operationCompleted, this, [&] { note("end", 0); });

    controller.copyDirectory(path("one"), path("first"));
    QTest::qSleep(200); // the run is over, and nothing of it delivered
    seen.clear();
    controller.copyDirectory(path("two"), path("second"));
    QVERIFY(ends.waitFor(2));
    const int firstEnd = seen.indexOf(QStringLiteral("end0"));
    QVERIFY(firstEnd >= 0);
    QCOMPARE(seen.mid(firstEnd + 1).join(QLatin1Char(' ')),
             QStringLiteral("s1 p0 t0 t200 s2 s3 p100 p200 s0 end0"));
}

void tst_CFileCopyController::abortThenRequestEndsEachAsMeant()
{
    Test::makeFile(path("one/a"), Test::someBytes(20 * s_mebibyte, 1));
    makeTree("two");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectories({path("one")}, {path("first")});
    while (!QFileInfo::exists(path("first/a"))) {
        QTest::qSleep(1);
    }
    controller.abort();
    controller.copyDirectories({path("two")}, {path("second")});
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("canceled completed"));
    QVERIFY(!QFileInfo::exists(path("first")));
    QCOMPARE(Test::treeOf(path("second")), Test::treeOf(path("two")));
}

void tst_CFileCopyController::abortThenRequestToTheSameDestinationKeepsTheNewCopy()
{
    makeTree("one");
    makeTree("two", 7);
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    for (int i = 0; i < 50; ++i) {
        controller.copyDirectories({path("one")}, {path("dst")});
        controller.abort();
        controller.copyDirectories({path("two")}, {path("dst")});
        QVERIFY(ends.waitFor(2 * i + 2));
        QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("two")));
    }
    QCOMPARE(ends.ends().count(QStringLiteral("canceled completed")), 50);
}

void tst_CFileCopyController::abortOfTheSecondLeavesTheFirst()
{
    makeTree("one");
    makeTree("two");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectories({path("one")}, {path("first")});
    controller.copyDirectories({path("two")}, {path("second")});
    controller.abort();
    QVERIFY(ends.waitFor(2));
    QCOMPARE(ends.ends(), QStringLiteral("completed canceled"));
    QCOMPARE(Test::treeOf(path("first")), Test::treeOf(path("one")));
    QVERIFY(!QFileInfo::exists(path("second")));
}

void tst_CFileCopyController::resetZeroesTheProperties()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(ends.waitFor(1));
    controller.reset();
    QCOMPARE(controller.processedBytes(), Q_INT64_C(0));
    QCOMPARE(controller.totalBytes(), Q_INT64_C(0));
    QCOMPARE(controller.state(), CFileCopyController::StateIdle);
    QVERIFY(QFileInfo::exists(path("dst")));
}

void tst_CFileCopyController::resetBeforeTheRunRemovesNothing()
{
    makeTree("src");
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("first"));
    QVERIFY(ends.waitFor(1));
    for (int i = 0; i < 20; ++i) {
        controller.copyDirectory(path("src"), path("second"));
        controller.reset(); // may come before the run has begun, or after
        QVERIFY(ends.waitFor(2 + i));
        QCOMPARE(Test::treeOf(path("first")), Test::treeOf(path("src")));
    }
}

void tst_CFileCopyController::resetDuringARunLeavesItsCopyWhole()
{
    Test::makeFile(path("src/a"), Test::someBytes(9 * s_mebibyte));
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QTRY_VERIFY_WITH_TIMEOUT(controller.processedBytes() > 0, 30000);
    controller.reset();
    QVERIFY(ends.waitFor(1));
    QCOMPARE(ends.ends(), QStringLiteral("completed"));
    QVERIFY(Test::treeOf(path("dst")) == Test::treeOf(path("src")));
    QCOMPARE(controller.state(), CFileCopyController::StateIdle);
}

void tst_CFileCopyController::copyFileIsSynchronousAndSilent()
{
    const QByteArray content = Test::someBytes(9 * s_mebibyte);
    Test::makeFile(path("src"), content);
    const Test::LogRecorder log;
    CFileCopyController controller;
    QSignalSpy processed(&controller, &CFileCopyController::processedBytesChanged);
    QSignalSpy completed(&controller, &CFileCopyController::operationCompleted);
    QSignalSpy state(&controller, &CFileCopyController::stateChanged);
    int events = 0;
    QMetaObject::invokeMethod(
        this, [&events] { ++events; }, Qt::QueuedConnection);
    controller.copyFile(path("src"), path("dst"));
    QVERIFY(Test::contentOf(path("dst")) == content);
    QCOMPARE(events, 1); // the caller's events are serviced meanwhile
    QCOMPARE(m_commands->journal().size(), 3); // "sync", once a chunk
    QCoreApplication::processEvents();
    QCOMPARE(processed.count() + completed.count() + state.count(), 0);
    QCOMPARE(controller.processedBytes(), Q_INT64_C(0));
    QCOMPARE(log.entries(), QStringList());
}

void tst_CFileCopyController::copyFileLogsItsFailure_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("destination");
    QTest::addColumn<int>("code");
    const QString file = QStringLiteral("file");
    QTest::newRow("missing source")
        << QStringLiteral("missing") << QStringLiteral("copy") << 721153;
    QTest::newRow("missing folder") << file << QStringLiteral("missing/copy") << 721155;
    QTest::newRow("full device") << file << QStringLiteral("full") << 721156;
}

void tst_CFileCopyController::copyFileLogsItsFailure()
{
    QFETCH(QString, source);
    QFETCH(QString, destination);
    QFETCH(int, code);
    source = m_folder->filePath(source);
    destination = m_folder->filePath(destination);
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), path("full")));
    Test::makeFile(path("file"), "1");
    const Test::LogRecorder log;
    CFileCopyController controller;
    Test::CopyOutcomes ends(controller);
    controller.copyFile(source, destination);
    QCOMPARE(log.entries(),
             QStringList(HostLog::format(LogLevel::Error, QStringLiteral("CFileCopyController"),
                                         QStringLiteral("Failed to copy file from \"") + source
                                             + QStringLiteral("\" to \"") + destination
                                             + QStringLiteral("\" Error code is: ")
                                             + QString::number(code))));
    QCOMPARE(ends.errorCount(), 0);
}

void tst_CFileCopyController::destroyedAfterTheEndIsAnnounced()
{
    Test::makeFile(path("src/empty")); // no bytes, no "sync": the thread is on its way out at once
    for (int i = 0; i < 2000; ++i) {
        auto controller = std::make_unique<CFileCopyController>();
        Test::CopyOutcomes ends(*controller);
        controller->copyDirectory(path("src"), path("dst"));
        QVERIFY(ends.waitFor(1));
        controller.reset();
    }
}

void tst_CFileCopyController::destroyedInTheSlotThatHearsTheEnd()
{
    Test::makeFile(path("src/empty"));
    for (int i = 0; i < 2000; ++i) {
        auto controller = std::make_unique<CFileCopyController>();
        bool hasEnded = false;
        connect(controller.get(), &CFileCopyController::operationCompleted, this, [&] {
            hasEnded = true;
            controller.reset();
        });
        controller->copyDirectory(path("src"), path("dst"));
        while (!hasEnded) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
}

void tst_CFileCopyController::destroyedUnused()
{
    for (int i = 0; i < 100; ++i) {
        const CFileCopyController controller;
        QCOMPARE(controller.state(), CFileCopyController::StateIdle);
    }
}

void tst_CFileCopyController::destroyedDuringACopyLeavesNoPartOfAFile()
{
    constexpr int size = 40 * s_mebibyte;
    Test::makeFile(path("src/a"), "whole");
    Test::makeFile(path("src/b"), Test::someBytes(size));
    makeSyncWait();
    for (int i = 0; i < 5; ++i) {
        auto controller = std::make_unique<CFileCopyController>();
        controller->copyDirectory(path("src"), path("dst"));
        while (QFileInfo(path("dst/b")).size() == 0) {
            QTest::qSleep(1);
        }
        controller.reset(); // a destructor that waited for the copy would wait for "sync", too
        QVERIFY(!QFileInfo::exists(path("letGo")));
        QTRY_VERIFY_WITH_TIMEOUT(
            !QFileInfo::exists(path("dst/b")) || QFileInfo(path("dst/b")).size() == size, 30000);
        QCOMPARE(Test::contentOf(path("dst/a")), QByteArray("whole"));
        QVERIFY(QDir(path("dst")).removeRecursively());
    }
    letSyncGo();
    QTest::qWait(100); // threads and workers go by themselves
}

void tst_CFileCopyController::destroyedWhilePaused()
{
    Test::makeFile(path("src"), Test::someBytes(300));
    auto controller = std::make_unique<CFileCopyController>();
    makeSyncWait();
    controller->copyDatabaseFile(path("src"), path("dst"));
    QVERIFY(isInSync());
    controller->pause();
    letSyncGo();
    QTRY_COMPARE_WITH_TIMEOUT(controller->processedBytes(), Q_INT64_C(300), 30000);
    const int threads = Test::threadCount();
    controller.reset();
    QTRY_COMPARE_WITH_TIMEOUT(Test::threadCount(), threads - 1, 30000); // it does not wait on
    QCOMPARE(QFileInfo(path("dst")).size(), Q_INT64_C(300));
}

void tst_CFileCopyController::destroyedByAThreadThatEnds()
{
    Test::makeFile(path("src"), Test::someBytes(300));
    makeSyncWait();
    const int threads = Test::threadCount();
    std::thread user([this] {
        CFileCopyController controller;
        controller.copyDatabaseFile(path("src"), path("dst"));
        QVERIFY(isInSync());
    });
    user.join();
    letSyncGo();
    QTRY_COMPARE_WITH_TIMEOUT(Test::threadCount(), threads, 30000);
    // what is not deleted now the address sanitizer finds
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QTEST_GUILESS_MAIN(tst_CFileCopyController)

#include "tst_CFileCopyController.moc"
