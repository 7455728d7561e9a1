// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"
#include "tests/support/CopyOutcome.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"
#include "tests/support/PrivateMounts.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <functional>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileOperationResult;
using Test::resultOfCopy;

namespace {

// Called before each flush, in the thread that copies; what it returns is the flush's errno. So
// the n-th call comes when the n-th chunk is written, and nobody has to hit a moment.
std::function<int(int n)> s_beforeFlush;
int s_flushes = 0;

} // namespace

// for all of the program's libraries
extern "C" int fsync(int fd)
{
    const int error = s_beforeFlush ? s_beforeFlush(++s_flushes) : 0;
    if (error != 0) {
        errno = error;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

/** What becomes of a destination that somebody else changes while a copy is under way. */
class tst_CopyDestination : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void destinationSwappedForALinkIsNotFollowed_data();
    void destinationSwappedForALinkIsNotFollowed();
    void directoryAboveSwappedForALinkIsNotFollowed();
    void subdirectorySwappedForALinkIsNotFollowed_data();
    void subdirectorySwappedForALinkIsNotFollowed();
    void failureBehindALinkRemovesNothingThere_data();
    void failureBehindALinkRemovesNothingThere();
    void singleFileSwappedForALinkIsRemovedWhereItWasWritten();

    void removedDestinationIsMadeAgain();
    void removedDestinationLosesItsSubdirectories();
    void movedDestinationIsMadeAgainAtItsPath();
    void destinationMadeAnewBySomebodyElseIsUsed();
    void linkThatWasTheDestinationFromTheStartIsMadeAgain();
    void destinationMayNotTurnIntoAFile();

    void volumeMountedOverTheDestinationGetsNothing();
    void volumeBelowALazilyUnmountedOneGetsNothing_data();
    void volumeBelowALazilyUnmountedOneGetsNothing();

    void volumeMountedOverASubdirectoryGetsNothing();
    void subdirectoryOnAnotherVolumeIsUsedWhileItIsThere();

    void linksToDirectoriesOfBeforeAreFollowed();
    void linkOfBeforeThatLeadsElsewhereMeanwhileIsNotFollowed();
    void linkToAFileIsWrittenThrough();
    void fileThatTookTheNameOfAFailedOneStays();
    void failedFileOfBeforeIsRemoved();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void rename(const char *from, const char *to)
    {
        QVERIFY2(QDir().rename(path(from), path(to)), from);
    }
    void link(const char *target, const char *name)
    {
        QVERIFY2(QFile::link(path(target), path(name)), name);
    }
    /** Copies "src" to "dst" and does @p change when the @p n-th chunk is written. */
    CFileOperationResult copyAnd(const std::function<int()> &change, int n = 1)
    {
        s_flushes = 0;
        s_beforeFlush = [=](int flush) { return flush == n ? change() : 0; };
        CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
            controller.copyDirectory(path("src"), path("dst"));
        });
        s_beforeFlush = nullptr;
        return result;
    }

    QScopedPointer<Test::TemporaryFolder> m_folder;
    QScopedPointer<Test::FakeCommands> m_commands;
};

void tst_CopyDestination::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
    m_commands.reset(new Test::FakeCommands);
    m_commands->add(QStringLiteral("sync"));
    for (const char *name : {"a", "b", "sub/c", "sub/d"}) {
        Test::makeFile(path("src/") + QLatin1String(name), Test::someBytes(100, name[0]));
        Test::makeFile(path("outside/") + QLatin1String(name), "dear");
    }
    for (const char *name : {"c", "d"}) {
        Test::makeFile(path("outside/") + QLatin1String(name), "dear");
    }
}

void tst_CopyDestination::cleanup()
{
    s_beforeFlush = nullptr;
    m_commands.reset();
    m_folder.reset();
}

#define COMPARE_FAILURE(result, error, number, file) \
    QCOMPARE((result).errorCode, \
             CFileCopyController::createErrorCode(CFileCopyController::error)); \
    QCOMPARE((result).systemError, number); \
    QCOMPARE((result).path, path(file)); \
    QVERIFY(!(result).isWhole())

void tst_CopyDestination::destinationSwappedForALinkIsNotFollowed_data()
{
    QTest::addColumn<bool>("existed");
    QTest::newRow("made by the copy") << false;
    QTest::newRow("there before") << true;
}

void tst_CopyDestination::destinationSwappedForALinkIsNotFollowed()
{
    QFETCH(bool, existed);
    if (existed) {
        QVERIFY(QDir().mkpath(path("dst/sub")));
    }
    const QMap<QString, QByteArray> outside = Test::treeOf(path("outside"));
    const CFileOperationResult result = copyAnd([this] {
        rename("dst", "moved");
        link("outside", "dst");
        return 0;
    });
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENODEV, "dst/b");
    QCOMPARE(result.files, Q_INT64_C(1));
    QCOMPARE(Test::treeOf(path("outside")), outside);
    QCOMPARE(Test::treeOf(path("moved")).keys(),
             QStringList({QStringLiteral("a"), QStringLiteral("sub/")}));
    QCOMPARE(Test::contentOf(path("moved/a")), Test::contentOf(path("src/a")));
}

void tst_CopyDestination::directoryAboveSwappedForALinkIsNotFollowed()
{
    QVERIFY(QDir().mkpath(path("dst")));
    QVERIFY(QDir().mkpath(path("elsewhere/deep/dst")));
    s_flushes = 0;
    s_beforeFlush = [this](int n) {
        if (n == 1) {
            rename("above", "moved");
            link("elsewhere", "above");
        }
        return 0;
    };
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        controller.copyDirectory(path("src"), path("above/deep/dst"));
    });
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENODEV, "above/deep/dst/b");
    QCOMPARE(Test::treeOf(path("elsewhere")).size(), 2);

    // the same where the path behind the link is yet to be made
    QVERIFY(QFile::remove(path("above")));
    QVERIFY(QDir(path("elsewhere")).removeRecursively());
    QVERIFY(QDir().mkpath(path("elsewhere")));
    s_flushes = 0;
    const CFileOperationResult again = resultOfCopy([this](CFileCopyController &controller) {
        QVERIFY(QDir(path("moved")).removeRecursively());
        controller.copyDirectory(path("src"), path("above/deep/dst"));
    });
    COMPARE_FAILURE(again, ErrorDestinationFileOpenFailed, ENODEV, "above/deep/dst/b");
    QCOMPARE(Test::treeOf(path("elsewhere")).size(), 0);
}

void tst_CopyDestination::subdirectorySwappedForALinkIsNotFollowed_data()
{
    QTest::addColumn<int>("flush");
    QTest::addColumn<QString>("failed");
    QTest::newRow("before its first file") << 2 << "dst/sub/c";
    QTest::newRow("after its first file") << 3 << "dst/sub/d";
}

void tst_CopyDestination::subdirectorySwappedForALinkIsNotFollowed()
{
    QFETCH(int, flush);
    QFETCH(QString, failed);
    const QMap<QString, QByteArray> outside = Test::treeOf(path("outside"));
    const CFileOperationResult result = copyAnd(
        [this] {
            rename("dst/sub", "moved");
            link("outside", "dst/sub");
            return 0;
        },
        flush);
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENOTDIR, qPrintable(failed));
    QCOMPARE(Test::treeOf(path("outside")), outside);
    QCOMPARE(Test::treeOf(path("moved")).size(), flush - 2);
}

void tst_CopyDestination::failureBehindALinkRemovesNothingThere_data()
{
    QTest::addColumn<QByteArray>("swapped");
    QTest::addColumn<int>("flush");
    QTest::addColumn<QByteArray>("failed");
    QTest::newRow("destination") << QByteArray("dst") << 1 << QByteArray("a");
    QTest::newRow("subdirectory") << QByteArray("dst/sub") << 3 << QByteArray("c");
}

// the file that fails was written into the directory that was there
void tst_CopyDestination::failureBehindALinkRemovesNothingThere()
{
    QFETCH(QByteArray, swapped);
    QFETCH(int, flush);
    QFETCH(QByteArray, failed);
    const QMap<QString, QByteArray> outside = Test::treeOf(path("outside"));
    const CFileOperationResult result = copyAnd(
        [&] {
            rename(swapped, "moved");
            link("outside", swapped);
            return EIO;
        },
        flush);
    COMPARE_FAILURE(result, ErrorDestinationFileWriteFailed, EIO, swapped + '/' + failed);
    QCOMPARE(Test::treeOf(path("outside")), outside);
    QVERIFY(QFileInfo::exists(path("moved")));
    QVERIFY(!QFileInfo::exists(path("moved/" + failed)));
}

void tst_CopyDestination::singleFileSwappedForALinkIsRemovedWhereItWasWritten()
{
    QVERIFY(QDir().mkpath(path("dst")));
    s_flushes = 0;
    s_beforeFlush = [this](int n) {
        if (n > 1) {
            return 0;
        }
        rename("dst", "moved");
        link("outside", "dst");
        return EIO;
    };
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        controller.copyDatabaseFile(path("src/a"), path("dst/a"));
    });
    COMPARE_FAILURE(result, ErrorDestinationFileWriteFailed, EIO, "dst/a");
    QCOMPARE(Test::contentOf(path("outside/a")), QByteArray("dear"));
    QCOMPARE(Test::treeOf(path("moved")).size(), 0);
}

void tst_CopyDestination::removedDestinationIsMadeAgain()
{
    QVERIFY(QDir(path("src/sub")).removeRecursively());
    const CFileOperationResult result = copyAnd([this] {
        QDir(path("dst")).removeRecursively();
        return 0;
    });
    QCOMPARE(result.errorCode, 0U);
    QCOMPARE(Test::treeOf(path("dst")).keys(), QStringList(QStringLiteral("b")));
    QCOMPARE(Test::contentOf(path("dst/b")), Test::contentOf(path("src/b")));
}

// the directories are made once, when the copy begins
void tst_CopyDestination::removedDestinationLosesItsSubdirectories()
{
    const CFileOperationResult result = copyAnd([this] {
        QDir(path("dst")).removeRecursively();
        return 0;
    });
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENOENT, "dst/sub/c");
    QCOMPARE(Test::treeOf(path("dst")).keys(), QStringList(QStringLiteral("b")));
}

void tst_CopyDestination::movedDestinationIsMadeAgainAtItsPath()
{
    QVERIFY(QDir(path("src/sub")).removeRecursively());
    const CFileOperationResult result = copyAnd([this] {
        rename("dst", "moved");
        return 0;
    });
    QCOMPARE(result.errorCode, 0U);
    QCOMPARE(Test::treeOf(path("dst")).keys(), QStringList(QStringLiteral("b")));
    QCOMPARE(Test::treeOf(path("moved")).keys(), QStringList(QStringLiteral("a")));
    QCOMPARE(Test::contentOf(path("dst/b")), Test::contentOf(path("src/b")));
}

void tst_CopyDestination::destinationMadeAnewBySomebodyElseIsUsed()
{
    const CFileOperationResult result = copyAnd([this] {
        rename("dst", "moved");
        Test::makeFile(path("dst/theirs"), "1");
        QDir(path("dst")).mkdir(QStringLiteral("sub"));
        return 0;
    });
    QCOMPARE(result.errorCode, 0U);
    QCOMPARE(Test::treeOf(path("dst")).keys().join(QLatin1Char(' ')),
             QStringLiteral("b sub/ sub/c sub/d theirs"));
}

void tst_CopyDestination::linkThatWasTheDestinationFromTheStartIsMadeAgain()
{
    QVERIFY(QDir(path("src/sub")).removeRecursively());
    QVERIFY(QDir().mkpath(path("real")));
    link("real", "dst");
    QCOMPARE(copyAnd([] { return 0; }).errorCode, 0U);
    QCOMPARE(Test::treeOf(path("real")), Test::treeOf(path("src")));

    // to the same directory, made anew
    const CFileOperationResult same = copyAnd([this] {
        QDir(path("real")).removeRecursively();
        QDir().mkpath(path("real"));
        return 0;
    });
    QCOMPARE(same.errorCode, 0U);
    QCOMPARE(Test::treeOf(path("real")).keys(), QStringList(QStringLiteral("b")));

    // to another one
    const CFileOperationResult other = copyAnd([this] {
        QFile::remove(path("dst"));
        link("outside", "dst");
        return 0;
    });
    COMPARE_FAILURE(other, ErrorDestinationFileOpenFailed, ENODEV, "dst/b");
    QCOMPARE(Test::contentOf(path("outside/b")), QByteArray("dear"));
}

void tst_CopyDestination::destinationMayNotTurnIntoAFile()
{
    const CFileOperationResult result = copyAnd([this] {
        QDir(path("dst")).removeRecursively();
        Test::makeFile(path("dst"), "theirs");
        return 0;
    });
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENOTDIR, "dst/b");
    QCOMPARE(Test::contentOf(path("dst")), QByteArray("theirs"));
}

void tst_CopyDestination::volumeMountedOverTheDestinationGetsNothing()
{
    if (!Test::PrivateMounts::entered()) {
        QSKIP("needs root, to mount");
    }
    const QByteArray destination = QFile::encodeName(path("dst"));
    const CFileOperationResult result =
        copyAnd([&] { return ::mount("tmpfs", destination.constData(), "tmpfs", 0, nullptr); });
    const QStringList onTheNewOne = Test::treeOf(path("dst")).keys();
    QCOMPARE(::umount2(destination.constData(), MNT_DETACH), 0);
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENODEV, "dst/b");
    QCOMPARE(onTheNewOne, QStringList());
    QCOMPARE(Test::treeOf(path("dst")).keys(),
             QStringList({QStringLiteral("a"), QStringLiteral("sub/")}));
}

void tst_CopyDestination::volumeBelowALazilyUnmountedOneGetsNothing_data()
{
    QTest::addColumn<QByteArray>("mountPoint");
    QTest::addColumn<bool>("isThereBelow");
    QTest::newRow("the destination") << QByteArray("dst") << true;
    QTest::newRow("a directory above, the destination there below, too")
        << QByteArray("volume") << true;
    QTest::newRow("a directory above, nothing below") << QByteArray("volume") << false;
}

void tst_CopyDestination::volumeBelowALazilyUnmountedOneGetsNothing()
{
    QFETCH(QByteArray, mountPoint);
    QFETCH(bool, isThereBelow);
    if (!Test::PrivateMounts::entered()) {
        QSKIP("needs root, to mount");
    }
    const QByteArray target = QFile::encodeName(path(mountPoint));
    const bool isDestination = mountPoint == "dst";
    const QByteArray destination = isDestination ? "dst" : "volume/deep/dst";
    QVERIFY(QDir().mkpath(path(isThereBelow ? destination : mountPoint)));
    QCOMPARE(::mount("tmpfs", target.constData(), "tmpfs", 0, nullptr), 0);
    s_flushes = 0;
    s_beforeFlush = [&](int n) { return n == 1 ? ::umount2(target.constData(), MNT_DETACH) : 0; };
    const CFileOperationResult result = resultOfCopy([&](CFileCopyController &controller) {
        controller.copyDirectory(path("src"), path(destination));
    });
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENODEV, destination + "/b");
    QVERIFY(::umount2(target.constData(), MNT_DETACH) != 0); // it is gone
    QStringList below = Test::treeOf(path(mountPoint)).keys();
    below.removeAll(QStringLiteral("deep/"));
    below.removeAll(QStringLiteral("deep/dst/"));
    QCOMPARE(below, QStringList());
}

void tst_CopyDestination::volumeMountedOverASubdirectoryGetsNothing()
{
    if (!Test::PrivateMounts::entered()) {
        QSKIP("needs root, to mount");
    }
    const QByteArray sub = QFile::encodeName(path("dst/sub"));
    const CFileOperationResult result =
        copyAnd([&] { return ::mount("tmpfs", sub.constData(), "tmpfs", 0, nullptr); }, 3);
    const QStringList onTheNewOne = Test::treeOf(path("dst/sub")).keys();
    QCOMPARE(::umount2(sub.constData(), MNT_DETACH), 0);
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENODEV, "dst/sub/d");
    QCOMPARE(onTheNewOne, QStringList());
}

void tst_CopyDestination::subdirectoryOnAnotherVolumeIsUsedWhileItIsThere()
{
    if (!Test::PrivateMounts::entered()) {
        QSKIP("needs root, to mount");
    }
    QVERIFY(QDir().mkpath(path("dst/sub")));
    const QByteArray sub = QFile::encodeName(path("dst/sub"));
    QCOMPARE(::mount("tmpfs", sub.constData(), "tmpfs", 0, nullptr), 0);
    QVERIFY(copyAnd([] { return 0; }).isWhole());
    QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("src")));

    const CFileOperationResult result =
        copyAnd([&] { return ::umount2(sub.constData(), MNT_DETACH); }, 3);
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENODEV, "dst/sub/d");
    QCOMPARE(Test::treeOf(path("dst/sub")).size(), 0);
}

void tst_CopyDestination::linksToDirectoriesOfBeforeAreFollowed()
{
    Test::makeFile(path("src/sub/deep/e"), "e");
    QVERIFY(QDir().mkpath(path("dst")));
    QVERIFY(QDir().mkpath(path("elsewhere")));
    QVERIFY(QDir().mkpath(path("far")));
    link("elsewhere", "dst/sub");
    link("far", "elsewhere/deep");
    QVERIFY(copyAnd([] { return 0; }).isWhole());
    QCOMPARE(Test::contentOf(path("elsewhere/c")), Test::contentOf(path("src/sub/c")));
    QCOMPARE(Test::contentOf(path("far/e")), QByteArray("e"));
    QVERIFY(QFileInfo(path("dst/sub")).isSymLink());
    QVERIFY(QFileInfo(path("elsewhere/deep")).isSymLink());
}

void tst_CopyDestination::linkOfBeforeThatLeadsElsewhereMeanwhileIsNotFollowed()
{
    QVERIFY(QDir().mkpath(path("dst")));
    QVERIFY(QDir().mkpath(path("elsewhere")));
    link("elsewhere", "dst/sub");
    const QMap<QString, QByteArray> outside = Test::treeOf(path("outside"));
    const CFileOperationResult result = copyAnd(
        [this] {
            QFile::remove(path("dst/sub"));
            link("outside", "dst/sub");
            return 0;
        },
        3);
    COMPARE_FAILURE(result, ErrorDestinationFileOpenFailed, ENODEV, "dst/sub/d");
    QCOMPARE(Test::treeOf(path("outside")), outside);
    QCOMPARE(Test::treeOf(path("elsewhere")).keys(), QStringList(QStringLiteral("c")));
}

void tst_CopyDestination::linkToAFileIsWrittenThrough()
{
    QVERIFY(QDir().mkpath(path("dst")));
    link("outside/a", "dst/a");
    link("outside/new", "dst/b");
    QVERIFY(copyAnd([] { return 0; }).isWhole());
    QVERIFY(QFileInfo(path("dst/a")).isSymLink());
    QCOMPARE(Test::contentOf(path("outside/a")), Test::contentOf(path("src/a")));
    QVERIFY(QFileInfo(path("dst/b")).isSymLink());
    QCOMPARE(Test::contentOf(path("outside/new")), Test::contentOf(path("src/b")));
}

void tst_CopyDestination::fileThatTookTheNameOfAFailedOneStays()
{
    const CFileOperationResult result = copyAnd(
        [this] {
            QFile::remove(path("dst/b"));
            Test::makeFile(path("dst/b"), "theirs");
            return ENOSPC;
        },
        2);
    COMPARE_FAILURE(result, ErrorDestinationFileWriteFailed, ENOSPC, "dst/b");
    QCOMPARE(Test::contentOf(path("dst/b")), QByteArray("theirs"));

    const CFileOperationResult isLink = copyAnd(
        [this] {
            QFile::remove(path("dst/b"));
            link("outside/b", "dst/b");
            return ENOSPC;
        },
        2);
    COMPARE_FAILURE(isLink, ErrorDestinationFileWriteFailed, ENOSPC, "dst/b");
    QVERIFY(QFileInfo(path("dst/b")).isSymLink());
    QCOMPARE(Test::contentOf(path("outside/b")), QByteArray("dear"));
}

// as ever: what stood there is overwritten by then
void tst_CopyDestination::failedFileOfBeforeIsRemoved()
{
    Test::makeFile(path("dst/b"), "before");
    const CFileOperationResult result = copyAnd([] { return EIO; }, 2);
    COMPARE_FAILURE(result, ErrorDestinationFileWriteFailed, EIO, "dst/b");
    QVERIFY(!QFileInfo::exists(path("dst/b")));
    QVERIFY(QFileInfo::exists(path("dst/a")));
}

int main(int argc, char *argv[])
{
    Test::PrivateMounts::enter();
    QCoreApplication application(argc, argv);
    tst_CopyDestination test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CopyDestination.moc"
