// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"
#include "shared/usb/MountedUSBDeviceList.h"
#include "shared/usb/USBDriveCleanAccessManager.h"
#include "tests/support/FileTree.h"
#include "tests/support/LoopDevice.h"
#include "tests/support/UdevTestBed.h"
#include "tests/usb/UsbTest.h"

#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>

using namespace Test;
using Tavro::Shared::CFileCopyController;
using Tavro::Shared::MountedUSBDeviceList;
using Tavro::Shared::USBDriveCleanAccessManager;

namespace {

const QString s_partition = QStringLiteral("/dev/sda1");
const QString s_drive = QStringLiteral("/media/usbdrive");

/** What a tool says, with its exit code in front. */
QByteArray run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit) {
        return "no end of " + program.toLocal8Bit();
    }
    return QByteArray::number(process.exitCode()) + ' ' + process.readAll();
}

} // namespace

/**
 * A FAT drive that the kernel has mounted, with its driver between the library and the device: for
 * a kernel that has one (tests/support/uml-run).
 */
class tst_MountedFat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aCopyToALockedDriveIsWholeAndLeavesItClean_data();
    void aCopyToALockedDriveIsWholeAndLeavesItClean();
    void aDrivePulledOutWhileLockedIsDirty();

private:
    void plugIn(const QString &makeFat);
    static char byteAt(qint64 offset);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_image;
    std::unique_ptr<LoopDevice> m_loop;
    std::unique_ptr<UdevTestBed> m_bed;
    std::unique_ptr<FakeCommands> m_commands;
};

void tst_MountedFat::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
    qputenv("PATH", qgetenv("PATH") + ":/usr/sbin:/sbin");
    if (!contentOf(QStringLiteral("/proc/filesystems")).contains("\tvfat\n")) {
        QSKIP("this kernel has no FAT");
    }
}

void tst_MountedFat::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_image = m_folder->filePath(QStringLiteral("image"));
    QVERIFY(QDir().mkpath(s_drive));
}

void tst_MountedFat::cleanup()
{
    if (MountedUSBDeviceList::isUSBMounted()) {
        MountedUSBDeviceList::dismountUSB();
    }
    m_bed.reset();
    m_commands.reset();
    QVERIFY(QDir().rmdir(s_drive));
    QFile::remove(s_partition);
    m_loop.reset();
    m_folder.reset();
}

// the system's own commands, fstab and mount table; only "usleep", which Debian lacks, is a fake
void tst_MountedFat::plugIn(const QString &makeFat)
{
    QStringList options = makeFat.split(QLatin1Char(' '));
    QFile image(m_image);
    QVERIFY(image.open(QIODevice::WriteOnly)
            && image.resize(options.takeFirst().toLongLong() * 512));
    image.close();
    const QByteArray made = run(QStringLiteral("mkfs.fat"), options + QStringList(m_image));
    QVERIFY2(made.startsWith("0 "), made.constData());

    m_loop = std::make_unique<LoopDevice>(m_image);
    PrivateMounts::makeBlockNode(s_partition, m_loop->number());
    m_bed = std::make_unique<UdevTestBed>();
    m_bed->addStick("sda", {{"sda1", "vfat"}});
    m_commands = std::make_unique<FakeCommands>();
    m_commands->add(QStringLiteral("usleep"));
    PrivateMounts::useSystemMountTable();
    PrivateMounts::setFstab("/dev/sda1 /media/usbdrive vfat noauto,utf8 0 0\n");
}

char tst_MountedFat::byteAt(qint64 offset)
{
    return USBDriveCleanAccessManager::readByteFromDev(s_partition, offset);
}

void tst_MountedFat::aCopyToALockedDriveIsWholeAndLeavesItClean_data()
{
    QTest::addColumn<QString>("makeFat"); // sectors, and what makes the file system
    QTest::addColumn<QString>("type"); // empty: the library knows no place of the dirty byte
    QTest::addColumn<int>("offset");

    QTest::newRow("FAT32") << QStringLiteral("81920 -F 32 -s 1") << QStringLiteral("fat32") << 65;
    QTest::newRow("FAT16 with 256 sectors per FAT, which is called fat12")
        << QStringLiteral("66000 -F 16 -s 1") << QStringLiteral("fat12") << 37;
    QTest::newRow("FAT16 with 64 sectors per FAT")
        << QStringLiteral("65536 -F 16") << QString() << 37;
    QTest::newRow("FAT12") << QStringLiteral("4096 -F 12") << QString() << 37;
}

void tst_MountedFat::aCopyToALockedDriveIsWholeAndLeavesItClean()
{
    QFETCH(QString, makeFat);
    QFETCH(QString, type);
    QFETCH(int, offset);
    plugIn(makeFat);
    QCOMPARE(MountedUSBDeviceList::getFatSubtype(s_partition), type);
    QCOMPARE(byteAt(offset), '\0');

    const QDir source(m_folder->filePath(QStringLiteral("source")));
    makeFile(source.filePath(QStringLiteral("SHORT.DAT")), someBytes(700));
    makeFile(source.filePath(QStringLiteral("nothing")));
    makeFile(source.filePath(QStringLiteral("A name of more than one entry.txt")),
             someBytes(70000));
    makeFile(source.filePath(QStringLiteral("Übersicht/Größe 点検 \U0001F6B0.txt")), someBytes(9));

    USBDriveCleanAccessManager manager;
    QCOMPARE(manager.lock(s_drive), !type.isEmpty());
    QVERIFY(MountedUSBDeviceList::isUSBMounted());
    QVERIFY(PrivateMounts::mountTable().contains("/dev/sda1 /media/usbdrive vfat rw"));
    QCOMPARE(byteAt(offset), '\1');

    CFileCopyController controller;
    QSignalSpy completed(&controller, &CFileCopyController::operationCompleted);
    const QString project = s_drive + QStringLiteral("/project");
    controller.copyDirectory(source.path(), project);
    QVERIFY(completed.wait(60'000));
    QCOMPARE(controller.processedBytes(), controller.totalBytes());
    QVERIFY(treeOf(project) == treeOf(source.path()));
    QCOMPARE(byteAt(offset), '\1'); // still, whatever the driver has written beside it

    QCOMPARE(manager.unlock(), !type.isEmpty());
    QVERIFY(!MountedUSBDeviceList::isUSBMounted());
    QCOMPARE(byteAt(offset), '\0');
    const QByteArray verdict = run(QStringLiteral("fsck.fat"), {QStringLiteral("-n"), s_partition});
    QVERIFY2(verdict.startsWith("0 "), verdict.constData());
    QVERIFY2(!verdict.contains("irty"), verdict.constData());

    QVERIFY(!QFile::exists(project));
    QCOMPARE(manager.lock(s_drive), !type.isEmpty());
    QVERIFY(treeOf(project) == treeOf(source.path()));
    QCOMPARE(manager.unlock(), !type.isEmpty());
}

void tst_MountedFat::aDrivePulledOutWhileLockedIsDirty()
{
    plugIn(QStringLiteral("81920 -F 32 -s 1"));
    USBDriveCleanAccessManager manager;
    QVERIFY(manager.lock(s_drive));
    const QString pulledOut = m_folder->filePath(QStringLiteral("pulled"));
    QVERIFY(QFile::copy(m_image, pulledOut));
    QVERIFY(manager.unlock());
    const QByteArray verdict = run(QStringLiteral("fsck.fat"), {QStringLiteral("-n"), pulledOut});
    QVERIFY2(verdict.startsWith("1 "), verdict.constData());
    QVERIFY2(verdict.contains("Dirty bit is set"), verdict.constData());
}

USB_TEST_MAIN(tst_MountedFat)
#include "tst_MountedFat.moc"
