// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/ExportRun.h"
#include "tests/fieldhost/Handshake.h"
#include "tests/fieldhost/Program.h"
#include "tests/support/FileTree.h"
#include "tests/support/LoopDevice.h"
#include "tests/support/PrivateMounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

#include <atomic>
#include <cerrno>
#include <memory>

#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Tavro::FieldHost;
using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1 };

const QString s_drive = QStringLiteral("/media/stick");
const char s_mountPoint[] = "/media/stick";
const QString s_node = QStringLiteral("/dev/stick");

constexpr qint64 s_mebibyte = 1024LL * 1024;

LoopDevice *s_loop = nullptr;
std::atomic<int> s_flushesUntilBreak{0}; // of the loop device; 0: it holds
std::atomic<int> s_answer{0}; // of the flush at which it would break; 0: it does

} // namespace

// takes the place of the system's for the library, too, which flushes each chunk with it
extern "C" int fsync(int fd)
{
    if (s_flushesUntilBreak > 0 && --s_flushesUntilBreak == 0) {
        if (s_answer != 0) {
            errno = s_answer;
            return -1;
        }
        s_loop->breakDown();
    }
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

/**
 * `ovo-fieldhost export` to a real volume that is unmounted while it is written to.
 *
 * The copy is held where the directory's last byte is written, with a file still to come.
 */
class tst_ExportTakenAway : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aDriveThatIsCopiedToIsNotUnmounted();
    void nothingLandsBelowTheMountPoint_data();
    void nothingLandsBelowTheMountPoint();
    void aDirectoryThatIsReplacedIsNoticed();
    void theFileInFlightIsNamed_data();
    void theFileInFlightIsNamed();

private:
    bool mountDrive() const;
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<TemporaryFolder> m_folder;
    std::unique_ptr<LoopDevice> m_loop;
    QStringList m_sources;
};

void tst_ExportTakenAway::initTestCase()
{
    if (!PrivateMounts::entered()) {
        QSKIP("mounts and device nodes need the rights of root, and no user namespace");
    }
    if (QStandardPaths::findExecutable(QStringLiteral("mkfs.ext4"),
                                       {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")})
            .isEmpty()) {
        QSKIP("mkfs.ext4 is not installed");
    }
}

void tst_ExportTakenAway::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    makeFile(path("source/a.bin"), someBytes(100'000));
    makeFile(path("source/later.txt"));
    makeFile(path("single"), someBytes(1000));
    m_sources = QStringList{path("source"), path("single")};

    makeFile(path("image"));
    QVERIFY(QFile::resize(path("image"), 64 * s_mebibyte));
    QCOMPARE(QProcess::execute(QStringLiteral("/usr/sbin/mkfs.ext4"),
                               {QStringLiteral("-q"), QStringLiteral("-E"),
                                QStringLiteral("lazy_itable_init=0"), path("image")}),
             0);
    m_loop = std::make_unique<LoopDevice>(path("image"));
    PrivateMounts::makeBlockNode(s_node, m_loop->number());
    QVERIFY(QDir().mkpath(s_drive));
    QVERIFY(mountDrive());
}

void tst_ExportTakenAway::cleanup()
{
    while (::umount2(s_mountPoint, MNT_DETACH) == 0) { }
    m_loop.reset();
    QVERIFY(QDir(s_drive).removeRecursively());
    m_folder.reset();
}

bool tst_ExportTakenAway::mountDrive() const
{
    return ::mount(qPrintable(s_node), s_mountPoint, "ext4", 0, nullptr) == 0;
}

void tst_ExportTakenAway::aDriveThatIsCopiedToIsNotUnmounted()
{
    Handshake handshake;
    Program program;
    program.begin(QStringList{QStringLiteral("export")} + m_sources
                  + QStringList{s_drive + QStringLiteral("/export")});
    QVERIFY(handshake.waitUntilHeld());
    QCOMPARE(::umount2(s_mountPoint, 0), -1);
    QCOMPARE(errno, EBUSY);
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(::umount2(s_mountPoint, 0), 0);
    QVERIFY(mountDrive());
    QCOMPARE(treeOf(s_drive + QStringLiteral("/export/source")), treeOf(path("source")));
    QCOMPARE(contentOf(s_drive + QStringLiteral("/export/single")), someBytes(1000));
}

void tst_ExportTakenAway::nothingLandsBelowTheMountPoint_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("destination");
    QTest::newRow("a new directory of the drive")
        << QStringList() << s_drive + QStringLiteral("/export");
    QTest::newRow("the drive itself") << QStringList{QStringLiteral("--into-existing")} << s_drive;
    QTest::newRow("a directory that holds something")
        << QStringList{QStringLiteral("--into-existing")} << s_drive + QStringLiteral("/filled");
}

void tst_ExportTakenAway::nothingLandsBelowTheMountPoint()
{
    QFETCH(QStringList, options);
    QFETCH(QString, destination);

    makeFile(s_drive + QStringLiteral("/filled/source/a.bin"), "old");
    makeFile(s_drive + QStringLiteral("/filled/single"), "old");
    const QMap<QString, QByteArray> before = treeOf(s_drive);
    Handshake handshake;
    Program program;
    program.begin(QStringList{QStringLiteral("export")} + options + m_sources
                  + QStringList{destination});
    QVERIFY(handshake.waitUntilHeld());
    QCOMPARE(::umount2(s_mountPoint, MNT_DETACH), 0);
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(
        outcome.errors.startsWith(
            QStringLiteral("Failed: the drive was taken away, or the directory moved: \"%1\" is "
                           "not what it was when the copy began.\n")
                .arg(destination)),
        qPrintable(outcome.errors));
    QVERIFY(!outcome.output.contains(QLatin1String("Done")));
    QCOMPARE(treeOf(s_drive), (QMap<QString, QByteArray>()));
    QVERIFY(mountDrive());
    QMap<QString, QByteArray> after = treeOf(s_drive);
    QCOMPARE(after, before);
}

void tst_ExportTakenAway::aDirectoryThatIsReplacedIsNoticed()
{
    const QString destination = s_drive + QStringLiteral("/filled");
    makeFile(destination + QStringLiteral("/old"), "old");
    Handshake handshake;
    Program program;
    program.begin(QStringList{QStringLiteral("export"), QStringLiteral("--into-existing")}
                  + m_sources + QStringList{destination});
    QVERIFY(handshake.waitUntilHeld());
    QVERIFY(QFile::rename(destination, s_drive + QStringLiteral("/moved")));
    makeFile(destination + QStringLiteral("/another"), "another");
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.errors.startsWith(QLatin1String("Failed: the drive was taken away, or the "
                                                    "directory moved: ")));
    QCOMPARE(treeOf(destination).keys(), QStringList{QStringLiteral("another")});
    QCOMPARE(treeOf(s_drive + QStringLiteral("/moved")).keys(), QStringList{QStringLiteral("old")});
}

void tst_ExportTakenAway::theFileInFlightIsNamed_data()
{
    QTest::addColumn<bool>("intoExisting");
    QTest::addColumn<int>("answer");
    QTest::newRow("a new directory") << false << 0;
    QTest::newRow("a directory that is merged with") << true << 0;
    QTest::newRow("a volume that is damaged") << false << EUCLEAN;
    QTest::newRow("a volume with a wrong checksum") << false << EBADMSG;
    QTest::newRow("a volume that is read-only from then on") << false << EROFS;
    QTest::newRow("an error of reading or writing") << false << EIO;
    QTest::newRow("a drive that is gone") << false << ENODEV;
    QTest::newRow("an address that is gone") << false << ENXIO;
    QTest::newRow("a fault of the drive") << false << EREMOTEIO;
    QTest::newRow("a block that cannot be written") << false << ENODATA;
    QTest::newRow("a drive that does not answer") << true << ETIMEDOUT;
    QTest::newRow("a connection that is lost") << false << ENOLINK;
}

void tst_ExportTakenAway::theFileInFlightIsNamed()
{
    QFETCH(bool, intoExisting);
    QFETCH(int, answer);

    // two chunks each
    for (const char *name : {"many/a", "many/b", "many/c", "many/d", "many/e", "many/f"}) {
        makeFile(path(name), someBytes(5 * s_mebibyte));
    }
    if (intoExisting) {
        makeFile(s_drive + QStringLiteral("/many/a"), "old");
    }
    ExportRun run(planExport({path("many")}, s_drive, true, [] { return false; }), false);
    QSignalSpy finished(&run, &ExportRun::finished);
    s_loop = m_loop.get();
    s_answer = answer;
    s_flushesUntilBreak = 5; // with the first chunk of the third file
    run.start();
    QVERIFY(finished.wait(60'000));
    const ExportResult result = run.result();
    QCOMPARE(result.end, ExportResult::End::Failed);
    QVERIFY2(result.problems.value(0).contains(QLatin1String("/many/c\" cannot be ")),
             qPrintable(result.problems.join(QLatin1Char('\n'))));
    QCOMPARE(result.files, Q_INT64_C(2));
    QCOMPARE(result.problems.last(),
             intoExisting
                 ? QStringLiteral("The drive does not take what is written: files of the copy may "
                                  "be left there, cut off.")
                 : QStringLiteral("2 of 6 files are whole in \"/media/stick\". The drive does not "
                                  "take what is written: one more file may be there, cut off."));
}

int main(int argc, char *argv[])
{
    PrivateMounts::enter();
    QCoreApplication application(argc, argv);
    tst_ExportTakenAway test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ExportTakenAway.moc"
