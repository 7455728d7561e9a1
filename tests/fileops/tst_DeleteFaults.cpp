#include "shared/fileops/CFileDeleteController.h"
#include "shared/fileops/CFileDeleteWorker.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
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
    const Test::DeepTree tree(path("tree"), 10'000, "1");
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
    constexpr int folders = 1000;
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

    controller.deleteDirectory(path("tree")); // the next one is carried out, and once only
    QTRY_VERIFY_WITH_TIMEOUT(!exists("tree"), 30000);
    QTRY_COMPARE_WITH_TIMEOUT(controller.state(), CFileDeleteController::StateIdle, 30000);
}

QTEST_GUILESS_MAIN(tst_DeleteFaults)

#include "tst_DeleteFaults.moc"
