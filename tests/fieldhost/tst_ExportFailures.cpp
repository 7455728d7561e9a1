// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Handshake.h"
#include "tests/fieldhost/Program.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, NoSpace = 5, Aborted = 6 };

const QString s_export = QStringLiteral("export");
const QString s_intoExisting = QStringLiteral("--into-existing");

} // namespace

/**
 * `ovo-fieldhost export` when something goes wrong on the way.
 *
 * The copy is held where its last byte is written and an empty file is still to come, so what
 * goes wrong does so at a known moment.
 */
class tst_ExportFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void aFileThatVanishesIsNoticed();
    void aFileThatGrowsIsCopiedToItsNewEnd();
    void aFileThatCannotBeReadIsNoticed();
    void aFileThatGivesLessThanItsSizeIsNoticed();
    void aVanishedDestinationIsNoticed();
    void whatIsWholeStays();
    void withoutThreadsNothingIsWaitedFor();
    void aFailureIntoExistingChangesNothingThere();
    void whatIsNotOnTheListIsNotLost();
    void aKilledExportIsClearedUpByTheNext_data();
    void aKilledExportIsClearedUpByTheNext();
    void aRunningExportIsLeftAlone();
    void aCopyWithoutOneWholeFileIsRemoved();

    void aSignalAborts_data();
    void aSignalAborts();
    void anAbortIntoExistingChangesNothingThere();
    void anAbortRemovesTheCopiesOfAllSources();
    void anAbortKeepsDirectoriesThatWereThere();

    void tooSmallADiskIsRefused();
    void aDiskThatFillsUpIsNoticed();
    void aDiskWithoutRoomForMoreFilesIsNoticed();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    bool mountDisk(const char *options);

    bool m_mayMount = false;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_source;
    QString m_destination;
};

void tst_ExportFailures::initTestCase()
{
    // what is mounted below is seen by this process and its children only
    m_mayMount = ::unshare(CLONE_NEWNS) == 0
        && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

void tst_ExportFailures::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_source = path(QStringLiteral("source"));
    m_destination = path(QStringLiteral("destination"));
    makeFile(m_source + QStringLiteral("/data.bin"), someBytes(100'000));
    makeFile(m_source + QStringLiteral("/later.txt"));
}

bool tst_ExportFailures::mountDisk(const char *options)
{
    const QString disk = path(QStringLiteral("disk"));
    m_destination = disk + QStringLiteral("/destination");
    return QDir().mkpath(disk)
        && ::mount("tmpfs", QFile::encodeName(disk).constData(), "tmpfs", 0, options) == 0;
}

#define SKIP_WITHOUT_DISK(options) \
    if (!m_mayMount) { \
        QSKIP("mounting a small disk needs the rights of root"); \
    } \
    QVERIFY(mountDisk(options)); \
    const auto unmount = qScopeGuard([disk = QFile::encodeName(path(QStringLiteral("disk")))] { \
        ::umount2(disk.constData(), MNT_DETACH); \
    })

void tst_ExportFailures::aFileThatVanishesIsNoticed()
{
    Handshake handshake;
    Program program;
    program.begin({s_export, m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    QVERIFY(QFile::remove(m_source + QStringLiteral("/later.txt")));
    handshake.letGo();
    const Outcome outcome = program.end();
    // all bytes are processed: only the result shows it
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(
        outcome.errors,
        QStringLiteral("Failed: \"%1/later.txt\" cannot be opened: No such file or directory.\n"
                       "1 of 2 files are whole in \"%2\", the others are missing; no partial "
                       "file is left.\n")
            .arg(m_source, m_destination));
    QVERIFY(!outcome.output.contains(QLatin1String("Done")));
}

void tst_ExportFailures::aFileThatGrowsIsCopiedToItsNewEnd()
{
    Handshake handshake;
    Program program;
    program.begin({s_export, m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    makeFile(m_source + QStringLiteral("/data.bin"), someBytes(200'000));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(contentOf(m_destination + QStringLiteral("/source/data.bin")), someBytes(200'000));
}

void tst_ExportFailures::aFileThatCannotBeReadIsNoticed()
{
    // a regular file that can be opened and not read, and whose size is 0
    QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), m_source + QStringLiteral("/memory")));
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(outcome.errors.startsWith(
                 QStringLiteral("Failed: \"%1/memory\" cannot be read: Input/output error.\n")
                     .arg(m_source)),
             qPrintable(outcome.errors));
    QVERIFY(!QFile::exists(m_destination + QStringLiteral("/source/memory")));
}

void tst_ExportFailures::aFileThatGivesLessThanItsSizeIsNoticed()
{
    // the kernel's files say that they have a page, and have a line
    const QString pageFile = QStringLiteral("/sys/kernel/uevent_seqnum");
    if (!QFile::exists(pageFile)) {
        QSKIP("there is no sysfs here");
    }
    QVERIFY(QFile::link(pageFile, m_source + QStringLiteral("/page")));
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(
        outcome.errors.startsWith(
            QStringLiteral("Failed: \"%1/page\" was not copied: reading it gave ").arg(m_source)),
        qPrintable(outcome.errors));
    QVERIFY(outcome.errors.contains(QLatin1String(" where its size says 4.0 KiB; ")));
    QVERIFY(!QFile::exists(m_destination + QStringLiteral("/source/page")));
}

void tst_ExportFailures::aVanishedDestinationIsNoticed()
{
    Handshake handshake;
    Program program;
    program.begin({s_export, m_source + QStringLiteral("/later.txt"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    QVERIFY(QDir(m_destination).removeRecursively());
    makeFile(m_destination, "in the way");
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors,
             QStringLiteral("Failed: \"%1/source/later.txt\" cannot be created: Not a directory.\n"
                            "Nothing was left in the destination.\n")
                 .arg(m_destination));
    QCOMPARE(contentOf(m_destination), QByteArray("in the way"));
}

void tst_ExportFailures::whatIsWholeStays()
{
    makeFile(path(QStringLiteral("single")), "single");
    Handshake handshake;
    Program program;
    // directories go first, so the single file is copied after the gate
    program.begin({s_export, path(QStringLiteral("single")), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    QVERIFY(QFile::remove(path(QStringLiteral("single"))));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.errors.contains(QLatin1String("\n2 of 3 files are whole in ")));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
    QVERIFY(!QFile::exists(m_destination + QStringLiteral("/single")));
}

void tst_ExportFailures::withoutThreadsNothingIsWaitedFor()
{
    if (::geteuid() != 0) {
        QSKIP("a process namespace of its own needs the rights of root");
    }
    for (const QStringList &options : {QStringList(), QStringList{QStringLiteral("--verify")}}) {
        Program program;
        program.refuseClones();
        program.begin(QStringList{s_export} + options + QStringList{m_source, m_destination});
        const Outcome outcome = program.end();
        QCOMPARE(outcome.exitCode, int(Failed));
        // Qt warns of the thread first
        QVERIFY2(outcome.errors.contains(QLatin1String(
                     "\nFailed: The copy could not begin: Resource temporarily unavailable.\n")),
                 qPrintable(outcome.errors));
        QVERIFY(!QFile::exists(m_destination));
    }
}

void tst_ExportFailures::aFailureIntoExistingChangesNothingThere()
{
    makeFile(m_destination + QStringLiteral("/source/data.bin"), "precious");
    const QMap<QString, QByteArray> before = treeOf(m_destination);
    Handshake handshake;
    Program program;
    program.begin({s_export, s_intoExisting, m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    QVERIFY(QFile::remove(m_source + QStringLiteral("/later.txt")));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.errors.endsWith(
        QLatin1String("\nThe unfinished copy was removed; what was in the destination before is "
                      "unchanged.\n")));
    QCOMPARE(treeOf(m_destination), before);
}

void tst_ExportFailures::whatIsNotOnTheListIsNotLost()
{
    makeFile(m_destination + QStringLiteral("/source/data.bin"), "precious");
    Handshake handshake;
    Program program;
    program.begin({s_export, s_intoExisting, m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    // as if the copy had met it: the list of what is to be moved does not have it
    const QString staging = QDir(m_destination + QStringLiteral("/source"))
                                .entryList(QDir::AllDirs | QDir::Hidden | QDir::NoDotAndDotDot)
                                .value(0);
    makeFile(m_destination + QStringLiteral("/source/") + staging
                 + QStringLiteral("/folder/source/unlisted"),
             "unlisted");
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(
        outcome.errors,
        QStringLiteral("Failed: All is in its place, but \"%1/source/%2\" cannot be removed.\n")
            .arg(m_destination, staging));
    QCOMPARE(contentOf(m_destination + QStringLiteral("/source/data.bin")), someBytes(100'000));
}

void tst_ExportFailures::aKilledExportIsClearedUpByTheNext_data()
{
    QTest::addColumn<QString>("filled");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("into what exists")
        << QStringLiteral("source/other") << QStringList{s_intoExisting};
    QTest::newRow("into an empty directory") << QString() << QStringList();
}

void tst_ExportFailures::aKilledExportIsClearedUpByTheNext()
{
    QFETCH(QString, filled);
    QFETCH(QStringList, options);
    QVERIFY(QDir().mkpath(m_destination));
    if (!filled.isEmpty()) {
        makeFile(m_destination + QLatin1Char('/') + filled, "other");
    }
    const QStringList arguments = QStringList{s_export} + options
        + QStringList{filled.isEmpty() ? m_source + QLatin1Char('/') : m_source, m_destination};
    {
        Handshake handshake;
        Program program;
        program.begin(arguments);
        QVERIFY(handshake.waitUntilHeld());
        program.kill();
        program.end();
        handshake.letGo();
    }
    QVERIFY(QStringList(treeOf(m_destination).keys())
                .join(QLatin1Char(' '))
                .contains(QLatin1String(".ovo-export-")));
    const Outcome outcome = Program::run(arguments);
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    const QString root = filled.isEmpty() ? QString() : QStringLiteral("/source");
    QMap<QString, QByteArray> expected = treeOf(m_source);
    if (!filled.isEmpty()) {
        expected.insert(QStringLiteral("other"), "other");
    }
    QCOMPARE(treeOf(m_destination + root), expected);
}

void tst_ExportFailures::aRunningExportIsLeftAlone()
{
    makeFile(m_destination + QStringLiteral("/source/other"), "other");
    makeFile(path(QStringLiteral("second/source/x")), "x");
    Handshake handshake;
    Program program;
    program.begin({s_export, s_intoExisting, m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    Program second;
    second.begin({s_export, s_intoExisting, path(QStringLiteral("second/source")), m_destination});
    QVERIFY(QTest::qWaitFor([&] { return handshake.held() == 2; }, 30'000));
    handshake.letGo();
    QCOMPARE(second.end().exitCode, int(Done));
    const Outcome outcome = program.end();
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QMap<QString, QByteArray> expected = treeOf(m_source);
    expected.insert(QStringLiteral("other"), "other");
    expected.insert(QStringLiteral("x"), "x");
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), expected);
}

void tst_ExportFailures::aCopyWithoutOneWholeFileIsRemoved()
{
    const QString source = path(QStringLiteral("other"));
    QVERIFY(QDir().mkpath(source));
    QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), source + QStringLiteral("/memory")));
    const Outcome outcome = Program::run({s_export, source, m_destination});
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.errors.endsWith(QLatin1String("\nNothing was left in the destination.\n")));
    QVERIFY(!QFile::exists(m_destination));
}

void tst_ExportFailures::aSignalAborts_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
    QTest::newRow("SIGQUIT") << SIGQUIT;
}

void tst_ExportFailures::aSignalAborts()
{
    QFETCH(int, signal);

    Handshake handshake;
    Program program;
    program.begin({s_export, m_source, m_destination + QStringLiteral("/deep/er")});
    QVERIFY(handshake.waitUntilHeld());
    QVERIFY(::kill(static_cast<pid_t>(program.processId()), signal) == 0);
    QVERIFY(program.waitForOutput("Aborting, once the data on its way is written\n"));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Aborted));
    QCOMPARE(outcome.errors, QString());
    QVERIFY(outcome.output.endsWith(
        QStringLiteral("\nAborted. Removed: \"%1/deep/er/source\"\n").arg(m_destination)));
    QVERIFY(!QFile::exists(m_destination)); // the directories made for it are gone as well
}

void tst_ExportFailures::anAbortIntoExistingChangesNothingThere()
{
    makeFile(m_destination + QStringLiteral("/source/data.bin"), "precious");
    makeFile(m_destination + QStringLiteral("/other"), "other");
    const QMap<QString, QByteArray> before = treeOf(m_destination);
    Handshake handshake;
    Program program;
    program.begin({s_export, s_intoExisting, m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    ::kill(static_cast<pid_t>(program.processId()), SIGINT);
    QVERIFY(program.waitForOutput("Aborting"));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Aborted));
    QVERIFY(outcome.output.contains(
        QStringLiteral("\nAborted. Removed: \"%1/source/.ovo-export-").arg(m_destination)));
    QVERIFY(outcome.output.endsWith(
        QLatin1String("\nWhat was in the destination before is unchanged.\n")));
    QCOMPARE(treeOf(m_destination), before);
}

void tst_ExportFailures::anAbortRemovesTheCopiesOfAllSources()
{
    makeFile(path(QStringLiteral("other/x")), "x");
    makeFile(path(QStringLiteral("single")), "single");
    QVERIFY(QDir().mkpath(m_destination));
    Handshake handshake;
    Program program;
    program.begin({s_export, m_source, path(QStringLiteral("single")),
                   path(QStringLiteral("other")), m_destination});
    QVERIFY(handshake.waitUntilHeld());
    ::kill(static_cast<pid_t>(program.processId()), SIGINT);
    QVERIFY(program.waitForOutput("Aborting"));
    handshake.letGo();
    QCOMPARE(program.end().exitCode, int(Aborted));
    QVERIFY(QDir(m_destination).isEmpty());
}

void tst_ExportFailures::anAbortKeepsDirectoriesThatWereThere()
{
    QVERIFY(QDir().mkpath(m_destination));
    struct stat before
    {
    };
    QVERIFY(::stat(QFile::encodeName(m_destination).constData(), &before) == 0);
    Handshake handshake;
    Program program;
    program.begin({s_export, m_source + QLatin1Char('/'), m_destination});
    QVERIFY(handshake.waitUntilHeld());
    ::kill(static_cast<pid_t>(program.processId()), SIGINT);
    QVERIFY(program.waitForOutput("Aborting"));
    handshake.letGo();
    QCOMPARE(program.end().exitCode, int(Aborted));
    struct stat after
    {
    };
    QVERIFY(::stat(QFile::encodeName(m_destination).constData(), &after) == 0);
    QVERIFY(QDir(m_destination).isEmpty());
    QVERIFY(after.st_ino == before.st_ino);
}

void tst_ExportFailures::tooSmallADiskIsRefused()
{
    SKIP_WITHOUT_DISK("size=64k");
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(NoSpace));
    // room is taken by whole blocks of 4 KiB
    QVERIFY2(outcome.errors.contains(QStringLiteral("Not enough free space in \"%1\": the copy "
                                                    "needs 100.0 KiB, and 64.0 KiB are free, so "
                                                    "36.0 KiB are missing.\n")
                                         .arg(path(QStringLiteral("disk")))),
             qPrintable(outcome.errors));
    QVERIFY(!QFile::exists(m_destination));
}

void tst_ExportFailures::aDiskThatFillsUpIsNoticed()
{
    SKIP_WITHOUT_DISK("size=1m");
    makeFile(path(QStringLiteral("single")), someBytes(300'000));
    Handshake handshake;
    Program program;
    program.begin({s_export, m_source, path(QStringLiteral("single")), m_destination});
    QVERIFY(handshake.waitUntilHeld());
    // somebody else takes what is left but for a part of the next file
    makeFile(path(QStringLiteral("disk/other")), someBytes(700 * 1024));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(outcome.errors.startsWith(
                 QStringLiteral("Failed: \"%1/single\" cannot be written: No space left on "
                                "device.\n"
                                "2 of 3 files are whole in ")
                     .arg(m_destination)),
             qPrintable(outcome.errors));
    QVERIFY(!QFile::exists(m_destination + QStringLiteral("/single")));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
}

void tst_ExportFailures::aDiskWithoutRoomForMoreFilesIsNoticed()
{
    // the root, the destination, its directory and one file
    SKIP_WITHOUT_DISK("size=1m,nr_inodes=4");
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(outcome.errors.startsWith(
                 QStringLiteral("Failed: \"%1/source/later.txt\" cannot be created: No space left "
                                "on device.\n"
                                "1 of 2 files are whole in ")
                     .arg(m_destination)),
             qPrintable(outcome.errors));
}

QTEST_GUILESS_MAIN(tst_ExportFailures)

#include "tst_ExportFailures.moc"
