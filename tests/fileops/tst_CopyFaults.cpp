// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyWorker.h"
#include "tests/support/CopyOutcome.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/FileTree.h"
#include "tests/support/RefusedProcesses.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <dlfcn.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <atomic>
#include <cerrno>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileCopyWorker;
using Test::FaultInjection::Call;

namespace Faults = Test::FaultInjection;

Q_DECLARE_METATYPE(Test::FaultInjection::Call)

namespace {

std::atomic<bool> s_isFat{false}; // what every file system says it is
std::atomic<int> s_syncs{0}; // calls of sync(), which does nothing else here

} // namespace

// for all of the program's libraries
extern "C" int fstatfs(int fd, struct statfs *info)
{
    using Function = int (*)(int, struct statfs *);
    static const auto original = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "fstatfs64"));
    const int result = original(fd, info);
    if (result == 0 && s_isFat) {
        info->f_type = MSDOS_SUPER_MAGIC;
    }
    return result;
}

extern "C" void sync() noexcept
{
    ++s_syncs;
}

/** What happens to a copy when the system fails it, call by call. */
class tst_CopyFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void chunkIsFlushedBeforeAnythingElseHappens();
    void everySmallFileIsFlushedBeforeItIsClosed();
    void eachFailingCallLosesNothing_data();
    void eachFailingCallLosesNothing();
    void resultTellsTheTruth_data();
    void resultTellsTheTruth();
    void reportedErrorNamesTheSide_data();
    void reportedErrorNamesTheSide();
    void failedFileIsRemovedAndEarlierOnesStay();
    void shortReadsAreFilledUpToAChunk();
    void whatIsNoRegularFileIsNotEvenOpened();
    void linkToWhatIsNoFileIsNotOpenedInATree_data();
    void linkToWhatIsNoFileIsNotOpenedInATree();
    void requestThatGetsNoThreadEndsAllTheSame();
    void syncThatGetsNoProcessIsCalled();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void makeSource();
    int copySource(bool *hasFailed);

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Test::FakeCommands> m_commands;
};

void tst_CopyFaults::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
    m_commands.reset(new Test::FakeCommands);
    m_commands->add(QStringLiteral("sync"));
}

void tst_CopyFaults::cleanup()
{
    Faults::stop();
    s_isFat = false;
    m_commands.reset();
    m_folder.reset();
}

// small ones, an empty one, and one of three chunks
void tst_CopyFaults::makeSource()
{
    Test::makeFile(path("src/a"), Test::someBytes(100, 1));
    Test::makeFile(path("src/b"), Test::someBytes(9 * 1024 * 1024, 2));
    Test::makeFile(path("src/c"));
    Test::makeFile(path("src/sub/d"), Test::someBytes(5000, 3));
}

// the worker's error; and whether it was announced
int tst_CopyFaults::copySource(bool *hasFailed)
{
    CFileCopyWorker worker;
    *hasFailed = false;
    connect(&worker, &CFileCopyWorker::errorOccurred, &worker, [hasFailed] { *hasFailed = true; });
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    return worker.error();
}

void tst_CopyFaults::chunkIsFlushedBeforeAnythingElseHappens()
{
    Test::makeFile(path("big"), Test::someBytes(9 * 1024 * 1024));
    Faults::watch(m_folder->path());
    Faults::recordTo(m_commands->journalPath());
    CFileCopyWorker worker;
    worker.copyLargeFile(path("big"), path("copy"));
    worker.doWork();
    Faults::stop();
    QCOMPARE(m_commands->journal().join(QStringLiteral(", ")),
             QStringLiteral("open big, open copy, "
                            "read big 4194304, write copy 4194304, fsync copy, "
                            "read big 4194304, write copy 4194304, fsync copy, "
                            "read big 1048576, write copy 1048576, fsync copy, sync, "
                            "read big 0, close copy, close big"));
}

void tst_CopyFaults::everySmallFileIsFlushedBeforeItIsClosed()
{
    for (int i = 0; i < 50; ++i) {
        Test::makeFile(path("src/") + QString::number(1000 + i), Test::someBytes(100 + i, i));
    }
    Faults::watch(m_folder->path());
    Faults::recordTo(m_commands->journalPath());
    bool hasFailed = false;
    QCOMPARE(copySource(&hasFailed), 0);
    Faults::stop();

    QStringList expected;
    for (int i = 0; i < 50; ++i) {
        const QString source = QStringLiteral("src/%1").arg(1000 + i);
        const QString copy = QStringLiteral("dst/%1").arg(1000 + i);
        const QString size = QString::number(100 + i);
        expected << QStringLiteral("open ") + source << QStringLiteral("open ") + copy
                 << QStringLiteral("read ") + source + QLatin1Char(' ') + size
                 << QStringLiteral("write ") + copy + QLatin1Char(' ') + size
                 << QStringLiteral("fsync ") + copy;
        if (i == 49) {
            expected << QStringLiteral("sync");
        }
        expected << QStringLiteral("read ") + source + QStringLiteral(" 0")
                 << QStringLiteral("close ") + copy << QStringLiteral("close ") + source;
    }
    QCOMPARE(m_commands->journal(), expected);
}

void tst_CopyFaults::eachFailingCallLosesNothing_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<QList<int>>("errors");
    using Controller = CFileCopyController;
    const QList<int> opening = {Controller::ErrorSourceFileOpenFailed,
                                Controller::ErrorDestinationFileOpenFailed};
    const QList<int> reading = {Controller::ErrorSourceFileReadFailed};
    const QList<int> writing = {Controller::ErrorDestinationFileWriteFailed};
    const QList<int> none;
    // closing the source cannot fail the copy: everything has been read by then
    const QList<int> closing = {Controller::ErrorNone, Controller::ErrorDestinationFileWriteFailed};

    QTest::newRow("open, no space") << Call::Open << ENOSPC << opening;
    QTest::newRow("open, device error") << Call::Open << EIO << opening;
    QTest::newRow("open, too many files") << Call::Open << EMFILE << opening;
    QTest::newRow("open, interrupted") << Call::Open << EINTR << none;
    QTest::newRow("read, device error") << Call::Read << EIO << reading;
    QTest::newRow("read, interrupted") << Call::Read << EINTR << none;
    QTest::newRow("read, short") << Call::Read << Faults::shortTransfer << none;
    QTest::newRow("write, no space") << Call::Write << ENOSPC << writing;
    QTest::newRow("write, device error") << Call::Write << EIO << writing;
    QTest::newRow("write, interrupted") << Call::Write << EINTR << none;
    QTest::newRow("write, short") << Call::Write << Faults::shortTransfer << none;
    QTest::newRow("fsync, no space") << Call::Fsync << ENOSPC << writing;
    QTest::newRow("fsync, device error") << Call::Fsync << EIO << writing;
    QTest::newRow("fsync, interrupted") << Call::Fsync << EINTR << none;
    QTest::newRow("close, no space") << Call::Close << ENOSPC << closing;
    QTest::newRow("close, device error") << Call::Close << EIO << closing;
    QTest::newRow("close, interrupted") << Call::Close << EINTR << closing;
}

void tst_CopyFaults::eachFailingCallLosesNothing()
{
    QFETCH(Call, call);
    QFETCH(int, error);
    QFETCH(QList<int>, errors);
    makeSource();
    const QMap<QString, QByteArray> source = Test::treeOf(path("src"));

    int strikes = 0;
    for (int n = 1;; ++n) {
        Faults::watch(m_folder->path());
        Faults::failNth(call, n, error);
        bool hasFailed = false;
        const int result = copySource(&hasFailed);
        Faults::stop();
        const bool hasStruck = Faults::hasStruck();
        strikes += hasStruck ? 1 : 0;

        const QByteArray where = "call number " + QByteArray::number(n);
        const bool mustFail = hasStruck && !errors.isEmpty();
        if (mustFail) {
            QVERIFY2(errors.contains(result), where);
        } else {
            QVERIFY2(result == 0, where);
        }
        QVERIFY2(hasFailed == (result != 0), where);

        // what is there is whole, and all of it is there when nothing was reported
        const QMap<QString, QByteArray> copy = Test::treeOf(path("dst"));
        for (auto file = copy.cbegin(); file != copy.cend(); ++file) {
            QVERIFY2(source.value(file.key()) == file.value(), where + ": " + file.key().toUtf8());
        }
        if (result == 0) {
            QVERIFY2(copy == source, where);
        }
        QVERIFY(QDir(path("dst")).removeRecursively());
        if (!hasStruck) {
            break; // the copy has fewer calls of that kind
        }
    }
    QVERIFY(strikes >= 5); // as many chunks as there are
}

void tst_CopyFaults::resultTellsTheTruth_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<bool>("isFat");
    QTest::addColumn<bool>("isSingleFile");
    const struct
    {
        const char *name;
        Call call;
    } calls[] = {
        {"open", Call::Open},
        {"read", Call::Read},
        {"write", Call::Write},
        {"fsync", Call::Fsync},
        {"close", Call::Close},
        {"open a directory", Call::OpenDirectory},
        {"read a directory", Call::ReadDirectory},
        {"examine", Call::Examine},
        {"remove", Call::Remove},
        {"syncfs", Call::FlushVolume},
    };
    for (const auto &row : calls) {
        QTest::addRow("%s, tree", row.name) << row.call << false << false;
        QTest::addRow("%s, tree, FAT", row.name) << row.call << true << false;
        QTest::addRow("%s, file", row.name) << row.call << false << true;
        QTest::addRow("%s, file, FAT", row.name) << row.call << true << true;
    }
}

// Whole only when it is; and for whatever error, the error.
void tst_CopyFaults::resultTellsTheTruth()
{
    QFETCH(Call, call);
    QFETCH(bool, isFat);
    QFETCH(bool, isSingleFile);
    const QTemporaryDir memory(QStringLiteral("/dev/shm/tst_CopyFaults-XXXXXX")); // thousands
    QVERIFY(memory.isValid());
    const QString source = memory.filePath(QStringLiteral("src"));
    const QString copy = memory.filePath(QStringLiteral("dst"));
    Test::makeFile(source + QStringLiteral("/a"), Test::someBytes(100, 1));
    Test::makeFile(source + QStringLiteral("/b"), Test::someBytes(4 * 1024 * 1024 + 1, 2));
    Test::makeFile(source + QStringLiteral("/sub/c"), Test::someBytes(5000, 3));
    Test::makeFile(source + QStringLiteral("/sub/empty"));
    QVERIFY(QFile::link(source + QStringLiteral("/sub/c"), source + QStringLiteral("/sub/link")));
    QVERIFY(QDir(source).mkdir(QStringLiteral("void")));
    const QMap<QString, QByteArray> tree = Test::treeOf(source);

    s_isFat = isFat;
    for (const int error : {EIO, EACCES, EMFILE, ENOMEM, EOVERFLOW, ENOSPC, EINTR}) {
        for (int n = 1;; ++n) {
            const QByteArray where =
                "call number " + QByteArray::number(n) + ", error " + QByteArray::number(error);
            Faults::watch(memory.path());
            Faults::failNth(call, n, error);
            const Tavro::Shared::CFileOperationResult result =
                Test::resultOfCopy([&](CFileCopyController &controller) {
                    if (isSingleFile) {
                        controller.copyDatabaseFile(source + QStringLiteral("/b"), copy);
                    } else {
                        controller.copyDirectory(source, copy);
                    }
                });
            Faults::stop();
            const bool isEqual = isSingleFile
                ? Test::contentOf(copy) == tree.value(QStringLiteral("b"))
                : Test::treeOf(copy) == tree;
            QVERIFY2(isEqual || !result.isWhole(), where);
            QVERIFY2(!result.canceled, where);
            // what is not open is not flushed; above the destination there may be no right to it
            const bool isHarmless = error == EINTR || (isFat && error == EACCES);
            if (call == Call::OpenDirectory && Faults::hasStruck() && !isHarmless) {
                QVERIFY2(!result.isWhole(), where);
            }
            if (!result.isWhole()) {
                QVERIFY2(Faults::hasStruck(), where);
                QVERIFY2(result.systemError == error,
                         where + ": " + QByteArray::number(result.systemError));
                const QString path = result.unreadableDirectories.value(0, result.path);
                QVERIFY2(path == source || path == copy
                             || path.startsWith(source + QLatin1Char('/'))
                             || path.startsWith(copy + QLatin1Char('/')),
                         where + ": " + path.toUtf8());
            } else {
                QVERIFY2(result.systemError == 0 && result.path.isEmpty(), where);
                QCOMPARE(result.files, isSingleFile ? Q_INT64_C(1) : Q_INT64_C(5));
            }
            QVERIFY(isSingleFile ? !QFileInfo::exists(copy) || QFile::remove(copy)
                                 : QDir(copy).removeRecursively());
            if (!Faults::hasStruck()) {
                QVERIFY2(result.isWhole(), where);
                break; // the copy has fewer calls of that kind
            }
        }
    }
}

void tst_CopyFaults::reportedErrorNamesTheSide_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("expected");
    QTest::newRow("opening the source") << Call::Open << 1 << 1;
    QTest::newRow("opening the destination") << Call::Open << 2 << 3;
    QTest::newRow("first read") << Call::Read << 1 << 2;
    QTest::newRow("last read, at the end of the file") << Call::Read << 4 << 2;
    QTest::newRow("first write") << Call::Write << 1 << 4;
    QTest::newRow("last write") << Call::Write << 3 << 4;
    QTest::newRow("last flush") << Call::Fsync << 3 << 4;
    QTest::newRow("closing the destination") << Call::Close << 1 << 4;
    QTest::newRow("closing the source") << Call::Close << 2 << 0;
}

void tst_CopyFaults::reportedErrorNamesTheSide()
{
    QFETCH(Call, call);
    QFETCH(int, n);
    QFETCH(int, expected);
    const QByteArray content = Test::someBytes(9 * 1024 * 1024);
    Test::makeFile(path("big"), content);
    Faults::watch(m_folder->path());
    Faults::failNth(call, n, EIO);
    CFileCopyWorker worker;
    worker.copyLargeFile(path("big"), path("copy"));
    worker.doWork();
    Faults::stop();
    QVERIFY(Faults::hasStruck());
    QCOMPARE(worker.error(), expected);
    QCOMPARE(QFileInfo::exists(path("copy")), expected == 0);
    QVERIFY(Test::contentOf(path("big")) == content);
}

void tst_CopyFaults::failedFileIsRemovedAndEarlierOnesStay()
{
    makeSource();
    Faults::watch(m_folder->path());
    Faults::failNth(Call::Write, 3, ENOSPC); // the second chunk of the second file
    bool hasFailed = false;
    QCOMPARE(copySource(&hasFailed),
             static_cast<int>(CFileCopyController::ErrorDestinationFileWriteFailed));
    Faults::stop();
    QVERIFY(hasFailed);
    QCOMPARE(Test::treeOf(path("dst")).keys(),
             QStringList({QStringLiteral("a"), QStringLiteral("sub/")}));
    QCOMPARE(Test::contentOf(path("dst/a")), Test::contentOf(path("src/a")));
}

void tst_CopyFaults::shortReadsAreFilledUpToAChunk()
{
    // a slow source that gives less than was asked for must not cost a flush each time
    Test::makeFile(path("big"), Test::someBytes(9 * 1024 * 1024));
    Faults::watch(m_folder->path());
    Faults::failNth(Call::Read, 1, Faults::shortTransfer);
    CFileCopyWorker worker;
    QList<qlonglong> progress;
    connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker,
            [&progress](qlonglong value) { progress.append(value); });
    QCOMPARE(worker.copyFile(path("big"), path("copy")), 0);
    QVERIFY(Faults::hasStruck());
    QCOMPARE(Faults::count(Call::Fsync), 3);
    Faults::stop();
    QCOMPARE(progress, QList<qlonglong>({4194304, 8388608, 9437184}));
}

void tst_CopyFaults::whatIsNoRegularFileIsNotEvenOpened()
{
    // a device may act on being opened, and whoever waits to write into a FIFO would be let go
    QVERIFY(::mkfifo(path("fifo").toUtf8().constData(), 0644) == 0);
    QVERIFY(QFile::link(path("fifo"), path("link")));
    Faults::watch(m_folder->path());
    CFileCopyWorker worker;
    for (const char *name : {"fifo", "link"}) {
        QCOMPARE(worker.copyFile(path(name), path("copy")),
                 static_cast<int>(CFileCopyController::ErrorSourceFileOpenFailed));
    }
    QCOMPARE(Faults::count(Call::Open), 0);
    Faults::stop();
}

void tst_CopyFaults::linkToWhatIsNoFileIsNotOpenedInATree_data()
{
    QTest::addColumn<QString>("secondName");
    QTest::newRow("alone") << QString();
    // whose order is asked of QDir
    QTest::newRow("beside a name that differs in case") << QStringLiteral("src/LINK");
}

void tst_CopyFaults::linkToWhatIsNoFileIsNotOpenedInATree()
{
    QFETCH(QString, secondName);

    QVERIFY(::mkfifo(path("fifo").toUtf8().constData(), 0644) == 0);
    QVERIFY(QDir().mkpath(path("src")));
    QVERIFY(QFile::link(path("fifo"), path("src/link")));
    if (!secondName.isEmpty()) {
        QVERIFY(QFile::link(path("fifo"), m_folder->filePath(secondName)));
    }
    Faults::watch(m_folder->path());
    CFileCopyWorker worker;
    QList<int> errors;
    connect(&worker, &CFileCopyWorker::errorOccurred, &worker,
            [&errors](int error) { errors.append(error); });
    worker.copyDirectory(path("src"), path("dst"));
    worker.doWork();
    QCOMPARE(errors, QList<int>({CFileCopyController::ErrorSourceFileOpenFailed}));
    QCOMPARE(Faults::count(Call::Open), 0);
    Faults::stop();
}

void tst_CopyFaults::requestThatGetsNoThreadEndsAllTheSame()
{
    makeSource();
    CFileCopyController controller;
    QSignalSpy completed(&controller, &CFileCopyController::operationCompleted);
    QSignalSpy canceled(&controller, &CFileCopyController::operationCanceled);
    Faults::watch(m_folder->path());
    Faults::failNth(Call::CreateThread, 1, EAGAIN);
    QTest::ignoreMessage(
        QtCriticalMsg, "QThread::start: Thread creation error (Resource temporarily unavailable)");
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(Faults::hasStruck());
    QCOMPARE(completed.count(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(completed.count(), 1, 30000);
    QCOMPARE(controller.state(), CFileCopyController::StateIdle);
    QVERIFY(!QFileInfo::exists(path("dst")));

    controller.copyDirectory(path("src"), path("dst"));
    QTRY_COMPARE_WITH_TIMEOUT(completed.count(), 2, 30000);
    Faults::stop();
    QCOMPARE(canceled.count(), 0);
    QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("src")));
}

void tst_CopyFaults::syncThatGetsNoProcessIsCalled()
{
    makeSource();
    s_syncs = 0;
    const Test::RefusedProcesses refused(EAGAIN);
    bool hasFailed = false;
    copySource(&hasFailed);
    QVERIFY(!hasFailed);
    QCOMPARE(refused.count(), 1);
    QCOMPARE(s_syncs.load(), 1);
    QVERIFY(Test::RefusedProcesses::killedGroups().empty());
    QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("src")));
    QCOMPARE(m_commands->journal(), QStringList());
}

QTEST_GUILESS_MAIN(tst_CopyFaults)

#include "tst_CopyFaults.moc"
