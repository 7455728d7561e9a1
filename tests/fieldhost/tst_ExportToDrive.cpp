// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Handshake.h"
#include "tests/fieldhost/TestDrive.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QScopeGuard>

#include <csignal>

#include <sys/mount.h>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, SourceRefused = 3, DestinationRefused = 4, Aborted = 6 };

const QString s_mount = QStringLiteral("mount /dev/sda1");
const QString s_umount = QStringLiteral("umount /dev/sda1");
const QString s_destination = QStringLiteral("/media/usbdrive/export");

const char s_aborting[] = "Aborting, once the data on its way is written\n";
const QString s_unmounting = QStringLiteral(
    "Unmounting the USB drive, as soon as nobody uses it; Ctrl-C leaves it mounted.\n");
const QString s_clean =
    s_unmounting + QStringLiteral("The USB drive is unmounted and marked clean.\n");

} // namespace

/** `ovo-fieldhost export` to the USB drive, which it locks before and unlocks after. */
class tst_ExportToDrive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void aCopyIsBracketed();
    void aDriveThatIsMountedIsUnmountedAfter();
    void aLinkToTheDriveIsTheDrive();
    void theProgramsOwnDirectoryDoesNotKeepTheDrive();
    void aDestinationElsewhereRunsNothing();

    void aRefusedCopyUnlocks();
    void aFailedCopyUnlocks();
    void aSignalUnlocks_data();
    void aSignalUnlocks();
    void aSignalWhileItIsLockedUnlocks();
    void aSecondSignalEndsTheWaitForABusyDrive();

    void withoutADriveNothingIsCopied();
    void aDriveWithoutDirtyByteIsUsed();
    void aDriveThatCannotBeMarkedIsUsed();
    void aDrivePulledAfterTheCopyIsSaidToBeMarked();
    void aMarkThatStaysIsTold();

    void aFileOf4GiBIsWarnedOf();

private:
    QString source() const { return m_folder->filePath(QStringLiteral("source")); }
    Outcome exportTo(const QString &destination) const
    {
        return DriveProgram::run({QStringLiteral("export"), source(), destination});
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_ExportToDrive::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
}

void tst_ExportToDrive::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    makeFile(source() + QStringLiteral("/data.bin"), someBytes(100'000));
}

void tst_ExportToDrive::aCopyIsBracketed()
{
    TestDrive drive;
    // what the command sees that belongs to the copy
    const QByteArray seen = QFile::encodeName(m_folder->filePath(QStringLiteral("seen")));
    drive.commands.add(QStringLiteral("sync"),
                       "od -An -tu1 -j65 -N1 '" + QFile::encodeName(drive.image()) + "' > '" + seen
                           + "'; cat /etc/mtab >> '" + seen + "'");
    const Outcome outcome = exportTo(s_destination);
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QVERIFY(outcome.output.startsWith(
        QLatin1String("The USB drive is marked as in use: \"/dev/sda1\" (fat32).\nCopying ")));
    QVERIFY(outcome.output.endsWith(s_clean));
    QCOMPARE(contentOf(m_folder->filePath(QStringLiteral("seen"))).simplified(),
             "1 " + drive.tableLine().simplified());
    QCOMPARE(drive.commands.journal(),
             (QStringList{s_mount, s_umount, s_mount, QStringLiteral("sync"), s_umount}));
    QCOMPARE(drive.dirtyByte(), '\0');
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
    QCOMPARE(treeOf(s_destination + QStringLiteral("/source")), treeOf(source()));
}

void tst_ExportToDrive::aDriveThatIsMountedIsUnmountedAfter()
{
    TestDrive drive;
    drive.mount();
    QCOMPARE(exportTo(s_destination).exitCode, int(Done));
    QCOMPARE(drive.commands.journal(), (QStringList{s_mount, s_umount}));
}

void tst_ExportToDrive::aLinkToTheDriveIsTheDrive()
{
    TestDrive drive;
    const QString link = m_folder->filePath(QStringLiteral("stick"));
    QVERIFY(QFile::link(QStringLiteral("/media/usbdrive"), link));
    const Outcome outcome = exportTo(link + QStringLiteral("/export"));
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.endsWith(s_clean));
    QCOMPARE(drive.commands.journal().value(2), s_mount);
    QCOMPARE(drive.commands.journal().value(3), s_umount);
}

void tst_ExportToDrive::theProgramsOwnDirectoryDoesNotKeepTheDrive()
{
    TestDrive drive;
    const QByteArray directory = QFile::encodeName(m_folder->filePath(QStringLiteral("directory")));
    drive.commands.add(QStringLiteral("umount"),
                       "readlink /proc/$PPID/cwd > '" + directory + "'; : > /etc/mtab");
    DriveProgram program;
    program.setWorkingDirectory(QStringLiteral("/media/usbdrive"));
    program.begin({QStringLiteral("export"), source(), QStringLiteral("export")});
    QCOMPARE(program.end().exitCode, int(Done));
    QCOMPARE(contentOf(QFile::decodeName(directory)), QByteArray("/\n"));
}

void tst_ExportToDrive::aDestinationElsewhereRunsNothing()
{
    TestDrive drive;
    for (const QString &destination :
         {m_folder->filePath(QStringLiteral("elsewhere")), QStringLiteral("/media/usbdrive2")}) {
        const Outcome outcome = exportTo(destination);
        QCOMPARE(outcome.exitCode, int(Done));
        QVERIFY(!outcome.output.contains(QLatin1String("USB")));
    }
    QVERIFY(QDir(QStringLiteral("/media/usbdrive2")).removeRecursively());
    QCOMPARE(drive.commands.journal(), QStringList());
    QCOMPARE(drive.dirtyByte(), '\0');
}

void tst_ExportToDrive::aRefusedCopyUnlocks()
{
    TestDrive drive;
    drive.setDirtyByte(1);
    const Outcome outcome = DriveProgram::run(
        {QStringLiteral("export"), m_folder->filePath(QStringLiteral("none")), s_destination});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QVERIFY(outcome.output.endsWith(s_clean));
    QCOMPARE(drive.dirtyByte(), '\0');
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
}

void tst_ExportToDrive::aFailedCopyUnlocks()
{
    TestDrive drive;
    makeFile(source() + QStringLiteral("/later.txt"));
    Handshake handshake;
    DriveProgram program;
    program.begin({QStringLiteral("export"), source(), s_destination});
    QVERIFY(handshake.waitUntilHeld());
    QCOMPARE(drive.dirtyByte(), '\1');
    QVERIFY(QFile::remove(source() + QStringLiteral("/later.txt")));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.output.endsWith(s_clean));
    QCOMPARE(drive.dirtyByte(), '\0');
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
}

void tst_ExportToDrive::aSignalUnlocks_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("Ctrl-C") << SIGINT;
    QTest::newRow("terminate") << SIGTERM;
    QTest::newRow("hang up") << SIGHUP;
}

void tst_ExportToDrive::aSignalUnlocks()
{
    QFETCH(int, signal);
    TestDrive drive;
    Handshake handshake;
    DriveProgram program;
    program.begin({QStringLiteral("export"), source(), s_destination});
    QVERIFY(handshake.waitUntilHeld());
    QCOMPARE(::kill(pid_t(program.processId()), signal), 0);
    QVERIFY(program.waitForOutput(s_aborting));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Aborted));
    QVERIFY(outcome.output.contains(QLatin1String("Aborted. Removed: ")));
    QVERIFY(outcome.output.endsWith(s_clean));
    QCOMPARE(drive.dirtyByte(), '\0');
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
    QVERIFY(!QFile::exists(s_destination));
}

void tst_ExportToDrive::aSignalWhileItIsLockedUnlocks()
{
    TestDrive drive;
    drive.mount();
    // sent to the program by the very command that it runs to lock the drive
    drive.commands.add(QStringLiteral("mount"), "kill -INT $PPID");
    const Outcome outcome = exportTo(s_destination);
    QCOMPARE(outcome.exitCode, int(Aborted));
    QVERIFY(outcome.output.endsWith(s_clean));
    QCOMPARE(drive.dirtyByte(), '\0');
    QVERIFY(!QFile::exists(s_destination));
}

void tst_ExportToDrive::aSecondSignalEndsTheWaitForABusyDrive()
{
    TestDrive drive;
    drive.mount();
    drive.commands.add(QStringLiteral("umount"), "exit 32");
    DriveProgram program;
    program.begin({QStringLiteral("export"), source(), s_destination});
    QVERIFY(QTest::qWaitFor(
        [&] { return drive.commands.journal().contains(QStringLiteral("usleep 500")); }, 60'000));
    QCOMPARE(::kill(pid_t(program.processId()), SIGINT), 0);
    program.end();
    QCOMPARE(program.exitStatus(), QProcess::CrashExit);
    QCOMPARE(program.exitCode(), SIGINT);
    // as anybody will find it who pulls it now
    QCOMPARE(drive.dirtyByte(), '\1');
    QCOMPARE(PrivateMounts::mountTable(), drive.tableLine());
}

void tst_ExportToDrive::withoutADriveNothingIsCopied()
{
    TestDrive drive;
    drive.commands.add(QStringLiteral("mount"), "exit 32");
    const Outcome outcome = exportTo(s_destination);
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("No USB drive is mounted on \"/media/usbdrive\".\n"
                            "Nothing was copied: it would not land on a drive.\n"));
    QVERIFY(!QFile::exists(s_destination));
    QVERIFY(!drive.commands.journal().contains(s_umount));
}

void tst_ExportToDrive::aDriveWithoutDirtyByteIsUsed()
{
    TestDrive drive("exfat");
    const Outcome outcome = exportTo(s_destination);
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors,
             QStringLiteral("The USB drive is not marked as in use. \"/dev/sda1\" "
                            "(exfat) has no dirty byte to set.\n"));
    QVERIFY(
        outcome.output.endsWith(s_unmounting + QStringLiteral("The USB drive is unmounted.\n")));
    QCOMPARE(treeOf(s_destination + QStringLiteral("/source")), treeOf(source()));
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
}

void tst_ExportToDrive::aDriveThatCannotBeMarkedIsUsed()
{
    TestDrive drive("ext4");
    // the table's word: a type with a dirty byte, on a device that may not be written to
    drive.commands.mountingSets(mounted("/dev/sda1", "/media/usbdrive", "fat32"));
    drive.giveAway();
    DriveProgram program;
    program.dropRights();
    program.begin({QStringLiteral("export"), source(), s_destination});
    const Outcome outcome = program.end();
    if (outcome.exitCode == Program::cannotDropRights) {
        QSKIP("taking a right from a program needs the rights of root");
    }
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors,
             QStringLiteral("The USB drive is not marked as in use. Writing to \"/dev/sda1\" needs "
                            "root, or a udev rule that gives the device to one of your groups.\n"));
    QCOMPARE(drive.dirtyByte(), '\0');
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
}

void tst_ExportToDrive::aDrivePulledAfterTheCopyIsSaidToBeMarked()
{
    TestDrive drive;
    drive.mount();
    drive.commands.add(QStringLiteral("umount"), ": > /etc/mtab; rm /dev/sda1");
    const Outcome outcome = exportTo(s_destination);
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors,
             QStringLiteral("The USB drive was pulled out while it was mounted. It is unmounted "
                            "now, but what was written last may be missing, and a FAT volume is "
                            "still marked as in use. Plug it in again and check it, or lock and "
                            "unlock it, which marks it clean.\n"));
    QCOMPARE(drive.dirtyByte(), '\1');
}

void tst_ExportToDrive::aMarkThatStaysIsTold()
{
    TestDrive drive;
    drive.mount();
    // the next stick: another serial number where FAT32 has it
    drive.commands.add(QStringLiteral("umount"),
                       ": > /etc/mtab; printf other | dd of=/dev/sda1 bs=1 seek=67 conv=notrunc");
    const Outcome outcome = exportTo(s_destination);
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors,
             QStringLiteral("The USB drive is unmounted, and still marked as in "
                            "use: it did not take the mark back.\n"));
    QCOMPARE(drive.dirtyByte(), '\1');
}

void tst_ExportToDrive::aFileOf4GiBIsWarnedOf()
{
    TestDrive drive;
    // room enough that the copy is not refused before, of which nothing is used
    QCOMPARE(::mount("tmpfs", "/media/usbdrive", "tmpfs", 0, "size=8g"), 0);
    const auto unmount = qScopeGuard([] { ::umount2("/media/usbdrive", MNT_DETACH); });
    const QString large = m_folder->filePath(QStringLiteral("video.mp4"));
    makeFile(large);
    QVERIFY(QFile::resize(large, qint64(4) << 30)); // a hole
    // the small file comes first, and is as far as the copy gets
    Handshake handshake;
    DriveProgram program;
    program.begin(
        {QStringLiteral("export"), source() + QStringLiteral("/data.bin"), large, s_destination});
    QVERIFY(handshake.waitUntilHeld());
    QCOMPARE(::kill(pid_t(program.processId()), SIGINT), 0);
    QVERIFY(program.waitForOutput(s_aborting));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Aborted));
    QCOMPARE(outcome.errors,
             QStringLiteral("Warning: on a FAT drive every file has less than 4 GiB. The copy will "
                            "fail at \"%1\".\n")
                 .arg(large));
}

USB_TEST_MAIN(tst_ExportToDrive)
#include "tst_ExportToDrive.moc"
