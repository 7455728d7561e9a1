// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/DriveAccess.h"
#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/FatVolume.h"
#include "fieldhost/jobs/UsbDrive.h"
#include "tests/support/FileTree.h"
#include "tests/usb/UsbTest.h"

#include <QScopeGuard>
#include <QTemporaryDir>

#include <functional>
#include <thread>

#include <unistd.h>

using namespace Tavro::FieldHost;
using namespace Test;

/** What the program knows of drives without one. */
class tst_UsbDrive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void pathsOnTheDrive_data();
    void pathsOnTheDrive();
    void threadsAskForTheDriveAtTheSameTime();
    void mountingNeedsRootOrALineInFstab_data();
    void mountingNeedsRootOrALineInFstab();
    void rightsToADeviceAreNamed();
    void bootSectorsTell_data();
    void bootSectorsTell();
    void largeFilesAreWarnedOf_data();
    void largeFilesAreWarnedOf();
};

void tst_UsbDrive::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
}

void tst_UsbDrive::pathsOnTheDrive_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isOnDrive");

    QTest::newRow("the mount point") << QStringLiteral("/media/usbdrive") << true;
    QTest::newRow("below") << QStringLiteral("/media/usbdrive/a/b") << true;
    QTest::newRow("a longer name") << QStringLiteral("/media/usbdrive2") << false;
    QTest::newRow("above") << QStringLiteral("/media") << false;
}

void tst_UsbDrive::pathsOnTheDrive()
{
    QFETCH(QString, path);
    QTEST(isOnUsbDrive(path), "isOnDrive");
}

void tst_UsbDrive::threadsAskForTheDriveAtTheSameTime()
{
    PrivateMounts::setMountTable(mounted("/dev/sda1", usbMountPoint)
                                 + mounted("/dev/sdb1", "/media/" + QByteArray(200, 'm')));
    const auto askOften = [](int &mistakes) {
        for (int i = 0; i < 4000; ++i) {
            mistakes += mountedUsbDevice() == QLatin1String("/dev/sda1") ? 0 : 1;
        }
    };
    int mistakes = 0;
    int mistakesBeside = 0;
    std::thread beside(askOften, std::ref(mistakesBeside));
    askOften(mistakes);
    beside.join();
    QCOMPARE(mistakes, 0);
    QCOMPARE(mistakesBeside, 0);
}

void tst_UsbDrive::mountingNeedsRootOrALineInFstab_data()
{
    QTest::addColumn<QByteArray>("fstab");
    QTest::addColumn<bool>("isMissing");

    const QByteArray line = "/dev/sda1 /media/usbdrive auto ";
    QTest::newRow("users") << line + "noauto,users,umask=000 0 0\n" << false;
    QTest::newRow("user") << line + "user 0 0\n" << false;
    QTest::newRow("group") << line + "group 0 0\n" << false;
    QTest::newRow("owner") << line + "owner 0 0\n" << false;
    QTest::newRow("no such option") << line + "noauto,nouser,umask=000 0 0\n" << true;
    QTest::newRow("of another device")
        << QByteArray("/dev/sdb1 /media/usbdrive auto users 0 0\n") << true;
    QTest::newRow("in a remark") << "# " + line + "users 0 0\n" << true;
    QTest::newRow("empty") << QByteArray() << true;
}

void tst_UsbDrive::mountingNeedsRootOrALineInFstab()
{
    QFETCH(QByteArray, fstab);
    QFETCH(bool, isMissing);
    PrivateMounts::setFstab(fstab);
    QCOMPARE(missingMountRight(), QString()); // root may
    QCOMPARE(::seteuid(65534), 0);
    const auto back = qScopeGuard([] { Q_UNUSED(::seteuid(0)); });
    QCOMPARE(missingMountRight(),
             isMissing ? QStringLiteral("Mounting and unmounting /dev/sda1 needs root, or a line "
                                        "for it in /etc/fstab with the option \"users\".")
                       : QString());
}

void tst_UsbDrive::rightsToADeviceAreNamed()
{
    const QTemporaryDir directory;
    const QString device = directory.filePath(QStringLiteral("device"));
    makeFile(device);
    QCOMPARE(missingWriteRight(device), QString());
    QCOMPARE(missingReadRight(device), QString());
    QVERIFY(QFile::remove(device));
    QCOMPARE(missingWriteRight(device),
             QStringLiteral("Writing to \"%1\" is not possible (No such file or directory).")
                 .arg(device));
    QCOMPARE(
        missingReadRight(device),
        QStringLiteral("Reading \"%1\" is not possible (No such file or directory).").arg(device));
}

void tst_UsbDrive::bootSectorsTell_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("byte37");
    QTest::addColumn<int>("byte65");
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("isDirty");

    const QByteArray signature = "\x55\xaa";
    QTest::newRow("FAT12, clean") << 54 << QByteArray("FAT12   ") << signature << 0 << 1
                                  << QStringLiteral("fat12") << false;
    QTest::newRow("FAT12, dirty") << 54 << QByteArray("FAT12   ") << signature << 1 << 0
                                  << QStringLiteral("fat12") << true;
    QTest::newRow("FAT16, dirty") << 54 << QByteArray("FAT16   ") << signature << 1 << 0
                                  << QStringLiteral("fat16") << true;
    QTest::newRow("FAT32, dirty") << 82 << QByteArray("FAT32   ") << signature << 0 << 1
                                  << QStringLiteral("fat32") << true;
    QTest::newRow("FAT32, clean") << 82 << QByteArray("FAT32   ") << signature << 1 << 0
                                  << QStringLiteral("fat32") << false;
    QTest::newRow("FAT32, its surface in doubt")
        << 82 << QByteArray("FAT32   ") << signature << 0 << 2 << QStringLiteral("fat32") << false;
    QTest::newRow("exFAT") << 3 << QByteArray("EXFAT   ") << signature << 1 << 1 << QString()
                           << false;
    QTest::newRow("NTFS") << 3 << QByteArray("NTFS    ") << signature << 1 << 1 << QString()
                          << false;
    QTest::newRow("no boot sector")
        << 82 << QByteArray("FAT32   ") << QByteArray("\0\0", 2) << 1 << 1 << QString() << false;
    QTest::newRow("too short") << 82 << QByteArray("FAT32   ") << QByteArray("\x55") << 1 << 1
                               << QString() << false;
}

void tst_UsbDrive::bootSectorsTell()
{
    QFETCH(int, place);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, signature);
    QFETCH(int, byte37);
    QFETCH(int, byte65);
    const QTemporaryDir directory;
    const QString device = directory.filePath(QStringLiteral("device"));
    QByteArray sector(510, '\0');
    sector.replace(place, text.size(), text);
    sector[37] = char(byte37);
    sector[65] = char(byte65);
    makeFile(device, sector + signature);
    const FatVolume volume = readFatVolume(device);
    QTEST(volume.type, "type");
    QTEST(volume.isDirty, "isDirty");
}

void tst_UsbDrive::largeFilesAreWarnedOf_data()
{
    QTest::addColumn<QVector<qint64>>("sizes");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("warning");

    constexpr qint64 limit = qint64(4) << 30;
    const QString text = QStringLiteral("Warning: on a FAT drive every file has less than 4 GiB. "
                                        "The copy will fail at \"/source/%1\"%2.");
    const QString first = text.arg(QStringLiteral("0"), QString());
    QTest::newRow("one byte less than 4 GiB")
        << QVector<qint64>{limit - 1} << QStringLiteral("fat32") << QString();
    for (const char *type : {"fat12", "fat16", "fat32", "vfat", "msdos"}) {
        QTest::newRow(type) << QVector<qint64>{limit} << QString::fromLatin1(type) << first;
    }
    for (const char *type : {"exfat", "ntfs", "ext4", "tmpfs", "FAT32", ""}) {
        QTest::addRow("not on <%s>", type)
            << QVector<qint64>{limit} << QString::fromLatin1(type) << QString();
    }
    QTest::newRow("two more") << QVector<qint64>{1, limit, 2, limit + 1, 2 * limit}
                              << QStringLiteral("vfat")
                              << text.arg(QStringLiteral("1"), QStringLiteral(" and 2 more files"));
    QTest::newRow("one more") << QVector<qint64>{limit, limit} << QStringLiteral("vfat")
                              << text.arg(QStringLiteral("0"), QStringLiteral(" and 1 more file"));
    QTest::newRow("no file") << QVector<qint64>() << QStringLiteral("vfat") << QString();
}

void tst_UsbDrive::largeFilesAreWarnedOf()
{
    QFETCH(QVector<qint64>, sizes);
    QFETCH(QString, type);
    ExportPlan plan;
    plan.jobs.emplace_back();
    plan.jobs.back().source = QStringLiteral("/source/");
    for (int i = 0; i < sizes.size(); ++i) {
        plan.jobs.back().survey.files.append(QString(), QString::number(i), sizes.at(i));
    }
    QTEST(largeFileWarning(plan, type), "warning");
}

USB_TEST_MAIN(tst_UsbDrive)
#include "tst_UsbDrive.moc"
