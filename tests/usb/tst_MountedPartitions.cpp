// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/MountedUSBDeviceList.h"
#include "tests/support/FileTree.h"
#include "tests/support/UdevTestBed.h"
#include "tests/usb/UsbTest.h"

#include <QDir>
#include <QScopeGuard>

#include <memory>

#include <libudev.h>
#include <sys/mount.h>
#include <sys/stat.h>

using namespace Test;
using Tavro::Shared::MountedUSBDeviceList;
using Tavro::Shared::mountItem;
using Tavro::Shared::mountPathsStruct;
using Tavro::Shared::usbDeviceInfo;

namespace {

using Devices = QList<QSharedPointer<usbDeviceInfo>>;
using Context = std::unique_ptr<udev, decltype(&udev_unref)>;

QString described(const usbDeviceInfo &device)
{
    return QStringLiteral("%1 %2:%3 <%4>")
        .arg(device.deviceNode(), device.vendorId(), device.productId(), device.vendorName());
}

QString described(const mountPathsStruct &info)
{
    QStringList items;
    for (const mountItem &item : info.items) {
        items.append(
            QStringLiteral("%1 on %2 is <%3>")
                .arg(item.device.filePath(), item.mountPoint.filePath(), item.fileSystemType));
    }
    items.append(info.supported ? QStringLiteral("supported") : QStringLiteral("not supported"));
    return items.join(QStringLiteral(", "));
}

QStringList found()
{
    const Context context(udev_new(), &udev_unref);
    Devices devices;
    MountedUSBDeviceList::enumerateUsbMassStorageDevices(context.get(), devices);
    QStringList texts;
    for (const auto &device : qAsConst(devices)) {
        texts.append(described(*device));
    }
    return texts;
}

// the beginning of a FAT partition with that number at byte 22
void makePartition(const QString &node, quint16 sectorsPerFat)
{
    makeFile(node,
             QByteArray(22, '\0') + QByteArray(1, char(sectorsPerFat & 0xff))
                 + QByteArray(1, char(sectorsPerFat >> 8)) + QByteArray(488, '\0'));
}

constexpr quint16 s_fat12 = 256;
constexpr quint16 s_fat16 = 512;
constexpr quint16 s_fat32 = 0;

const QByteArray s_mountPoint = QByteArrayLiteral("/media/usbdrive");

} // namespace

/** Sticks and other drives on a test bed, and what the mount table makes of them. */
class tst_MountedPartitions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void withoutADriveThereIsNone();
    void aStickIsFoundWithItsTexts();
    void devicesAreAppendedInOrder();
    void withoutAContextNothingIsFound();
    void aCardReaderWithoutMediumIsADevice();
    void whatIsNoUsbDiskIsLeftOut_data();
    void whatIsNoUsbDiskIsLeftOut();
    void missingTextsAreEmpty();
    void aDiskWithoutNodeIsLeftOut();

    void childrenAreFoundBySubsystem();

    void partitionsBelongToTheirDisk();
    void theTableKeepsItsOrder();
    void typesAreLookedUp_data();
    void typesAreLookedUp();
    void aPartitionUnknownToUdevKeepsItsType();
    void aDeviceNameWithoutPathIsNoPartition();
    void blanksInAMountPointAreUnescaped();
    void withoutATableDevicesHaveNothingMounted();

    void aDriveThatIsMountedIsLeftAlone();
    void aDriveThatIsNotMountedIsMountedForTheLook();
    void aDriveThatCannotBeMountedIsNotUnmounted();
    void aBusyDriveHoldsTheLookUp();

    void pathsAreThoseThatCanBeWrittenTo();
    void pathsAreSupportedWhenAllDevicesAre_data();
    void pathsAreSupportedWhenAllDevicesAre();
    void pathsOfSeveralDevicesStandInDeviceOrder();

    void rootOfNothingIsEmpty();
    void rootOfOnePartitionIsItsMountPoint_data();
    void rootOfOnePartitionIsItsMountPoint();
    void rootOfSeveralPartitionsIsTheFolderAbove_data();
    void rootOfSeveralPartitionsIsTheFolderAbove();

private:
    std::unique_ptr<UsbCommands> m_commands;
    std::unique_ptr<UdevTestBed> m_bed;
};

void tst_MountedPartitions::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
}

void tst_MountedPartitions::init()
{
    m_commands = std::make_unique<UsbCommands>();
    m_bed = std::make_unique<UdevTestBed>();
    PrivateMounts::setMountTable({});
    QVERIFY(QDir().mkpath(QString::fromLatin1(s_mountPoint)));
}

void tst_MountedPartitions::cleanup()
{
    m_bed.reset();
    m_commands.reset();
    QVERIFY(QDir(QString::fromLatin1(s_mountPoint)).removeRecursively());
    const auto nodes =
        QDir(QStringLiteral("/dev")).entryList({QStringLiteral("sd*")}, QDir::System | QDir::Files);
    for (const QString &node : nodes) {
        QFile::remove(QStringLiteral("/dev/") + node);
    }
}

void tst_MountedPartitions::withoutADriveThereIsNone()
{
    QCOMPARE(found(), QStringList());
    m_bed->addUsbStorage("1-1", "0781", "5567"); // nothing hangs on it
    QCOMPARE(found(), QStringList());
    QVERIFY(MountedUSBDeviceList::getUSBMountInfo().isEmpty());
}

void tst_MountedPartitions::aStickIsFoundWithItsTexts()
{
    const QByteArray storage = m_bed->addUsbStorage("1-1", "0781", "55a7");
    const QByteArray device = m_bed->addScsiDevice(storage, "4:0:0:0", "Maker   ");
    m_bed->addScsiDisk(device, "4:0:0:0");
    m_bed->addBlockDevice(device, "sda", "/dev/sda");
    // once: host and target have the disk below and the USB device above them, too
    QCOMPARE(found(), QStringList(QStringLiteral("/dev/sda 0781:55a7 <Maker   >")));
    // looking mounts nothing
    QCOMPARE(m_commands->journal(), QStringList());
}

void tst_MountedPartitions::devicesAreAppendedInOrder()
{
    m_bed->addStick("sdb", {{"sdb1", "vfat"}, {"sdb2", "ntfs"}});
    m_bed->addStick("sda", {{"sda1", "vfat"}, {"sda5", "exfat"}});
    const Context context(udev_new(), &udev_unref);
    const auto present = QSharedPointer<usbDeviceInfo>::create();
    Devices devices{present};
    MountedUSBDeviceList::enumerateUsbMassStorageDevices(context.get(), devices);
    QCOMPARE(devices.size(), 3);
    QCOMPARE(devices.at(0), present);
    QCOMPARE(described(*devices.at(1)), QStringLiteral("/dev/sda 0901:1001 <Maker 1>"));
    QCOMPARE(described(*devices.at(2)), QStringLiteral("/dev/sdb 0902:1002 <Maker 2>"));
    QVERIFY(devices.at(1)->mountInfo().items.isEmpty());
    QVERIFY(devices.at(1)->mountInfo().supported);
}

void tst_MountedPartitions::withoutAContextNothingIsFound()
{
    m_bed->addStick("sda", {{"sda1", "vfat"}});
    Devices devices;
    MountedUSBDeviceList::enumerateUsbMassStorageDevices(nullptr, devices);
    QVERIFY(devices.isEmpty());
}

void tst_MountedPartitions::aCardReaderWithoutMediumIsADevice()
{
    m_bed->addStick("sda", {});
    m_bed->addStick("sdb", {{"sdb1", "vfat"}});
    PrivateMounts::setMountTable(mounted("/dev/sdb1", s_mountPoint, "exfat"));
    const Devices devices = MountedUSBDeviceList::getUSBMountInfo();
    QCOMPARE(devices.size(), 2);
    QCOMPARE(devices.at(0)->deviceNode(), QStringLiteral("/dev/sda"));
    QCOMPARE(described(devices.at(0)->mountInfo()), QStringLiteral("supported"));
    QCOMPARE(devices.at(1)->deviceNode(), QStringLiteral("/dev/sdb"));
}

void tst_MountedPartitions::whatIsNoUsbDiskIsLeftOut_data()
{
    QTest::addColumn<QString>("kind");

    QTest::newRow("a SATA disk: no USB device above it") << QStringLiteral("sata");
    QTest::newRow("a CD drive: no disk") << QStringLiteral("cd");
    QTest::newRow("an enclosure: no block device") << QStringLiteral("enclosure");
    QTest::newRow("a USB interface alone above it") << QStringLiteral("interface");
}

void tst_MountedPartitions::whatIsNoUsbDiskIsLeftOut()
{
    QFETCH(QString, kind);
    QByteArray controller;
    if (kind == QLatin1String("sata")) {
        controller = m_bed->add("pci", "pci0000:00/0000:00:17.0", {}, {}, {});
    } else if (kind == QLatin1String("interface")) {
        controller =
            m_bed->add("usb", "pci0000:00/1-9:1.0", {}, {}, {{"DEVTYPE", "usb_interface"}});
    } else {
        controller = m_bed->addUsbStorage("1-9", "0e8d", "1887");
    }
    const QByteArray device = m_bed->addScsiDevice(controller, "9:0:0:0", "Other");
    if (kind != QLatin1String("cd")) {
        m_bed->addScsiDisk(device, "9:0:0:0");
    }
    if (kind != QLatin1String("enclosure")) {
        m_bed->addBlockDevice(device, "sr0", "/dev/sr0");
    }
    m_bed->addStick("sda", {{"sda1", "vfat"}});
    QCOMPARE(found(), QStringList(QStringLiteral("/dev/sda 0901:1001 <Maker 1>")));
}

void tst_MountedPartitions::missingTextsAreEmpty()
{
    const QByteArray storage = m_bed->addUsbStorage("1-1", {}, {});
    const QByteArray device = m_bed->addScsiDevice(storage, "4:0:0:0", {});
    m_bed->addScsiDisk(device, "4:0:0:0");
    m_bed->addBlockDevice(device, "sda", "/dev/sda");
    QCOMPARE(found(), QStringList(QStringLiteral("/dev/sda : <>")));
}

void tst_MountedPartitions::aDiskWithoutNodeIsLeftOut()
{
    const QByteArray storage = m_bed->addUsbStorage("1-1", "0781", "5567");
    const QByteArray device = m_bed->addScsiDevice(storage, "4:0:0:0", "Maker");
    m_bed->addScsiDisk(device, "4:0:0:0");
    m_bed->addBlockDevice(device, "sda", {});
    // as a prefix, its empty node would take everything that is mounted
    PrivateMounts::setMountTable(mounted("/dev/nvme0n1", "/", "ext4"));
    QCOMPARE(found(), QStringList());
    QCOMPARE(described(MountedUSBDeviceList::getUSBMountPaths()), QStringLiteral("supported"));
}

void tst_MountedPartitions::childrenAreFoundBySubsystem()
{
    const QByteArray device = m_bed->addStick("sda", {{"sda1", "vfat"}});
    const Context context(udev_new(), &udev_unref);
    using Device = std::unique_ptr<udev_device, decltype(&udev_device_unref)>;
    const auto open = [&](const QByteArray &path) {
        return Device(udev_device_new_from_syspath(context.get(), path.constData()),
                      &udev_device_unref);
    };
    const auto childOf = [&](const Device &parent, const char *subsystem) {
        return Device(MountedUSBDeviceList::getChild(context.get(), parent.get(), subsystem),
                      &udev_device_unref);
    };
    const Device scsi = open(device);
    QVERIFY(scsi);
    const Device block = childOf(scsi, "block");
    QVERIFY(block);
    // the disk, not its partition
    QCOMPARE(udev_device_get_syspath(block.get()), (device + "/block/sda").constData());
    const Device disk = childOf(scsi, "scsi_disk");
    QVERIFY(disk);
    QCOMPARE(udev_device_get_syspath(disk.get()), (device + "/scsi_disk/1:0:0:0").constData());
    QVERIFY(!childOf(scsi, "net"));
    QVERIFY(!childOf(disk, "block"));
}

void tst_MountedPartitions::partitionsBelongToTheirDisk()
{
    m_bed->addStick("sda", {{"sda1", "ntfs"}, {"sda2", "exfat"}});
    m_bed->addStick("sdb", {{"sdb1", "ext4"}});
    PrivateMounts::setMountTable(
        mounted("proc", "/proc", "proc") + mounted("/dev/sda1", s_mountPoint, "ntfs")
        + mounted("/dev/sdb1", "/mnt/b", "ext4") + mounted("/dev/nvme0n1", "/", "ext4")
        + mounted("/dev/sda2", "/mnt/a2", "exfat"));
    const Devices devices = MountedUSBDeviceList::getUSBMountInfo();
    QCOMPARE(devices.size(), 2);
    QCOMPARE(described(devices.at(0)->mountInfo()),
             QStringLiteral("/dev/sda1 on /media/usbdrive is <ntfs>, "
                            "/dev/sda2 on /mnt/a2 is <exfat>, supported"));
    QCOMPARE(described(devices.at(1)->mountInfo()),
             QStringLiteral("/dev/sdb1 on /mnt/b is <ext4>, not supported"));
}

void tst_MountedPartitions::theTableKeepsItsOrder()
{
    m_bed->addStick("sda", {{"sda1", "exfat"}, {"sda2", "exfat"}});
    PrivateMounts::setMountTable(mounted("/dev/sda2", "/mnt/z", "exfat")
                                 + mounted("/dev/sda1", s_mountPoint, "exfat")
                                 + mounted("/dev/sda2", "/mnt/a", "exfat"));
    QCOMPARE(described(MountedUSBDeviceList::getUSBMountInfo().value(0)->mountInfo()),
             QStringLiteral("/dev/sda2 on /mnt/z is <exfat>, "
                            "/dev/sda1 on /media/usbdrive is <exfat>, "
                            "/dev/sda2 on /mnt/a is <exfat>, supported"));
}

void tst_MountedPartitions::typesAreLookedUp_data()
{
    QTest::addColumn<QByteArray>("udevType"); // null: none
    QTest::addColumn<QByteArray>("tableType");
    QTest::addColumn<int>("sectorsPerFat"); // -1: no node to read
    QTest::addColumn<QString>("expected");

    const QString supported = QStringLiteral("supported");
    const QString unsupported = QStringLiteral("not supported");
    const auto expected = [](const char *type, const QString &flag) {
        return QStringLiteral("/dev/sda1 on /media/usbdrive is <%1>, %2")
            .arg(QLatin1String(type), flag);
    };
    QTest::newRow("256 is fat12") << QByteArray("vfat") << QByteArray("vfat") << int(s_fat12)
                                  << expected("fat12", supported);
    QTest::newRow("512 is fat16") << QByteArray("vfat") << QByteArray("vfat") << int(s_fat16)
                                  << expected("fat16", supported);
    QTest::newRow("0 is fat32") << QByteArray("vfat") << QByteArray("vfat") << int(s_fat32)
                                << expected("fat32", supported);
    QTest::newRow("1024 is no type, and not supported")
        << QByteArray("vfat") << QByteArray("vfat") << 1024 << expected("", unsupported);
    QTest::newRow("a drive that cannot be read has no type")
        << QByteArray("vfat") << QByteArray("vfat") << -1 << expected("", unsupported);
    QTest::newRow("udev's word counts for FAT, whatever the table says")
        << QByteArray("vfat") << QByteArray("msdos") << int(s_fat16)
        << expected("fat16", supported);
    QTest::newRow("without udev's word vfat stays")
        << QByteArray() << QByteArray("vfat") << int(s_fat16) << expected("vfat", supported);
    QTest::newRow("another word of udev's changes nothing")
        << QByteArray("exfat") << QByteArray("vfat") << int(s_fat16) << expected("vfat", supported);
    QTest::newRow("a word behind it in the alphabet changes nothing either")
        << QByteArray("xfs") << QByteArray("vfat") << int(s_fat16) << expected("vfat", supported);
    QTest::newRow("udev's word is compared exactly")
        << QByteArray("VFAT") << QByteArray("vfat") << int(s_fat16) << expected("vfat", supported);
    QTest::newRow("ntfs") << QByteArray("ntfs") << QByteArray("ntfs") << int(s_fat32)
                          << expected("ntfs", supported);
    QTest::newRow("exfat") << QByteArray("exfat") << QByteArray("exfat") << int(s_fat32)
                           << expected("exfat", supported);
    QTest::newRow("fat12 in the table")
        << QByteArray() << QByteArray("fat12") << -1 << expected("fat12", supported);
    QTest::newRow("fat16 in the table")
        << QByteArray() << QByteArray("fat16") << -1 << expected("fat16", supported);
    QTest::newRow("fat32 in the table")
        << QByteArray() << QByteArray("fat32") << -1 << expected("fat32", supported);
    QTest::newRow("ext4") << QByteArray("ext4") << QByteArray("ext4") << -1
                          << expected("ext4", unsupported);
    QTest::newRow("msdos") << QByteArray() << QByteArray("msdos") << -1
                           << expected("msdos", unsupported);
    QTest::newRow("ntfs3") << QByteArray("ntfs") << QByteArray("ntfs3") << -1
                           << expected("ntfs3", unsupported);
    QTest::newRow("fuseblk") << QByteArray("ntfs") << QByteArray("fuseblk") << -1
                             << expected("fuseblk", unsupported);
    QTest::newRow("upper case") << QByteArray() << QByteArray("NTFS") << -1
                                << expected("NTFS", unsupported);
}

void tst_MountedPartitions::typesAreLookedUp()
{
    QFETCH(QByteArray, udevType);
    QFETCH(QByteArray, tableType);
    QFETCH(int, sectorsPerFat);
    m_bed->addStick("sda", {{"sda1", udevType}});
    if (sectorsPerFat >= 0) {
        makePartition(QStringLiteral("/dev/sda1"), quint16(sectorsPerFat));
    }
    PrivateMounts::setMountTable(mounted("/dev/sda1", s_mountPoint, tableType));
    QTEST(described(MountedUSBDeviceList::getUSBMountInfo().value(0)->mountInfo()), "expected");
    // it stays listed, whatever it is
    QTEST(described(MountedUSBDeviceList::getUSBMountPaths()), "expected");
}

void tst_MountedPartitions::aPartitionUnknownToUdevKeepsItsType()
{
    m_bed->addStick("sda", {{"sda2", "vfat"}});
    makePartition(QStringLiteral("/dev/sda1"), s_fat32);
    makePartition(QStringLiteral("/dev/sda2"), s_fat32);
    PrivateMounts::setMountTable(mounted("/dev/sda1", s_mountPoint) + mounted("/dev/sda2", "/mnt"));
    QCOMPARE(described(MountedUSBDeviceList::getUSBMountInfo().value(0)->mountInfo()),
             QStringLiteral("/dev/sda1 on /media/usbdrive is <vfat>, "
                            "/dev/sda2 on /mnt is <fat32>, supported"));
}

void tst_MountedPartitions::aDeviceNameWithoutPathIsNoPartition()
{
    m_bed->addStick("sda", {{"sda1", "vfat"}});
    makePartition(QStringLiteral("/dev/sda1"), s_fat32);
    PrivateMounts::setMountTable(
        mounted("sda1", s_mountPoint) + mounted("/mnt/dev/sda1", s_mountPoint)
        + mounted("/dev/../dev/sda1", "/mnt") + mounted("/dev/sda1", s_mountPoint));
    const mountPathsStruct info = MountedUSBDeviceList::getUSBMountInfo().value(0)->mountInfo();
    QCOMPARE(info.items.last().device.filePath(), QStringLiteral("/dev/sda1"));
    QCOMPARE(info.items.last().fileSystemType, QStringLiteral("fat32"));
    for (const mountItem &item : info.items) {
        QCOMPARE(item.device.absoluteFilePath(), QStringLiteral("/dev/sda1"));
    }
}

void tst_MountedPartitions::blanksInAMountPointAreUnescaped()
{
    const QString folder = QString::fromUtf8("/media/usbdrive/a b\tc\\d é");
    QVERIFY(QDir().mkpath(folder));
    m_bed->addStick("sda", {{"sda1", "exfat"}});
    PrivateMounts::setMountTable(
        mounted("/dev/sda1", "/media/usbdrive/a\\040b\\011c\\134d\\040\xc3\xa9", "exfat"));
    const QVariantList root = MountedUSBDeviceList::getUSBMountPathRoot();
    QCOMPARE(root, (QVariantList{folder, true}));
}

void tst_MountedPartitions::withoutATableDevicesHaveNothingMounted()
{
    m_bed->addStick("sda", {{"sda1", "vfat"}});
    PrivateMounts::removeMountTable();
    const Devices devices = MountedUSBDeviceList::getUSBMountInfo();
    QCOMPARE(devices.size(), 1);
    QCOMPARE(described(devices.first()->mountInfo()), QStringLiteral("supported"));
    // an unreadable table counts as not mounted
    QCOMPARE(m_commands->journal(), QStringList(QStringLiteral("mount /dev/sda1")));
}

void tst_MountedPartitions::aDriveThatIsMountedIsLeftAlone()
{
    m_bed->addStick("sda", {{"sda1", "exfat"}});
    PrivateMounts::setMountTable(mounted("/dev/sda1", s_mountPoint, "exfat"));
    QCOMPARE(MountedUSBDeviceList::getUSBMountInfo().size(), 1);
    QCOMPARE(MountedUSBDeviceList::getUSBMountPaths().items.size(), 1);
    QCOMPARE(MountedUSBDeviceList::getUSBMountPathRoot().size(), 2);
    QCOMPARE(m_commands->journal(), QStringList());
}

void tst_MountedPartitions::aDriveThatIsNotMountedIsMountedForTheLook()
{
    m_bed->addStick("sda", {{"sda1", "exfat"}});
    m_commands->mountingSets(mounted("/dev/sda1", s_mountPoint, "exfat"));
    QCOMPARE(described(MountedUSBDeviceList::getUSBMountPaths()),
             QStringLiteral("/dev/sda1 on /media/usbdrive is <exfat>, supported"));
    QCOMPARE(m_commands->takeJournal(),
             (QStringList{QStringLiteral("mount /dev/sda1"), QStringLiteral("umount /dev/sda1")}));
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
}

void tst_MountedPartitions::aDriveThatCannotBeMountedIsNotUnmounted()
{
    m_bed->addStick("sda", {{"sda1", "exfat"}});
    PrivateMounts::setMountTable(mounted("/dev/sda1", "/mnt", "exfat"));
    m_commands->add(QStringLiteral("mount"), "exit 32");
    QCOMPARE(described(MountedUSBDeviceList::getUSBMountInfo().value(0)->mountInfo()),
             QStringLiteral("/dev/sda1 on /mnt is <exfat>, supported"));
    QCOMPARE(m_commands->journal(), QStringList(QStringLiteral("mount /dev/sda1")));
}

void tst_MountedPartitions::aBusyDriveHoldsTheLookUp()
{
    m_bed->addStick("sda", {{"sda1", "exfat"}});
    m_commands->mountingSets(mounted("/dev/sda1", s_mountPoint, "exfat"));
    m_commands->failUmount(2, "exit 32");
    QCOMPARE(MountedUSBDeviceList::getUSBMountInfo().size(), 1);
    QCOMPARE(m_commands->journal(),
             (QStringList{QStringLiteral("mount /dev/sda1"), QStringLiteral("umount /dev/sda1"),
                          QStringLiteral("usleep 500"), QStringLiteral("umount /dev/sda1"),
                          QStringLiteral("usleep 500"), QStringLiteral("umount /dev/sda1")}));
}

void tst_MountedPartitions::pathsAreThoseThatCanBeWrittenTo()
{
    m_bed->addStick("sda", {{"sda1", "exfat"}});
    const QDir drive(QString::fromLatin1(s_mountPoint));
    QVERIFY(drive.mkdir(QStringLiteral("writable")));
    QVERIFY(drive.mkdir(QStringLiteral("readonly")));
    makeFile(drive.filePath(QStringLiteral("file")));
    // root may write wherever the file system lets it
    const QByteArray readOnly = s_mountPoint + "/readonly";
    QCOMPARE(::mount("tmpfs", readOnly.constData(), "tmpfs", MS_RDONLY, nullptr), 0);
    const auto unmount = qScopeGuard([&] { ::umount2(readOnly.constData(), MNT_DETACH); });
    PrivateMounts::setMountTable(mounted("/dev/sda1", s_mountPoint + "/missing", "exfat")
                                 + mounted("/dev/sda1", s_mountPoint + "/file", "exfat")
                                 + mounted("/dev/sda1", readOnly, "exfat")
                                 + mounted("/dev/sda1", s_mountPoint + "/writable", "exfat"));
    QCOMPARE(described(MountedUSBDeviceList::getUSBMountPaths()),
             QStringLiteral("/dev/sda1 on /media/usbdrive/writable is <exfat>, supported"));
    QCOMPARE(MountedUSBDeviceList::getUSBMountInfo().value(0)->mountInfo().items.size(), 4);
}

void tst_MountedPartitions::pathsAreSupportedWhenAllDevicesAre_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("expected");

    const QByteArray good = mounted("/dev/sda1", s_mountPoint, "ntfs");
    const QString item = QStringLiteral("/dev/sda1 on /media/usbdrive is <ntfs>, ");
    QTest::newRow("one good") << good << item + QStringLiteral("supported");
    QTest::newRow("a bad one on the same device")
        << good + mounted("/dev/sda2", "/mnt/nowhere", "ext4")
        << item + QStringLiteral("not supported");
    QTest::newRow("a bad one before it on the same device")
        << mounted("/dev/sda2", "/mnt/nowhere", "ext4") + good
        << item + QStringLiteral("not supported");
    QTest::newRow("a bad one on the next device, which cannot be written to")
        << good + mounted("/dev/sdb1", "/mnt/nowhere", "ext4")
        << item + QStringLiteral("not supported");
    QTest::newRow("only a bad one that cannot be written to")
        << mounted("/dev/sdb1", "/mnt/nowhere", "ext4") << QStringLiteral("not supported");
    QTest::newRow("a good one that cannot be written to")
        << good + mounted("/dev/sdb1", "/mnt/nowhere", "exfat")
        << item + QStringLiteral("supported");
    QTest::newRow("none") << QByteArray() << QStringLiteral("supported");
    QTest::newRow("a bad one that is no USB device's")
        << good + mounted("/dev/sdc1", "/mnt", "ext4") << item + QStringLiteral("supported");
}

void tst_MountedPartitions::pathsAreSupportedWhenAllDevicesAre()
{
    QFETCH(QByteArray, table);
    m_bed->addStick("sda", {{"sda1", "ntfs"}});
    m_bed->addStick("sdb", {{"sdb1", "ext4"}});
    PrivateMounts::setMountTable(table);
    QTEST(described(MountedUSBDeviceList::getUSBMountPaths()), "expected");
}

void tst_MountedPartitions::pathsOfSeveralDevicesStandInDeviceOrder()
{
    m_bed->addStick("sda", {{"sda1", "exfat"}, {"sda2", "exfat"}});
    m_bed->addStick("sdb", {{"sdb1", "exfat"}});
    QStringList folders;
    QByteArray table;
    for (const char *name : {"sdb1", "sda2", "sda1"}) {
        QVERIFY(QDir().mkpath(QStringLiteral("/media/usbdrive/") + QLatin1String(name)));
        table += mounted(QByteArray("/dev/") + name, s_mountPoint + '/' + name, "exfat");
    }
    PrivateMounts::setMountTable(table);
    const auto items = MountedUSBDeviceList::getUSBMountPaths().items;
    for (const mountItem &item : items) {
        folders.append(item.mountPoint.fileName());
    }
    QCOMPARE(folders,
             (QStringList{QStringLiteral("sda2"), QStringLiteral("sda1"), QStringLiteral("sdb1")}));
}

void tst_MountedPartitions::rootOfNothingIsEmpty()
{
    const QVariantList nothing{QString(), false};
    QCOMPARE(MountedUSBDeviceList::getUSBMountPathRoot(), nothing);
    // the flag is false even where that of the paths is true
    m_bed->addStick("sda", {{"sda1", "exfat"}});
    PrivateMounts::setMountTable(mounted("/dev/sda1", "/media/usbdrive/none", "exfat"));
    QVERIFY(MountedUSBDeviceList::getUSBMountPaths().supported);
    const QVariantList root = MountedUSBDeviceList::getUSBMountPathRoot();
    QCOMPARE(root, nothing);
    QCOMPARE(root.at(0).userType(), int(QMetaType::QString));
    QCOMPARE(root.at(1).userType(), int(QMetaType::Bool));
}

void tst_MountedPartitions::rootOfOnePartitionIsItsMountPoint_data()
{
    QTest::addColumn<QByteArray>("mountPoint");
    QTest::addColumn<QByteArray>("type");

    QTest::newRow("the drive") << s_mountPoint << QByteArray("exfat");
    QTest::newRow("below the drive's") << s_mountPoint + "/a" << QByteArray("exfat");
    QTest::newRow("directly under the root") << QByteArray("/media") << QByteArray("exfat");
    QTest::newRow("not supported") << s_mountPoint << QByteArray("ext4");
}

void tst_MountedPartitions::rootOfOnePartitionIsItsMountPoint()
{
    QFETCH(QByteArray, mountPoint);
    QFETCH(QByteArray, type);
    QVERIFY(QDir().mkpath(QString::fromLatin1(mountPoint)));
    m_bed->addStick("sda", {{"sda1", type}});
    PrivateMounts::setMountTable(mounted("/dev/sda1", mountPoint, type));
    QCOMPARE(MountedUSBDeviceList::getUSBMountPathRoot(),
             (QVariantList{QString::fromLatin1(mountPoint), type == "exfat"}));
}

void tst_MountedPartitions::rootOfSeveralPartitionsIsTheFolderAbove_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<QByteArray>("secondType");
    QTest::addColumn<QString>("root");

    QTest::newRow("both in one folder") << s_mountPoint + "/a" << s_mountPoint + "/b"
                                        << QByteArray("ntfs") << QStringLiteral("/media/usbdrive");
    QTest::newRow("the first one's folder counts")
        << s_mountPoint + "/a/b" << s_mountPoint << QByteArray("ntfs")
        << QStringLiteral("/media/usbdrive/a");
    QTest::newRow("the first one directly under the root")
        << QByteArray("/media") << s_mountPoint + "/b" << QByteArray("ntfs")
        << QStringLiteral("/media");
    // a partition that nobody can write to is left out
    QTest::newRow("the first one is the root")
        << QByteArray("/") << s_mountPoint + "/b" << QByteArray("ntfs")
        << (QFileInfo(QStringLiteral("/")).isWritable() ? QStringLiteral("/")
                                                        : QString::fromLatin1(s_mountPoint + "/b"));
    QTest::newRow("not supported") << s_mountPoint + "/a" << s_mountPoint + "/b"
                                   << QByteArray("ext4") << QStringLiteral("/media/usbdrive");
}

void tst_MountedPartitions::rootOfSeveralPartitionsIsTheFolderAbove()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(QByteArray, secondType);
    QFETCH(QString, root);
    QVERIFY(QDir().mkpath(QString::fromLatin1(first)));
    QVERIFY(QDir().mkpath(QString::fromLatin1(second)));
    m_bed->addStick("sda", {{"sda1", "ntfs"}, {"sda2", secondType}});
    PrivateMounts::setMountTable(mounted("/dev/sda1", first, "ntfs")
                                 + mounted("/dev/sda2", second, secondType));
    QCOMPARE(MountedUSBDeviceList::getUSBMountPathRoot(),
             (QVariantList{root, secondType == "ntfs"}));
}

USB_TEST_MAIN(tst_MountedPartitions)
#include "tst_MountedPartitions.moc"
