// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/TestDrive.h"
#include "tests/support/FileTree.h"

#include <QRegularExpression>
#include <QScopeGuard>

#include <sys/mount.h>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2 };

const QString s_mount = QStringLiteral("mount /dev/sda1");
const QString s_umount = QStringLiteral("umount /dev/sda1");

Outcome usb(const QString &arguments)
{
    return DriveProgram::run(QStringList{QStringLiteral("usb")}
                             + arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

} // namespace

/** `ovo-fieldhost usb`. */
class tst_UsbCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void helpNamesEveryAction();
    void mistakesAreUsageErrors_data();
    void mistakesAreUsageErrors();

    void drivesAreListed_data();
    void drivesAreListed();
    void withoutADriveTheListSaysSo();
    void theListMountsForALook();

    void theRootIsPrinted();
    void aRootThatIsNotSupportedIsPrinted();
    void withoutADriveThereIsNoRoot();

    void lockMarksTheDrive();
    void whatTheCommandsPrintIsNotShown();
    void everyActionHasOneWordForTheKind();
    void lockSaysWhyItDoesNotMark_data();
    void lockSaysWhyItDoesNotMark();
    void lockSaysWhichRightIsMissing();

    void unlockCleansTheDrive();
    void unlockWaitsForABusyDrive();
    void unlockTouchesNoOtherDrive();
    void unlockSaysThatTheDriveWasPulled_data();
    void unlockSaysThatTheDriveWasPulled();
    void lockAndListSayThatTheDriveWasPulled();
    void unlockSaysThatAMarkStays();
    void unlockOfNothingSaysSo();
    void unlockWithoutADirtyByteSaysSo();
    void unlockSaysWhichRightIsMissing();

    void dirtyTellsTheMark();
    void dirtySaysWhatALockLeavesOut();
    void dirtyNeedsAFatVolume();
    void dirtySaysWhichRightIsMissing();

    void dryRunChangesNothing_data();
    void dryRunChangesNothing();
};

void tst_UsbCommand::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
}

void tst_UsbCommand::helpNamesEveryAction()
{
    const Outcome outcome = usb(QStringLiteral("--help"));
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.startsWith(QLatin1String("Usage: ovo-fieldhost usb ")));
    for (const char *action :
         {"list", "root", "lock PATH", "unlock", "dirty DEVICE", "--dry-run"}) {
        QVERIFY2(outcome.output.contains(QStringLiteral("\n  ") + QLatin1String(action)), action);
    }
    QVERIFY(
        DriveProgram::run({QStringLiteral("--help")})
            .output.contains(QRegularExpression(QStringLiteral("\n  usb +Shows the USB drive"))));
}

void tst_UsbCommand::mistakesAreUsageErrors_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("reason");

    QTest::newRow("unknown action")
        << QStringLiteral("lokc")
        << QStringLiteral("\"usb\" knows no \"lokc\". The nearest one is \"lock\".");
    QTest::newRow("lock without path")
        << QStringLiteral("lock") << QStringLiteral("A PATH is missing.");
    QTest::newRow("dirty without device")
        << QStringLiteral("dirty") << QStringLiteral("A DEVICE is missing.");
    QTest::newRow("too much") << QStringLiteral("unlock now")
                              << QStringLiteral("\"usb unlock\" takes no \"now\".");
    QTest::newRow("two paths") << QStringLiteral("lock a b")
                               << QStringLiteral("\"usb lock\" takes no \"b\".");
    QTest::newRow("unknown option")
        << QStringLiteral("--wet") << QStringLiteral("Unknown option 'wet'.");
}

void tst_UsbCommand::mistakesAreUsageErrors()
{
    QFETCH(QString, arguments);
    QFETCH(QString, reason);
    const TestDrive drive;
    const Outcome outcome = usb(arguments);
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors, reason + QStringLiteral("\nTry: ovo-fieldhost usb --help\n"));
    QCOMPARE(drive.commands.journal(), QStringList());
}

void tst_UsbCommand::drivesAreListed_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("partition");

    QTest::newRow("fat32") << QByteArray("fat32")
                           << QStringLiteral("  \"/dev/sda1\" (fat32) on \"/media/usbdrive\"\n");
    QTest::newRow("fat16") << QByteArray("fat16")
                           << QStringLiteral("  \"/dev/sda1\" (fat16) on \"/media/usbdrive\"\n");
    QTest::newRow("ext4") << QByteArray("ext4")
                          << QStringLiteral("  \"/dev/sda1\" (ext4) on \"/media/usbdrive\"\n"
                                            "  not supported: the application works with exFAT, "
                                            "NTFS and the FAT volumes that it can mark\n");
}

void tst_UsbCommand::drivesAreListed()
{
    QFETCH(QByteArray, type);
    QFETCH(QString, partition);
    TestDrive drive(type);
    drive.mount();
    for (const char *arguments : {"", "list"}) {
        const Outcome outcome = usb(QLatin1String(arguments));
        QCOMPARE(outcome.exitCode, int(Done));
        QCOMPARE(outcome.output,
                 QStringLiteral("\"/dev/sda\"  0901:1001  \"Maker 1\"\n") + partition);
        QCOMPARE(outcome.errors, QString());
    }
    QCOMPARE(drive.commands.journal(), QStringList());
}

void tst_UsbCommand::withoutADriveTheListSaysSo()
{
    const UsbCommands commands;
    const UdevTestBed bed;
    PrivateMounts::setMountTable({});
    const Outcome outcome = usb({});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, QStringLiteral("There is no USB drive.\n"));
}

void tst_UsbCommand::theListMountsForALook()
{
    TestDrive drive("exfat");
    const Outcome outcome = usb(QStringLiteral("list"));
    QVERIFY(outcome.output.contains(QLatin1String("\"/dev/sda1\" (exfat) on")));
    QCOMPARE(drive.commands.takeJournal(), (QStringList{s_mount, s_umount}));

    drive.commands.add(QStringLiteral("mount"), "exit 32");
    QCOMPARE(usb(QStringLiteral("list")).output,
             QStringLiteral("\"/dev/sda\"  0901:1001  \"Maker 1\"\n  nothing mounted\n"));
}

void tst_UsbCommand::theRootIsPrinted()
{
    const TestDrive drive;
    const Outcome outcome = usb(QStringLiteral("root"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, QStringLiteral("/media/usbdrive\n"));
    QCOMPARE(outcome.errors, QString());
}

void tst_UsbCommand::aRootThatIsNotSupportedIsPrinted()
{
    const TestDrive drive("ext4");
    const Outcome outcome = usb(QStringLiteral("root"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, QStringLiteral("/media/usbdrive\n"));
    QCOMPARE(outcome.errors,
             QStringLiteral("A file system on it is not supported; see: ovo-fieldhost usb list\n"));
}

void tst_UsbCommand::withoutADriveThereIsNoRoot()
{
    const TestDrive drive;
    FakeCommands commands;
    commands.add(QStringLiteral("mount"), "exit 32");
    const Outcome outcome = usb(QStringLiteral("root"));
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors,
             QStringLiteral("There is no mounted USB drive that you may write to.\n"));
}

void tst_UsbCommand::lockMarksTheDrive()
{
    const TestDrive drive;
    const Outcome outcome = usb(QStringLiteral("lock /media/usbdrive/project/../export"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output,
             QStringLiteral("Mounted and marked as in use: \"/dev/sda1\" (fat32).\n"));
    QCOMPARE(drive.dirtyByte(), '\1');
    QCOMPARE(PrivateMounts::mountTable(), drive.tableLine());
    QCOMPARE(drive.commands.journal(), (QStringList{s_mount, s_umount, s_mount}));
}

void tst_UsbCommand::whatTheCommandsPrintIsNotShown()
{
    TestDrive drive;
    drive.mount();
    const QByteArray complaint = "echo heard; echo heard >&2; ";
    drive.commands.add(QStringLiteral("mount"), complaint + "exit 32"); // it is mounted already
    drive.commands.failUmount(1, complaint + "exit 32");
    drive.commands.add(QStringLiteral("usleep"), complaint);
    const Outcome locked = usb(QStringLiteral("lock /media/usbdrive"));
    QCOMPARE(locked.exitCode, int(Done));
    QCOMPARE(locked.errors, QString());
    QCOMPARE(locked.output,
             QStringLiteral("Mounted and marked as in use: \"/dev/sda1\" (fat32).\n"));
    const Outcome unlocked = usb(QStringLiteral("unlock"));
    QCOMPARE(unlocked.exitCode, int(Done));
    QCOMPARE(unlocked.errors, QString());
    QVERIFY(!unlocked.output.contains(QLatin1String("heard")));
    QCOMPARE(drive.commands.journal(),
             (QStringList{s_mount, s_umount, QStringLiteral("usleep 500"), s_umount}));
}

void tst_UsbCommand::everyActionHasOneWordForTheKind()
{
    const QString kind = QStringLiteral("\"/dev/sda1\" (fat16)");
    const TestDrive drive("fat16");
    for (const char *arguments :
         {"lock /media/usbdrive", "list", "dirty /dev/sda1", "unlock --dry-run", "unlock"}) {
        const Outcome outcome = usb(QLatin1String(arguments));
        QCOMPARE(outcome.exitCode, int(Done));
        QVERIFY2(outcome.output.contains(kind), qPrintable(outcome.output));
    }
    QCOMPARE(drive.dirtyByte(), '\0');
}

void tst_UsbCommand::lockSaysWhyItDoesNotMark_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("mountBody"); // null: as it should be
    QTest::addColumn<QString>("errors");

    const QString path = QStringLiteral("/media/usbdrive");
    const QString mounted =
        QStringLiteral("The drive is mounted on \"/media/usbdrive\", and not marked.\n");
    QTest::newRow("no dirty byte")
        << QByteArray("exfat") << path << QByteArray()
        << QStringLiteral("\"/dev/sda1\" (exfat) has no dirty byte to set.\n") + mounted;
    QTest::newRow("a FAT of another size")
        << QByteArray("fat16 of another size") << path << QByteArray()
        << QStringLiteral(
               "A lock does not mark \"/dev/sda1\" (fat16): it knows no type for volumes "
               "of this size.\n")
            + mounted;
    QTest::newRow("a path elsewhere")
        << QByteArray("fat32") << QStringLiteral("/tmp") << QByteArray()
        << QStringLiteral("\"/tmp\" lies on no mounted USB drive that you may write to.\n")
            + mounted;
    QTest::newRow("no drive") << QByteArray("fat32") << path << QByteArray("exit 32")
                              << QStringLiteral(
                                     "No USB drive is mounted on \"/media/usbdrive\".\n");
}

void tst_UsbCommand::lockSaysWhyItDoesNotMark()
{
    QFETCH(QByteArray, type);
    QFETCH(QString, path);
    QFETCH(QByteArray, mountBody);
    QFETCH(QString, errors);
    TestDrive drive(type);
    if (!mountBody.isNull()) {
        drive.commands.add(QStringLiteral("mount"), mountBody);
    }
    const Outcome outcome = usb(QStringLiteral("lock ") + path);
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors, errors);
    QCOMPARE(drive.dirtyByte(), '\0');
}

// root who may not go past the rights of files
#define RUN_WITHOUT_RIGHTS(arguments) \
    DriveProgram program; \
    program.dropRights(); \
    program.begin(arguments); \
    const Outcome outcome = program.end(); \
    if (outcome.exitCode == Program::cannotDropRights) { \
        QSKIP("taking a right from a program needs the rights of root"); \
    }

void tst_UsbCommand::lockSaysWhichRightIsMissing()
{
    TestDrive drive("ext4");
    // the table's word: a type with a dirty byte, on a device that may not be written to
    drive.commands.mountingSets(mounted("/dev/sda1", "/media/usbdrive", "fat32"));
    drive.giveAway();
    RUN_WITHOUT_RIGHTS((QStringList{QStringLiteral("usb"), QStringLiteral("lock"),
                                    QStringLiteral("/media/usbdrive")}))
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors,
             QStringLiteral("Writing to \"/dev/sda1\" needs root, or a udev rule that gives the "
                            "device to one of your groups.\n"
                            "The drive is mounted on \"/media/usbdrive\", and not marked.\n"));
    QCOMPARE(drive.dirtyByte(), '\0');
}

void tst_UsbCommand::unlockCleansTheDrive()
{
    TestDrive drive;
    drive.mount();
    drive.setDirtyByte(1);
    const Outcome outcome = usb(QStringLiteral("unlock"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output,
             QStringLiteral("Unmounting, as soon as nobody uses the drive; Ctrl-C gives up.\n"
                            "Unmounted and marked clean: \"/dev/sda1\" (fat32).\n"));
    QCOMPARE(drive.dirtyByte(), '\0');
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
    QCOMPARE(drive.commands.journal(), QStringList{s_umount});
}

void tst_UsbCommand::unlockWaitsForABusyDrive()
{
    TestDrive drive;
    drive.mount();
    drive.commands.failUmount(2, "exit 32");
    const QString sleep = QStringLiteral("usleep 500");
    QCOMPARE(usb(QStringLiteral("unlock")).exitCode, int(Done));
    QCOMPARE(drive.commands.journal(), (QStringList{s_umount, sleep, s_umount, sleep, s_umount}));
}

void tst_UsbCommand::unlockTouchesNoOtherDrive()
{
    TestDrive drive;
    drive.mount();
    drive.setDirtyByte(1);
    // the next stick: another serial number where FAT32 has it
    drive.commands.add(QStringLiteral("umount"),
                       ": > /etc/mtab; printf other | dd of=/dev/sda1 bs=1 seek=67 conv=notrunc");
    const Outcome outcome = usb(QStringLiteral("unlock"));
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(outcome.errors.contains(QLatin1String("Another drive is in its place now")),
             qPrintable(outcome.errors));
    QCOMPARE(drive.dirtyByte(), '\1');
}

void tst_UsbCommand::unlockSaysThatTheDriveWasPulled_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("umountBody"); // null: it was pulled before

    QTest::newRow("FAT32") << QByteArray("fat32") << QByteArray();
    QTest::newRow("exFAT") << QByteArray("exfat") << QByteArray();
    QTest::newRow("while it is unmounted")
        << QByteArray("fat32") << QByteArray(": > /etc/mtab; rm /dev/sda1");
}

void tst_UsbCommand::unlockSaysThatTheDriveWasPulled()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, umountBody);
    TestDrive drive(type);
    drive.mount();
    drive.setDirtyByte(1);
    if (umountBody.isNull()) {
        drive.pull();
    } else {
        drive.commands.add(QStringLiteral("umount"), umountBody);
    }
    const Outcome outcome = usb(QStringLiteral("unlock"));
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output,
             QStringLiteral("Unmounting, as soon as nobody uses the drive; Ctrl-C gives up.\n"));
    QCOMPARE(outcome.errors,
             QStringLiteral("The USB drive was pulled out while it was mounted. It is unmounted "
                            "now, but what was written last may be missing, and a FAT volume is "
                            "still marked as in use. Plug it in again and check it, or lock and "
                            "unlock it, which marks it clean.\n"));
    QCOMPARE(drive.dirtyByte(), '\1');
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
    QCOMPARE(drive.commands.journal(), QStringList{s_umount});
    QVERIFY(!QFile::exists(QStringLiteral("/dev/sda1")));
}

void tst_UsbCommand::lockAndListSayThatTheDriveWasPulled()
{
    TestDrive drive;
    drive.mount();
    drive.pull();
    const QString sentence =
        QStringLiteral("The USB drive on \"/media/usbdrive\" was pulled out. Run "
                       "\"ovo-fieldhost usb unlock\", then plug it in again.\n");
    Outcome outcome = usb(QStringLiteral("lock /media/usbdrive"));
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors, sentence);
    outcome = usb(QStringLiteral("list"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, QStringLiteral("There is no USB drive.\n") + sentence);
    QCOMPARE(drive.commands.journal(), QStringList());
}

void tst_UsbCommand::unlockSaysThatAMarkStays()
{
    TestDrive drive;
    drive.mount();
    drive.setDirtyByte(1);
    // as the kernel remounts a volume with errors; a read-only one is no partition of the library
    QCOMPARE(::mount("tmpfs", "/media/usbdrive", "tmpfs", MS_RDONLY, nullptr), 0);
    const auto unmount = qScopeGuard([] { ::umount2("/media/usbdrive", MNT_DETACH); });
    const Outcome outcome = usb(QStringLiteral("unlock"));
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors,
             QStringLiteral("Unmounted. \"/dev/sda1\" is marked as in use all the same, and was "
                            "not touched: check it.\n"));
    QCOMPARE(drive.dirtyByte(), '\1');
}

void tst_UsbCommand::unlockOfNothingSaysSo()
{
    TestDrive drive;
    drive.setDirtyByte(1);
    const Outcome outcome = usb(QStringLiteral("unlock"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, QStringLiteral("Nothing is mounted on \"/media/usbdrive\".\n"));
    // the mark of a drive that was pulled stays for whoever checks it
    QCOMPARE(drive.dirtyByte(), '\1');
    QCOMPARE(drive.commands.journal(), QStringList());
}

void tst_UsbCommand::unlockWithoutADirtyByteSaysSo()
{
    TestDrive drive("exfat");
    drive.mount();
    const Outcome outcome = usb(QStringLiteral("unlock"));
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(
        outcome.output.endsWith(QLatin1String("\nUnmounted. There was no dirty byte to clear.\n")));
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
}

void tst_UsbCommand::unlockSaysWhichRightIsMissing()
{
    TestDrive drive("ext4");
    PrivateMounts::setMountTable(mounted("/dev/sda1", "/media/usbdrive", "fat32"));
    drive.giveAway();
    RUN_WITHOUT_RIGHTS((QStringList{QStringLiteral("usb"), QStringLiteral("unlock")}))
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors,
             QStringLiteral("Unmounted, and still marked as in use. Writing to \"/dev/sda1\" needs "
                            "root, or a udev rule that gives the device to one of your groups.\n"));
}

void tst_UsbCommand::dirtyTellsTheMark()
{
    TestDrive drive;
    Outcome outcome = usb(QStringLiteral("dirty /dev/sda1"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, QStringLiteral("clean: \"/dev/sda1\" (fat32)\n"));
    drive.setDirtyByte(1);
    outcome = usb(QStringLiteral("dirty /dev/sda1"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, QStringLiteral("dirty: \"/dev/sda1\" (fat32)\n"));
    QCOMPARE(drive.dirtyByte(), '\1');
    QCOMPARE(drive.commands.journal(), QStringList());
}

void tst_UsbCommand::dirtySaysWhatALockLeavesOut()
{
    const QTemporaryDir directory;
    const QString device = directory.filePath(QStringLiteral("device"));
    QByteArray sector(512, '\0');
    sector.replace(54, 8, "FAT16   ");
    sector[22] = 64;
    sector[510] = 0x55;
    sector[511] = char(0xaa);
    makeFile(device, sector);
    const Outcome outcome = usb(QStringLiteral("dirty ") + device);
    QCOMPARE(outcome.output,
             QStringLiteral("clean: \"%1\" (fat16)\n"
                            "A lock does not mark it: it knows no type for volumes of this size.\n")
                 .arg(device));
}

void tst_UsbCommand::dirtyNeedsAFatVolume()
{
    const TestDrive drive("exfat");
    Outcome outcome = usb(QStringLiteral("dirty /dev/sda1"));
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors,
             QStringLiteral("\"/dev/sda1\" holds no FAT file system, and so has no "
                            "dirty byte that is known here.\n"));
    outcome = usb(QStringLiteral("dirty /dev/sdq1"));
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors,
             QStringLiteral("Reading \"/dev/sdq1\" is not possible (No such file "
                            "or directory).\n"));
}

void tst_UsbCommand::dirtySaysWhichRightIsMissing()
{
    TestDrive drive;
    drive.giveAway();
    RUN_WITHOUT_RIGHTS(
        (QStringList{QStringLiteral("usb"), QStringLiteral("dirty"), QStringLiteral("/dev/sda1")}))
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors,
             QStringLiteral("Reading \"/dev/sda1\" needs root, or a udev rule that gives the "
                            "device to one of your groups.\n"));
}

void tst_UsbCommand::dryRunChangesNothing_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<bool>("isMounted");
    QTest::addColumn<QString>("output");

    const QByteArray fat32("fat32");
    const QString look =
        QStringLiteral("Would run: mount /dev/sda1\nWould run: umount /dev/sda1\n");
    const QString nothing = QStringLiteral("Would run nothing: the drive is mounted.\n");
    const QString lock = QStringLiteral("lock /media/usbdrive/a");
    QTest::newRow("list, not mounted") << QStringLiteral("list") << fat32 << false << look;
    QTest::newRow("list, mounted") << QStringLiteral("list") << fat32 << true << nothing;
    QTest::newRow("root, not mounted") << QStringLiteral("root") << fat32 << false << look;
    QTest::newRow("root, mounted") << QStringLiteral("root") << fat32 << true << nothing;
    QTest::newRow("lock, not mounted") << lock << fat32 << false
                                       << look
            + QStringLiteral("Would run: mount /dev/sda1\nWould write: 1 to the dirty byte of the "
                             "partition, if it has one\n");
    QTest::newRow("lock, mounted")
        << lock << fat32 << true
        << QStringLiteral("Would run: mount /dev/sda1\n"
                          "Would write: 1 to byte 65 of \"/dev/sda1\" (fat32)\n");
    QTest::newRow("lock, no dirty byte")
        << lock << QByteArray("exfat") << true
        << QStringLiteral("Would run: mount /dev/sda1\n"
                          "Would write nothing: \"/dev/sda1\" (exfat) has no dirty byte.\n");
    QTest::newRow("unlock, not mounted")
        << QStringLiteral("unlock") << fat32 << false
        << QStringLiteral("Nothing is mounted on \"/media/usbdrive\".\n");
    QTest::newRow("unlock, mounted")
        << QStringLiteral("unlock") << fat32 << true
        << QStringLiteral("Would run: umount /dev/sda1\n"
                          "Would write: 0 to byte 65 of \"/dev/sda1\" (fat32)\n");
    QTest::newRow("dirty") << QStringLiteral("dirty /dev/sda1") << fat32 << false
                           << QStringLiteral("Would read: the boot sector of \"/dev/sda1\"\n");
}

void tst_UsbCommand::dryRunChangesNothing()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, type);
    QFETCH(bool, isMounted);
    TestDrive drive(type);
    if (isMounted) {
        drive.mount();
    }
    const QByteArray table = PrivateMounts::mountTable();
    drive.setDirtyByte(3);
    const Outcome outcome = usb(QStringLiteral("--dry-run ") + arguments);
    QCOMPARE(outcome.exitCode, int(Done));
    QTEST(outcome.output, "output");
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(drive.commands.journal(), QStringList());
    QCOMPARE(drive.dirtyByte(), '\3');
    QCOMPARE(PrivateMounts::mountTable(), table);
}

USB_TEST_MAIN(tst_UsbCommand)
#include "tst_UsbCommand.moc"
