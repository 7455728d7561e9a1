// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileDeleteWorker.h"
#include "tests/support/FileTree.h"
#include "tests/support/WorkerAtWork.h"

#include <QDir>
#include <QFileInfo>
#include <QMetaMethod>
#include <QScopeGuard>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using Tavro::Shared::CFileDeleteController;
using Tavro::Shared::CFileDeleteWorker;

namespace {

using SignalLog = Test::SignalLog<CFileDeleteWorker>;
using RunningWorker = Test::RunningWorker<CFileDeleteWorker>;

const auto s_loaded = QStringLiteral("processed 0, total 0, state 1");
const auto s_end = QStringLiteral("state 0, processed 0, total 0, finished");

} // namespace

class tst_CFileDeleteWorker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void metaObjectStandsInOrder();
    void startsIdleAndClean();
    void settersAnnounceAsTheyShould();
    void resetForgetsAndAnnounces();

    void treeIsDeletedWithSignalsInOrder();
    void filesGoFolderByFolderBreadthFirst();
    void severalTreesCountAsOne();
    void hiddenEntriesGoUncounted();
    void emptyDirectoryIsRemoved();
    void nothingButDirectoriesIsRemoved();
    void enumerationAddsUpWhatItFinds();
    void readOnlyFilesGoLikeOthers();

    void whatIsNoDirectoryIsLeftAlone_data();
    void whatIsNoDirectoryIsLeftAlone();
    void emptyListEndsAtOnce();
    void pathKeepsItsTrailingBlanks();
    void pathIsReadAsTheSystemReadsIt_data();
    void pathIsReadAsTheSystemReadsIt();
    void relativePathMeansWhatItMeantWhenLoaded();

    void linksGoAndTheirTargetsStay();
    void linkInPlaceOfTheDirectoryGoesAlone_data();
    void linkInPlaceOfTheDirectoryGoesAlone();
    void folderReplacedByALinkIsNotFollowed();
    void rootReplacedByALinkIsNotFollowed();

    void fileGoneBeforeItsTurnStopsTheRequest();
    void directoryGoneAfterTheWalkStopsTheRequest();
    void emptyDirectoryGoneAfterTheWalkIsNoFailure();

    void idleStartIsAnInternalError();
    void cancelBeforeTheRunDeletesNothing();
    void cancelDuringDeletionRemovesTheTreeUncounted();
    void cancelDuringDeletionRemovesTheOtherTreesToo();
    void pauseDuringDeletionSkipsFilesAndRemovesTheTree();
    void resumeDuringDeletionCountsTheRest();
    void pauseHoldsBeforeTheNextStep();
    void cancelWhilePausedEndsTheRun();
    void loadingLiftsAPause();
    void everyEndLiftsAPause();
    void secondStartDuringARunIsIgnored();
    void loadingDuringARunConcernsTheNextOne();
    void pauseForTheNextRunOutlastsTheEndOfThis();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    bool exists(const char *name) const { return QFileInfo::exists(path(name)); }
    bool link(const char *target, const char *name) const
    {
        return ::symlink(path(target).toUtf8().constData(), path(name).toUtf8().constData()) == 0;
    }

    QScopedPointer<Test::TemporaryFolder> m_folder;
};

void tst_CFileDeleteWorker::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_CFileDeleteWorker::cleanup()
{
    m_folder.reset();
}

void tst_CFileDeleteWorker::metaObjectStandsInOrder()
{
    const QMetaObject &meta = CFileDeleteWorker::staticMetaObject;
    struct Method
    {
        QByteArray signature;
        QMetaMethod::MethodType type;
        QList<QByteArray> parameters;
    };
    const QVector<Method> expected = {
        {"finished()", QMetaMethod::Signal, {}},
        {"stateChanged(int)", QMetaMethod::Signal, {"newState"}},
        {"errorOccurred(int)", QMetaMethod::Signal, {"errorCode"}},
        {"processedBytesChanged(qlonglong)", QMetaMethod::Signal, {"value"}},
        {"totalBytesChanged(qlonglong)", QMetaMethod::Signal, {"value"}},
        {"doWork()", QMetaMethod::Slot, {}},
        {"cancelWork()", QMetaMethod::Slot, {}},
    };
    QCOMPARE(meta.methodCount() - meta.methodOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), expected.at(i).signature);
        QCOMPARE(method.methodType(), expected.at(i).type);
        QCOMPARE(method.access(), QMetaMethod::Public);
        QCOMPARE(method.parameterNames(), expected.at(i).parameters);
    }
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void tst_CFileDeleteWorker::startsIdleAndClean()
{
    const CFileDeleteWorker worker;
    QCOMPARE(worker.state(), static_cast<int>(CFileDeleteController::StateIdle));
    QVERIFY(!worker.isCanceled());
}

void tst_CFileDeleteWorker::settersAnnounceAsTheyShould()
{
    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.setState(CFileDeleteController::StateIdle);
    QCOMPARE(log.take(), QString());
    worker.setState(CFileDeleteController::StateDeleting);
    worker.setState(CFileDeleteController::StateDeleting);
    QCOMPARE(log.take(), QStringLiteral("state 2"));
    QCOMPARE(worker.state(), 2);
    worker.updateProcessedBytes(5);
    worker.updateProcessedBytes(0);
    worker.updateProcessedBytes(7);
    QCOMPARE(log.take(), QStringLiteral("processed 5, processed 5, processed 12"));
}

void tst_CFileDeleteWorker::resetForgetsAndAnnounces()
{
    Test::makeFile(path("tree/f"), "1");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
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
    QVERIFY(exists("tree/f"));
}

void tst_CFileDeleteWorker::treeIsDeletedWithSignalsInOrder()
{
    Test::makeFile(path("tree/b"), "12345");
    Test::makeFile(path("tree/A"), "123");
    Test::makeFile(path("tree/sub/deep/c"), Test::someBytes(1000));
    Test::makeFile(path("beside"), "stays");
    CFileDeleteWorker worker;
    SignalLog log(worker);

    worker.deleteDirectory(path("tree"));
    QCOMPARE(log.take(), s_loaded);
    QCOMPARE(worker.state(), 1);
    QVERIFY(exists("tree/b"));

    worker.doWork();
    // the state before the sum, other than in copying
    QCOMPARE(log.take(),
             QStringLiteral("state 2, total 1008, processed 3, processed 8, processed 1008, ")
                 + s_end);
    QVERIFY(!exists("tree"));
    QCOMPARE(Test::contentOf(path("beside")), QByteArray("stays"));
    QCOMPARE(worker.state(), 0);
    QVERIFY(!worker.isCanceled());
}

void tst_CFileDeleteWorker::filesGoFolderByFolderBreadthFirst()
{
    Test::makeFile(path("tree/z"), Test::someBytes(1));
    Test::makeFile(path("tree/a/x/deep"), Test::someBytes(1000));
    Test::makeFile(path("tree/a/q"), Test::someBytes(10));
    Test::makeFile(path("tree/B/p"), Test::someBytes(100));
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    QStringList gone;
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker, [&](qlonglong bytes) {
        for (const char *file : {"tree/z", "tree/a/q", "tree/B/p", "tree/a/x/deep"}) {
            if (!exists(file)) {
                gone.append(QString::fromUtf8(file));
            }
        }
        gone.append(QString::number(bytes));
    });
    worker.doWork();
    QCOMPARE(gone.join(QLatin1Char(' ')),
             QStringLiteral("tree/z 1 tree/z tree/a/q 11 tree/z tree/a/q tree/B/p 111 "
                            "tree/z tree/a/q tree/B/p tree/a/x/deep 1111 "
                            "tree/z tree/a/q tree/B/p tree/a/x/deep 0"));
}

void tst_CFileDeleteWorker::severalTreesCountAsOne()
{
    Test::makeFile(path("one/a"), "12");
    Test::makeFile(path("two/b"), "345");
    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.deleteDirectories({path("two"), path("missing"), path("one")});
    worker.doWork();
    QCOMPARE(log.take(),
             s_loaded + QStringLiteral(", state 2, total 5, processed 3, processed 5, ") + s_end);
    QVERIFY(!exists("one"));
    QVERIFY(!exists("two"));
}

void tst_CFileDeleteWorker::hiddenEntriesGoUncounted()
{
    Test::makeFile(path("tree/.file"), "12345");
    Test::makeFile(path("tree/.folder/f"), "123");
    Test::makeFile(path("tree/seen"), "1");
    QCOMPARE(::mkfifo(path("tree/pipe").toUtf8().constData(), 0600), 0);
    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.deleteDirectory(path("tree"));
    worker.doWork();
    QCOMPARE(log.take(), s_loaded + QStringLiteral(", state 2, total 1, processed 1, ") + s_end);
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteWorker::emptyDirectoryIsRemoved()
{
    QVERIFY(QDir().mkpath(path("tree")));
    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.deleteDirectory(path("tree"));
    worker.doWork();
    QCOMPARE(log.take(), s_loaded + QStringLiteral(", state 2, total 0, ") + s_end);
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteWorker::nothingButDirectoriesIsRemoved()
{
    QVERIFY(QDir().mkpath(path("tree/a/b/c")));
    QVERIFY(QDir().mkpath(path("tree/a/d")));
    QVERIFY(QDir().mkpath(path("tree/e")));
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree/"));
    worker.doWork();
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteWorker::enumerationAddsUpWhatItFinds()
{
    Test::makeFile(path("tree/a"), "12345");
    Test::makeFile(path("tree/sub/b"), "123");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    SignalLog log(worker);
    worker.enumerateFiles();
    QCOMPARE(log.take(), QString());
    worker.setState(CFileDeleteController::StateDeleting);
    worker.doWork(); // what was found before is what is deleted
    QCOMPARE(log.take(), QStringLiteral("state 2, processed 5, processed 8, ") + s_end);
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteWorker::readOnlyFilesGoLikeOthers()
{
    Test::makeFile(path("tree/f"), "12");
    QVERIFY(QFile::setPermissions(path("tree/f"), QFile::ReadOwner));
    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.deleteDirectory(path("tree"));
    worker.doWork();
    QCOMPARE(log.take(), s_loaded + QStringLiteral(", state 2, total 2, processed 2, ") + s_end);
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteWorker::whatIsNoDirectoryIsLeftAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << QStringLiteral("%1/missing");
    QTest::newRow("missing with a slash") << QStringLiteral("%1/missing/");
    QTest::newRow("in a missing folder") << QStringLiteral("%1/missing/tree");
    QTest::newRow("a file") << QStringLiteral("%1/file");
    QTest::newRow("below a file") << QStringLiteral("%1/file/tree");
    QTest::newRow("a link to a file") << QStringLiteral("%1/toFile");
    QTest::newRow("a link that leads nowhere") << QStringLiteral("%1/toNowhere");
    QTest::newRow("empty") << QString();
    QTest::newRow("a blank") << QStringLiteral(" ");
    QTest::newRow("cut short by a NUL") << QStringLiteral("%1/tree") + QChar(0);
    QTest::newRow("a missing folder and the one above") << QStringLiteral("%1/missing/..");
}

void tst_CFileDeleteWorker::whatIsNoDirectoryIsLeftAlone()
{
    QFETCH(QString, name);
    Test::makeFile(path("file"), "1");
    Test::makeFile(path("tree/f"), "1");
    QVERIFY(link("file", "toFile"));
    QVERIFY(link("missing", "toNowhere"));
    const auto restore = qScopeGuard([before = QDir::currentPath()] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(path("tree"))); // which an empty path would mean to QDir

    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.deleteDirectory(name.contains(QLatin1Char('%')) ? name.arg(m_folder->path()) : name);
    worker.doWork();
    QCOMPARE(log.take(), s_loaded + QStringLiteral(", state 2, total 0, ") + s_end);
    QVERIFY(exists("file"));
    QVERIFY(exists("tree/f"));
    QVERIFY(exists("toFile"));
    QVERIFY(QFileInfo(path("toNowhere")).isSymLink());
}

void tst_CFileDeleteWorker::emptyListEndsAtOnce()
{
    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.deleteDirectories({});
    worker.doWork();
    QCOMPARE(log.take(), s_loaded + QStringLiteral(", state 2, total 0, ") + s_end);
}

void tst_CFileDeleteWorker::pathKeepsItsTrailingBlanks()
{
    Test::makeFile(path("tree/f"), "1");
    Test::makeFile(path("tree  /f"), "1");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree  "));
    worker.doWork();
    QVERIFY(!exists("tree  "));
    QVERIFY(exists("tree/f"));
}

void tst_CFileDeleteWorker::pathIsReadAsTheSystemReadsIt_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("gone");
    const QString inner = QStringLiteral("outside/inner");
    QTest::newRow("slash at the end") << QStringLiteral("plain/") << QStringLiteral("plain");
    QTest::newRow("point at the end") << QStringLiteral("plain/.") << QStringLiteral("plain");
    QTest::newRow("slashes") << QStringLiteral("a//plain///") << QStringLiteral("a/plain");
    QTest::newRow("point inside") << QStringLiteral("a/./plain") << QStringLiteral("a/plain");
    QTest::newRow("two points") << QStringLiteral("a/../plain") << QStringLiteral("plain");
    QTest::newRow("two points at the end") << QStringLiteral("a/plain/..") << QStringLiteral("a");
    QTest::newRow("two points, and a point at the end")
        << QStringLiteral("a/../plain/.") << QStringLiteral("plain");
    QTest::newRow("two points behind a link")
        << QStringLiteral("link/../inner") << inner; // not "inner" beside the link
    QTest::newRow("below a link") << QStringLiteral("link/f") << QStringLiteral("outside/target/f");
}

void tst_CFileDeleteWorker::pathIsReadAsTheSystemReadsIt()
{
    QFETCH(QString, name);
    QFETCH(QString, gone);
    const QStringList trees = {QStringLiteral("plain"), QStringLiteral("a/plain"),
                               QStringLiteral("inner"), QStringLiteral("outside/inner"),
                               QStringLiteral("outside/target/f")};
    for (const QString &tree : trees) {
        Test::makeFile(m_folder->filePath(tree) + QStringLiteral("/file"), "1");
    }
    QVERIFY(link("outside/target", "link"));
    CFileDeleteWorker worker;
    worker.deleteDirectory(m_folder->path() + QLatin1Char('/') + name);
    worker.doWork();
    for (const QString &tree : trees) {
        const bool isGone = tree == gone || tree.startsWith(gone + QLatin1Char('/'));
        QCOMPARE(QFileInfo::exists(m_folder->filePath(tree) + QStringLiteral("/file")), !isGone);
    }
    QVERIFY(!QFileInfo::exists(m_folder->filePath(gone)));
}

void tst_CFileDeleteWorker::relativePathMeansWhatItMeantWhenLoaded()
{
    Test::makeFile(path("here/tree/f"), "1");
    Test::makeFile(path("there/tree/f"), "1");
    const auto restore = qScopeGuard([before = QDir::currentPath()] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(path("here")));
    CFileDeleteWorker worker;
    worker.deleteDirectory(QStringLiteral("tree"));
    QVERIFY(QDir::setCurrent(path("there")));
    worker.doWork();
    QVERIFY(!exists("here/tree"));
    QVERIFY(exists("there/tree/f"));
}

void tst_CFileDeleteWorker::linksGoAndTheirTargetsStay()
{
    Test::makeFile(path("outside/folder/f"), Test::someBytes(1000));
    Test::makeFile(path("outside/file"), Test::someBytes(100));
    Test::makeFile(path("tree/own"), "1");
    Test::makeFile(path("tree/sub/own"), "12");
    QVERIFY(link("outside/folder", "tree/toFolder"));
    QVERIFY(link("outside/file", "tree/sub/toFile"));
    QVERIFY(link("outside/missing", "tree/toNowhere"));
    QVERIFY(link("tree", "tree/sub/up"));
    const auto outside = Test::treeOf(path("outside"));

    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.deleteDirectory(path("tree"));
    worker.doWork();
    QCOMPARE(log.take(),
             s_loaded + QStringLiteral(", state 2, total 3, processed 1, processed 3, ") + s_end);
    QVERIFY(!exists("tree"));
    QCOMPARE(Test::treeOf(path("outside")), outside);
}

void tst_CFileDeleteWorker::linkInPlaceOfTheDirectoryGoesAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("link");
    QTest::newRow("slash at the end") << QStringLiteral("link/");
}

void tst_CFileDeleteWorker::linkInPlaceOfTheDirectoryGoesAlone()
{
    QFETCH(QString, name);
    Test::makeFile(path("outside/f"), "1");
    QVERIFY(link("outside", "link"));
    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.deleteDirectory(m_folder->path() + QLatin1Char('/') + name);
    worker.doWork();
    QCOMPARE(log.take(), s_loaded + QStringLiteral(", state 2, total 0, ") + s_end);
    QVERIFY(!QFileInfo(path("link")).isSymLink());
    QVERIFY(exists("outside/f"));
}

void tst_CFileDeleteWorker::folderReplacedByALinkIsNotFollowed()
{
    Test::makeFile(path("outside/f"), "outside");
    Test::makeFile(path("tree/sub/f"), "inside");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::totalBytesChanged, &worker, [this](qlonglong bytes) {
        if (bytes > 0) { // the walk is over
            QVERIFY(QDir().rename(path("tree/sub"), path("moved")));
            QVERIFY(link("outside", "tree/sub"));
        }
    });
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 2, total 6, error 2, ") + s_end);
    QCOMPARE(Test::contentOf(path("outside/f")), QByteArray("outside"));
    QCOMPARE(Test::contentOf(path("moved/f")), QByteArray("inside"));
}

void tst_CFileDeleteWorker::rootReplacedByALinkIsNotFollowed()
{
    Test::makeFile(path("outside/f"), "outside");
    Test::makeFile(path("tree/f"), "inside");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    connect(&worker, &CFileDeleteWorker::totalBytesChanged, &worker, [this](qlonglong bytes) {
        if (bytes > 0) {
            QVERIFY(QDir().rename(path("tree"), path("moved")));
            QVERIFY(link("outside", "tree"));
        }
    });
    worker.doWork();
    QCOMPARE(Test::contentOf(path("outside/f")), QByteArray("outside"));
    QCOMPARE(Test::contentOf(path("moved/f")), QByteArray("inside"));
}

void tst_CFileDeleteWorker::fileGoneBeforeItsTurnStopsTheRequest()
{
    Test::makeFile(path("tree/a"), "1");
    Test::makeFile(path("tree/b"), "12");
    Test::makeFile(path("tree/c"), "123");
    Test::makeFile(path("next/d"), "1234");
    CFileDeleteWorker worker;
    worker.deleteDirectories({path("tree"), path("next")});
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker, [this](qlonglong bytes) {
        if (bytes == 1) {
            QVERIFY(QFile::remove(path("tree/b")));
        }
    });
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 2, total 10, processed 1, error 2, ") + s_end);
    QVERIFY(!exists("tree/a"));
    QVERIFY(exists("tree/c"));
    QVERIFY(exists("next/d"));
}

void tst_CFileDeleteWorker::directoryGoneAfterTheWalkStopsTheRequest()
{
    Test::makeFile(path("tree/sub/a"), "1");
    Test::makeFile(path("next/d"), "1234");
    CFileDeleteWorker worker;
    worker.deleteDirectories({path("tree"), path("next")});
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::totalBytesChanged, &worker,
            [this] { QDir(path("tree")).removeRecursively(); });
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 2, total 5, error 2, ") + s_end);
    QVERIFY(exists("next/d"));
}

void tst_CFileDeleteWorker::emptyDirectoryGoneAfterTheWalkIsNoFailure()
{
    QVERIFY(QDir().mkpath(path("tree/sub")));
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::totalBytesChanged, &worker,
            [this] { QDir(path("tree")).removeRecursively(); });
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 2, total 0, ") + s_end);
}

void tst_CFileDeleteWorker::idleStartIsAnInternalError()
{
    CFileDeleteWorker worker;
    SignalLog log(worker);
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("error 1, processed 0, total 0, finished"));
    QVERIFY(!worker.isCanceled());
    worker.deleteDirectory(path("missing"));
    worker.doWork();
    log.take();
    worker.doWork(); // what was run is not loaded any more
    QCOMPARE(log.take(), QStringLiteral("error 1, processed 0, total 0, finished"));
}

void tst_CFileDeleteWorker::cancelBeforeTheRunDeletesNothing()
{
    Test::makeFile(path("tree/a"), "1");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    worker.cancelWork();
    QVERIFY(worker.isCanceled());
    SignalLog log(worker);
    worker.doWork();
    QCOMPARE(log.take(), s_end);
    QVERIFY(exists("tree/a"));
    QVERIFY(!worker.isCanceled());
}

void tst_CFileDeleteWorker::cancelDuringDeletionRemovesTheTreeUncounted()
{
    Test::makeFile(path("tree/a"), "1");
    Test::makeFile(path("tree/b"), "12");
    Test::makeFile(path("tree/sub/c"), "123");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker,
            &CFileDeleteWorker::cancelWork);
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 2, total 6, processed 1, ") + s_end);
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteWorker::cancelDuringDeletionRemovesTheOtherTreesToo()
{
    Test::makeFile(path("one/a"), "1");
    Test::makeFile(path("two/b"), "12");
    CFileDeleteWorker worker;
    worker.deleteDirectories({path("one"), path("two")});
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker,
            &CFileDeleteWorker::cancelWork);
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 2, total 3, processed 1, ") + s_end);
    QVERIFY(!exists("one"));
    QVERIFY(!exists("two"));
}

void tst_CFileDeleteWorker::pauseDuringDeletionSkipsFilesAndRemovesTheTree()
{
    Test::makeFile(path("tree/a"), "1");
    Test::makeFile(path("tree/b"), "12");
    Test::makeFile(path("next/c"), "123");
    CFileDeleteWorker worker;
    worker.deleteDirectories({path("tree"), path("next")});
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker, [&](qlonglong bytes) {
        if (bytes == 1) {
            worker.pause();
        }
    });
    worker.doWork(); // does not wait for a resume() that never comes
    QCOMPARE(log.take(), QStringLiteral("state 2, total 6, processed 1, ") + s_end);
    QVERIFY(!exists("tree"));
    QVERIFY(!exists("next"));
}

void tst_CFileDeleteWorker::resumeDuringDeletionCountsTheRest()
{
    Test::makeFile(path("one/a"), "1");
    Test::makeFile(path("one/b"), "12");
    Test::makeFile(path("two/c"), "123");
    QVERIFY(QDir().mkpath(path("two/gone")));
    CFileDeleteWorker worker;
    worker.deleteDirectories({path("one"), path("two")});
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker, [&](qlonglong bytes) {
        if (bytes == 1) {
            worker.pause();
            worker.resume();
        }
    });
    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("state 2, total 6, processed 1, processed 3, processed 6, ") + s_end);
}

void tst_CFileDeleteWorker::pauseHoldsBeforeTheNextStep()
{
    Test::makeFile(path("tree/a"), "1");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    QSemaphore isWalked;
    connect(
        &worker, &CFileDeleteWorker::totalBytesChanged, &worker,
        [&](qlonglong bytes) {
            if (bytes > 0) {
                worker.pause();
                isWalked.release();
            }
        },
        Qt::DirectConnection);
    RunningWorker running(worker);
    QVERIFY(isWalked.tryAcquire(1, 30000));
    QVERIFY(!running.hasEnded(50));
    QVERIFY(exists("tree/a"));
    worker.resume();
    QVERIFY(running.hasEnded());
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteWorker::cancelWhilePausedEndsTheRun()
{
    Test::makeFile(path("tree/a"), "1");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    worker.pause();
    RunningWorker running(worker);
    QVERIFY(!running.hasEnded(50));
    worker.cancelWork();
    QVERIFY(running.hasEnded());
    QVERIFY(exists("tree/a"));
    QCOMPARE(worker.state(), 0);
}

void tst_CFileDeleteWorker::loadingLiftsAPause()
{
    Test::makeFile(path("tree/a"), "1");
    CFileDeleteWorker worker;
    worker.pause();
    worker.deleteDirectory(path("tree"));
    worker.doWork();
    QVERIFY(!exists("tree"));
}

void tst_CFileDeleteWorker::everyEndLiftsAPause()
{
    Test::makeFile(path("tree/a"), "1");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    const auto pause = connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker,
                               &CFileDeleteWorker::pause);
    const auto stop = connect(&worker, &CFileDeleteWorker::stateChanged, &worker, [&](int state) {
        if (state == CFileDeleteController::StateIdle) {
            disconnect(pause);
        }
    });
    worker.doWork();
    disconnect(stop);
    SignalLog log(worker);
    worker.doWork(); // would hang in the pause
    QCOMPARE(log.take(), QStringLiteral("error 1, processed 0, total 0, finished"));
}

void tst_CFileDeleteWorker::secondStartDuringARunIsIgnored()
{
    Test::makeFile(path("tree/a"), "1");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("tree"));
    SignalLog log(worker);
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker,
            &CFileDeleteWorker::doWork);
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 2, total 1, processed 1, ") + s_end);
}

void tst_CFileDeleteWorker::loadingDuringARunConcernsTheNextOne()
{
    Test::makeFile(path("one/a"), "1");
    Test::makeFile(path("one/b"), "12");
    Test::makeFile(path("two/c"), "123");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("one"));
    SignalLog log(worker);
    bool isLoaded = false;
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker, [&] {
        if (!std::exchange(isLoaded, true)) {
            worker.deleteDirectory(path("two"));
        }
    });
    worker.doWork();
    QCOMPARE(log.take(),
             QStringLiteral("state 2, total 3, processed 1, state 0, processed 0, total 0, state "
                            "1, processed 3, ")
                 + s_end);
    QVERIFY(!exists("one"));
    QVERIFY(exists("two/c"));
    worker.doWork();
    QCOMPARE(log.take(), QStringLiteral("state 1, state 2, total 3, processed 3, ") + s_end);
    QVERIFY(!exists("two"));
}

void tst_CFileDeleteWorker::pauseForTheNextRunOutlastsTheEndOfThis()
{
    Test::makeFile(path("one/a"), "1");
    Test::makeFile(path("two/b"), "12");
    CFileDeleteWorker worker;
    worker.deleteDirectory(path("one"));
    bool isLoaded = false;
    connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker, [&] {
        if (!std::exchange(isLoaded, true)) {
            worker.deleteDirectory(path("two"));
            worker.pause();
        }
    });
    worker.doWork();
    QVERIFY(!exists("one"));
    RunningWorker running(worker);
    QVERIFY(!running.hasEnded(50));
    QVERIFY(exists("two/b"));
    worker.resume();
    QVERIFY(running.hasEnded());
    QVERIFY(!exists("two"));
}

QTEST_GUILESS_MAIN(tst_CFileDeleteWorker)

#include "tst_CFileDeleteWorker.moc"
