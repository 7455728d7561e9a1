// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/MountedUSBDeviceList.h"
#include "shared/usb/USBDriveCleanAccessManager.h"
#include "tests/support/FileTree.h"
#include "tests/support/LoopDevice.h"
#include "tests/support/UdevTestBed.h"
#include "tests/usb/UsbTest.h"

#include <QDir>
#include <QMetaMethod>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <limits>
#include <memory>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

using namespace Test;
using Tavro::Shared::getDirtyByteOffset;
using Tavro::Shared::MountedUSBDeviceList;
using Tavro::Shared::mountItem;
using Tavro::Shared::USBDriveCleanAccessManager;

namespace {

using Manager = USBDriveCleanAccessManager;

constexpr int s_size = 256 * 1024;
constexpr char s_untouched = 0x55;

const QString s_partition = QStringLiteral("/dev/sda1");
const QByteArray s_mountPoint = QByteArrayLiteral("/media/usbdrive");
const QString s_drive = QString::fromLatin1(s_mountPoint);

const QString s_mount = QStringLiteral("mount /dev/sda1");
const QString s_umount = QStringLiteral("umount /dev/sda1");

/** The number at byte 22 by which the type is told. */
int sectorsPerFat(const QByteArray &type)
{
    return type == "fat12" ? 256 : type == "fat16" ? 512 : type == "fat32" ? 0 : 1024;
}

} // namespace

/** lock() and unlock(), with a partition that is a real block device, and raw bytes on it. */
class tst_USBDriveCleanAccessManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void metaObjectStandsInOrder();
    void qmlLocksAndUnlocks();

    void dirtyByteHasItsPlace_data();
    void dirtyByteHasItsPlace();

    void oneByteIsWritten_data();
    void oneByteIsWritten();
    void everythingIsSyncedOnceTheDeviceIsClosed();
    void aNegativeOffsetWritesAndReadsNothing_data();
    void aNegativeOffsetWritesAndReadsNothing();
    void beyond4GiBThereIsTheRightByte();
    void aRegularFileIsEmptied();
    void aFileIsCreatedElsewhere();
    void aPulledDriveGetsNoFileInItsPlace_data();
    void aPulledDriveGetsNoFileInItsPlace();
    void whatCannotBeOpenedIsNotWritten();
    void aReadOnlyDriveTakesNoByte();
    void aFullDeviceTakesNoByte();
    void aDeviceWithoutCacheTakesTheByte();
    void whatCannotBeReadIsZero();
    void flagsAreOneAndZero_data();
    void flagsAreOneAndZero();

    void lockSetsTheDirtyByte_data();
    void lockSetsTheDirtyByte();
    void unlockClearsTheDirtyByte_data();
    void unlockClearsTheDirtyByte();
    void otherTypesMountAndAreNotMarked_data();
    void otherTypesMountAndAreNotMarked();
    void lockBeginsWithALookAndEndsMounted();
    void lockAsksTwiceAndThenMountsNothing();
    void aDriveFoundTheSecondTimeIsLocked();
    void thePartitionIsTheFirstWhosePathFits_data();
    void thePartitionIsTheFirstWhosePathFits();
    void theRootOfTwoPartitionsIsOnNeither();
    void aPathElsewhereKeepsTheLastPartition();
    void aPathElsewhereAtFirstMountsAndIsFalse();
    void aFailedMountStillMarks();
    void aLockWithoutDriveKeepsTheLastPartition();
    void unlockWithoutLockUnmounts();
    void unlockWithoutMountStillClears();
    void unlockWaitsForABusyDrive();
    void locksAreNotCounted();
    void unlockTwiceActsTwice();
    void aDrivePulledWhileLockedCannotBeCleared();
    void whatTakesTheNodesPlaceIsLeftAlone_data();
    void whatTakesTheNodesPlaceIsLeftAlone();
    void whatChangesInUseDoesNotMatter_data();
    void whatChangesInUseDoesNotMatter();
    void aTypeWithoutDirtyByteForgetsTheVolumeBefore();
    void anExfatThatIsCalledFatIsLeftAlone();
    void aDriveWithoutSignatureIsMarked();

private:
    char byteAt(qint64 offset) const { return contentOf(m_image).at(int(offset)); }
    void setByte(qint64 offset, char value);
    void plug(const QByteArray &type);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_image;
    std::unique_ptr<LoopDevice> m_loop;
    std::unique_ptr<UsbCommands> m_commands;
    std::unique_ptr<UdevTestBed> m_bed;
};

void tst_USBDriveCleanAccessManager::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
}

void tst_USBDriveCleanAccessManager::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_image = m_folder->filePath(QStringLiteral("partition"));
    makeFile(m_image, QByteArray(s_size, s_untouched));
    m_loop = std::make_unique<LoopDevice>(m_image);
    PrivateMounts::makeBlockNode(s_partition, m_loop->number());
    PrivateMounts::setMountTable({});
    QVERIFY(QDir().mkpath(s_drive));
    m_commands = std::make_unique<UsbCommands>();
    m_bed = std::make_unique<UdevTestBed>();
}

void tst_USBDriveCleanAccessManager::cleanup()
{
    m_bed.reset();
    m_commands.reset();
    QVERIFY(QDir(s_drive).removeRecursively());
    QFile::remove(s_partition);
    m_loop.reset();
    m_folder.reset();
}

// past the library, and past the device's cache
void tst_USBDriveCleanAccessManager::setByte(qint64 offset, char value)
{
    QFile device(s_partition);
    QVERIFY(device.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    QVERIFY(device.seek(offset));
    QCOMPARE(device.write(&value, 1), 1);
    QCOMPARE(::fsync(device.handle()), 0);
}

// a stick with one partition; a type that the FAT table does not know gets no type
void tst_USBDriveCleanAccessManager::plug(const QByteArray &type)
{
    const bool fat = type.startsWith("fat") || type == "none";
    m_bed->addStick("sda", {{"sda1", fat ? QByteArray("vfat") : QByteArray()}});
    if (fat) {
        setByte(22, char(sectorsPerFat(type) & 0xff));
        setByte(23, char(sectorsPerFat(type) >> 8));
    }
    m_commands->mountingSets(mounted("/dev/sda1", s_mountPoint, fat ? QByteArray("vfat") : type));
}

void tst_USBDriveCleanAccessManager::metaObjectStandsInOrder()
{
    const QMetaObject &meta = Manager::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::USBDriveCleanAccessManager");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod lock = meta.method(meta.methodOffset());
    QCOMPARE(lock.methodSignature(), QByteArray("lock(QString)"));
    QCOMPARE(lock.parameterNames(), QList<QByteArray>{"mountPath"});
    QCOMPARE(lock.returnType(), int(QMetaType::Bool));
    const QMetaMethod unlock = meta.method(meta.methodOffset() + 1);
    QCOMPARE(unlock.methodSignature(), QByteArray("unlock()"));
    QCOMPARE(unlock.returnType(), int(QMetaType::Bool));
    for (const QMetaMethod &method : {lock, unlock}) {
        QCOMPARE(method.methodType(), QMetaMethod::Method);
        QCOMPARE(method.access(), QMetaMethod::Public);
    }
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 0);
}

void tst_USBDriveCleanAccessManager::qmlLocksAndUnlocks()
{
    plug("fat32");
    Manager manager;
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("manager"), &manager);
    const auto evaluate = [&](const QString &code) {
        QQmlExpression expression(engine.rootContext(), nullptr, code);
        return expression.evaluate();
    };
    QCOMPARE(evaluate(QStringLiteral("manager.lock('/media/usbdrive/project')")), QVariant(true));
    QCOMPARE(byteAt(65), '\1');
    QCOMPARE(evaluate(QStringLiteral("manager.unlock()")), QVariant(true));
    QCOMPARE(byteAt(65), '\0');
}

void tst_USBDriveCleanAccessManager::dirtyByteHasItsPlace_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<qint64>("offset");

    QTest::newRow("fat12") << QStringLiteral("fat12") << qint64(37);
    QTest::newRow("fat16") << QStringLiteral("fat16") << qint64(37);
    QTest::newRow("fat32") << QStringLiteral("fat32") << qint64(65);
    QTest::newRow("vfat") << QStringLiteral("vfat") << qint64(-1);
    QTest::newRow("ntfs") << QStringLiteral("ntfs") << qint64(-1);
    QTest::newRow("exfat") << QStringLiteral("exfat") << qint64(-1);
    QTest::newRow("ext4") << QStringLiteral("ext4") << qint64(-1);
    QTest::newRow("upper case") << QStringLiteral("FAT32") << qint64(-1);
    QTest::newRow("blank at the end") << QStringLiteral("fat32 ") << qint64(-1);
    QTest::newRow("empty") << QString() << qint64(-1);
}

void tst_USBDriveCleanAccessManager::dirtyByteHasItsPlace()
{
    QFETCH(QString, type);
    QTEST(getDirtyByteOffset(type), "offset");
}

void tst_USBDriveCleanAccessManager::oneByteIsWritten_data()
{
    QTest::addColumn<qint64>("offset");
    QTest::addColumn<int>("value");

    QTest::newRow("the first one") << qint64(0) << 1;
    QTest::newRow("at 37") << qint64(37) << 1;
    QTest::newRow("at 65") << qint64(65) << 0;
    QTest::newRow("behind the first block") << qint64(100'000) << 0x7f;
    QTest::newRow("the last one") << qint64(s_size - 1) << 1;
    QTest::newRow("all bits") << qint64(511) << 0xff;
}

void tst_USBDriveCleanAccessManager::oneByteIsWritten()
{
    QFETCH(qint64, offset);
    QFETCH(int, value);
    QByteArray expected = contentOf(m_image);
    expected[int(offset)] = char(value);
    QCOMPARE(Manager::readByteFromDev(s_partition, offset), s_untouched);
    QVERIFY(Manager::writeByteIntoDev(s_partition, offset, char(value)));
    // in the file behind the device: it has left all caches
    QVERIFY(contentOf(m_image) == expected);
    QCOMPARE(Manager::readByteFromDev(s_partition, offset), char(value));
}

void tst_USBDriveCleanAccessManager::everythingIsSyncedOnceTheDeviceIsClosed()
{
    QStringList open;
    onSync([&] {
        const auto files =
            QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System);
        QStringList targets;
        for (const QFileInfo &file : files) {
            targets.append(file.symLinkTarget());
        }
        open.append(targets.contains(s_partition) ? QStringLiteral("open")
                                                  : QStringLiteral("closed"));
    });
    const auto stop = qScopeGuard([] { onSync({}); });
    QVERIFY(Manager::writeByteIntoDev(s_partition, 65, 1));
    QCOMPARE(open, QStringList{QStringLiteral("closed")});

    // also when the device has refused the byte, behind its end
    QVERIFY(!Manager::writeByteIntoDev(s_partition, s_size, 1));
    QCOMPARE(open.size(), 2);

    // not when nothing was opened, and not for reading
    QVERIFY(!Manager::writeByteIntoDev(QStringLiteral("/dev/none"), 65, 1));
    QVERIFY(!Manager::writeByteIntoDev(s_partition, -1, 1));
    QCOMPARE(Manager::readByteFromDev(s_partition, 65), '\1');
    QCOMPARE(open.size(), 2);
}

void tst_USBDriveCleanAccessManager::aNegativeOffsetWritesAndReadsNothing_data()
{
    QTest::addColumn<qint64>("offset");

    QTest::newRow("-1") << qint64(-1);
    QTest::newRow("the least") << std::numeric_limits<qint64>::min();
}

void tst_USBDriveCleanAccessManager::aNegativeOffsetWritesAndReadsNothing()
{
    QFETCH(qint64, offset);
    // not even opened: a file would be emptied
    QVERIFY(!Manager::writeByteIntoDev(m_image, offset, 1));
    QVERIFY(contentOf(m_image) == QByteArray(s_size, s_untouched));
    const QString created = m_folder->filePath(QStringLiteral("created"));
    QVERIFY(!Manager::writeByteIntoDev(created, offset, 1));
    QVERIFY(!QFile::exists(created));
    QCOMPARE(Manager::readByteFromDev(m_image, offset), '\0');
}

void tst_USBDriveCleanAccessManager::beyond4GiBThereIsTheRightByte()
{
    constexpr qint64 offset = (qint64(1) << 32) + 65;
    QFile file(m_folder->filePath(QStringLiteral("large")));
    QVERIFY(file.open(QIODevice::ReadWrite));
    // an offset cut to 32 bits would be 65
    QVERIFY(Manager::writeByteIntoDev(file.fileName(), offset, 7));
    QCOMPARE(file.size(), offset + 1); // a hole before it, which takes no space
    QCOMPARE(Manager::readByteFromDev(file.fileName(), offset), '\7');
    QCOMPARE(Manager::readByteFromDev(file.fileName(), 65), '\0');
}

void tst_USBDriveCleanAccessManager::aRegularFileIsEmptied()
{
    const QString file = m_folder->filePath(QString::fromUtf8("gerät"));
    makeFile(file, QByteArray(1000, 'x'));
    QVERIFY(Manager::writeByteIntoDev(file, 3, 'y'));
    QCOMPARE(contentOf(file), QByteArray("\0\0\0y", 4));
}

void tst_USBDriveCleanAccessManager::aFileIsCreatedElsewhere()
{
    const QString file = m_folder->filePath(QStringLiteral("new"));
    QVERIFY(Manager::writeByteIntoDev(file, 0, 'y'));
    QCOMPARE(contentOf(file), QByteArray("y"));
}

void tst_USBDriveCleanAccessManager::aPulledDriveGetsNoFileInItsPlace_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("its node") << s_partition;
    QTest::newRow("written in a roundabout way") << QStringLiteral("//dev/./sda1");
    QTest::newRow("a link to its node") << QStringLiteral("/dev/usbdrive");
}

void tst_USBDriveCleanAccessManager::aPulledDriveGetsNoFileInItsPlace()
{
    QFETCH(QString, path);
    QVERIFY(QFile::link(s_partition, QStringLiteral("/dev/usbdrive")));
    QVERIFY(Manager::writeByteIntoDev(path, 65, 1));
    QVERIFY(QFile::remove(s_partition));
    QVERIFY(!Manager::writeByteIntoDev(path, 65, 1));
    QVERIFY(!QFile::exists(s_partition));
    QVERIFY(QFile::remove(QStringLiteral("/dev/usbdrive")));
}

void tst_USBDriveCleanAccessManager::whatCannotBeOpenedIsNotWritten()
{
    QVERIFY(!Manager::writeByteIntoDev(m_folder->path(), 0, 1)); // a folder
    QVERIFY(!Manager::writeByteIntoDev(m_folder->filePath(QStringLiteral("none/file")), 0, 1));
    QVERIFY(!Manager::writeByteIntoDev(QString(), 0, 1));
    // a node behind which there is nothing; the number is set aside for local use
    PrivateMounts::makeBlockNode(s_partition, ::makedev(60, 1));
    QVERIFY(!Manager::writeByteIntoDev(s_partition, 65, 1));
}

void tst_USBDriveCleanAccessManager::aReadOnlyDriveTakesNoByte()
{
    m_bed.reset();
    m_loop.reset();
    m_loop = std::make_unique<LoopDevice>(m_image, LoopDevice::ReadOnly);
    PrivateMounts::makeBlockNode(s_partition, m_loop->number());
    QVERIFY(!Manager::writeByteIntoDev(s_partition, 65, 1));
    QCOMPARE(byteAt(65), s_untouched);
    QCOMPARE(Manager::readByteFromDev(s_partition, 65), s_untouched);
}

void tst_USBDriveCleanAccessManager::aFullDeviceTakesNoByte()
{
    // opens, and refuses what is written
    QVERIFY(QFile::remove(s_partition));
    QCOMPARE(::mknod("/dev/sda1", S_IFCHR | 0600, ::makedev(1, 7)), 0);
    QVERIFY(!Manager::writeByteIntoDev(s_partition, 65, 1));
}

void tst_USBDriveCleanAccessManager::aDeviceWithoutCacheTakesTheByte()
{
    QVERIFY(QFile::remove(s_partition));
    QCOMPARE(::mknod("/dev/sda1", S_IFCHR | 0600, ::makedev(1, 3)), 0);
    QVERIFY(Manager::writeByteIntoDev(s_partition, 65, 1));
}

void tst_USBDriveCleanAccessManager::whatCannotBeReadIsZero()
{
    const QString file = m_folder->filePath(QStringLiteral("short"));
    makeFile(file, QByteArray(65, 'x'));
    QCOMPARE(Manager::readByteFromDev(file, 64), 'x');
    QCOMPARE(Manager::readByteFromDev(file, 65), '\0');
    QCOMPARE(Manager::readByteFromDev(m_folder->path(), 0), '\0');
    QCOMPARE(Manager::readByteFromDev(m_folder->filePath(QStringLiteral("none")), 0), '\0');
    QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("none"))));
    QCOMPARE(contentOf(file), QByteArray(65, 'x'));
}

void tst_USBDriveCleanAccessManager::flagsAreOneAndZero_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("offset"); // -1: nothing is written

    QTest::newRow("fat12") << QStringLiteral("fat12") << 37;
    QTest::newRow("fat16") << QStringLiteral("fat16") << 37;
    QTest::newRow("fat32") << QStringLiteral("fat32") << 65;
    QTest::newRow("vfat") << QStringLiteral("vfat") << -1;
    QTest::newRow("ntfs") << QStringLiteral("ntfs") << -1;
    QTest::newRow("exfat") << QStringLiteral("exfat") << -1;
    QTest::newRow("none") << QString() << -1;
}

void tst_USBDriveCleanAccessManager::flagsAreOneAndZero()
{
    QFETCH(QString, type);
    QFETCH(int, offset);
    QByteArray expected(s_size, s_untouched);
    for (const bool dirty : {true, false}) {
        const bool written = dirty ? Manager::setDirtyFlag(s_partition, type)
                                   : Manager::clearDirtyFlag(s_partition, type);
        QCOMPARE(written, offset >= 0);
        if (offset >= 0) {
            expected[offset] = dirty ? 1 : 0; // the byte's other bits are not kept
        }
        QVERIFY(contentOf(m_image) == expected);
    }
}

void tst_USBDriveCleanAccessManager::lockSetsTheDirtyByte_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("offset");

    QTest::newRow("fat12") << QByteArray("fat12") << 37;
    QTest::newRow("fat16") << QByteArray("fat16") << 37;
    QTest::newRow("fat32") << QByteArray("fat32") << 65;
}

void tst_USBDriveCleanAccessManager::lockSetsTheDirtyByte()
{
    QFETCH(QByteArray, type);
    QFETCH(int, offset);
    plug(type);
    setByte(offset, 0);
    QByteArray expected = contentOf(m_image);
    expected[offset] = 1;
    Manager manager;
    QCOMPARE(manager.lock(QStringLiteral("/media/usbdrive/project/export")), true);
    QVERIFY(contentOf(m_image) == expected);
    QCOMPARE(PrivateMounts::mountTable(), mounted("/dev/sda1", s_mountPoint));
}

void tst_USBDriveCleanAccessManager::unlockClearsTheDirtyByte_data()
{
    lockSetsTheDirtyByte_data();
}

void tst_USBDriveCleanAccessManager::unlockClearsTheDirtyByte()
{
    QFETCH(QByteArray, type);
    QFETCH(int, offset);
    plug(type);
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    setByte(offset, 1); // whoever unmounts may have had a hand in it
    QByteArray expected = contentOf(m_image);
    expected[offset] = 0;
    QCOMPARE(manager.unlock(), true);
    QVERIFY(contentOf(m_image) == expected);
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
}

void tst_USBDriveCleanAccessManager::otherTypesMountAndAreNotMarked_data()
{
    QTest::addColumn<QByteArray>("type");

    QTest::newRow("exfat") << QByteArray("exfat");
    QTest::newRow("ntfs") << QByteArray("ntfs");
    QTest::newRow("vfat") << QByteArray("vfat");
    QTest::newRow("ext4") << QByteArray("ext4");
    QTest::newRow("a FAT of no known type") << QByteArray("none");
}

void tst_USBDriveCleanAccessManager::otherTypesMountAndAreNotMarked()
{
    QFETCH(QByteArray, type);
    plug(type);
    const QByteArray before = contentOf(m_image);
    Manager manager;
    QCOMPARE(manager.lock(s_drive), false);
    QVERIFY(PrivateMounts::mountTable().startsWith("/dev/sda1 /media/usbdrive "));
    QCOMPARE(manager.unlock(), false);
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
    QVERIFY(contentOf(m_image) == before);
}

void tst_USBDriveCleanAccessManager::lockBeginsWithALookAndEndsMounted()
{
    plug("fat32");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    QCOMPARE(m_commands->takeJournal(), (QStringList{s_mount, s_umount, s_mount}));
    // what is mounted is mounted once more, in vain
    QVERIFY(manager.lock(s_drive));
    QCOMPARE(m_commands->takeJournal(), QStringList{s_mount});
    QVERIFY(manager.unlock());
    QCOMPARE(m_commands->takeJournal(), QStringList{s_umount});
}

void tst_USBDriveCleanAccessManager::lockAsksTwiceAndThenMountsNothing()
{
    Manager manager;
    QCOMPARE(manager.lock(s_drive), false);
    // each of the two looks tries to mount; the lock itself does not
    QCOMPARE(m_commands->takeJournal(), (QStringList{s_mount, s_mount}));

    // where the look needs no mount, there is no command at all
    PrivateMounts::setMountTable(mounted("/dev/sdx1", s_mountPoint));
    QCOMPARE(manager.lock(s_drive), false);
    QCOMPARE(m_commands->takeJournal(), QStringList());
    QVERIFY(contentOf(m_image) == QByteArray(s_size, s_untouched));
}

void tst_USBDriveCleanAccessManager::aDriveFoundTheSecondTimeIsLocked()
{
    plug("fat32");
    // the first try to mount comes too early
    m_commands->add(QStringLiteral("mount"),
                    "if [ -e '" + QFile::encodeName(m_folder->path())
                        + "/settled' ]; then printf '%s' '" + mounted("/dev/sda1", s_mountPoint)
                        + "' > /etc/mtab; else : > '" + QFile::encodeName(m_folder->path())
                        + "/settled'; fi");
    Manager manager;
    QCOMPARE(manager.lock(s_drive), true);
    QCOMPARE(m_commands->journal(), (QStringList{s_mount, s_mount, s_umount, s_mount}));
    QCOMPARE(byteAt(65), '\1');
}

void tst_USBDriveCleanAccessManager::thePartitionIsTheFirstWhosePathFits_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("offset"); // where the byte is that is set; -1 for none

    QTest::newRow("the mount point") << s_drive << 37;
    QTest::newRow("below it") << s_drive + QStringLiteral("/b/c") << 37;
    QTest::newRow("below a later one, which is the same to the first")
        << s_drive + QStringLiteral("/inner/x") << 37;
    QTest::newRow("a name that begins like it") << s_drive + QStringLiteral("2/c") << 37;
    QTest::newRow("a directory beside it") << s_drive + QStringLiteral("-backup/x") << 37;
    QTest::newRow("a way out of it") << s_drive + QStringLiteral("/../x") << 37;
    QTest::newRow("upper case") << QStringLiteral("/media/USBDRIVE/c") << -1;
    QTest::newRow("above it") << QStringLiteral("/media") << -1;
    QTest::newRow("relative") << QStringLiteral("media/usbdrive") << -1;
    QTest::newRow("empty") << QString() << -1;
}

void tst_USBDriveCleanAccessManager::thePartitionIsTheFirstWhosePathFits()
{
    QFETCH(QString, path);
    QFETCH(int, offset);
    // the same disk twice; the first entry says fat16, the second one fat32
    m_bed->addStick("sda", {{"sda1", QByteArray()}});
    QVERIFY(QDir().mkpath(s_drive + QStringLiteral("/inner")));
    PrivateMounts::setMountTable(mounted("/dev/sda1", s_mountPoint, "fat16")
                                 + mounted("/dev/sda1", s_mountPoint + "/inner", "fat32"));
    QByteArray expected = contentOf(m_image);
    if (offset >= 0) {
        expected[offset] = 1;
    }
    Manager manager;
    QCOMPARE(manager.lock(path), offset >= 0);
    QVERIFY(contentOf(m_image) == expected);
    QCOMPARE(m_commands->journal(), QStringList{s_mount}); // in every case
}

void tst_USBDriveCleanAccessManager::theRootOfTwoPartitionsIsOnNeither()
{
    m_bed->addStick("sda", {{"sda1", QByteArray()}, {"sda2", QByteArray()}});
    for (const char *name : {"/a", "/b"}) {
        QVERIFY(QDir().mkpath(s_drive + QLatin1String(name)));
    }
    PrivateMounts::setMountTable(mounted("/dev/sda1", s_mountPoint + "/a", "fat16")
                                 + mounted("/dev/sda2", s_mountPoint + "/b", "fat16"));
    const QVariantList root = MountedUSBDeviceList::getUSBMountPathRoot();
    QCOMPARE(root, (QVariantList{s_drive, true}));
    Manager manager;
    QCOMPARE(manager.lock(root.at(0).toString()), false);
    QVERIFY(contentOf(m_image) == QByteArray(s_size, s_untouched));

    // the directory that is written to is on one
    const QList<mountItem> items = MountedUSBDeviceList::getUSBMountPaths().items;
    QCOMPARE(items.size(), 2);
    QCOMPARE(manager.lock(items.first().mountPoint.absoluteFilePath()), true);
    QCOMPARE(byteAt(37), '\1');
}

void tst_USBDriveCleanAccessManager::aPathElsewhereKeepsTheLastPartition()
{
    plug("fat32");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    setByte(65, 0);
    QCOMPARE(manager.lock(QStringLiteral("/somewhere/else")), true);
    QCOMPARE(byteAt(65), '\1');
    QCOMPARE(manager.unlock(), true);
    QCOMPARE(byteAt(65), '\0');
}

void tst_USBDriveCleanAccessManager::aPathElsewhereAtFirstMountsAndIsFalse()
{
    plug("fat32");
    Manager manager;
    QCOMPARE(manager.lock(QStringLiteral("/somewhere/else")), false);
    QCOMPARE(m_commands->journal().last(), s_mount);
    QVERIFY(!PrivateMounts::mountTable().isEmpty());
    QCOMPARE(byteAt(65), s_untouched);
}

void tst_USBDriveCleanAccessManager::aFailedMountStillMarks()
{
    plug("fat32");
    PrivateMounts::setMountTable(mounted("/dev/sda1", s_mountPoint));
    m_commands->add(QStringLiteral("mount"), "exit 32");
    Manager manager;
    QCOMPARE(manager.lock(s_drive), true);
    QCOMPARE(byteAt(65), '\1');
}

void tst_USBDriveCleanAccessManager::aLockWithoutDriveKeepsTheLastPartition()
{
    plug("fat32");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    QVERIFY(manager.unlock());
    m_commands->add(QStringLiteral("mount"), "exit 32");
    setByte(65, s_untouched);
    QCOMPARE(manager.lock(s_drive), false);
    QCOMPARE(byteAt(65), s_untouched);
    // a later unlock works on what was found before
    QCOMPARE(manager.unlock(), true);
    QCOMPARE(byteAt(65), '\0');
}

void tst_USBDriveCleanAccessManager::unlockWithoutLockUnmounts()
{
    plug("fat32");
    PrivateMounts::setMountTable(mounted("/dev/sda1", s_mountPoint));
    Manager manager;
    QCOMPARE(manager.unlock(), false);
    QCOMPARE(m_commands->journal(), QStringList{s_umount});
    QCOMPARE(byteAt(65), s_untouched);
}

void tst_USBDriveCleanAccessManager::unlockWithoutMountStillClears()
{
    plug("fat32");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    PrivateMounts::setMountTable({});
    m_commands->takeJournal();
    QCOMPARE(manager.unlock(), true);
    QCOMPARE(m_commands->journal(), QStringList());
    QCOMPARE(byteAt(65), '\0');
}

void tst_USBDriveCleanAccessManager::unlockWaitsForABusyDrive()
{
    plug("fat32");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    m_commands->takeJournal();
    // while it is tried, the drive is still marked
    const QByteArray seen = QFile::encodeName(m_folder->filePath(QStringLiteral("seen")));
    m_commands->failUmount(
        3, "od -An -tu1 -j65 -N1 '" + QFile::encodeName(m_image) + "' >> '" + seen + "'; exit 32");
    QCOMPARE(manager.unlock(), true);
    const QString sleep = QStringLiteral("usleep 500");
    QCOMPARE(m_commands->journal(),
             (QStringList{s_umount, sleep, s_umount, sleep, s_umount, sleep, s_umount}));
    QCOMPARE(contentOf(QFile::decodeName(seen)).simplified(), QByteArray("1 1 1"));
    QCOMPARE(byteAt(65), '\0');
}

void tst_USBDriveCleanAccessManager::locksAreNotCounted()
{
    plug("fat16");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    QVERIFY(manager.lock(s_drive));
    QCOMPARE(manager.unlock(), true);
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
    QCOMPARE(byteAt(37), '\0');
}

void tst_USBDriveCleanAccessManager::unlockTwiceActsTwice()
{
    plug("fat32");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    QVERIFY(manager.unlock());
    setByte(65, 1);
    QCOMPARE(manager.unlock(), true);
    QCOMPARE(byteAt(65), '\0');
}

void tst_USBDriveCleanAccessManager::aDrivePulledWhileLockedCannotBeCleared()
{
    plug("fat32");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    QVERIFY(QFile::remove(s_partition));
    QCOMPARE(manager.unlock(), false);
    QVERIFY(!QFile::exists(s_partition));
    QCOMPARE(byteAt(65), '\1'); // as the next system will find it
}

void tst_USBDriveCleanAccessManager::whatTakesTheNodesPlaceIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("type");

    QTest::newRow("fat12") << QByteArray("fat12");
    QTest::newRow("fat32") << QByteArray("fat32");
}

// a file is no drive, whatever it holds: a copy of the volume that somebody keeps there
void tst_USBDriveCleanAccessManager::whatTakesTheNodesPlaceIsLeftAlone()
{
    QFETCH(QByteArray, type);
    plug(type);
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    const QByteArray copy = contentOf(m_image);
    QVERIFY(QFile::remove(s_partition));
    makeFile(s_partition, copy);
    QCOMPARE(manager.unlock(), false);
    QVERIFY(contentOf(s_partition) == copy);

    QVERIFY(QFile::remove(s_partition));
    QVERIFY(QDir().mkdir(s_partition));
    QCOMPARE(manager.unlock(), false);
    QVERIFY(QDir().rmdir(s_partition));

    QCOMPARE(::mkfifo("/dev/sda1", 0600), 0);
    QCOMPARE(manager.unlock(), false); // and does not wait for somebody who writes
    QVERIFY(QFile::remove(s_partition));
    QVERIFY(contentOf(m_image) == copy);
}

void tst_USBDriveCleanAccessManager::whatChangesInUseDoesNotMatter_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("isTheVolume");

    const QByteArray fat16 = "fat16";
    const QByteArray fat32 = "fat32";
    QTest::newRow("jump to the program") << fat16 << 2 << true;
    QTest::newRow("OEM name") << fat16 << 3 << false;
    QTest::newRow("OEM name's end") << fat32 << 10 << false;
    QTest::newRow("bytes per sector") << fat32 << 11 << false;
    QTest::newRow("kind of FAT") << fat16 << 22 << false;
    QTest::newRow("number of sectors") << fat32 << 32 << false;
    QTest::newRow("number of sectors' end") << fat16 << 35 << false;
    QTest::newRow("drive number") << fat16 << 36 << true;
    QTest::newRow("sign of a serial number") << fat16 << 38 << true;
    QTest::newRow("serial number") << fat16 << 39 << false;
    QTest::newRow("serial number's end") << fat16 << 42 << false;
    QTest::newRow("label") << fat16 << 43 << true;
    QTest::newRow("label's end") << fat16 << 53 << true;
    QTest::newRow("kind as a text") << fat16 << 54 << false;
    QTest::newRow("kind as a text, its end") << fat16 << 61 << false;
    QTest::newRow("program that starts a system") << fat16 << 62 << true;
    QTest::newRow("sectors per FAT32") << fat32 << 36 << false;
    QTest::newRow("place of the copy of FAT32") << fat32 << 51 << false;
    QTest::newRow("reserved in FAT32") << fat32 << 52 << true;
    QTest::newRow("sign of a serial number of FAT32") << fat32 << 66 << true;
    QTest::newRow("serial number of FAT32") << fat32 << 67 << false;
    QTest::newRow("serial number's end of FAT32") << fat32 << 70 << false;
    QTest::newRow("label of FAT32") << fat32 << 71 << true;
    QTest::newRow("label's end of FAT32") << fat32 << 81 << true;
    QTest::newRow("kind as a text of FAT32") << fat32 << 82 << false;
    QTest::newRow("kind as a text of FAT32, its end") << fat32 << 89 << false;
    QTest::newRow("program that starts a system from FAT32") << fat32 << 90 << true;
    QTest::newRow("program's end") << fat32 << 509 << true;
    QTest::newRow("signature") << fat32 << 510 << false;
    QTest::newRow("signature's end") << fat32 << 511 << false;
    QTest::newRow("behind the boot sector") << fat32 << 512 << true;
    QTest::newRow("dirty byte") << fat16 << 37 << true;
    QTest::newRow("dirty byte of FAT32") << fat32 << 65 << true;
}

void tst_USBDriveCleanAccessManager::whatChangesInUseDoesNotMatter()
{
    QFETCH(QByteArray, type);
    QFETCH(int, offset);
    QFETCH(bool, isTheVolume);
    plug(type);
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    setByte(offset, char(byteAt(offset) ^ 0x2a));
    QByteArray expected = contentOf(m_image);
    if (isTheVolume) {
        expected[type == "fat32" ? 65 : 37] = '\0';
    }
    QCOMPARE(manager.unlock(), isTheVolume);
    QVERIFY(contentOf(m_image) == expected);
}

void tst_USBDriveCleanAccessManager::aTypeWithoutDirtyByteForgetsTheVolumeBefore()
{
    plug("fat32");
    Manager manager;
    QVERIFY(manager.lock(s_drive));
    QVERIFY(manager.unlock());
    setByte(65, s_untouched);
    m_commands->mountingSets(mounted("/dev/sda1", s_mountPoint, "exfat"));
    m_bed.reset();
    m_bed = std::make_unique<UdevTestBed>();
    m_bed->addStick("sda", {{"sda1", "exfat"}});
    const QByteArray before = contentOf(m_image);
    QCOMPARE(manager.lock(s_drive), false);
    QCOMPARE(manager.unlock(), false);
    QCOMPARE(manager.lock(QStringLiteral("/somewhere/else")), false);
    QVERIFY(contentOf(m_image) == before);
}

// udev's word is older than the look, and 0 at byte 22 is "fat32"
void tst_USBDriveCleanAccessManager::anExfatThatIsCalledFatIsLeftAlone()
{
    QByteArray sector(512, '\0');
    sector.replace(0, 11,
                   "\xEB\x76\x90"
                   "EXFAT   ");
    sector.replace(510, 2, "\x55\xAA");
    for (int i = 0; i < sector.size(); ++i) {
        setByte(i, sector.at(i));
    }
    plug("fat32");
    const QByteArray before = contentOf(m_image);
    Manager manager;
    QCOMPARE(manager.lock(s_drive), false);
    QVERIFY(!PrivateMounts::mountTable().isEmpty()); // mounted all the same
    QCOMPARE(manager.unlock(), false);
    QVERIFY(contentOf(m_image) == before);
}

// Linux mounts a FAT without the two bytes at the end of its boot sector
void tst_USBDriveCleanAccessManager::aDriveWithoutSignatureIsMarked()
{
    plug("fat16");
    QCOMPARE(byteAt(510), s_untouched);
    Manager manager;
    QCOMPARE(manager.lock(s_drive), true);
    QCOMPARE(manager.unlock(), true);
}

USB_TEST_MAIN(tst_USBDriveCleanAccessManager)
#include "tst_USBDriveCleanAccessManager.moc"
