// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/MountedUSBDeviceList.h"
#include "tests/support/FileTree.h"
#include "tests/usb/UsbTest.h"

#include <QDir>
#include <QMetaMethod>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QTemporaryDir>

#include <functional>
#include <thread>

using namespace Test;
using Tavro::Shared::findAllItemsWithPrefix;
using Tavro::Shared::MountedUSBDeviceList;
using Tavro::Shared::mountItem;
using Tavro::Shared::mountPathsStruct;
using Tavro::Shared::usbDeviceInfo;

namespace {

mountItem itemOf(const QString &device, const QString &mountPoint, const QString &type)
{
    return {QFileInfo(device), QFileInfo(mountPoint), type};
}

QByteArray theDrive()
{
    return mounted("/dev/sda1", "/media/usbdrive");
}

} // namespace

/** What needs no device: the classes themselves, the mount table, the commands, the FAT table. */
class tst_MountedUSBDeviceList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void metaObjectOffersTheRootAlone();
    void metaObjectOfADeviceIsBare();
    void aDeviceKeepsItsTexts();
    void aDeviceHasNothingMountedAtFirst();
    void mountInformationIsTakenOverWhole();

    void mountedIsWhatTheTableSays_data();
    void mountedIsWhatTheTableSays();
    void withoutATableNothingIsMounted();
    void threadsReadTheTableAtTheSameTime();

    void mountingRunsOneCommand_data();
    void mountingRunsOneCommand();
    void mountingWithoutTheCommandIsIgnored();
    void unmountingWhatIsNotMountedRunsNothing();
    void unmountingSucceedsAtOnce();
    void unmountingIsTriedUntilItSucceeds_data();
    void unmountingIsTriedUntilItSucceeds();
    void unmountingWaitsForAMissingCommand();

    void prefixTakesDevices_data();
    void prefixTakesDevices();
    void prefixLeavesItemsAsTheyAre();

    void fatSubtypeIsWhatByte22Says_data();
    void fatSubtypeIsWhatByte22Says();
    void whatCannotBeReadHasNoFatSubtype();

    void qmlAsksForTheRoot();
};

void tst_MountedUSBDeviceList::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
}

void tst_MountedUSBDeviceList::init()
{
    PrivateMounts::setMountTable({});
}

void tst_MountedUSBDeviceList::metaObjectOffersTheRootAlone()
{
    const QMetaObject &meta = MountedUSBDeviceList::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::MountedUSBDeviceList");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod root = meta.method(meta.methodOffset());
    QCOMPARE(root.methodSignature(), QByteArray("getUSBMountPathRoot()"));
    QCOMPARE(root.typeName(), "QVariantList");
    QCOMPARE(root.methodType(), QMetaMethod::Method);
    QCOMPARE(root.access(), QMetaMethod::Public);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 0);
}

void tst_MountedUSBDeviceList::metaObjectOfADeviceIsBare()
{
    const QMetaObject &meta = usbDeviceInfo::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::usbDeviceInfo");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 0);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 0);
}

void tst_MountedUSBDeviceList::aDeviceKeepsItsTexts()
{
    QObject parent;
    const usbDeviceInfo device(QStringLiteral("/dev/sdb"), QStringLiteral("0781"),
                               QStringLiteral("5567"), QStringLiteral("Maker   "), &parent);
    QCOMPARE(device.deviceNode(), QStringLiteral("/dev/sdb"));
    QCOMPARE(device.vendorId(), QStringLiteral("0781"));
    QCOMPARE(device.productId(), QStringLiteral("5567"));
    QCOMPARE(device.vendorName(), QStringLiteral("Maker   "));
    QCOMPARE(device.parent(), &parent);
}

void tst_MountedUSBDeviceList::aDeviceHasNothingMountedAtFirst()
{
    const usbDeviceInfo device;
    QCOMPARE(device.deviceNode(), QString());
    QVERIFY(device.mountInfo().items.isEmpty());
    QCOMPARE(device.mountInfo().supported, true);
    QCOMPARE(device.parent(), nullptr);
}

void tst_MountedUSBDeviceList::mountInformationIsTakenOverWhole()
{
    usbDeviceInfo device;
    mountPathsStruct info;
    info.items.append(
        itemOf(QStringLiteral("/dev/sda1"), QStringLiteral("/mnt"), QStringLiteral("ext4")));
    info.supported = false;
    device.setMountInfo(info);
    QCOMPARE(device.mountInfo().items.size(), 1);
    QCOMPARE(device.mountInfo().items.first().device.filePath(), QStringLiteral("/dev/sda1"));
    QCOMPARE(device.mountInfo().items.first().mountPoint.filePath(), QStringLiteral("/mnt"));
    QCOMPARE(device.mountInfo().items.first().fileSystemType, QStringLiteral("ext4"));
    QCOMPARE(device.mountInfo().supported, false);

    device.setMountInfo({});
    QVERIFY(device.mountInfo().items.isEmpty());
    QCOMPARE(device.mountInfo().supported, true);
}

void tst_MountedUSBDeviceList::mountedIsWhatTheTableSays_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<bool>("isMounted");

    QTest::newRow("the drive") << theDrive() << true;
    QTest::newRow("another device there") << mounted("/dev/sdb7", "/media/usbdrive") << true;
    QTest::newRow("any type") << mounted("/dev/sda1", "/media/usbdrive", "ext4") << true;
    QTest::newRow("among others") << mounted("proc", "/proc", "proc") + mounted("/dev/sdb1", "/mnt")
            + theDrive() << true;
    QTest::newRow("once as no device, once as one")
        << mounted("tmpfs", "/media/usbdrive", "tmpfs") + theDrive() << true;
    QTest::newRow("a name that only begins with /dev")
        << mounted("/device", "/media/usbdrive") << true;
    QTest::newRow("after a line that is none") << "nonsense\n\n# remark\n" + theDrive() << true;
    QTest::newRow("empty table") << QByteArray() << false;
    QTest::newRow("nothing there") << mounted("/dev/sda1", "/media/other") << false;
    QTest::newRow("slash at the end") << mounted("/dev/sda1", "/media/usbdrive/") << false;
    QTest::newRow("slash twice") << mounted("/dev/sda1", "/media//usbdrive") << false;
    QTest::newRow("folder in it") << mounted("/dev/sda1", "/media/usbdrive/a") << false;
    QTest::newRow("longer name") << mounted("/dev/sda1", "/media/usbdrive2") << false;
    QTest::newRow("blank at the end") << mounted("/dev/sda1", "/media/usbdrive\\040") << false;
    QTest::newRow("upper case") << mounted("/dev/sda1", "/media/USBdrive") << false;
    QTest::newRow("no device") << mounted("tmpfs", "/media/usbdrive", "tmpfs") << false;
    QTest::newRow("device in upper case") << mounted("/DEV/sda1", "/media/usbdrive") << false;
    QTest::newRow("/dev not at the beginning") << mounted("x/dev/sda1", "/media/usbdrive") << false;
}

void tst_MountedUSBDeviceList::mountedIsWhatTheTableSays()
{
    QFETCH(QByteArray, table);
    PrivateMounts::setMountTable(table);
    QTEST(MountedUSBDeviceList::isUSBMounted(), "isMounted");
}

void tst_MountedUSBDeviceList::withoutATableNothingIsMounted()
{
    PrivateMounts::removeMountTable();
    QVERIFY(!MountedUSBDeviceList::isUSBMounted());
    // one that opens and cannot be read
    QVERIFY(QDir().mkdir(QStringLiteral("/etc/mtab")));
    QVERIFY(!MountedUSBDeviceList::isUSBMounted());
    QVERIFY(QDir().rmdir(QStringLiteral("/etc/mtab")));
}

// a screen asks whether the drive is mounted while a thread looks at its partitions
void tst_MountedUSBDeviceList::threadsReadTheTableAtTheSameTime()
{
    QByteArray table;
    for (int i = 0; i < 20; ++i) {
        table += mounted("/dev/loop" + QByteArray::number(i), '/' + QByteArray(10 * i, 'm'));
    }
    PrivateMounts::setMountTable(table + theDrive());
    const auto countMisses = [](int &misses) {
        for (int i = 0; i < 2000; ++i) {
            misses += MountedUSBDeviceList::isUSBMounted() ? 0 : 1;
        }
    };
    int misses = 0;
    int missesBeside = 0;
    std::thread beside(countMisses, std::ref(missesBeside));
    countMisses(misses);
    beside.join();
    QCOMPARE(misses, 0);
    QCOMPARE(missesBeside, 0);
}

void tst_MountedUSBDeviceList::mountingRunsOneCommand_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QByteArray>("body");

    QTest::newRow("that succeeds") << QByteArray() << QByteArray();
    QTest::newRow("that fails") << QByteArray() << QByteArray("exit 32");
    QTest::newRow("that crashes") << QByteArray() << QByteArray("kill -KILL $$");
    QTest::newRow("also when it is mounted") << theDrive() << QByteArray("exit 32");
}

void tst_MountedUSBDeviceList::mountingRunsOneCommand()
{
    QFETCH(QByteArray, table);
    QFETCH(QByteArray, body);
    PrivateMounts::setMountTable(table);
    UsbCommands commands;
    commands.add(QStringLiteral("mount"), body);
    MountedUSBDeviceList::mountUSB();
    QCOMPARE(commands.journal(), QStringList(QStringLiteral("mount /dev/sda1")));
}

void tst_MountedUSBDeviceList::mountingWithoutTheCommandIsIgnored()
{
    FakeCommands none;
    none.hideOthers();
    MountedUSBDeviceList::mountUSB();
    QCOMPARE(none.journal(), QStringList());
}

void tst_MountedUSBDeviceList::unmountingWhatIsNotMountedRunsNothing()
{
    UsbCommands commands;
    PrivateMounts::setMountTable(mounted("/dev/sda1", "/media/other"));
    MountedUSBDeviceList::dismountUSB();
    PrivateMounts::removeMountTable();
    MountedUSBDeviceList::dismountUSB();
    QCOMPARE(commands.journal(), QStringList());
}

void tst_MountedUSBDeviceList::unmountingSucceedsAtOnce()
{
    // the exit code alone counts: the table still has the drive
    UsbCommands commands;
    PrivateMounts::setMountTable(theDrive());
    MountedUSBDeviceList::dismountUSB();
    QCOMPARE(commands.journal(), QStringList(QStringLiteral("umount /dev/sda1")));
}

void tst_MountedUSBDeviceList::unmountingIsTriedUntilItSucceeds_data()
{
    QTest::addColumn<int>("failures");
    QTest::addColumn<QByteArray>("failure");

    QTest::newRow("busy once") << 1 << QByteArray("exit 32");
    QTest::newRow("busy 25 times") << 25 << QByteArray("exit 32");
    QTest::newRow("any other exit code") << 2 << QByteArray("exit 1");
    QTest::newRow("crashed") << 2 << QByteArray("kill -KILL $$");
    QTest::newRow("says it is not mounted") << 1 << QByteArray(": > /etc/mtab; exit 32");
}

void tst_MountedUSBDeviceList::unmountingIsTriedUntilItSucceeds()
{
    QFETCH(int, failures);
    QFETCH(QByteArray, failure);
    UsbCommands commands;
    commands.failUmount(failures, failure);
    PrivateMounts::setMountTable(theDrive());
    MountedUSBDeviceList::dismountUSB();

    QStringList expected;
    for (int i = 0; i < failures; ++i) {
        expected << QStringLiteral("umount /dev/sda1") << QStringLiteral("usleep 500");
    }
    expected << QStringLiteral("umount /dev/sda1");
    QCOMPARE(commands.journal(), expected);
}

void tst_MountedUSBDeviceList::unmountingWaitsForAMissingCommand()
{
    FakeCommands commands;
    commands.hideOthers();
    const QByteArray folder = QFile::encodeName(QFileInfo(commands.journalPath()).absolutePath());
    // installed while the library waits; the first umount is missing
    commands.add(QStringLiteral("usleep"),
                 "echo '#!/bin/sh\necho umount $* >> \"" + folder + "/journal\"' > '" + folder
                     + "/umount'\n/bin/chmod +x '" + folder + "/umount'");
    PrivateMounts::setMountTable(theDrive());
    MountedUSBDeviceList::dismountUSB();
    QCOMPARE(commands.journal(),
             (QStringList{QStringLiteral("usleep 500"), QStringLiteral("umount /dev/sda1")}));
}

void tst_MountedUSBDeviceList::prefixTakesDevices_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("found");

    QTest::newRow("a disk takes its partitions, in their order")
        << QStringLiteral("/dev/sda") << QStringLiteral("/dev/sda2 /dev/sda1 /dev/sdaa1");
    QTest::newRow("a partition takes itself, and what begins like it")
        << QStringLiteral("/dev/sdb1") << QStringLiteral("/dev/sdb1 /dev/sdb11");
    QTest::newRow("upper and lower case differ") << QStringLiteral("/dev/SDA") << QString();
    QTest::newRow("none begins so") << QStringLiteral("/dev/sdc") << QString();
    QTest::newRow("a part within is none") << QStringLiteral("sda") << QString();
    const QDir here; // which may be the root
    QTest::newRow("an empty one takes all")
        << QString()
        << QStringLiteral("/dev/sda2 /dev/sdb1 /dev/sda1 /dev/sdb11 /dev/sdaa1 %1")
               .arg(here.absoluteFilePath(QStringLiteral("tmpfs")));
    QTest::newRow("a name without path stands in the current directory")
        << here.absoluteFilePath(QStringLiteral("tmp"))
        << here.absoluteFilePath(QStringLiteral("tmpfs"));
}

void tst_MountedUSBDeviceList::prefixTakesDevices()
{
    QList<mountItem> items;
    for (const char *device :
         {"/dev/sda2", "/dev/sdb1", "/dev/sda1", "/dev/sdb11", "/dev/sdaa1", "tmpfs"}) {
        items.append(itemOf(QLatin1String(device), QStringLiteral("/mnt"), QString()));
    }
    QFETCH(QString, prefix);
    QStringList found;
    const QList<mountItem> taken = findAllItemsWithPrefix(items, prefix);
    for (const mountItem &item : taken) {
        found.append(item.device.absoluteFilePath());
    }
    QTEST(found.join(QLatin1Char(' ')), "found");
}

void tst_MountedUSBDeviceList::prefixLeavesItemsAsTheyAre()
{
    const QList<mountItem> found = findAllItemsWithPrefix(
        {itemOf(QStringLiteral("/dev/sda1"), QStringLiteral("/a b"), QStringLiteral("ntfs"))},
        QStringLiteral("/dev/sda"));
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first().device.filePath(), QStringLiteral("/dev/sda1"));
    QCOMPARE(found.first().mountPoint.filePath(), QStringLiteral("/a b"));
    QCOMPARE(found.first().fileSystemType, QStringLiteral("ntfs"));
    QVERIFY(findAllItemsWithPrefix({}, QStringLiteral("/dev/sda")).isEmpty());
}

void tst_MountedUSBDeviceList::fatSubtypeIsWhatByte22Says_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QString>("subtype");

    const QByteArray before(22, '\xaa');
    const QByteArray after(488, '\xaa');
    const auto number = [](int low, int high) {
        return QByteArray(1, char(low)) + QByteArray(1, char(high));
    };
    QTest::newRow("256") << before + number(0, 1) + after << QStringLiteral("fat12");
    QTest::newRow("512") << before + number(0, 2) + after << QStringLiteral("fat16");
    QTest::newRow("0") << before + number(0, 0) + after << QStringLiteral("fat32");
    QTest::newRow("1, which is 256 the other way round")
        << before + number(1, 0) + after << QString();
    QTest::newRow("2, which is 512 the other way round")
        << before + number(2, 0) + after << QString();
    QTest::newRow("1024") << before + number(0, 4) + after << QString();
    QTest::newRow("255") << before + number(255, 0) + after << QString();
    QTest::newRow("257") << before + number(1, 1) + after << QString();
    QTest::newRow("513") << before + number(1, 2) + after << QString();
    QTest::newRow("65535") << before + number(255, 255) + after << QString();
    QTest::newRow("the device ends behind it") << before + number(0, 0) << QStringLiteral("fat32");
    QTest::newRow("the device ends in it") << before + QByteArray(1, '\0') << QString();
    QTest::newRow("the device ends before it") << before << QString();
    QTest::newRow("the device is empty") << QByteArray() << QString();
}

void tst_MountedUSBDeviceList::fatSubtypeIsWhatByte22Says()
{
    QFETCH(QByteArray, start);
    const QTemporaryDir folder;
    const QString device = folder.filePath(QString::fromUtf8("gerät"));
    makeFile(device, start);
    QTEST(MountedUSBDeviceList::getFatSubtype(device), "subtype");
    QCOMPARE(contentOf(device), start);
}

void tst_MountedUSBDeviceList::whatCannotBeReadHasNoFatSubtype()
{
    const QTemporaryDir folder;
    QCOMPARE(MountedUSBDeviceList::getFatSubtype(folder.filePath(QStringLiteral("none"))),
             QString());
    QCOMPARE(MountedUSBDeviceList::getFatSubtype(folder.path()), QString());
    QCOMPARE(MountedUSBDeviceList::getFatSubtype(QString()), QString());
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("none"))));
}

void tst_MountedUSBDeviceList::qmlAsksForTheRoot()
{
    UsbCommands commands;
    MountedUSBDeviceList list;
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("list"), &list);
    QQmlExpression expression(
        engine.rootContext(), nullptr,
        QStringLiteral("var r = list.getUSBMountPathRoot(); r.length + '|' + r[0] + '|' + r[1]"));
    QCOMPARE(expression.evaluate().toString(), QStringLiteral("2||false"));
    QVERIFY2(!expression.hasError(), qPrintable(expression.error().toString()));
}

USB_TEST_MAIN(tst_MountedUSBDeviceList)
#include "tst_MountedUSBDeviceList.moc"
