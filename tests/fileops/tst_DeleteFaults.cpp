// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileDeleteController.h"
#include "shared/fileops/CFileDeleteWorker.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>

#include <fcntl.h>
#include <linux/fs.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <thread>

using Tavro::Shared::CFileDeleteController;
using Tavro::Shared::CFileDeleteWorker;
using Tavro::Shared::CFileOperationResult;
using Test::FaultInjection::Call;

namespace Faults = Test::FaultInjection;

namespace {

/** What a run said of itself. */
struct Outcome
{
    QList<int> errors;
    qint64 totalBytes = 0;
    qint64 processedBytes = 0;
    int progressSignals = 0; // without those of a clean slate
    int ends = 0;
};

Outcome deleteTrees(const QStringList &paths)
{
    CFileDeleteWorker worker;
    Outcome outcome;
    QObject::connect(&worker, &CFileDeleteWorker::errorOccurred, &worker,
                     [&](int error) { outcome.errors.append(error); });
    QObject::connect(&worker, &CFileDeleteWorker::totalBytesChanged, &worker,
                     [&](qlonglong n) { outcome.totalBytes = qMax(outcome.totalBytes, n); });
    QObject::connect(&worker, &CFileDeleteWorker::finished, &worker, [&] { ++outcome.ends; });
    worker.deleteDirectories(paths);
    QObject::connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker, [&](qlonglong n) {
        outcome.processedBytes = qMax(outcome.processedBytes, n);
        ++outcome.progressSignals;
    });
    worker.doWork();
    --outcome.progressSignals; // the end's
    return outcome;
}

/** How a run ends, for the controller's owner. */
CFileOperationResult resultOfDeleting(const QStringList &paths)
{
    CFileDeleteController controller;
    CFileOperationResult atTheEnd;
    bool isOver = false;
    QObject::connect(&controller, &CFileDeleteController::stateChanged, &controller, [&] {
        if (controller.state() == CFileDeleteController::StateIdle) {
            atTheEnd = controller.lastResult();
            isOver = true;
        }
    });
    controller.deleteDirectories(paths);
    if (!QTest::qWaitFor([&] { return isOver; }, 60000)) {
        qFatal("the run does not end");
    }
    return atTheEnd;
}

#ifdef OVO_SMALL
constexpr bool s_isSmall = true; // an emulated tablet would take an hour for the whole
#else
constexpr bool s_isSmall = false;
#endif

constexpr quint32 s_fileFailed = 0x000B0202;
constexpr quint32 s_directoryFailed = 0x000B0203;

bool setImmutable(const QByteArray &path, bool immutable)
{
    const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    int flags = 0;
    bool ok = ::ioctl(file, FS_IOC_GETFLAGS, &flags) == 0;
    flags = immutable ? flags | FS_IMMUTABLE_FL : flags & ~FS_IMMUTABLE_FL;
    ok = ok && ::ioctl(file, FS_IOC_SETFLAGS, &flags) == 0;
    ::close(file);
    return ok;
}

bool makeNativeFile(const QByteArray &path, const char *content)
{
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const bool ok = file >= 0 && ::write(file, content, qstrlen(content)) >= 0;
    ::close(file);
    return ok;
}

} // namespace

Q_DECLARE_METATYPE(Test::FaultInjection::Call)

/** What happens to a deletion when the system, or somebody else, gets in its way. */
class tst_DeleteFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void unremovableFileStopsTheRequest();
    void unremovableHiddenFileKeepsItsDirectory();
    void unremovableDirectoryIsReportedAndTheNextOneGoes();
    void readOnlyMountKeepsEverything();
    void mountPointInTheTreeIsKept();
    void rootOfAllIsKept_data();
    void rootOfAllIsKept();
    void treeThatVanishesUnderTheWalkDoesNoHarm();
    void namesAsLongAsTheyMayBe_data();
    void namesAsLongAsTheyMayBe();
    void namesThatAreNotUtf8Stay();
    void tenThousandLevelsAreRemoved();
    void fewDescriptorsAreNeeded();
    void aMillionFilesAreRemovedOneByOne();
    void requestThatGetsNoThreadEndsIdle();
    void resultOfWhatIsGone_data();
    void resultOfWhatIsGone();
    void resultOfWhatIsNoDirectory_data();
    void resultOfWhatIsNoDirectory();
    void resultNamesTheFirstFailure();
    void resultNamesWhatCannotBeListed();
    void resultOfAnotherMount();
    void resultOfADirectoryThatCannotBeReached();
    void currentDirectoryThatCannotBeNamedIsNoOther();
    void resultOfResources();
    void searchPathsAreResolved();
    void resultOfAnAbortBeforeTheDeletion();
    void resultOfAPauseInMidDeletion();
    void eachFailingCallIsTold_data();
    void eachFailingCallIsTold();
    void removalIsFlushedBeforeItsEndShows();
    void rootOfAllIsKeptWhenNobodyCanTell();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    bool exists(const char *name) const { return QFileInfo::exists(path(name)); }

    bool m_isRoot = false;
    QScopedPointer<Test::TemporaryFolder> m_folder;
};

#define SKIP_WITHOUT_ROOT \
    if (!m_isRoot) { \
        QSKIP("needs the rights of root"); \
    }

void tst_DeleteFaults::initTestCase()
{
    // what is mounted below is seen by this process only
    m_isRoot = ::unshare(CLONE_NEWNS) == 0
        && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

void tst_DeleteFaults::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_DeleteFaults::cleanup()
{
    Faults::stop();
    m_folder.reset();
}

void tst_DeleteFaults::unremovableFileStopsTheRequest()
{
    SKIP_WITHOUT_ROOT
    for (const char *name : {"tree/a", "tree/b", "tree/c", "next/d"}) {
        Test::makeFile(path(name), "12");
    }
    const QByteArray stubborn = path("tree/b").toUtf8();
    QVERIFY(setImmutable(stubborn, true));
    const auto restore = qScopeGuard([&] { setImmutable(stubborn, false); });

    const Outcome outcome = deleteTrees({path("tree"), path("next")});
    QCOMPARE(outcome.errors, QList<int>{CFileDeleteController::ErrorFileDeletionFailed});
    QCOMPARE(outcome.totalBytes, Q_INT64_C(8));
    QCOMPARE(outcome.processedBytes, Q_INT64_C(2));
    QCOMPARE(outcome.ends, 1);
    QVERIFY(!exists("tree/a"));
    QVERIFY(exists("tree/b"));
    QVERIFY(exists("tree/c"));
    QVERIFY(exists("next/d"));
}

void tst_DeleteFaults::unremovableHiddenFileKeepsItsDirectory()
{
    SKIP_WITHOUT_ROOT
    for (const char *name : {"tree/a", "tree/sub/.b", "tree/sub/.c", "tree/z/d", "next/e"}) {
        Test::makeFile(path(name), "12");
    }
    const QByteArray stubborn = path("tree/sub/.b").toUtf8();
    QVERIFY(setImmutable(stubborn, true));
    const auto restore = qScopeGuard([&] { setImmutable(stubborn, false); });

    const Outcome outcome = deleteTrees({path("tree"), path("next")});
    QCOMPARE(outcome.errors, QList<int>{CFileDeleteController::ErrorDirectoryDeletionFailed});
    QVERIFY(exists("tree/sub/.b"));
    QVERIFY(!exists("tree/sub/.c")); // what can go does
    QVERIFY(!exists("tree/z"));
    QVERIFY(!exists("next"));
}

void tst_DeleteFaults::unremovableDirectoryIsReportedAndTheNextOneGoes()
{
    SKIP_WITHOUT_ROOT
    QVERIFY(QDir().mkpath(path("tree/sub")));
    Test::makeFile(path("next/d"), "12");
    const QByteArray stubborn = path("tree").toUtf8();
    QVERIFY(setImmutable(stubborn, true));
    const auto restore = qScopeGuard([&] { setImmutable(stubborn, false); });

    const Outcome outcome = deleteTrees({path("tree"), path("next")});
    QCOMPARE(outcome.errors, QList<int>{CFileDeleteController::ErrorDirectoryDeletionFailed});
    QCOMPARE(outcome.processedBytes, Q_INT64_C(2));
    QVERIFY(exists("tree/sub"));
    QVERIFY(!exists("next"));
}

void tst_DeleteFaults::readOnlyMountKeepsEverything()
{
    SKIP_WITHOUT_ROOT
    Test::makeFile(path("tree/a"), "12");
    Test::makeFile(path("tree/sub/b"), "12");
    const QByteArray tree = path("tree").toUtf8();
    QCOMPARE(::mount(tree.constData(), tree.constData(), nullptr, MS_BIND, nullptr), 0);
    const auto unmount = qScopeGuard([&] { ::umount2(tree.constData(), MNT_DETACH); });
    QCOMPARE(::mount(nullptr, tree.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr),
             0);

    const auto before = Test::treeOf(path("tree"));
    const Outcome outcome = deleteTrees({path("tree")});
    QCOMPARE(outcome.errors, QList<int>{CFileDeleteController::ErrorFileDeletionFailed});
    QCOMPARE(outcome.totalBytes, Q_INT64_C(4));
    QCOMPARE(outcome.progressSignals, 0);
    QCOMPARE(Test::treeOf(path("tree")), before);
}

void tst_DeleteFaults::mountPointInTheTreeIsKept()
{
    SKIP_WITHOUT_ROOT
    Test::makeFile(path("tree/a"), "12");
    QVERIFY(QDir().mkpath(path("tree/mounted")));
    const QByteArray mounted = path("tree/mounted").toUtf8();
    QCOMPARE(::mount("none", mounted.constData(), "tmpfs", 0, "size=64k"), 0);
    const auto unmount = qScopeGuard([&] { ::umount2(mounted.constData(), MNT_DETACH); });
    Test::makeFile(path("tree/mounted/b"), "12");

    const Outcome outcome = deleteTrees({path("tree")});
    QCOMPARE(outcome.errors, QList<int>{CFileDeleteController::ErrorDirectoryDeletionFailed});
    QVERIFY(!exists("tree/mounted/b")); // it lies below the tree
    QVERIFY(exists("tree/mounted"));
    QVERIFY(!exists("tree/a"));
}

void tst_DeleteFaults::rootOfAllIsKept_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("/");
    QTest::newRow("twice") << QStringLiteral("//");
    QTest::newRow("with a point") << QStringLiteral("/.");
    QTest::newRow("above itself") << QStringLiteral("/..");
    QTest::newRow("by a detour") << QStringLiteral("/sub/..");
}

// In a process whose root is the test's folder.
void tst_DeleteFaults::rootOfAllIsKept()
{
    SKIP_WITHOUT_ROOT
    QFETCH(QString, name);
    Test::makeFile(path("file"), "12");
    Test::makeFile(path("sub/file"), "12");
    const QByteArray jail = m_folder->path().toUtf8();
    const pid_t child = ::fork();
    if (child == 0) {
        if (::chroot(jail.constData()) != 0 || ::chdir("/") != 0) {
            ::_exit(2);
        }
        const Outcome outcome = deleteTrees({name});
        const bool isRefused =
            outcome.errors == QList<int>{CFileDeleteController::ErrorDirectoryDeletionFailed}
            && outcome.totalBytes == 0;
        ::_exit(isRefused ? 0 : 1);
    }
    int status = -1;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QCOMPARE(status, 0);
    QVERIFY(exists("file"));
    QVERIFY(exists("sub/file"));
}

void tst_DeleteFaults::treeThatVanishesUnderTheWalkDoesNoHarm()
{
    Test::makeFile(path("outside/f"), "stays");
    std::atomic<bool> isOver{false};
    std::atomic<int> round{0};
    // takes away what the deletion is about to delete
    std::thread other([&] {
        while (!isOver) {
            QDir(path("tree/sub") + QString::number(round % 7)).removeRecursively();
            ++round;
        }
    });
    for (int i = 0; i < 50; ++i) {
        for (int k = 0; k < 7; ++k) {
            const QString sub = path("tree/sub") + QString::number(k);
            // may lose against the other thread: then there is less to delete
            QDir().mkpath(sub + QStringLiteral("/deep"));
            QFile file(sub + QStringLiteral("/deep/f"));
            if (file.open(QIODevice::WriteOnly)) {
                file.write("12");
            }
        }
        const Outcome outcome = deleteTrees({path("tree")});
        QCOMPARE(outcome.ends, 1);
        QVERIFY(!outcome.errors.contains(CFileDeleteController::ErrorInternal));
    }
    isOver = true;
    other.join();
    QCOMPARE(Test::contentOf(path("outside/f")), QByteArray("stays"));
    QCOMPARE(deleteTrees({path("tree")}).errors, QList<int>());
    QVERIFY(!exists("tree"));
}

void tst_DeleteFaults::namesAsLongAsTheyMayBe_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("ASCII") << QByteArray(255, 'n');
    QTest::newRow("two bytes a letter") << QByteArray("\xc3\xa4").repeated(127) + "n";
    QTest::newRow("three bytes a letter") << QByteArray("\xe2\x82\xac").repeated(85);
    QTest::newRow("four bytes a letter") << QByteArray("\xf0\x9f\x98\x80").repeated(63) + "nnn";
    QTest::newRow("control characters") << QByteArray("\n\x01\x7f").repeated(85);
    QTest::newRow("byte order mark first") << QByteArray("\xef\xbb\xbf") + QByteArray(252, 'n');
    QTest::newRow("letter and accent apart") << QByteArray("a\xcc\x88").repeated(85);
    QTest::newRow("backslashes") << QByteArray(255, '\\');
}

void tst_DeleteFaults::namesAsLongAsTheyMayBe()
{
    QFETCH(QByteArray, name);
    QCOMPARE(name.size(), 255);
    const QByteArray tree = path("tree").toUtf8();
    const QByteArray sub = tree + '/' + name;
    QCOMPARE(::mkdir(tree.constData(), 0700), 0);
    QCOMPARE(::mkdir(sub.constData(), 0700), 0);
    QVERIFY(makeNativeFile(sub + '/' + name, "12"));

    const Outcome outcome = deleteTrees({path("tree")});
    QCOMPARE(outcome.errors, QList<int>());
    QCOMPARE(outcome.totalBytes, Q_INT64_C(2));
    QCOMPARE(outcome.processedBytes, Q_INT64_C(2));
    QVERIFY(!exists("tree"));
}

void tst_DeleteFaults::namesThatAreNotUtf8Stay()
{
    Test::makeFile(path("tree/a"), "12");
    Test::makeFile(path("tree/sub/b"), "12");
    const QByteArray tree = path("tree").toUtf8();
    const QByteArray folder = tree + "/\xff\xfe";
    QCOMPARE(::mkdir(folder.constData(), 0700), 0);
    QVERIFY(makeNativeFile(folder + "/inside", "12"));
    QVERIFY(makeNativeFile(tree + "/caf\xe9", "12"));
    // what the name above turns into where it is decoded carelessly
    Test::makeFile(path("beside/caf\uFFFD"), "12");

    const Outcome outcome = deleteTrees({path("tree"), path("sub")});
    QCOMPARE(outcome.errors, QList<int>{CFileDeleteController::ErrorDirectoryDeletionFailed});
    QCOMPARE(outcome.totalBytes, Q_INT64_C(4));
    QVERIFY(!exists("tree/a"));
    QVERIFY(!exists("tree/sub"));
    QVERIFY(exists("beside/caf\uFFFD"));
    QCOMPARE(::access((folder + "/inside").constData(), F_OK), 0);
    QCOMPARE(::access((tree + "/caf\xe9").constData(), F_OK), 0);
}

void tst_DeleteFaults::tenThousandLevelsAreRemoved()
{
    const Test::DeepTree tree(path("tree"), s_isSmall ? 3000 : 10'000, "1");
    const Outcome outcome = deleteTrees({path("tree")});
    QCOMPARE(outcome.errors, QList<int>());
    QVERIFY(outcome.totalBytes > 1000); // as far as a path reaches
    QVERIFY(!exists("tree"));
}

void tst_DeleteFaults::fewDescriptorsAreNeeded()
{
    const Test::DeepTree tree(path("tree"), 500, "1");
    rlimit before = {};
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit few = before;
    few.rlim_cur = 60; // those of the test's own among them
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const Outcome outcome = deleteTrees({path("tree")});
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
    QCOMPARE(outcome.errors, QList<int>());
    QCOMPARE(outcome.processedBytes, Q_INT64_C(500));
    QVERIFY(!exists("tree"));
}

void tst_DeleteFaults::aMillionFilesAreRemovedOneByOne()
{
    constexpr int folders = s_isSmall ? 20 : 1000;
    constexpr int filesEach = 1000;
    QVERIFY(QDir().mkdir(path("tree")));
    for (int i = 0; i < folders; ++i) {
        const QByteArray folder = path("tree/").toUtf8() + QByteArray::number(i);
        QCOMPARE(::mkdir(folder.constData(), 0700), 0);
        const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        QVERIFY(fd >= 0);
        for (int k = 0; k < filesEach; ++k) {
            const QByteArray name = QByteArray::number(k);
            const int file = ::openat(fd, name.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
            QVERIFY(file >= 0);
            ::close(file);
        }
        ::close(fd);
    }
    const Outcome outcome = deleteTrees({path("tree")});
    QCOMPARE(outcome.errors, QList<int>());
    QCOMPARE(outcome.progressSignals, folders * filesEach);
    QVERIFY(!exists("tree"));
}

void tst_DeleteFaults::requestThatGetsNoThreadEndsIdle()
{
    Test::makeFile(path("tree/a"), "1");
    CFileDeleteController controller;
    Faults::watch(m_folder->path());
    Faults::failNth(Call::CreateThread, 1, EAGAIN);
    controller.deleteDirectory(path("tree"));
    QVERIFY(Faults::hasStruck());
    Faults::stop();
    QTest::qWait(20); // what was posted is delivered, whatever it says
    QCOMPARE(controller.state(), CFileDeleteController::StateIdle);
    QVERIFY(exists("tree/a"));
    QCOMPARE(controller.lastResult().errorCode, quint32(0x000B0201));
    QCOMPARE(controller.lastResult().systemError, EAGAIN);
    QVERIFY(!controller.lastResult().isWhole());

    controller.deleteDirectory(path("tree")); // the next one is carried out, and once only
    QTRY_VERIFY_WITH_TIMEOUT(!exists("tree"), 30000);
    QTRY_COMPARE_WITH_TIMEOUT(controller.state(), CFileDeleteController::StateIdle, 30000);
    QVERIFY(controller.lastResult().isWhole());
}

void tst_DeleteFaults::resultOfWhatIsGone_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qint64>("files");
    QTest::newRow("tree") << QStringLiteral("tree") << Q_INT64_C(2);
    QTest::newRow("link to a tree") << QStringLiteral("link") << Q_INT64_C(0);
    QTest::newRow("missing") << QStringLiteral("missing") << Q_INT64_C(0);
    QTest::newRow("below a file") << QStringLiteral("tree/a/missing") << Q_INT64_C(0);
    QTest::newRow("missing, with two points") << QStringLiteral("missing/../x/..") << Q_INT64_C(0);
}

void tst_DeleteFaults::resultOfWhatIsGone()
{
    QFETCH(QString, name);
    QFETCH(qint64, files);
    Test::makeFile(path("tree/a"), "123");
    Test::makeFile(path("tree/sub/b"), "45");
    Test::makeFile(path("tree/sub/.c"), "6");
    QVERIFY(QFile::link(path("tree"), path("link")));
    const CFileOperationResult result = resultOfDeleting({m_folder->filePath(name)});
    QVERIFY(result.isWhole());
    QCOMPARE(result.errorCode & 0xFFU, 0U);
    QCOMPARE(result.systemError, 0);
    QCOMPARE(result.path, QString());
    QCOMPARE(result.files, files);
    QCOMPARE(result.bytes, files == 2 ? Q_INT64_C(5) : Q_INT64_C(0));
}

void tst_DeleteFaults::resultOfWhatIsNoDirectory_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("file") << QStringLiteral("file");
    QTest::newRow("link to a file") << QStringLiteral("link");
    QTest::newRow("link to nothing") << QStringLiteral("broken");
}

void tst_DeleteFaults::resultOfWhatIsNoDirectory()
{
    QFETCH(QString, name);
    Test::makeFile(path("file"), "123");
    QVERIFY(QFile::link(path("file"), path("link")));
    QVERIFY(QFile::link(path("nowhere"), path("broken")));
    QCOMPARE(deleteTrees({m_folder->filePath(name)}).errors, QList<int>());
    const CFileOperationResult result = resultOfDeleting({m_folder->filePath(name)});
    QVERIFY(!result.isWhole()); // it is still there
    QCOMPARE(result.errorCode, s_directoryFailed);
    QCOMPARE(result.systemError, ENOTDIR);
    QCOMPARE(result.path, m_folder->filePath(name));
    QVERIFY(exists("file"));
}

void tst_DeleteFaults::resultNamesTheFirstFailure()
{
    SKIP_WITHOUT_ROOT
    for (const char *name : {"tree/a", "tree/b", "tree/c", "hidden/.d", "hidden/e"}) {
        Test::makeFile(path(name), "12");
    }
    for (const char *name : {"tree/b", "hidden/.d"}) {
        QVERIFY(setImmutable(path(name).toUtf8(), true));
    }
    const auto restore = qScopeGuard([&] {
        setImmutable(path("tree/b").toUtf8(), false);
        setImmutable(path("hidden/.d").toUtf8(), false);
    });
    CFileOperationResult result = resultOfDeleting({path("hidden"), path("tree")});
    QCOMPARE(result.errorCode, s_directoryFailed);
    QCOMPARE(result.systemError, EPERM);
    QCOMPARE(result.path, path("hidden/.d"));
    QCOMPARE(result.files, Q_INT64_C(2)); // "e" and "a"
    QCOMPARE(result.bytes, Q_INT64_C(4));
    QVERIFY(result.unreadableDirectories.isEmpty());

    result = resultOfDeleting({path("tree")});
    QCOMPARE(result.errorCode, s_fileFailed);
    QCOMPARE(result.systemError, EPERM);
    QCOMPARE(result.path, path("tree/b"));
    QCOMPARE(result.files, Q_INT64_C(0));
}

void tst_DeleteFaults::resultNamesWhatCannotBeListed()
{
    Test::makeFile(path("tree/sub/a"), "12");
    Test::makeFile(path("tree/z/.hidden/b"), "12");
    const QByteArray sub = path("tree/sub/").toUtf8();
    const QByteArray hidden = path("tree/z/.hidden/").toUtf8();
    QVERIFY(makeNativeFile(sub + "caf\xe9", "12"));
    QVERIFY(makeNativeFile(hidden + "caf\xe9", "12"));
    const CFileOperationResult result = resultOfDeleting({path("tree")});
    QVERIFY(!result.isWhole());
    QCOMPARE(result.errorCode, s_directoryFailed);
    QCOMPARE(result.systemError, EILSEQ);
    QVERIFY(result.unreadableDirectories.contains(result.path));
    QStringList unreadable = result.unreadableDirectories;
    unreadable.sort();
    QCOMPARE(unreadable, QStringList({path("tree/sub"), path("tree/z/.hidden")}));
}

void tst_DeleteFaults::resultOfAnotherMount()
{
    SKIP_WITHOUT_ROOT
    Test::makeFile(path("tree/a"), "12");
    QVERIFY(QDir().mkpath(path("tree/mounted")));
    const QByteArray mounted = path("tree/mounted").toUtf8();
    QCOMPARE(::mount("none", mounted.constData(), "tmpfs", 0, "size=64k"), 0);
    const auto unmount = qScopeGuard([&] { ::umount2(mounted.constData(), MNT_DETACH); });
    Test::makeFile(path("tree/mounted/b"), "12");
    const CFileOperationResult result = resultOfDeleting({path("tree")});
    QCOMPARE(result.errorCode, s_directoryFailed);
    QCOMPARE(result.systemError, EBUSY);
    QCOMPARE(result.path, path("tree/mounted"));
    QCOMPARE(result.files, Q_INT64_C(2));
}

// As an ordinary user, in a process of its own.
void tst_DeleteFaults::resultOfADirectoryThatCannotBeReached()
{
    SKIP_WITHOUT_ROOT
    Test::makeFile(path("locked/tree/a"), "12");
    Test::makeFile(path("open/locked/a"), "12");
    for (const char *name : {"locked", "open/locked"}) {
        QCOMPARE(::chmod(path(name).toUtf8().constData(), 0), 0);
    }
    QCOMPARE(::chmod(path("open").toUtf8().constData(), 0777), 0);
    QCOMPARE(::chmod(m_folder->path().toUtf8().constData(), 0755), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::setuid(65534) != 0) {
            ::_exit(9);
        }
        const CFileOperationResult below = resultOfDeleting({path("locked/tree")});
        const CFileOperationResult detour = resultOfDeleting({path("locked/../locked/tree")});
        const CFileOperationResult inside = resultOfDeleting({path("open")});
        for (const CFileOperationResult &result : {below, detour, inside}) {
            if (result.errorCode != s_directoryFailed || result.systemError != EACCES) {
                ::_exit(1);
            }
        }
        const bool isTold = below.path == path("locked/tree") && inside.path == path("open/locked")
            && inside.unreadableDirectories == QStringList(path("open/locked"))
            && deleteTrees({path("locked/tree")}).errors
                == QList<int>{CFileDeleteController::ErrorDirectoryDeletionFailed};
        ::_exit(isTold ? 0 : 2);
    }
    int status = -1;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QCOMPARE(status, 0);
    QVERIFY(exists("locked/tree/a"));
}

void tst_DeleteFaults::currentDirectoryThatCannotBeNamedIsNoOther()
{
    const QByteArray current = path("caf").toUtf8() + "\xe9";
    QCOMPARE(::mkdir(current.constData(), 0700), 0);
    QCOMPARE(::mkdir((current + "/tree").constData(), 0700), 0);
    // what its name turns into where it is decoded carelessly
    Test::makeFile(path("caf\uFFFD/tree/stays"), "12");
    const QByteArray before = QDir::currentPath().toUtf8();
    QCOMPARE(::chdir(current.constData()), 0);
    const CFileOperationResult result = resultOfDeleting({QStringLiteral("tree")});
    QCOMPARE(::chdir(before.constData()), 0);
    QVERIFY(exists("caf\uFFFD/tree/stays"));
    QCOMPARE(result.errorCode, s_directoryFailed);
    QCOMPARE(result.systemError, EILSEQ);
}

void tst_DeleteFaults::resultOfResources()
{
    CFileOperationResult result = resultOfDeleting({QStringLiteral(":/samples/tree")});
    QCOMPARE(result.errorCode, s_fileFailed);
    QCOMPARE(result.systemError, EROFS);
    QVERIFY(result.path.startsWith(QStringLiteral(":/samples/tree/")));
    result = resultOfDeleting({QStringLiteral(":/samples/missing")});
    QVERIFY(result.isWhole());
}

void tst_DeleteFaults::searchPathsAreResolved()
{
    Test::makeFile(path("second/tree/a"), "12");
    Test::makeFile(path("here/trees:other/a"), "12"); // not what the prefix means
    QDir::setSearchPaths(QStringLiteral("trees"), {path("first"), path("second")});
    const CFileOperationResult result = resultOfDeleting({QStringLiteral("trees:tree")});
    QDir::setSearchPaths(QStringLiteral("trees"), {});
    QVERIFY(result.isWhole());
    QCOMPARE(result.files, Q_INT64_C(1));
    QVERIFY(!exists("second/tree"));
    QVERIFY(exists("second"));
}

void tst_DeleteFaults::resultOfAnAbortBeforeTheDeletion()
{
    CFileDeleteController controller;
    CFileOperationResult result;
    // it comes too late where the run is faster than this thread
    for (int i = 0; i < 100 && !result.canceled; ++i) {
        Test::makeFile(path("tree/a"), "12");
        QSignalSpy states(&controller, &CFileDeleteController::stateChanged);
        controller.deleteDirectory(path("tree"));
        controller.abort();
        const auto isOver = [&] {
            return states.count() >= 2 && controller.state() == CFileDeleteController::StateIdle;
        };
        QVERIFY(QTest::qWaitFor(isOver, 30000));
        result = controller.lastResult();
    }
    QVERIFY(result.canceled);
    QVERIFY(!result.isWhole());
    QCOMPARE(result.errorCode, 0U);
    QCOMPARE(result.bytes, 2 * result.files);
}

void tst_DeleteFaults::resultOfAPauseInMidDeletion()
{
    constexpr int count = 500;
    for (int i = 0; i < count; ++i) {
        Test::makeFile(path("tree/") + QString::number(i), "12");
    }
    CFileDeleteWorker worker;
    qint64 counted = 0;
    QObject::connect(&worker, &CFileDeleteWorker::processedBytesChanged, &worker,
                     [&](qlonglong bytes) {
                         if (bytes == 20) {
                             worker.pause();
                         }
                         counted = qMax(counted, bytes);
                     });
    QList<int> errors;
    QObject::connect(&worker, &CFileDeleteWorker::errorOccurred, &worker,
                     [&](int error) { errors.append(error); });
    worker.deleteDirectory(path("tree"));
    worker.doWork();
    QCOMPARE(counted, Q_INT64_C(20)); // the rest goes uncounted
    QCOMPARE(errors, QList<int>());
    QVERIFY(!exists("tree"));
}

void tst_DeleteFaults::eachFailingCallIsTold_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<bool>("hidesTypes");
    QTest::newRow("opening a directory") << Call::OpenDirectory << false;
    QTest::newRow("reading a directory") << Call::ReadDirectory << false;
    QTest::newRow("examining an entry") << Call::Examine << false;
    QTest::newRow("removing an entry") << Call::Remove << false;
    QTest::newRow("flushing a directory") << Call::Fsync << false;
    QTest::newRow("flushing a volume") << Call::FlushVolume << false;
    QTest::newRow("reading a directory without types") << Call::ReadDirectory << true;
    QTest::newRow("examining an entry without types") << Call::Examine << true;
    QTest::newRow("removing an entry without types") << Call::Remove << true;
}

// Whole when it is gone, and only then; and else with the reason and the place.
void tst_DeleteFaults::eachFailingCallIsTold()
{
    QFETCH(Call, call);
    QFETCH(bool, hidesTypes);
    // in memory, where there is nothing to wait for
    const QByteArray folder = m_folder->path().toUtf8();
    const bool isMounted =
        m_isRoot && ::mount("none", folder.constData(), "tmpfs", 0, nullptr) == 0;
    const auto unmount = qScopeGuard([&] {
        if (isMounted) {
            ::umount2(folder.constData(), MNT_DETACH);
        }
    });
    const bool isFlush = call == Call::Fsync || call == Call::FlushVolume;
    for (const int error : {EIO, EACCES, EMFILE, ENOMEM, EOVERFLOW}) {
        for (const bool lasts : {false, true}) {
            int n = 0;
            for (bool hasStruck = true; hasStruck;) {
                for (const char *name : {"tree/a", "tree/sub/deep/b", "tree/sub/.c", "tree/.d/e"}) {
                    Test::makeFile(path(name), "12");
                }
                if (!QFileInfo(path("tree/link")).isSymLink()) {
                    QVERIFY(QFile::link(path("tree/sub"), path("tree/link")));
                }
                Faults::watch(m_folder->path());
                if (hidesTypes) {
                    Faults::hideEntryTypes();
                }
                (lasts ? Faults::failFrom : Faults::failNth)(call, ++n, error);
                const CFileOperationResult result = resultOfDeleting({path("tree")});
                hasStruck = Faults::hasStruck();
                Faults::stop();
                const QByteArray where = "call " + QByteArray::number(n) + ", errno "
                    + QByteArray::number(error) + (lasts ? ", lasting: " : ": ")
                    + result.path.toUtf8();
                QVERIFY2(result.isWhole() == (!exists("tree") && !(isFlush && hasStruck)), where);
                if (result.isWhole()) {
                    QCOMPARE(result.errorCode, 0U);
                    QCOMPARE(result.path, QString());
                    continue;
                }
                QVERIFY2(hasStruck, where);
                QVERIFY2(result.errorCode == s_fileFailed || result.errorCode == s_directoryFailed,
                         where);
                QVERIFY2(result.systemError == error, where);
                QVERIFY2(result.path.startsWith(isFlush ? m_folder->path() : path("tree")), where);
                QVERIFY2(isFlush || QFileInfo::exists(result.path)
                             || QFileInfo(result.path).isSymLink(),
                         where);
            }
            QVERIFY(n > 1);
        }
    }
}

void tst_DeleteFaults::removalIsFlushedBeforeItsEndShows()
{
    Test::makeFile(path("tree/a"), "12");
    Test::makeFile(path("other/b"), "12");
    const QString journal = path("journal");
    Faults::watch(m_folder->path());
    Faults::recordTo(journal);
    resultOfDeleting({path("missing")});
    QCOMPARE(Faults::count(Call::FlushVolume), 0);
    QCOMPARE(Faults::count(Call::Fsync), 0);
    resultOfDeleting({path("tree"), path("missing"), path("other")});
    QCOMPARE(Faults::count(Call::FlushVolume), 1); // one volume
    QCOMPARE(Faults::count(Call::Fsync), 1); // one directory above
    Faults::stop();
    QCOMPARE(Test::contentOf(journal), QByteArray("fsync .\n"));
}

// In a process whose root is the test's folder, and may not be looked at.
void tst_DeleteFaults::rootOfAllIsKeptWhenNobodyCanTell()
{
    SKIP_WITHOUT_ROOT
    Test::makeFile(path("file"), "12");
    const QByteArray jail = m_folder->path().toUtf8();
    const pid_t child = ::fork();
    if (child == 0) {
        if (::chroot(jail.constData()) != 0 || ::chdir("/") != 0) {
            ::_exit(2);
        }
        Faults::watch(QString()); // all there is
        Faults::failFrom(Call::Examine, 2, EIO); // the first one is the path's own
        const Outcome outcome = deleteTrees({QStringLiteral("/")});
        const bool hasStruck = Faults::hasStruck();
        Faults::stop();
        ::_exit(hasStruck && !outcome.errors.isEmpty() ? 0 : 1);
    }
    int status = -1;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QCOMPARE(status, 0);
    QVERIFY(exists("file"));
}

QTEST_GUILESS_MAIN(tst_DeleteFaults)

#include "tst_DeleteFaults.moc"
