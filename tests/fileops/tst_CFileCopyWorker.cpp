// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyWorker.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"
#include "tests/support/WorkerAtWork.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <sys/stat.h>
#include <unistd.h>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileCopyWorker;

namespace {

constexpr int s_mebibyte = 1024 * 1024;

class SignalLog : public Test::SignalLog<CFileCopyWorker>
{
public:
    explicit SignalLog(CFileCopyWorker &worker)
        : Test::SignalLog<CFileCopyWorker>(worker)
    {
        QObject::connect(&worker, &CFileCopyWorker::processingDirectoryChanged, &worker,
                         [this](const QString &d) { add(QStringLiteral("directory %1").arg(d)); });
    }
};

using RunningWorker = Test::RunningWorker<CFileCopyWorker>;

QByteArray nativeName(const QString &path)
{
    return path.toUtf8();
}

} // namespace

class tst_CFileCopyWorker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void metaObjectStandsInOrder();
    void startsIdleAndClean();
    void settersAnnounceAsTheyShould();
    void resetForgetsAndAnnounces();

    void treeIsCopiedWithSignalsInOrder();
    void severalTreesCountAsOne();
    void surplusPathsAreIgnored_data();
    void surplusPathsAreIgnored();
    void sourceNeedsNoFinalSlash();
    void blanksAndTabsEndNoDestination_data();
    void blanksAndTabsEndNoDestination();
    void hiddenEntriesAreLeftOut();
    void linksAreFollowed();
    void emptySourceCreatesNothing();
    void emptyFoldersAreRecreated();
    void relativeSourceWorksLikeItsAbsolutePath();
    void uncleanSourceWorksLikeItsCleanPath();
    void everyOccurrenceOfTheSourcePathIsCutOut();
    void emptyPathsTouchNothing();
    void directoriesWithANulTouchNothing();
    void destinationRemovedMeanwhileIsMadeAgain();

    void singleFileIsCopiedWithSignalsInOrder();
    void singleFileCreatesNoFolder();
    void filesAreCopiedInChunksOfFourMebibytes_data();
    void filesAreCopiedInChunksOfFourMebibytes();
    void syncRunsOnceForAJob();
    void syncRunsAfterEveryChunkOfADirectCopy();
    void growingFileSyncsEveryFurtherChunk();
    void fileThatGrowsWhileItIsCopiedKeepsItsChunks();
    void zeroLengthFileIsCreatedSilently();
    void missingSyncCommandIsNoFailure();

    void permissionsAreThoseOfTheSource_data();
    void permissionsAreThoseOfTheSource();
    void longerDestinationIsReplacedWhole();
    void unreadableSourceIsReported_data();
    void unreadableSourceIsReported();
    void unwritableDestinationIsReported_data();
    void unwritableDestinationIsReported();
    void fileCopiedOntoItselfIsUnharmed_data();
    void fileCopiedOntoItselfIsUnharmed();
    void fullDeviceIsAFailedWriteAndTheLinkGoes();
    void failureStopsTheJob();
    void uncreatableFolderShowsAtItsFile();
    void folderStructureStopsAtTheFirstFailure();

    void idleStartEndsAsCanceled();
    void cancelBeforeTheRunEndsIt();
    void cancelInMidFileLeavesItCutOffAndSucceeds();
    void cancelWhilePausedEndsTheRun();
    void pauseHoldsBeforeTheNextChunk();
    void pauseHoldsBeforeTheNextStep();
    void loadingLiftsAPause();
    void queuedCallsAreDeliveredBetweenChunks();
    void timersRunBetweenChunks();
    void secondStartDuringARunIsIgnored();
    void loadingDuringARunConcernsTheNextOne();
    void resetDuringARunLeavesItsCopyWhole();
    void cancelReachesRunAndLoadedRequest();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    int syncCount() const { return m_commands->journal().count(QStringLiteral("sync")); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Test::FakeCommands> m_commands;
};

void tst_CFileCopyWorker::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
    m_commands.reset(new Test::FakeCommands);
    m_commands->add(QStringLiteral("sync"));
}

void tst_CFileCopyWorker::cleanup()
{
    m_commands.reset();
    m_folder.reset();
}

void tst_CFileCopyWorker::metaObjectStandsInOrder()
{
    const QMetaObject &meta = CFileCopyWorker::staticMetaObject;
    const QVector<QPair<QByteArray, QMetaMethod::MethodType>> expected = {
        {"finished()", QMetaMethod::Signal},
        {"stateChanged(int)", QMetaMethod::Signal},
        {"errorOccurred(int)", QMetaMethod::Signal},
        {"processedBytesChanged(qlonglong)", QMetaMethod::Signal},
        {"processingDirectoryChanged(QString)", QMetaMethod::Signal},
        {"totalBytesChanged(qlonglong)", QMetaMethod::Signal},
        {"doWork()", QMetaMethod::Slot},
        {"cancelWork()", QMetaMethod::Slot},
    };
    QCOMPARE(meta.methodCount() - meta.methodOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), expected.at(i).first);
        QCOMPARE(method.methodType(), expected.at(i).second);
        QCOMPARE(method.access(), QMetaMethod::Public);
    }
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.method(meta.methodOffset() + 1).parameterNames(), QList<QByteArray>{"newState"});
    QCOMPARE(meta.method(meta.methodOffset() + 2).parameterNames(), QList<QByteArray>{"errorCode"});
    QCOMPARE(meta.method(meta.methodOffset() + 3).parameterNames(), QList<QByteArray>{"value"});
}

void tst_CFileCopyWorker::startsIdleAndClean()
{
    const CFileCopyWorker worker;
    QCOMPARE(worker.state(), static_cast<int>(CFileCopyController::StateIdle));
    QCOMPARE(worker.error(), static_cast<int>(CFileCopyController::ErrorNone));
    QVERIFY(!worker.isCanceled());
}

void tst_CFileCopyWorker::settersAnnounceAsTheyShould()
{
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.setState(CFileCopyController::StateIdle);
    QCOMPARE(log.take(), QString());
    worker.setState(CFileCopyController::StateCopying);
    worker.setState(CFileCopyController::StateCopying);
    QCOMPARE(log.take(), QStringLiteral("state 3"));
    QCOMPARE(worker.state(), 3);
    worker.updateProcessedBytes(5);
    worker.updateProcessedBytes(0);
    worker.updateProcessedBytes(7);
    QCOMPARE(log.take(), QStringLiteral("processed 5, processed 5, processed 12"));
    worker.updateProcessingDirectory(QStringLiteral("a"));
    worker.updateProcessingDirectory(QStringLiteral("a"));
    QCOMPARE(log.take(), QStringLiteral("directory a, directory a"));
}

void tst_CFileCopyWorker::resetForgetsAndAnnounces()
{
    Test::makeFile(path("src/f"), "1");
    CFileCopyWorker worker;
    worker.copyDirectory(path("src"), path("dst"));
    worker.updateProcessedBytes(5);
    worker.cancelWork();
    QVERIFY(worker.isCanceled());
    SignalLog log(worker);

    worker.reset();
    QCOMPARE(log.take(), QStringLiteral("state 0, processed 0, total 0"));
    QVERIFY(!worker.isCanceled());
    worker.reset();
    QCOMPARE(log.take(), QStringLiteral("processed 0, total 0"));
    worker.updateProcessedBytes(1);
    QCOMPARE(log.take(), QStringLiteral("processed 1"));

    worker.doWork(); // nothing is loaded any more
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CFileCopyWorker::treeIsCopiedWithSignalsInOrder()
{
    Test::makeFile(path("src/b"), "12345");
    Test::makeFile(path("src/A"), "123");
    Test::makeFile(path("src/sub/deep/c"), Test::someBytes(1000));
    CFileCopyWorker worker;
    SignalLog log(worker);

    worker.copyDirectory(path("src"), path("dst"));
    QCOMPARE(log.take(), QStringLiteral("processed 0, total 0, state 1"));
    QVERIFY(!QFileInfo::exists(path("dst")));

    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("total 1008, state 2, state 3, directory dst, processed 3, "
                            "processed 8, processed 1008, state 0, finished"));
    QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("src")));
    QCOMPARE(Test::treeOf(path("dst")).size(), 5);
    QCOMPARE(worker.error(), 0);
    QVERIFY(!worker.isCanceled());
}

void tst_CFileCopyWorker::severalTreesCountAsOne()
{
    Test::makeFile(path("one/a"), "12");
    Test::makeFile(path("two/b"), "345");
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyDirectories({path("one"), path("two")}, {path("out/x"), path("out/y/")});
    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("processed 0, total 0, state 1, total 5, state 2, state 3, "
                            "directory x, processed 2, directory y, processed 5, state 0, "
                            "finished"));
    QCOMPARE(Test::contentOf(path("out/x/a")), QByteArray("12"));
    QCOMPARE(Test::contentOf(path("out/y/b")), QByteArray("345"));
    QCOMPARE(syncCount(), 1);
}

void tst_CFileCopyWorker::surplusPathsAreIgnored_data()
{
    QTest::addColumn<QStringList>("sources");
    QTest::addColumn<QStringList>("destinations");
    QTest::addColumn<int>("copies");
    const QStringList one = {QStringLiteral("one")};
    const QStringList two = {QStringLiteral("one"), QStringLiteral("two")};
    QTest::newRow("more sources") << two << one << 1;
    QTest::newRow("more destinations") << one << two << 1;
    QTest::newRow("no sources") << QStringList() << two << 0;
    QTest::newRow("no destinations") << two << QStringList() << 0;
}

void tst_CFileCopyWorker::surplusPathsAreIgnored()
{
    QFETCH(QStringList, sources);
    QFETCH(QStringList, destinations);
    Test::makeFile(path("src/one/f"), "1");
    Test::makeFile(path("src/two/f"), "2");
    sources.replaceInStrings(QRegularExpression(QStringLiteral("^")), path("src/"));
    destinations.replaceInStrings(QRegularExpression(QStringLiteral("^")), path("dst/"));
    CFileCopyWorker worker;
    QSignalSpy finished(&worker, &CFileCopyWorker::finished);
    worker.copyDirectories(sources, destinations);
    worker.doWork();
    QCOMPARE(finished.count(), 1);
    QVERIFY(!worker.isCanceled());
    QTEST(QDir(path("dst")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), "copies");
}

void tst_CFileCopyWorker::sourceNeedsNoFinalSlash()
{
    Test::makeFile(path("src/sub/f"), "1");
    for (const char *source : {"src", "src/"}) {
        CFileCopyWorker worker;
        worker.copyDirectory(path(source), path("dst"));
        worker.doWork();
        QCOMPARE(Test::treeOf(path("dst")).keys(),
                 QStringList({QStringLiteral("sub/"), QStringLiteral("sub/f")}));
        QVERIFY(QDir(path("dst")).removeRecursively());
    }
}

void tst_CFileCopyWorker::blanksAndTabsEndNoDestination_data()
{
    QTest::addColumn<QString>("ending");
    QTest::addColumn<QString>("directory");
    QTest::newRow("two blanks") << QStringLiteral("  ") << QStringLiteral("dst");
    QTest::newRow("tabs and blanks") << QStringLiteral("\t \t") << QStringLiteral("dst");
    QTest::newRow("blanks behind a slash") << QStringLiteral("/  ") << QStringLiteral("dst");
    QTest::newRow("blanks before a slash stay") << QStringLiteral("  /") << QStringLiteral("dst  ");
    QTest::newRow("a line feed stays") << QStringLiteral("\n") << QStringLiteral("dst\n");
    QTest::newRow("a no-break space stays")
        << QString(QChar(0xA0)) << QStringLiteral("dst") + QChar(0xA0);
}

void tst_CFileCopyWorker::blanksAndTabsEndNoDestination()
{
    QFETCH(QString, ending);
    QFETCH(QString, directory);
    Test::makeFile(path("src/f"), "1");
    CFileCopyWorker worker;
    worker.copyDirectory(path("src"), path("out/dst") + ending);
    worker.doWork();
    QCOMPARE(QDir(path("out")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList(directory));
    worker.copyLargeFile(path("src/f"), path("single") + ending);
    worker.doWork();
    if (!ending.contains(QLatin1Char('/'))) {
        QCOMPARE(Test::contentOf(m_folder->filePath(QStringLiteral("single") + directory.mid(3))),
                 QByteArray("1"));
    }
}

void tst_CFileCopyWorker::hiddenEntriesAreLeftOut()
{
    Test::makeFile(path("src/f"), "1");
    Test::makeFile(path("src/.hidden"), "2");
    Test::makeFile(path("src/.folder/f"), "3");
    CFileCopyWorker worker;
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QCOMPARE(Test::treeOf(path("dst")).keys(), QStringList(QStringLiteral("f")));
}

void tst_CFileCopyWorker::linksAreFollowed()
{
    Test::makeFile(path("elsewhere/f"), "content");
    QVERIFY(QDir().mkpath(path("src")));
    QVERIFY(QFile::link(path("elsewhere/f"), path("src/file")));
    QVERIFY(QFile::link(path("elsewhere"), path("src/folder")));
    QVERIFY(QFile::link(path("nowhere"), path("src/broken")));
    CFileCopyWorker worker;
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QCOMPARE(Test::treeOf(path("dst")).keys(),
             QStringList(
                 {QStringLiteral("file"), QStringLiteral("folder/"), QStringLiteral("folder/f")}));
    QVERIFY(!QFileInfo(path("dst/file")).isSymLink());
    QCOMPARE(Test::contentOf(path("dst/folder/f")), QByteArray("content"));
}

void tst_CFileCopyWorker::emptySourceCreatesNothing()
{
    QVERIFY(QDir().mkpath(path("src")));
    for (const char *source : {"src", "missing"}) {
        CFileCopyWorker worker;
        SignalLog log(worker);
        worker.copyDirectory(path(source), path("dst"));
        worker.doWork();
        QCOMPARE(log.take(),
                 QStringLiteral("processed 0, total 0, state 1, total 0, state 2, state 3, "
                                "directory dst, state 0, finished"));
        QVERIFY(!worker.isCanceled());
        QVERIFY(!QFileInfo::exists(path("dst")));
    }
}

void tst_CFileCopyWorker::emptyFoldersAreRecreated()
{
    QVERIFY(QDir().mkpath(path("src/a/b")));
    CFileCopyWorker worker;
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QVERIFY(QFileInfo(path("dst/a/b")).isDir());
}

void tst_CFileCopyWorker::relativeSourceWorksLikeItsAbsolutePath()
{
    Test::makeFile(path("src/sub/f"), "1");
    const QString before = QDir::currentPath();
    const auto back = qScopeGuard([before] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(m_folder->path()));
    for (const char *source : {"src", "./src/", "src/../src"}) {
        CFileCopyWorker worker;
        worker.copyDirectory(QString::fromLatin1(source), path("dst"));
        worker.doWork();
        QCOMPARE(Test::treeOf(path("dst")).keys(),
                 QStringList({QStringLiteral("sub/"), QStringLiteral("sub/f")}));
        QVERIFY(QDir(path("dst")).removeRecursively());
    }
}

void tst_CFileCopyWorker::uncleanSourceWorksLikeItsCleanPath()
{
    Test::makeFile(path("src/sub/f"), "1");
    CFileCopyWorker worker;
    worker.copyDirectory(path("src/../src//./"), path("dst"));
    worker.doWork();
    QCOMPARE(Test::treeOf(path("dst")).keys(),
             QStringList({QStringLiteral("sub/"), QStringLiteral("sub/f")}));
}

void tst_CFileCopyWorker::everyOccurrenceOfTheSourcePathIsCutOut()
{
    const QString source = path("src/");
    Test::makeFile(path("src/k") + source + QStringLiteral("f"), "1");
    CFileCopyWorker worker;
    worker.copyDirectory(source, path("dst"));
    worker.doWork();
    QCOMPARE(QDir(path("dst")).entryList(QDir::Files), QStringList(QStringLiteral("kf")));
}

void tst_CFileCopyWorker::emptyPathsTouchNothing()
{
    Test::makeFile(path("src/f"), "1");
    const QString before = QDir::currentPath();
    const auto back = qScopeGuard([before] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(path("src")));
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyDirectory(QString(), path("dst"));
    worker.doWork();
    QVERIFY(log.take().endsWith(
        QStringLiteral("total 0, state 2, state 3, directory dst, state 0, finished")));
    QVERIFY(!QFileInfo::exists(path("dst")));

    for (const char *destination : {"", "  "}) {
        worker.copyDirectory(path("src"), QString::fromLatin1(destination));
        log.take();
        worker.doWork();
        QVERIFY(log.take().endsWith(QStringLiteral("error 3, state 0, finished")));
    }
    QVERIFY(!QFileInfo::exists(QStringLiteral("/f")));
    QCOMPARE(Test::treeOf(path("src")).keys(), QStringList(QStringLiteral("f")));
}

void tst_CFileCopyWorker::directoriesWithANulTouchNothing()
{
    Test::makeFile(path("src/f"), "1");
    const QChar nul(0); // the system would take the path to end before it
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyDirectory(path("src") + nul, path("dst"));
    worker.doWork();
    QVERIFY(log.take().endsWith(
        QStringLiteral("total 0, state 2, state 3, directory dst, state 0, finished")));
    worker.copyDirectory(path("src"), path("dst") + nul);
    worker.doWork();
    QVERIFY(log.take().endsWith(QStringLiteral("error 3, state 0, finished")));
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CFileCopyWorker::destinationRemovedMeanwhileIsMadeAgain()
{
    Test::makeFile(path("src/a"), "1");
    Test::makeFile(path("src/b"), "2");
    CFileCopyWorker worker;
    connect(&worker, &CFileCopyWorker::processedBytesChanged, this, [this](qlonglong n) {
        if (n == 1) {
            QVERIFY(QDir(path("dst")).removeRecursively());
        }
    });
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QCOMPARE(worker.error(), 0);
    QCOMPARE(Test::contentOf(path("dst/b")), QByteArray("2"));
}

void tst_CFileCopyWorker::singleFileIsCopiedWithSignalsInOrder()
{
    Test::makeFile(path("db"), "12345");
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyLargeFile(path("db"), path("copy"));
    QCOMPARE(log.take(), QStringLiteral("processed 0, total 0, state 4"));
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("total 5, processed 5, state 0, finished"));
    QCOMPARE(Test::contentOf(path("copy")), QByteArray("12345"));
    QCOMPARE(syncCount(), 1);
}

void tst_CFileCopyWorker::singleFileCreatesNoFolder()
{
    Test::makeFile(path("db"), "12345");
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyLargeFile(path("db"), path("missing/copy"));
    worker.doWork();
    QVERIFY(log.take().endsWith(QStringLiteral("total 5, error 3, state 0, finished")));
    QCOMPARE(worker.error(), static_cast<int>(CFileCopyController::ErrorDestinationFileOpenFailed));
    QVERIFY(!QFileInfo::exists(path("missing")));
}

void tst_CFileCopyWorker::filesAreCopiedInChunksOfFourMebibytes_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("progress");
    QTest::newRow("one byte less than a chunk") << 4194303 << QStringLiteral("processed 4194303");
    QTest::newRow("a chunk") << 4194304 << QStringLiteral("processed 4194304");
    QTest::newRow("one byte more than a chunk")
        << 4194305 << QStringLiteral("processed 4194304, processed 4194305");
    QTest::newRow("two chunks and a half")
        << 10485760 << QStringLiteral("processed 4194304, processed 8388608, processed 10485760");
}

void tst_CFileCopyWorker::filesAreCopiedInChunksOfFourMebibytes()
{
    QFETCH(int, size);
    QFETCH(QString, progress);
    const QByteArray content = Test::someBytes(size);
    Test::makeFile(path("big"), content);
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyLargeFile(path("big"), path("copy"));
    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("processed 0, total 0, state 4, total %1, %2, state 0, finished")
                 .arg(size)
                 .arg(progress));
    QVERIFY(Test::contentOf(path("copy")) == content);
    QCOMPARE(syncCount(), 1);
}

void tst_CFileCopyWorker::syncRunsOnceForAJob()
{
    for (int i = 0; i < 10; ++i) {
        Test::makeFile(path("src/%1").arg(i), Test::someBytes(100, i));
    }
    CFileCopyWorker worker;
    int syncsBeforeTheEnd = 0;
    connect(&worker, &CFileCopyWorker::processedBytesChanged, this,
            [&](qlonglong n) { syncsBeforeTheEnd += n < 1000 ? syncCount() : 0; });
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QCOMPARE(syncsBeforeTheEnd, 0);
    QCOMPARE(m_commands->journal(), QStringList(QStringLiteral("sync")));
}

void tst_CFileCopyWorker::syncRunsAfterEveryChunkOfADirectCopy()
{
    Test::makeFile(path("big"), Test::someBytes(9 * s_mebibyte));
    CFileCopyWorker worker;
    SignalLog log(worker);
    QCOMPARE(worker.copyFile(path("big"), path("copy")), 0);
    QCOMPARE(syncCount(), 3);
    QCOMPARE(log.take(), QStringLiteral("processed 4194304, processed 8388608, processed 9437184"));
    QCOMPARE(worker.state(), 0);
}

void tst_CFileCopyWorker::growingFileSyncsEveryFurtherChunk()
{
    Test::makeFile(path("src/f"), Test::someBytes(s_mebibyte));
    CFileCopyWorker worker;
    SignalLog log(worker);
    connect(&worker, &CFileCopyWorker::totalBytesChanged, this, [this](qlonglong n) {
        if (n > 0) {
            Test::makeFile(path("src/f"), Test::someBytes(9 * s_mebibyte));
        }
    });
    worker.copyDirectory(path("src"), path("dst"));
    log.take();
    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("total 1048576, state 2, state 3, directory dst, processed 4194304, "
                            "processed 8388608, processed 9437184, state 0, finished"));
    QCOMPARE(syncCount(), 3);
    QVERIFY(Test::contentOf(path("dst/f")) == Test::contentOf(path("src/f")));
}

void tst_CFileCopyWorker::fileThatGrowsWhileItIsCopiedKeepsItsChunks()
{
    Test::makeFile(path("f"), Test::someBytes(100, 1));
    CFileCopyWorker worker;
    SignalLog log(worker);
    connect(&worker, &CFileCopyWorker::processedBytesChanged, this, [this](qlonglong n) {
        if (n == 100) {
            QFile file(path("f"));
            QVERIFY(file.open(QIODevice::Append));
            QCOMPARE(file.write(Test::someBytes(9 * s_mebibyte, 2)), 9LL * s_mebibyte);
        }
    });
    QCOMPARE(worker.copyFile(path("f"), path("copy")), 0);
    QCOMPARE(
        log.take(),
        QStringLiteral("processed 100, processed 4194404, processed 8388708, processed 9437284"));
    QCOMPARE(syncCount(), 4);
    QVERIFY(Test::contentOf(path("copy")) == Test::contentOf(path("f")));
}

void tst_CFileCopyWorker::zeroLengthFileIsCreatedSilently()
{
    Test::makeFile(path("src/empty"));
    QVERIFY(::chmod(nativeName(path("src/empty")), 0600) == 0);
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyDirectory(path("src"), path("dst"));
    log.take();
    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("total 0, state 2, state 3, directory dst, state 0, finished"));
    QCOMPARE(Test::contentOf(path("dst/empty")), QByteArray(""));
    QVERIFY(QFileInfo::exists(path("dst/empty")));
    QCOMPARE(Test::modeOf(path("dst/empty")), 0600);
    QCOMPARE(syncCount(), 0);
}

void tst_CFileCopyWorker::missingSyncCommandIsNoFailure()
{
    m_commands.reset(new Test::FakeCommands);
    m_commands->hideOthers();
    Test::makeFile(path("db"), "12345");
    CFileCopyWorker worker;
    worker.copyLargeFile(path("db"), path("copy"));
    worker.doWork();
    QCOMPARE(worker.error(), 0);
    QCOMPARE(Test::contentOf(path("copy")), QByteArray("12345"));
}

void tst_CFileCopyWorker::permissionsAreThoseOfTheSource_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("expected");
    QTest::newRow("read only, also for root") << 0444 << 0444;
    QTest::newRow("private") << 0600 << 0600;
    QTest::newRow("usual") << 0644 << 0644;
    QTest::newRow("all, whatever the umask") << 0777 << 0777;
    QTest::newRow("group only") << 0040 << 0040;
    QTest::newRow("none") << 0000 << 0000;
    QTest::newRow("set-user-id does not travel") << 04755 << 0755;
}

void tst_CFileCopyWorker::permissionsAreThoseOfTheSource()
{
    QFETCH(int, mode);
    if (::geteuid() != 0 && (mode & 0400) == 0) {
        QSKIP("only root can read a file that nobody may read");
    }
    Test::makeFile(path("f"), "1");
    QVERIFY(::chmod(nativeName(path("f")), static_cast<mode_t>(mode)) == 0);
    CFileCopyWorker worker;
    QCOMPARE(worker.copyFile(path("f"), path("copy")), 0);
    QTEST(Test::modeOf(path("copy")), "expected");

    // a destination that is there already takes them over as well
    Test::makeFile(path("there"), "older");
    QVERIFY(::chmod(nativeName(path("there")), 0640) == 0);
    QCOMPARE(worker.copyFile(path("f"), path("there")), 0);
    QTEST(Test::modeOf(path("there")), "expected");
}

void tst_CFileCopyWorker::longerDestinationIsReplacedWhole()
{
    Test::makeFile(path("f"), "short");
    Test::makeFile(path("there"), "much longer than that");
    CFileCopyWorker worker;
    QCOMPARE(worker.copyFile(path("f"), path("there")), 0);
    QCOMPARE(Test::contentOf(path("there")), QByteArray("short"));
    Test::makeFile(path("empty"));
    QCOMPARE(worker.copyFile(path("empty"), path("there")), 0);
    QCOMPARE(Test::contentOf(path("there")), QByteArray(""));
}

void tst_CFileCopyWorker::unreadableSourceIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << QStringLiteral("missing");
    QTest::newRow("folder") << QStringLiteral("folder");
    QTest::newRow("FIFO nobody writes to") << QStringLiteral("fifo");
    QTest::newRow("link to a FIFO") << QStringLiteral("linkToFifo");
    QTest::newRow("link to a device") << QStringLiteral("linkToDevice");
    QTest::newRow("broken link") << QStringLiteral("broken");
    QTest::newRow("name with a NUL") << QString(QStringLiteral("file") + QChar(0));
    QTest::newRow("name that is too long") << QString(300, QLatin1Char('x'));
}

void tst_CFileCopyWorker::unreadableSourceIsReported()
{
    QFETCH(QString, name);
    Test::makeFile(path("file"), "1");
    QVERIFY(QDir().mkpath(path("folder")));
    QVERIFY(::mkfifo(nativeName(path("fifo")), 0644) == 0);
    QVERIFY(QFile::link(path("fifo"), path("linkToFifo")));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), path("linkToDevice")));
    QVERIFY(QFile::link(path("nowhere"), path("broken")));
    CFileCopyWorker worker;
    QCOMPARE(worker.copyFile(m_folder->filePath(name), path("copy")),
             static_cast<int>(CFileCopyController::ErrorSourceFileOpenFailed));
    QVERIFY(!QFileInfo::exists(path("copy")));
}

void tst_CFileCopyWorker::unwritableDestinationIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no folder of that name") << QStringLiteral("missing/copy");
    QTest::newRow("a folder") << QStringLiteral("folder");
    QTest::newRow("empty path") << QString();
    QTest::newRow("FIFO nobody reads from") << QStringLiteral("fifo");
    QTest::newRow("name with a NUL") << QString(QStringLiteral("copy") + QChar(0));
    QTest::newRow("name that is too long") << QString(300, QLatin1Char('x'));
}

void tst_CFileCopyWorker::unwritableDestinationIsReported()
{
    QFETCH(QString, name);
    Test::makeFile(path("file"), "1");
    QVERIFY(QDir().mkpath(path("folder")));
    QVERIFY(::mkfifo(nativeName(path("fifo")), 0644) == 0);
    CFileCopyWorker worker;
    QCOMPARE(worker.copyFile(path("file"), name.isEmpty() ? name : m_folder->filePath(name)),
             static_cast<int>(CFileCopyController::ErrorDestinationFileOpenFailed));
    QCOMPARE(QDir(m_folder->path())
                 .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                 .size(),
             3);
}

void tst_CFileCopyWorker::fileCopiedOntoItselfIsUnharmed_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("destination");
    const QString file = QStringLiteral("file");
    QTest::newRow("the same path") << file << file;
    QTest::newRow("another path to it") << file << QStringLiteral("folder/../file");
    QTest::newRow("hard link") << file << QStringLiteral("hard");
    QTest::newRow("symbolic link") << file << QStringLiteral("soft");
    QTest::newRow("from the symbolic link") << QStringLiteral("soft") << file;
}

void tst_CFileCopyWorker::fileCopiedOntoItselfIsUnharmed()
{
    QFETCH(QString, source);
    QFETCH(QString, destination);
    const QByteArray content = Test::someBytes(10000);
    Test::makeFile(path("file"), content);
    QVERIFY(QDir().mkpath(path("folder")));
    QVERIFY(::link(nativeName(path("file")), nativeName(path("hard"))) == 0);
    QVERIFY(QFile::link(path("file"), path("soft")));
    CFileCopyWorker worker;
    QCOMPARE(worker.copyFile(m_folder->filePath(source), m_folder->filePath(destination)),
             static_cast<int>(CFileCopyController::ErrorDestinationFileOpenFailed));
    QCOMPARE(Test::contentOf(path("file")), content);
    QCOMPARE(Test::contentOf(m_folder->filePath(destination)), content);
}

void tst_CFileCopyWorker::fullDeviceIsAFailedWriteAndTheLinkGoes()
{
    Test::makeFile(path("file"), "1");
    QCOMPARE(Test::modeOf(QStringLiteral("/dev/full")), 0666);
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), path("copy")));
    CFileCopyWorker worker;
    QCOMPARE(worker.copyFile(path("file"), path("copy")),
             static_cast<int>(CFileCopyController::ErrorDestinationFileWriteFailed));
    QVERIFY(!QFileInfo(path("copy")).isSymLink());
    QCOMPARE(worker.copyFile(path("file"), QStringLiteral("/dev/full")),
             static_cast<int>(CFileCopyController::ErrorDestinationFileWriteFailed));
    // a device is nobody's leftover, and its permissions are its own
    QCOMPARE(Test::modeOf(QStringLiteral("/dev/full")), 0666);
}

void tst_CFileCopyWorker::failureStopsTheJob()
{
    Test::makeFile(path("one/a"), "1");
    Test::makeFile(path("one/b"), "22");
    Test::makeFile(path("one/c"), "333");
    Test::makeFile(path("two/d"), "4");
    QVERIFY(QDir().mkpath(path("dst/b"))); // stands in the way
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyDirectories({path("one"), path("two")}, {path("dst"), path("dst")});
    log.take();
    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("total 7, state 2, state 3, directory dst, processed 1, error 3, "
                            "state 0, finished"));
    QCOMPARE(worker.error(), 3);
    QVERIFY(!worker.isCanceled());
    QVERIFY(!QFileInfo::exists(path("dst/c")));
    QVERIFY(!QFileInfo::exists(path("dst/d")));
    QCOMPARE(syncCount(), 0);
}

void tst_CFileCopyWorker::uncreatableFolderShowsAtItsFile()
{
    Test::makeFile(path("src/a"), "1");
    Test::makeFile(path("src/folder/b"), "2");
    Test::makeFile(path("dst/folder"), "a file where the folder should be");
    CFileCopyWorker worker;
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QCOMPARE(worker.error(), static_cast<int>(CFileCopyController::ErrorDestinationFileOpenFailed));
    QCOMPARE(Test::contentOf(path("dst/a")), QByteArray("1"));
}

void tst_CFileCopyWorker::folderStructureStopsAtTheFirstFailure()
{
    Test::makeFile(path("root/b"), "in the way");
    CFileCopyWorker worker;
    QVERIFY(!worker.createFolderStructure(
        path("root"), {QStringLiteral("a/x"), QStringLiteral("b"), QStringLiteral("c")}));
    QVERIFY(QFileInfo(path("root/a/x")).isDir());
    QVERIFY(!QFileInfo::exists(path("root/c")));
    QVERIFY(worker.createFolderStructure(path("root"), {QStringLiteral("c")}));
    QVERIFY(worker.createFolderStructure(path("other"), {}));
    QVERIFY(!QFileInfo::exists(path("other")));
}

void tst_CFileCopyWorker::idleStartEndsAsCanceled()
{
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("finished"));
    QVERIFY(worker.isCanceled());
    worker.reset();
    QVERIFY(!worker.isCanceled());

    Test::makeFile(path("src/f"), "1");
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QVERIFY(!worker.isCanceled());
    worker.doWork(); // what was loaded has been done
    QVERIFY(worker.isCanceled());
}

void tst_CFileCopyWorker::cancelBeforeTheRunEndsIt()
{
    Test::makeFile(path("src/f"), "1");
    CFileCopyWorker worker;
    SignalLog log(worker);
    worker.copyDirectory(path("src"), path("dst"));
    worker.cancelWork();
    log.take();
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 0, finished"));
    QVERIFY(worker.isCanceled());
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CFileCopyWorker::cancelInMidFileLeavesItCutOffAndSucceeds()
{
    Test::makeFile(path("src/a"), Test::someBytes(9 * s_mebibyte));
    Test::makeFile(path("src/b"), "1");
    QVERIFY(::chmod(nativeName(path("src/a")), 0600) == 0);
    CFileCopyWorker worker;
    SignalLog log(worker);
    connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker, [&worker](qlonglong n) {
        if (n > 0) {
            worker.cancelWork();
        }
    });
    worker.copyDirectory(path("src"), path("dst"));
    log.take();
    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("total 9437185, state 2, state 3, directory dst, processed 4194304, "
                            "state 0, finished"));
    QVERIFY(worker.isCanceled());
    QCOMPARE(worker.error(), 0);
    QCOMPARE(QFileInfo(path("dst/a")).size(), Q_INT64_C(4194304));
    QCOMPARE(Test::modeOf(path("dst/a")), 0600);
    QVERIFY(!QFileInfo::exists(path("dst/b")));
}

void tst_CFileCopyWorker::cancelWhilePausedEndsTheRun()
{
    Test::makeFile(path("src/f"), "1");
    CFileCopyWorker worker;
    worker.copyDirectory(path("src"), path("dst"));
    worker.pause();
    RunningWorker run(worker);
    QVERIFY(run.isAtWork(50));
    worker.cancelWork();
    QVERIFY(run.hasEnded());
    QVERIFY(worker.isCanceled());
    QCOMPARE(worker.state(), 0);
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CFileCopyWorker::pauseHoldsBeforeTheNextChunk()
{
    const QByteArray content = Test::someBytes(9 * s_mebibyte);
    Test::makeFile(path("big"), content);
    CFileCopyWorker worker;
    QSemaphore firstChunk;
    connect(
        &worker, &CFileCopyWorker::processedBytesChanged, &worker,
        [&](qlonglong n) {
            if (n == 4194304) {
                worker.pause();
                firstChunk.release();
            }
        },
        Qt::DirectConnection);
    worker.copyLargeFile(path("big"), path("copy"));
    RunningWorker run(worker);
    QVERIFY(firstChunk.tryAcquire(1, 20000));
    QVERIFY(run.isAtWork(100));
    QCOMPARE(QFileInfo(path("copy")).size(), Q_INT64_C(4194304));
    worker.resume();
    QVERIFY(run.hasEnded());
    QVERIFY(Test::contentOf(path("copy")) == content);
}

void tst_CFileCopyWorker::pauseHoldsBeforeTheNextStep()
{
    Test::makeFile(path("src/f"), "1");
    CFileCopyWorker worker;
    QSemaphore walked;
    connect(
        &worker, &CFileCopyWorker::totalBytesChanged, &worker,
        [&](qlonglong n) {
            if (n > 0) {
                worker.pause();
                walked.release();
            }
        },
        Qt::DirectConnection);
    worker.copyDirectory(path("src"), path("dst"));
    RunningWorker run(worker);
    QVERIFY(walked.tryAcquire(1, 20000));
    QVERIFY(run.isAtWork(50));
    QCOMPARE(worker.state(), static_cast<int>(CFileCopyController::StateCheckingSize));
    QVERIFY(!QFileInfo::exists(path("dst")));
    worker.resume();
    QVERIFY(run.hasEnded());
    QVERIFY(QFileInfo::exists(path("dst/f")));
}

void tst_CFileCopyWorker::loadingLiftsAPause()
{
    Test::makeFile(path("src/f"), "1");
    CFileCopyWorker worker;
    worker.pause();
    worker.copyDirectory(path("src"), path("dst"));
    RunningWorker run(worker);
    QVERIFY(run.hasEnded());
    QVERIFY(QFileInfo::exists(path("dst/f")));
}

void tst_CFileCopyWorker::queuedCallsAreDeliveredBetweenChunks()
{
    Test::makeFile(path("big"), Test::someBytes(9 * s_mebibyte));
    CFileCopyWorker worker;
    connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker, [&worker](qlonglong n) {
        if (n > 0) {
            QMetaObject::invokeMethod(&worker, "cancelWork", Qt::QueuedConnection);
        }
    });
    QCOMPARE(worker.copyFile(path("big"), path("copy")), 0);
    QVERIFY(worker.isCanceled());
    QCOMPARE(QFileInfo(path("copy")).size(), Q_INT64_C(4194304));
}

void tst_CFileCopyWorker::timersRunBetweenChunks()
{
    Test::makeFile(path("big"), Test::someBytes(9 * s_mebibyte));
    CFileCopyWorker worker;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &worker, &CFileCopyWorker::cancelWork);
    timer.start(0);
    QCOMPARE(worker.copyFile(path("big"), path("copy")), 0);
    QCOMPARE(QFileInfo(path("copy")).size(), Q_INT64_C(0));
}

void tst_CFileCopyWorker::secondStartDuringARunIsIgnored()
{
    Test::makeFile(path("src/f"), "1");
    CFileCopyWorker worker;
    SignalLog log(worker);
    connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker, [&worker](qlonglong n) {
        if (n > 0) {
            worker.doWork();
            QMetaObject::invokeMethod(&worker, "doWork", Qt::QueuedConnection);
        }
    });
    worker.copyDirectory(path("src"), path("dst"));
    log.take();
    worker.doWork();
    QCOMPARE(log.take().count(QStringLiteral("finished")), 1);
    QVERIFY(!worker.isCanceled());
}

void tst_CFileCopyWorker::loadingDuringARunConcernsTheNextOne()
{
    Test::makeFile(path("one/a"), "1");
    Test::makeFile(path("one/b"), "22");
    Test::makeFile(path("two/c"), "333");
    CFileCopyWorker worker;
    SignalLog log(worker);
    bool isLoaded = false;
    connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker, [&](qlonglong n) {
        if (n == 1 && !isLoaded) {
            isLoaded = true;
            log.take();
            worker.copyDirectory(path("two"), path("second"));
            QCOMPARE(log.take(), QStringLiteral("state 0, processed 0, total 0, state 1"));
        }
    });
    worker.copyDirectory(path("one"), path("first"));
    worker.doWork();
    QVERIFY(isLoaded);
    QCOMPARE(log.take(), QStringLiteral("processed 3, state 0, finished"));
    QVERIFY(!worker.isCanceled());
    QCOMPARE(Test::treeOf(path("first")), Test::treeOf(path("one")));
    QVERIFY(!QFileInfo::exists(path("second")));

    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("state 1, total 3, state 2, state 3, directory second, processed 3, "
                            "state 0, finished"));
    QCOMPARE(Test::treeOf(path("second")), Test::treeOf(path("two")));
}

void tst_CFileCopyWorker::resetDuringARunLeavesItsCopyWhole()
{
    Test::makeFile(path("src/a"), "1");
    Test::makeFile(path("src/b"), "22");
    CFileCopyWorker worker;
    bool isReset = false;
    connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker, [&](qlonglong n) {
        if (n == 1 && !isReset) {
            isReset = true;
            worker.reset();
        }
    });
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QVERIFY(isReset);
    QVERIFY(!worker.isCanceled());
    QCOMPARE(worker.state(), 0);
    QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("src")));
}

void tst_CFileCopyWorker::cancelReachesRunAndLoadedRequest()
{
    Test::makeFile(path("one/a"), "1");
    Test::makeFile(path("one/b"), "22");
    Test::makeFile(path("two/c"), "333");
    CFileCopyWorker worker;
    bool isLoaded = false;
    connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker, [&](qlonglong n) {
        if (n == 1 && !isLoaded) {
            isLoaded = true;
            worker.copyDirectory(path("two"), path("second"));
            worker.cancelWork();
        }
    });
    worker.copyDirectory(path("one"), path("first"));
    worker.doWork();
    QVERIFY(!QFileInfo::exists(path("first/b")));
    worker.doWork();
    QVERIFY(worker.isCanceled());
    QVERIFY(!QFileInfo::exists(path("second")));
}

QTEST_GUILESS_MAIN(tst_CFileCopyWorker)

#include "tst_CFileCopyWorker.moc"
