// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/MountedUSBDeviceList.h"
#include "shared/usb/USBDriveCleanAccessManager.h"
#include "tests/support/FileTree.h"
#include "tests/support/LoopDevice.h"
#include "tests/support/UdevTestBed.h"
#include "tests/usb/UsbTest.h"

#include <QDir>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>
#include <set>

#include <unistd.h>

using namespace Test;
using Tavro::Shared::MountedUSBDeviceList;
using Tavro::Shared::mountPathsStruct;
using Tavro::Shared::USBDriveCleanAccessManager;

namespace {

const QString s_partition = QStringLiteral("/dev/sda1");
const QString s_drive = QStringLiteral("/media/usbdrive");
const QByteArray s_mountPoint = QByteArrayLiteral("/media/usbdrive");

constexpr qint64 s_mebibyte = 1024LL * 1024;

/** Runs a tool to its end; its exit code, and what it said. */
int run(const QString &program, const QStringList &arguments, QByteArray *output = nullptr)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(60'000)) {
        return -1;
    }
    const QByteArray text = process.readAll();
    if (output) {
        *output = text;
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

using Blocks = QMap<qint64, QByteArray>; // by offset

constexpr int s_blockSize = 4096;

/** The blocks of an image that hold anything but zeros; most of an image are holes. */
Blocks blocksOf(const QString &path)
{
    const QByteArray empty(s_blockSize, '\0');
    QFile image(path);
    if (!image.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(path));
    }
    Blocks blocks;
    qint64 begin = 0;
    while ((begin = ::lseek64(image.handle(), begin, SEEK_DATA)) >= 0) {
        const qint64 end = ::lseek64(image.handle(), begin, SEEK_HOLE);
        for (image.seek(begin); begin < end; begin += s_blockSize) {
            const QByteArray block = image.read(s_blockSize);
            if (block != empty) {
                blocks.insert(begin, block);
            }
        }
        begin = end;
    }
    return blocks;
}

/** Offsets at which two images of the same size differ. */
QList<int> differences(const Blocks &a, const Blocks &b)
{
    QList<int> offsets;
    std::set<qint64> begins(a.keyBegin(), a.keyEnd());
    begins.insert(b.keyBegin(), b.keyEnd());
    for (const qint64 begin : begins) {
        const QByteArray left = a.value(begin).leftJustified(s_blockSize, '\0');
        const QByteArray right = b.value(begin).leftJustified(s_blockSize, '\0');
        for (int i = 0; i < left.size(); ++i) {
            if (left.at(i) != right.at(i)) {
                offsets.append(int(begin) + i);
            }
        }
    }
    return offsets;
}

} // namespace

/** Volumes made by the tools that make them everywhere, on loop devices. */
class tst_RealVolumes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void fatIsMarkedAndCleaned_data();
    void fatIsMarkedAndCleaned();
    void fatOfOtherSizesHasNoType_data();
    void fatOfOtherSizesHasNoType();
    void exfatStaysAsItIs();
    void anotherVolumeIsLeftAlone_data();
    void anotherVolumeIsLeftAlone();
    void aVolumePluggedInAgainIsMarkedAndCleaned_data();
    void aVolumePluggedInAgainIsMarkedAndCleaned();
    void aSwapDuringTheLookIsNoticed_data();
    void aSwapDuringTheLookIsNoticed();
    void aDriveIsMountedAndUnmountedForReal();

private:
    bool makeVolume(qint64 size, const QString &program, const QStringList &options)
    {
        return makeVolume(m_image, size, program, options);
    }
    static bool makeVolume(const QString &path, qint64 size, const QString &program,
                           const QStringList &options);
    static bool makeVolume(const QString &path, const QString &words);
    void plug(const QByteArray &udevType);
    void unplug();
    void attach(const QByteArray &udevType, const QByteArray &tableType);
    static int checked(QByteArray *verdict = nullptr);

    QMap<QString, QString> m_systemCommands;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_image;
    std::unique_ptr<LoopDevice> m_loop;
    std::unique_ptr<UsbCommands> m_commands;
    std::unique_ptr<UdevTestBed> m_bed;
};

void tst_RealVolumes::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
    // the tools that make file systems are not on every user's PATH
    qputenv("PATH", qgetenv("PATH") + ":/usr/sbin:/sbin");
    for (const char *name : {"mount", "umount"}) {
        const QString command = QLatin1String(name);
        m_systemCommands.insert(command, QStandardPaths::findExecutable(command));
    }
}

void tst_RealVolumes::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_image = m_folder->filePath(QStringLiteral("image"));
    PrivateMounts::setMountTable({});
    QVERIFY(QDir().mkpath(s_drive));
}

void tst_RealVolumes::cleanup()
{
    m_bed.reset();
    m_commands.reset();
    QVERIFY(QDir().rmdir(s_drive));
    QFile::remove(s_partition);
    m_loop.reset();
    m_folder.reset();
}

bool tst_RealVolumes::makeVolume(const QString &path, qint64 size, const QString &program,
                                 const QStringList &options)
{
    QFile image(path);
    return image.open(QIODevice::WriteOnly) && image.resize(size)
        && run(program, options + QStringList(path)) == 0;
}

// "40 mkfs.fat -F 32": size in MiB and command
bool tst_RealVolumes::makeVolume(const QString &path, const QString &words)
{
    QStringList options = words.split(QLatin1Char(' '));
    const qint64 size = options.takeFirst().toLongLong() * s_mebibyte;
    const QString program = options.takeFirst();
    return makeVolume(path, size, program, options);
}

// as /dev/sda1; the loop device comes before the test bed, which would answer for it
void tst_RealVolumes::plug(const QByteArray &udevType)
{
    m_loop = std::make_unique<LoopDevice>(m_image);
    PrivateMounts::makeBlockNode(s_partition, m_loop->number());
    m_bed = std::make_unique<UdevTestBed>();
    m_bed->addStick("sda", {{"sda1", udevType}});
}

void tst_RealVolumes::unplug()
{
    m_bed.reset();
    QFile::remove(s_partition);
    m_loop.reset();
}

void tst_RealVolumes::attach(const QByteArray &udevType, const QByteArray &tableType)
{
    plug(udevType);
    m_commands = std::make_unique<UsbCommands>();
    m_commands->mountingSets(mounted("/dev/sda1", s_mountPoint, tableType));
}

// 0 for clean, 1 for dirty, by the tool that every system has
int tst_RealVolumes::checked(QByteArray *verdict)
{
    return run(QStringLiteral("fsck.fat"), {QStringLiteral("-n"), s_partition}, verdict);
}

void tst_RealVolumes::fatIsMarkedAndCleaned_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QString>("fatBits");
    QTest::addColumn<QString>("type"); // by the number of sectors per FAT
    QTest::addColumn<int>("offset");

    QTest::newRow("FAT32") << 40 * s_mebibyte << QStringLiteral("32") << QStringLiteral("fat32")
                           << 65;
    QTest::newRow("FAT16 with 256 sectors per FAT, which is called fat12")
        << qint64(66000) * 512 << QStringLiteral("16") << QStringLiteral("fat12") << 37;
}

void tst_RealVolumes::fatIsMarkedAndCleaned()
{
    QFETCH(qint64, size);
    QFETCH(QString, fatBits);
    QFETCH(QString, type);
    QFETCH(int, offset);
    QVERIFY(makeVolume(size, QStringLiteral("mkfs.fat"),
                       {QStringLiteral("-F"), fatBits, QStringLiteral("-s"), QStringLiteral("1")}));
    attach("vfat", "vfat");
    QCOMPARE(MountedUSBDeviceList::getFatSubtype(s_partition), type);
    const Blocks clean = blocksOf(m_image);
    QCOMPARE(checked(), 0);

    USBDriveCleanAccessManager manager;
    QVERIFY(manager.lock(s_drive));
    const Blocks locked = blocksOf(m_image);
    QCOMPARE(differences(clean, locked), QList<int>{offset});
    QCOMPARE(locked.value(0).at(offset), '\1');
    QByteArray verdict;
    QCOMPARE(checked(&verdict), 1);
    QVERIFY2(verdict.contains("Dirty bit is set"), verdict.constData());

    QVERIFY(manager.unlock());
    QVERIFY(blocksOf(m_image) == clean);
    QCOMPARE(QFileInfo(m_image).size(), size);
    QCOMPARE(checked(&verdict), 0);
    QVERIFY2(!verdict.contains("Dirty"), verdict.constData());
}

void tst_RealVolumes::fatOfOtherSizesHasNoType_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QString>("fatBits");

    QTest::newRow("FAT12") << 2 * s_mebibyte << QStringLiteral("12");
    QTest::newRow("FAT16 with 64 sectors per FAT") << 32 * s_mebibyte << QStringLiteral("16");
}

void tst_RealVolumes::fatOfOtherSizesHasNoType()
{
    QFETCH(qint64, size);
    QFETCH(QString, fatBits);
    QVERIFY(makeVolume(size, QStringLiteral("mkfs.fat"), {QStringLiteral("-F"), fatBits}));
    attach("vfat", "vfat");
    const Blocks before = blocksOf(m_image);
    QCOMPARE(MountedUSBDeviceList::getFatSubtype(s_partition), QString());
    USBDriveCleanAccessManager manager;
    QVERIFY(!manager.lock(s_drive));
    QVERIFY(!manager.unlock());
    QVERIFY(blocksOf(m_image) == before);

    // the place of the byte is right all the same for who knows the type
    const QString type = QStringLiteral("fat") + fatBits;
    QVERIFY(USBDriveCleanAccessManager::setDirtyFlag(s_partition, type));
    QCOMPARE(differences(before, blocksOf(m_image)), QList<int>{37});
    QCOMPARE(checked(), 1);
    QVERIFY(USBDriveCleanAccessManager::clearDirtyFlag(s_partition, type));
    QCOMPARE(checked(), 0);
    QVERIFY(blocksOf(m_image) == before);
}

void tst_RealVolumes::exfatStaysAsItIs()
{
    QVERIFY(makeVolume(8 * s_mebibyte, QStringLiteral("mkfs.exfat"), {}));
    attach("exfat", "exfat");
    const Blocks before = blocksOf(m_image);
    // its boot sector has a 0 there: only who knows that a volume is FAT may ask
    QCOMPARE(MountedUSBDeviceList::getFatSubtype(s_partition), QStringLiteral("fat32"));
    const mountPathsStruct paths = MountedUSBDeviceList::getUSBMountPaths();
    QCOMPARE(paths.items.value(0).fileSystemType, QStringLiteral("exfat"));
    QVERIFY(paths.supported);

    USBDriveCleanAccessManager manager;
    QVERIFY(!manager.lock(s_drive));
    QVERIFY(!PrivateMounts::mountTable().isEmpty()); // mounted all the same
    QVERIFY(!manager.unlock());
    QVERIFY(PrivateMounts::mountTable().isEmpty());
    QVERIFY(blocksOf(m_image) == before);
    QCOMPARE(run(QStringLiteral("fsck.exfat"), {QStringLiteral("-n"), s_partition}), 0);
}

void tst_RealVolumes::anotherVolumeIsLeftAlone_data()
{
    QTest::addColumn<QString>("volume"); // size in MiB, and how it is made
    QTest::addColumn<QString>("other");

    const QString fat16 = QStringLiteral("128 mkfs.fat -F 16 -s 4 -i 1111aaaa");
    const QString fat32 = QStringLiteral("40 mkfs.fat -F 32 -s 1 -i 1111aaaa");
    QTest::newRow("FAT16, then FAT32 with its sectors per FAT at byte 37")
        << fat16 << QStringLiteral("130 mkfs.fat -F 32 -s 2 -i 1111aaaa");
    QTest::newRow("FAT32, then exFAT") << fat32 << QStringLiteral("40 mkfs.exfat");
    QTest::newRow("FAT32, then what is no FAT at all")
        << fat32 << QStringLiteral("40 mkfs.ext4 -q");
    QTest::newRow("FAT32, then FAT16") << fat32 << fat16;
    QTest::newRow("another serial number")
        << fat32 << QStringLiteral("40 mkfs.fat -F 32 -s 1 -i 1111aaab");
    QTest::newRow("another serial number of FAT16")
        << fat16 << QStringLiteral("128 mkfs.fat -F 16 -s 4 -i 1011aaaa");
    QTest::newRow("another size") << fat32 << QStringLiteral("41 mkfs.fat -F 32 -s 1 -i 1111aaaa");
}

void tst_RealVolumes::anotherVolumeIsLeftAlone()
{
    QFETCH(QString, volume);
    QFETCH(QString, other);
    const QString otherImage = m_folder->filePath(QStringLiteral("other"));
    QVERIFY(makeVolume(m_image, volume));
    QVERIFY(makeVolume(otherImage, other));
    const auto otherLoop = std::make_unique<LoopDevice>(otherImage);
    attach("vfat", "vfat");
    const QString type = MountedUSBDeviceList::getFatSubtype(s_partition);

    USBDriveCleanAccessManager manager;
    QVERIFY(manager.lock(s_drive));
    QVERIFY(manager.unlock());
    const Blocks clean = blocksOf(m_image);

    PrivateMounts::makeBlockNode(s_partition, otherLoop->number());
    for (const int value : {0, 1}) {
        // neither is taken for what is to be written anyway
        const qint64 offset = Tavro::Shared::getDirtyByteOffset(type);
        QVERIFY(USBDriveCleanAccessManager::writeByteIntoDev(s_partition, offset, char(value)));
        const Blocks before = blocksOf(otherImage);
        QCOMPARE(manager.unlock(), false);
        QVERIFY(blocksOf(otherImage) == before);
        QCOMPARE(manager.lock(QStringLiteral("/somewhere/else")), false);
        QVERIFY(blocksOf(otherImage) == before);
        QVERIFY(MountedUSBDeviceList::isUSBMounted()); // mounted all the same
        QCOMPARE(manager.unlock(), false);
        QVERIFY(!MountedUSBDeviceList::isUSBMounted());
        QVERIFY(blocksOf(otherImage) == before);
    }

    // back again: it is this one that was found
    PrivateMounts::makeBlockNode(s_partition, m_loop->number());
    QCOMPARE(manager.lock(QStringLiteral("/somewhere/else")), true);
    QVERIFY(blocksOf(m_image) != clean);
    QCOMPARE(manager.unlock(), true);
    QVERIFY(blocksOf(m_image) == clean);
}

void tst_RealVolumes::aVolumePluggedInAgainIsMarkedAndCleaned_data()
{
    QTest::addColumn<QString>("volume");

    QTest::newRow("FAT32") << QStringLiteral("40 mkfs.fat -F 32 -s 1");
    QTest::newRow("FAT16") << QStringLiteral("128 mkfs.fat -F 16 -s 4");
}

void tst_RealVolumes::aVolumePluggedInAgainIsMarkedAndCleaned()
{
    QFETCH(QString, volume);
    QVERIFY(makeVolume(m_image, volume));
    const Blocks clean = blocksOf(m_image);
    attach("vfat", "vfat");
    USBDriveCleanAccessManager manager;
    QVERIFY(manager.lock(s_drive));

    // pulled while it is locked, used elsewhere, plugged in again: another device, the same volume
    unplug();
    QCOMPARE(run(QStringLiteral("fatlabel"), {m_image, QStringLiteral("INSPECTION")}), 0);
    const Blocks used = blocksOf(m_image);
    QVERIFY(used != clean);
    plug("vfat");
    QCOMPARE(checked(), 1);
    QCOMPARE(manager.unlock(), true);
    QCOMPARE(checked(), 0);
    QCOMPARE(differences(used, blocksOf(m_image)).size(), 1);
    QCOMPARE(manager.lock(QStringLiteral("/somewhere/else")), true);
    QCOMPARE(checked(), 1);
    QVERIFY(blocksOf(m_image) == used);
    QCOMPARE(manager.unlock(), true);

    // formatted anew while it was locked: the mark is not there any more, nor is the volume
    QVERIFY(manager.lock(s_drive));
    unplug();
    QVERIFY(makeVolume(m_image, volume + QStringLiteral(" -i 0badcafe")));
    plug("vfat");
    const Blocks anew = blocksOf(m_image);
    QCOMPARE(manager.unlock(), false);
    QVERIFY(blocksOf(m_image) == anew);
    QVERIFY(manager.lock(s_drive)); // finds this one
    QCOMPARE(checked(), 1);
    QVERIFY(manager.unlock());
    QVERIFY(blocksOf(m_image) == anew);
}

// the look unmounts the drive that it has mounted, so it can be pulled before lock() mounts it
void tst_RealVolumes::aSwapDuringTheLookIsNoticed_data()
{
    QTest::addColumn<QString>("command"); // when it is swapped
    QTest::addColumn<QString>("volume");
    QTest::addColumn<QString>("other");

    const QString before = QStringLiteral("umount"); // the volume is remembered
    const QString after = QStringLiteral("mount");
    const QString fat16 = QStringLiteral("128 mkfs.fat -F 16 -s 4");
    const QString fat32 = QStringLiteral("130 mkfs.fat -F 32 -s 2");
    const QString exfat = QStringLiteral("40 mkfs.exfat");
    QTest::newRow("FAT16, then FAT32, before it is remembered") << before << fat16 << fat32;
    QTest::newRow("FAT32, then FAT16, before it is remembered") << before << fat32 << fat16;
    QTest::newRow("FAT32, then exFAT, before it is remembered") << before << fat32 << exfat;
    QTest::newRow("FAT16, then FAT32, after it") << after << fat16 << fat32;
    QTest::newRow("FAT32, then FAT16, after it") << after << fat32 << fat16;
    QTest::newRow("FAT32, then FAT32, after it") << after << fat32 << fat32;
}

void tst_RealVolumes::aSwapDuringTheLookIsNoticed()
{
    QFETCH(QString, command);
    QFETCH(QString, volume);
    QFETCH(QString, other);
    const QString otherImage = m_folder->filePath(QStringLiteral("other"));
    QVERIFY(makeVolume(m_image, volume));
    QVERIFY(makeVolume(otherImage, other));
    const LoopDevice otherLoop(otherImage);
    attach("vfat", "vfat");
    const Blocks before = blocksOf(otherImage);
    PrivateMounts::makeBlockNode(QStringLiteral("/dev/other"), otherLoop.number());
    const QByteArray swap = "if [ -e /dev/look ]; then mv -f /dev/other /dev/sda1; fi";
    const QByteArray table = mounted("/dev/sda1", s_mountPoint);
    m_commands->add(QStringLiteral("mount"),
                    (command == QLatin1String("mount") ? swap : QByteArray()) + "\nprintf '%s' '"
                        + table + "' > /etc/mtab; : > /dev/look");
    m_commands->add(QStringLiteral("umount"),
                    (command == QLatin1String("umount") ? swap : QByteArray()) + "\n: > /etc/mtab");
    USBDriveCleanAccessManager manager;
    QCOMPARE(manager.lock(s_drive), false);
    QVERIFY(!QFile::exists(QStringLiteral("/dev/other"))); // swapped it was
    QVERIFY(blocksOf(otherImage) == before);
    QCOMPARE(manager.unlock(), false);
    QVERIFY(blocksOf(otherImage) == before);
    QVERIFY(QFile::remove(QStringLiteral("/dev/look")));
}

// the system's own commands, fstab and mount table; only "usleep", which Debian lacks, is a fake
void tst_RealVolumes::aDriveIsMountedAndUnmountedForReal()
{
    QVERIFY(makeVolume(16 * s_mebibyte, QStringLiteral("mkfs.ext4"), {QStringLiteral("-q")}));
    attach("ext4", "ext4");
    FakeCommands commands;
    for (const char *name : {"mount", "umount"}) {
        commands.addProgram(QLatin1String(name), m_systemCommands.value(QLatin1String(name)));
    }
    commands.add(QStringLiteral("usleep"));
    PrivateMounts::useSystemMountTable();
    PrivateMounts::setFstab("/dev/sda1 /media/usbdrive ext4 noauto 0 0\n");

    const QVariantList root = MountedUSBDeviceList::getUSBMountPathRoot();
    QCOMPARE(root, (QVariantList{s_drive, false})); // ext4 is no supported type
    QVERIFY(!MountedUSBDeviceList::isUSBMounted());

    USBDriveCleanAccessManager manager;
    QVERIFY(!manager.lock(s_drive + QStringLiteral("/project"))); // nor has it a dirty byte
    QVERIFY(MountedUSBDeviceList::isUSBMounted());
    const mountPathsStruct paths = MountedUSBDeviceList::getUSBMountPaths();
    QCOMPARE(paths.items.size(), 1);
    QCOMPARE(paths.items.first().device.filePath(), s_partition);
    QCOMPARE(paths.items.first().fileSystemType, QStringLiteral("ext4"));
    makeFile(s_drive + QStringLiteral("/project/data"), "written");

    // a mounted partition can be written to raw; this byte means nothing to ext4
    QVERIFY(USBDriveCleanAccessManager::writeByteIntoDev(s_partition, 65, 1));
    QCOMPARE(USBDriveCleanAccessManager::readByteFromDev(s_partition, 65), '\1');
    QVERIFY(USBDriveCleanAccessManager::writeByteIntoDev(s_partition, 65, 0));

    // somebody works on the drive until the first attempt to unmount it has failed
    QProcess user;
    user.setWorkingDirectory(s_drive);
    user.start(QStringLiteral("/bin/cat"), {});
    QVERIFY(user.waitForStarted());
    commands.add(QStringLiteral("usleep"),
                 "kill -KILL " + QByteArray::number(user.processId()) + " 2>/dev/null");
    manager.unlock();
    QVERIFY(!MountedUSBDeviceList::isUSBMounted());
    QVERIFY(commands.journal().contains(QStringLiteral("usleep 500")));
    QVERIFY(user.waitForFinished());
    QVERIFY(!QFile::exists(s_drive + QStringLiteral("/project")));

    QVERIFY(!manager.lock(s_drive));
    QCOMPARE(contentOf(s_drive + QStringLiteral("/project/data")), QByteArray("written"));
    QVERIFY(!manager.unlock());
}

USB_TEST_MAIN(tst_RealVolumes)
#include "tst_RealVolumes.moc"
