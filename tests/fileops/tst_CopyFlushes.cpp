// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileCopyWorker.h"
#include "tests/support/CopyOutcome.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"
#include "tests/support/PrivateMounts.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <dlfcn.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <spawn.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <iterator>
#include <mutex>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileCopyWorker;
using Tavro::Shared::CFileOperationResult;
using Test::resultOfCopy;

namespace {

constexpr unsigned s_exFat = 0x2011BAB0;
constexpr unsigned s_fuse = 0x65735546;

// of one program, whose end destroys them
// clazy:excludeall=non-pod-global-static
std::mutex s_mutex; // guards the rest
std::atomic<bool> s_isRecording{false}; // Qt writes from threads of its own
QByteArray s_volume; // what lies below is recorded, ends in "/"
QStringList s_journal;
unsigned s_kind = 0; // what every file system says it is
QString s_failing; // the call that fails, as the journal has it
int s_error = 0;
int s_failures = 0; // how often it still does
int s_skips = 0; // after so many that do not
int s_spawnError = 0;

template<typename Function> Function nextOf(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

void record(const QString &line)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (s_isRecording) {
        s_journal.append(line);
    }
}

// writes the call down; false when it is to fail
bool mayCall(const QString &line)
{
    record(line);
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (line != s_failing || s_failures == 0 || s_skips-- > 0) {
        return true;
    }
    --s_failures;
    errno = s_error;
    return false;
}

QByteArray pathOf(int fd)
{
    std::array<char, PATH_MAX> text = {};
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(fd);
    const ssize_t length = ::readlink(link.constData(), text.data(), text.size());
    return length > 0 ? QByteArray(text.data(), static_cast<int>(length)) : QByteArray();
}

// "." for the volume itself, empty outside
QString nameOf(const QByteArray &path)
{
    if (s_volume.isEmpty()) {
        return {};
    }
    const QByteArray clean = QDir::cleanPath(QFile::decodeName(path)).toUtf8() + '/';
    if (clean == s_volume) {
        return QStringLiteral(".");
    }
    return clean.startsWith(s_volume) ? QFile::decodeName(clean.mid(s_volume.size()).chopped(1))
                                      : QString();
}

// with a "/" behind a directory
QString nameOf(int fd)
{
    const QString name = nameOf(pathOf(fd));
    struct stat info = {};
    const bool isDirectory = ::fstat(fd, &info) == 0 && S_ISDIR(info.st_mode);
    return isDirectory && !name.isEmpty() ? name + QLatin1Char('/') : name;
}

QString nameAt(int folder, const char *path)
{
    return nameOf(path[0] == '/' ? QByteArray(path) : pathOf(folder) + '/' + path);
}

void recordMade(const char *verb, const QString &name, bool isMade)
{
    if (isMade && !name.isEmpty()) {
        record(QString::fromLatin1(verb) + name);
    }
}

} // namespace

// for all of the program's libraries
extern "C" {

int fstatfs(int fd, struct statfs *info)
{
    static const auto original = nextOf<int (*)(int, struct statfs *)>("fstatfs64");
    const int result = original(fd, info);
    if (result == 0 && s_kind != 0) {
        info->f_type = static_cast<decltype(info->f_type)>(s_kind);
    }
    return result;
}

int mkdir(const char *path, mode_t mode)
{
    const auto result = static_cast<int>(::syscall(SYS_mkdirat, AT_FDCWD, path, mode));
    recordMade("mkdir ", nameAt(AT_FDCWD, path), result == 0);
    return result;
}

int mkdirat(int folder, const char *path, mode_t mode)
{
    const auto result = static_cast<int>(::syscall(SYS_mkdirat, folder, path, mode));
    recordMade("mkdir ", nameAt(folder, path), result == 0);
    return result;
}

int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    struct stat info = {};
    const bool isNew = (flags & O_CREAT) != 0 && ::fstatat(folder, path, &info, 0) != 0;
    const auto fd = static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
    recordMade("create ", nameAt(folder, path), isNew && fd >= 0);
    return fd;
}

ssize_t write(int fd, const void *data, size_t size)
{
    const auto n = static_cast<ssize_t>(::syscall(SYS_write, fd, data, size));
    recordMade("write ", s_isRecording ? nameOf(fd) : QString(), true);
    return n;
}

int fsync(int fd)
{
    const QString name = nameOf(fd);
    if (!name.isEmpty() && !mayCall(QStringLiteral("fsync ") + name)) {
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

int syncfs(int fd)
{
    const QString name = nameOf(fd);
    if (!name.isEmpty() && !mayCall(QStringLiteral("syncfs"))) {
        return -1;
    }
    return static_cast<int>(::syscall(SYS_syncfs, fd));
}

// not the machine's: there may be much to be written that is no part of the test
void sync()
{
    record(QStringLiteral("::sync"));
}

int posix_spawnp(pid_t *child, const char *file, const posix_spawn_file_actions_t *actions,
                 const posix_spawnattr_t *attributes, char *const arguments[],
                 char *const environment[])
{
    record(QString::fromLatin1(file));
    if (s_spawnError != 0) {
        return s_spawnError;
    }
    static const auto original = nextOf<decltype(&::posix_spawnp)>("posix_spawnp");
    return original(child, file, actions, attributes, arguments, environment);
}

} // extern "C"

/** What is flushed to the device and when, on FAT and where fsync() covers a file's name. */
class tst_CopyFlushes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void namesOnFatAreFlushedBeforeAFileCounts();
    void overwrittenFilesPayOneFlushForEachDirectory();
    void chunkCountsWhenItsNameIsOnTheDevice_data();
    void chunkCountsWhenItsNameIsOnTheDevice();
    void directoriesAreFlushedWhereItBuysSomething_data();
    void directoriesAreFlushedWhereItBuysSomething();
    void singleFileOnFat();
    void directCopyOnFat();

    void emptyFilesAndDirectoriesThatComeLastAreSynced_data();
    void emptyFilesAndDirectoriesThatComeLastAreSynced();
    void everyVolumeIsSynced();

    void failedFlushIsAFailedCopy_data();
    void failedFlushIsAFailedCopy();
    void failedFlushOfTheDriveIsAFailedCopy();
    void directoryThatHasNothingToFlushIsNoFailure_data();
    void directoryThatHasNothingToFlushIsNoFailure();

    void systemIsSyncedWithoutAProcess_data();
    void systemIsSyncedWithoutAProcess();
    void commandIsFoundOnPathAndItsExitCodeIgnored();
    void commandIsWaitedForWhateverBecomesOfItsSignal();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void makeSource(const char *name, int size, int seed = 1)
    {
        Test::makeFile(path("src/") + QLatin1String(name), Test::someBytes(size, seed));
    }
    // of a copy in this thread; "count" for each chunk that counts, "end" when it has ended
    template<typename Load> QString journalOf(Load load);
    QString journalOfTree()
    {
        return journalOf([this](CFileCopyWorker &worker) {
            worker.copyDirectory(path("src"), path("volume/new/dst"));
        });
    }
    void failOnce(const QString &call, int error)
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        s_failing = call;
        s_error = error;
        s_failures = 1;
        s_skips = 0;
    }

    QScopedPointer<Test::TemporaryFolder> m_folder;
    QScopedPointer<Test::FakeCommands> m_commands;
};

void tst_CopyFlushes::init()
{
    if (!Test::PrivateMounts::entered()) {
        QSKIP("needs root, to mount a volume");
    }
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
    m_commands.reset(new Test::FakeCommands);
    m_commands->addProgram(QStringLiteral("sync"), QStringLiteral("/bin/true"));
    QVERIFY(QDir().mkpath(path("src")));
    QVERIFY(QDir().mkpath(path("volume")));
    const QByteArray volume = QFile::encodeName(path("volume"));
    QCOMPARE(::mount("tmpfs", volume.constData(), "tmpfs", 0, nullptr), 0);
    s_volume = volume + '/';
    s_kind = MSDOS_SUPER_MAGIC;
}

void tst_CopyFlushes::cleanup()
{
    s_isRecording = false;
    s_journal.clear();
    s_volume.clear();
    s_kind = 0;
    s_failures = 0;
    s_spawnError = 0;
    if (m_folder) {
        ::umount2(QFile::encodeName(path("volume")).constData(), MNT_DETACH);
    }
    m_commands.reset();
    m_folder.reset();
}

template<typename Load> QString tst_CopyFlushes::journalOf(Load load)
{
    CFileCopyWorker worker;
    connect(&worker, &CFileCopyWorker::finished, &worker, [] { record(QStringLiteral("end")); });
    load(worker);
    connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker,
            [] { record(QStringLiteral("count")); });
    s_journal.clear();
    s_isRecording = true;
    worker.doWork();
    s_isRecording = false;
    return s_journal.join(QStringLiteral(", "));
}

void tst_CopyFlushes::namesOnFatAreFlushedBeforeAFileCounts()
{
    makeSource("a", 4 * 1024 * 1024 + 1);
    makeSource("b", 10);
    makeSource("sub/deep/c", 10);
    makeSource("sub/deep/d", 10);
    QCOMPARE(journalOfTree(),
             QStringLiteral(
                 "mkdir new, mkdir new/dst, mkdir new/dst/sub, mkdir new/dst/sub/deep, "
                 // the way from the volume to the first file, once
                 "create new/dst/a, write new/dst/a, fsync new/dst/a, fsync new/, fsync ./, "
                 "fsync new/dst/, count, "
                 // no more for another chunk
                 "write new/dst/a, fsync new/dst/a, count, "
                 // one for another file
                 "create new/dst/b, write new/dst/b, fsync new/dst/b, fsync new/dst/, count, "
                 // the way to another directory, once
                 "create new/dst/sub/deep/c, write new/dst/sub/deep/c, "
                 "fsync new/dst/sub/deep/c, fsync new/dst/, fsync new/dst/sub/, "
                 "fsync new/dst/sub/deep/, count, "
                 // and in the end the drive
                 "create new/dst/sub/deep/d, write new/dst/sub/deep/d, fsync new/dst/sub/deep/d, "
                 "fsync new/dst/sub/deep/, sync, fsync new/dst/, count, end"));
}

void tst_CopyFlushes::overwrittenFilesPayOneFlushForEachDirectory()
{
    for (const char *name : {"a", "b", "c", "sub/d", "sub/e"}) {
        makeSource(name, 10);
        Test::makeFile(path("volume/new/dst/") + QLatin1String(name), "longer than before");
    }
    QCOMPARE(
        journalOfTree(),
        QStringLiteral("write new/dst/a, fsync new/dst/a, fsync new/, fsync ./, fsync new/dst/, "
                       "count, write new/dst/b, fsync new/dst/b, count, "
                       "write new/dst/c, fsync new/dst/c, count, "
                       "write new/dst/sub/d, fsync new/dst/sub/d, fsync new/dst/, "
                       "fsync new/dst/sub/, count, write new/dst/sub/e, fsync new/dst/sub/e, "
                       "sync, fsync new/dst/, count, end"));
}

void tst_CopyFlushes::chunkCountsWhenItsNameIsOnTheDevice_data()
{
    QTest::addColumn<bool>("isRemovedMeanwhile");
    QTest::newRow("undisturbed") << false;
    QTest::newRow("destination removed and made again") << true;
}

// whatever the order: no name that leads to a file that counts is unflushed
void tst_CopyFlushes::chunkCountsWhenItsNameIsOnTheDevice()
{
    QFETCH(bool, isRemovedMeanwhile);
    for (int i = 0; i < 20; ++i) {
        makeSource(
            isRemovedMeanwhile
                ? qPrintable(QString::number(i))
                : qPrintable(QStringLiteral("%1/%2/%3/%4").arg(i % 2).arg(i % 3).arg(i % 5).arg(i)),
            i == 5 ? 9 * 1024 * 1024 : 10 + i);
    }
    int counted = 0;
    journalOf([&](CFileCopyWorker &worker) {
        worker.copyDirectory(path("src"), path("volume/new/dst"));
        connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker, [&] {
            if (++counted == 10 && isRemovedMeanwhile) {
                QDir(path("volume/new")).removeRecursively();
            }
        });
    });
    QSet<QString> unflushed;
    QString written;
    int counts = 0;
    for (const QString &line : qAsConst(s_journal)) {
        const QString name = line.mid(line.indexOf(QLatin1Char(' ')) + 1);
        if (line.startsWith(QLatin1String("mkdir ")) || line.startsWith(QLatin1String("create "))) {
            unflushed.insert(name);
        } else if (line.startsWith(QLatin1String("write "))) {
            written = name;
        } else if (line.startsWith(QLatin1String("fsync ")) && name.endsWith(QLatin1Char('/'))) {
            const QString directory = name == QLatin1String("./") ? QString() : name;
            for (auto it = unflushed.begin(); it != unflushed.end();) {
                const bool isIn = it->startsWith(directory)
                    && it->indexOf(QLatin1Char('/'), directory.size()) < 0;
                it = isIn ? unflushed.erase(it) : std::next(it);
            }
        } else if (line == QLatin1String("count")) {
            ++counts;
            for (QString way = written; !way.isEmpty();
                 way.truncate(qMax(0, way.lastIndexOf(QLatin1Char('/'))))) {
                QVERIFY2(!unflushed.contains(way),
                         qPrintable(way + QStringLiteral(" in: ")
                                    + s_journal.join(QStringLiteral(", "))));
            }
        }
    }
    QCOMPARE(counts, 22);
}

void tst_CopyFlushes::directoriesAreFlushedWhereItBuysSomething_data()
{
    QTest::addColumn<unsigned>("kind");
    QTest::addColumn<bool>("isFlushed");
    QTest::newRow("ext2, ext3, ext4") << unsigned(EXT4_SUPER_MAGIC) << false;
    QTest::newRow("xfs") << unsigned(XFS_SUPER_MAGIC) << false;
    QTest::newRow("btrfs") << unsigned(BTRFS_SUPER_MAGIC) << false;
    QTest::newRow("tmpfs") << unsigned(TMPFS_MAGIC) << false;
    QTest::newRow("FAT") << unsigned(MSDOS_SUPER_MAGIC) << true;
    QTest::newRow("exFAT") << s_exFat << true;
    QTest::newRow("FUSE") << s_fuse << true;
    QTest::newRow("one that nobody tried") << 0x1234567U << true;
}

void tst_CopyFlushes::directoriesAreFlushedWhereItBuysSomething()
{
    QFETCH(unsigned, kind);
    QFETCH(bool, isFlushed);
    s_kind = kind;
    makeSource("a", 10);
    makeSource("sub/b", 10);
    const QString journal = journalOfTree();
    QCOMPARE(s_journal.filter(QRegularExpression(QStringLiteral("^fsync .*/$"))).isEmpty(),
             !isFlushed);
    if (!isFlushed) {
        QCOMPARE(journal,
                 QStringLiteral("mkdir new, mkdir new/dst, mkdir new/dst/sub, "
                                "create new/dst/a, write new/dst/a, fsync new/dst/a, count, "
                                "create new/dst/sub/b, write new/dst/sub/b, fsync new/dst/sub/b, "
                                "sync, count, end"));
    }
}

void tst_CopyFlushes::singleFileOnFat()
{
    makeSource("db", 4 * 1024 * 1024 + 1);
    const auto load = [this](CFileCopyWorker &worker) {
        worker.copyLargeFile(path("src/db"), path("volume/dir/db"));
    };
    QVERIFY(QDir().mkpath(path("volume/dir")));
    const QString chunks =
        QStringLiteral("write dir/db, fsync dir/db, fsync ./, fsync dir/, count, "
                       "write dir/db, fsync dir/db, sync, fsync dir/, count, end");
    QCOMPARE(journalOf(load), QStringLiteral("create dir/db, ") + chunks);
    QCOMPARE(journalOf(load), chunks);
}

void tst_CopyFlushes::directCopyOnFat()
{
    makeSource("file", 4 * 1024 * 1024 + 1);
    makeSource("empty", 0);
    CFileCopyController controller;
    s_isRecording = true;
    controller.copyFile(path("src/file"), path("volume/file"));
    controller.copyFile(path("src/empty"), path("volume/empty"));
    s_isRecording = false;
    QCOMPARE(s_journal.join(QStringLiteral(", ")),
             QStringLiteral("create file, write file, fsync file, fsync ./, sync, fsync ./, "
                            "write file, fsync file, sync, fsync ./, "
                            "create empty, syncfs, fsync ./"));
}

void tst_CopyFlushes::emptyFilesAndDirectoriesThatComeLastAreSynced_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("lastOnFat");
    const QString synced = QStringLiteral("syncfs, end");
    const QString syncedFat = QStringLiteral("syncfs, fsync new/dst/, end");
    const QString counted = QStringLiteral("sync, count, end");
    const QString countedFat = QStringLiteral("sync, fsync new/dst/, count, end");
    // a directory ends in "/", a file without a byte in "0"
    QTest::newRow("file with bytes") << QStringList({QStringLiteral("a")}) << counted << countedFat;
    QTest::newRow("empty file first")
        << QStringList({QStringLiteral("a0"), QStringLiteral("b")}) << counted << countedFat;
    QTest::newRow("empty directory, and a file with bytes")
        << QStringList({QStringLiteral("a"), QStringLiteral("void/")}) << counted << countedFat;
    QTest::newRow("empty file last")
        << QStringList({QStringLiteral("a"), QStringLiteral("b0")}) << synced << syncedFat;
    QTest::newRow("empty file alone") << QStringList({QStringLiteral("a0")}) << synced << syncedFat;
    QTest::newRow("empty directory alone")
        << QStringList({QStringLiteral("void/")}) << synced << syncedFat;
    QTest::newRow("nothing") << QStringList() << QStringLiteral("end") << QStringLiteral("end");
}

void tst_CopyFlushes::emptyFilesAndDirectoriesThatComeLastAreSynced()
{
    QFETCH(QStringList, files);
    QFETCH(QString, last);
    QFETCH(QString, lastOnFat);
    for (const QString &file : files) {
        if (file.endsWith(QLatin1Char('/'))) {
            QVERIFY(QDir(path("src")).mkdir(file));
        } else {
            makeSource(qPrintable(file), file.endsWith(QLatin1Char('0')) ? 0 : 10);
        }
    }
    s_kind = EXT4_SUPER_MAGIC;
    const QString journal = journalOfTree();
    QVERIFY2(journal.endsWith(last), qPrintable(journal));
    QCOMPARE(journal.contains(QLatin1String("syncfs")), last.contains(QLatin1String("syncfs")));
    QDir(path("volume/new")).removeRecursively();
    s_kind = MSDOS_SUPER_MAGIC;
    const QString journalOnFat = journalOfTree();
    QVERIFY2(journalOnFat.endsWith(lastOnFat), qPrintable(journalOnFat));
}

void tst_CopyFlushes::everyVolumeIsSynced()
{
    makeSource("a0", 0);
    QVERIFY(QDir().mkpath(path("volume/second")));
    const QByteArray second = QFile::encodeName(path("volume/second"));
    QCOMPARE(::mount("tmpfs", second.constData(), "tmpfs", 0, nullptr), 0);
    const QString journal = journalOf([this](CFileCopyWorker &worker) {
        worker.copyDirectories(
            {path("src"), path("src"), path("src")},
            {path("volume/one"), path("volume/second/two"), path("volume/three")});
    });
    QCOMPARE(::umount2(second.constData(), MNT_DETACH), 0);
    QCOMPARE(s_journal.count(QStringLiteral("syncfs")), 2);
    QVERIFY2(journal.contains(QLatin1String("fsync one/")), qPrintable(journal));
    QVERIFY2(journal.contains(QLatin1String("fsync second/two/")), qPrintable(journal));
}

void tst_CopyFlushes::failedFlushIsAFailedCopy_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("failed");
    QTest::addColumn<int>("files");
    QTest::newRow("volume's root") << "fsync ./"
                                   << "volume/new/dst/a" << 0;
    QTest::newRow("directory above") << "fsync new/"
                                     << "volume/new/dst/a" << 0;
    QTest::newRow("destination") << "fsync new/dst/"
                                 << "volume/new/dst/a" << 0;
    QTest::newRow("directory on the way") << "fsync new/dst/sub/"
                                          << "volume/new/dst/sub/deep/b" << 1;
    QTest::newRow("subdirectory") << "fsync new/dst/sub/deep/"
                                  << "volume/new/dst/sub/deep/b" << 1;
    QTest::newRow("file") << "fsync new/dst/sub/deep/b"
                          << "volume/new/dst/sub/deep/b" << 1;
    QTest::newRow("volume") << "syncfs"
                            << "volume/new/dst" << 3;
}

void tst_CopyFlushes::failedFlushIsAFailedCopy()
{
    QFETCH(QString, failing);
    QFETCH(QString, failed);
    QFETCH(int, files);
    makeSource("a", 10);
    makeSource("sub/deep/b", 10);
    makeSource("sub/deep/c0", 0);
    failOnce(failing, EIO);
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        controller.copyDirectory(path("src"), path("volume/new/dst"));
    });
    QCOMPARE(
        result.errorCode,
        CFileCopyController::createErrorCode(CFileCopyController::ErrorDestinationFileWriteFailed));
    QCOMPARE(result.systemError, EIO);
    QCOMPARE(result.path, m_folder->filePath(failed));
    QCOMPARE(result.files, static_cast<qint64>(files));
    QCOMPARE(QFileInfo(m_folder->filePath(failed)).isFile(), false); // nothing that does not count
}

// after the last "sync"
void tst_CopyFlushes::failedFlushOfTheDriveIsAFailedCopy()
{
    makeSource("a", 10);
    Test::makeFile(path("volume/dst/a"), "before"); // pays one flush of its directory
    failOnce(QStringLiteral("fsync dst/"), EIO);
    s_skips = 1;
    CFileCopyController controller;
    const Test::CopyOutcomes outcomes(controller);
    s_isRecording = true;
    controller.copyDirectory(path("src"), path("volume/dst"));
    QVERIFY(outcomes.waitFor(1));
    s_isRecording = false;
    QCOMPARE(s_journal.join(QStringLiteral(", ")),
             QStringLiteral("write dst/a, fsync dst/a, fsync ./, fsync dst/, sync, fsync dst/"));
    const CFileOperationResult result = outcomes.results().constFirst();
    QCOMPARE(
        result.errorCode,
        CFileCopyController::createErrorCode(CFileCopyController::ErrorDestinationFileWriteFailed));
    QCOMPARE(result.systemError, EIO);
    QCOMPARE(result.path, path("volume/dst/a"));
    QCOMPARE(controller.processedBytes(), Q_INT64_C(0));
}

void tst_CopyFlushes::directoryThatHasNothingToFlushIsNoFailure_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("EINVAL") << EINVAL;
    QTest::newRow("ENOTSUP") << ENOTSUP;
    QTest::newRow("ENOSYS") << ENOSYS;
    QTest::newRow("interrupted") << EINTR;
}

void tst_CopyFlushes::directoryThatHasNothingToFlushIsNoFailure()
{
    QFETCH(int, error);
    makeSource("a", 10);
    failOnce(QStringLiteral("fsync new/dst/"), error);
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        s_isRecording = true;
        controller.copyDirectory(path("src"), path("volume/new/dst"));
    });
    s_isRecording = false;
    QCOMPARE(s_failures, 0);
    QVERIFY(result.isWhole());
    // and once for the drive; the interrupted one again
    QCOMPARE(s_journal.count(QStringLiteral("fsync new/dst/")), error == EINTR ? 3 : 2);
}

void tst_CopyFlushes::systemIsSyncedWithoutAProcess_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("too many processes") << EAGAIN;
    QTest::newRow("no memory") << ENOMEM;
    QTest::newRow("no such command") << 0;
}

void tst_CopyFlushes::systemIsSyncedWithoutAProcess()
{
    QFETCH(int, error);
    makeSource("a", 10);
    s_spawnError = error;
    const QByteArray before = qgetenv("PATH");
    if (error == 0) {
        qputenv("PATH", QFile::encodeName(path("src")));
    }
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        s_isRecording = true;
        controller.copyDirectory(path("src"), path("volume/dst"));
    });
    s_isRecording = false;
    qputenv("PATH", before);
    QVERIFY(result.isWhole());
    QCOMPARE(s_journal.join(QStringLiteral(", ")),
             QStringLiteral("mkdir dst, create dst/a, write dst/a, fsync dst/a, fsync ./, "
                            "fsync dst/, sync, ::sync, fsync dst/"));
}

void tst_CopyFlushes::commandIsFoundOnPathAndItsExitCodeIgnored()
{
    makeSource("a", 10);
    m_commands.reset();
    m_commands.reset(new Test::FakeCommands);
    m_commands->add(QStringLiteral("sync"), "exit 3");
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        s_isRecording = true;
        controller.copyDirectory(path("src"), path("volume/dst"));
    });
    s_isRecording = false;
    QVERIFY(result.isWhole());
    QCOMPARE(m_commands->journal(), QStringList(QStringLiteral("sync")));
    QVERIFY(!s_journal.contains(QStringLiteral("::sync")));
}

// a host that ignores SIGCHLD leaves nothing to be waited for
void tst_CopyFlushes::commandIsWaitedForWhateverBecomesOfItsSignal()
{
    makeSource("a", 10);
    m_commands.reset();
    m_commands.reset(new Test::FakeCommands);
    m_commands->add(QStringLiteral("sync"),
                    "/bin/sleep 0.2; echo 'sync has ended' >> '"
                        + QFile::encodeName(m_commands->journalPath()) + "'");
    for (int i = 1; i <= 2; ++i) {
        const auto before = ::signal(SIGCHLD, i == 1 ? SIG_IGN : SIG_DFL);
        const CFileOperationResult result = resultOfCopy([&](CFileCopyController &controller) {
            controller.copyDirectory(path("src"), path("volume/dst"));
        });
        ::signal(SIGCHLD, before);
        QVERIFY(result.isWhole());
        QCOMPARE(m_commands->journal().count(QStringLiteral("sync has ended")), i);
    }
}

int main(int argc, char *argv[])
{
    Test::PrivateMounts::enter();
    QCoreApplication application(argc, argv);
    tst_CopyFlushes test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CopyFlushes.moc"
