// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/MountedUSBDeviceList.h"
#include "shared/usb/USBDriveCleanAccessManager.h"
#include "tests/support/FileTree.h"
#include "tests/support/RefusedProcesses.h"
#include "tests/support/UdevTestBed.h"
#include "tests/usb/UsbTest.h"

#include <QDir>
#include <QTemporaryDir>

#include <cerrno>
#include <functional>
#include <memory>

#include <dlfcn.h>
#include <libudev.h>
#include <unistd.h>

using namespace Test;
using Tavro::Shared::MountedUSBDeviceList;
using Tavro::Shared::mountPathsStruct;
using Tavro::Shared::USBDriveCleanAccessManager;

namespace {

/** What libudev was asked for, and what it shall refuse. */
struct Ledger
{
    int contexts = 0; // handed out and not given back yet
    int enumerations = 0;
    int devices = 0;
    int calls = 0; // of the functions that hand something out
    int refused = -1; // the call that yields nothing, counted from 0
    std::function<void(int call)> before; // what happens just before a call
};

Ledger &ledger()
{
    static Ledger all;
    return all;
}

bool s_flushFails = false;

template<typename Function> Function *next(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

// true when this call is the one to refuse
bool isRefused()
{
    const int call = ledger().calls++;
    if (ledger().before) {
        ledger().before(call);
    }
    if (call == ledger().refused) {
        errno = ENOMEM;
        return true;
    }
    return false;
}

/** libudev calls some of these functions itself; those calls are its own affair. */
class Inner
{
public:
    Inner() { ++s_depth; }
    ~Inner() { --s_depth; }
    Inner(const Inner &) = delete;
    Inner &operator=(const Inner &) = delete;

    static bool isInside() { return s_depth > 0; }

private:
    static int s_depth;
};

int Inner::s_depth = 0;

template<typename Handle, typename... Arguments>
Handle *handOut(int &account, const char *name, Arguments... arguments)
{
    auto *function = next<Handle *(Arguments...)>(name);
    if (Inner::isInside()) {
        return function(arguments...);
    }
    if (isRefused()) {
        return nullptr;
    }
    const Inner inner;
    Handle *handle = function(arguments...);
    account += handle ? 1 : 0;
    return handle;
}

template<typename Handle> Handle *takeBack(int &account, const char *name, Handle *handle)
{
    if (!Inner::isInside() && handle) {
        --account;
    }
    const Inner inner;
    return next<Handle *(Handle *)>(name)(handle);
}

} // namespace

// these take the place of libudev's and the system's in all of the program

extern "C" udev *udev_new()
{
    return handOut<udev>(ledger().contexts, "udev_new");
}

extern "C" udev *udev_unref(udev *context)
{
    return takeBack(ledger().contexts, "udev_unref", context);
}

extern "C" udev_enumerate *udev_enumerate_new(udev *context)
{
    return handOut<udev_enumerate>(ledger().enumerations, "udev_enumerate_new", context);
}

extern "C" udev_enumerate *udev_enumerate_unref(udev_enumerate *enumeration)
{
    return takeBack(ledger().enumerations, "udev_enumerate_unref", enumeration);
}

extern "C" udev_device *udev_device_new_from_syspath(udev *context, const char *path)
{
    return handOut<udev_device>(ledger().devices, "udev_device_new_from_syspath", context, path);
}

extern "C" udev_device *udev_device_new_from_subsystem_sysname(udev *context, const char *subsystem,
                                                               const char *name)
{
    return handOut<udev_device>(ledger().devices, "udev_device_new_from_subsystem_sysname", context,
                                subsystem, name);
}

extern "C" udev_device *udev_device_unref(udev_device *device)
{
    return takeBack(ledger().devices, "udev_device_unref", device);
}

extern "C" int fsync(int file)
{
    if (s_flushFails) {
        errno = EIO;
        return -1;
    }
    return next<int(int)>("fsync")(file);
}

/**
 * What happens when libudev refuses, a device vanishes, or a drive does not take what is flushed;
 * and that every handle goes back on every path.
 */
class tst_UsbFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void everyHandleGoesBack();
    void noHandleIsLostWhenOneIsRefused();
    void withoutAContextThereIsNoDevice();
    void withoutTheSecondContextTheTableIsBelieved();
    void aDeviceThatVanishesMidWayIsSkipped();
    void aChildBelongsToTheCaller();
    void aFailedFlushIsNoSuccess();
    void aRefusedMountIsIgnored();
    void aRefusedUnmountIsTriedAgain();

private:
    std::unique_ptr<UsbCommands> m_commands;
    std::unique_ptr<UdevTestBed> m_bed;
    QByteArray m_first;
    QByteArray m_second;
};

void tst_UsbFaults::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
}

void tst_UsbFaults::init()
{
    m_commands = std::make_unique<UsbCommands>();
    m_bed = std::make_unique<UdevTestBed>();
    m_first = m_bed->addStick("sda", {{"sda1", "vfat"}});
    m_second = m_bed->addStick("sdb", {{"sdb1", "vfat"}});
    // one that lacks a disk and one that hangs on no USB device: handles go back there, too
    const QByteArray reader =
        m_bed->addScsiDevice(m_bed->addUsbStorage("1-7", "1", "2"), "7:0:0:0", "CD");
    m_bed->addBlockDevice(reader, "sr0", "/dev/sr0");
    const QByteArray sata =
        m_bed->addScsiDevice(m_bed->add("pci", "pci0000:01/sata", {}, {}, {}), "8:0:0:0", "Disk");
    m_bed->addScsiDisk(sata, "8:0:0:0");
    m_bed->addBlockDevice(sata, "sdc", "/dev/sdc");

    QVERIFY(QDir().mkpath(QStringLiteral("/media/usbdrive/b")));
    for (const char *node : {"/dev/sda1", "/dev/sdb1"}) {
        makeFile(QLatin1String(node), QByteArray(512, '\0'));
    }
    PrivateMounts::setMountTable(mounted("/dev/sda1", "/media/usbdrive")
                                 + mounted("/dev/sdb1", "/media/usbdrive/b"));
    ledger() = Ledger();
}

void tst_UsbFaults::cleanup()
{
    s_flushFails = false;
    ledger() = Ledger();
    m_bed.reset();
    m_commands.reset();
    QVERIFY(QDir(QStringLiteral("/media/usbdrive")).removeRecursively());
    QFile::remove(QStringLiteral("/dev/sda1"));
    QFile::remove(QStringLiteral("/dev/sdb1"));
}

#define COMPARE_LEDGER_IS_EVEN() \
    QCOMPARE(ledger().contexts, 0); \
    QCOMPARE(ledger().enumerations, 0); \
    QCOMPARE(ledger().devices, 0)

void tst_UsbFaults::everyHandleGoesBack()
{
    const mountPathsStruct paths = MountedUSBDeviceList::getUSBMountPaths();
    QCOMPARE(paths.items.size(), 2);
    QVERIFY(ledger().calls > 10); // the program's own functions are in use
    COMPARE_LEDGER_IS_EVEN();
}

void tst_UsbFaults::noHandleIsLostWhenOneIsRefused()
{
    MountedUSBDeviceList::getUSBMountPaths();
    const int calls = ledger().calls;
    QVERIFY(calls > 10);
    for (int i = 0; i < calls; ++i) {
        ledger() = Ledger();
        ledger().refused = i;
        const mountPathsStruct paths = MountedUSBDeviceList::getUSBMountPaths();
        QVERIFY2(paths.items.size() <= 2, qPrintable(QString::number(i)));
        QVERIFY2(ledger().calls > i, qPrintable(QString::number(i))); // the fault has struck
        COMPARE_LEDGER_IS_EVEN();
    }
}

void tst_UsbFaults::withoutAContextThereIsNoDevice()
{
    ledger().refused = 0;
    PrivateMounts::setMountTable({});
    m_commands->mountingSets(mounted("/dev/sda1", "/media/usbdrive"));
    QVERIFY(MountedUSBDeviceList::getUSBMountInfo().isEmpty());
    // what was mounted for the look is unmounted all the same
    QCOMPARE(m_commands->journal(),
             (QStringList{QStringLiteral("mount /dev/sda1"), QStringLiteral("umount /dev/sda1")}));
}

void tst_UsbFaults::withoutTheSecondContextTheTableIsBelieved()
{
    int contexts = 0;
    QVERIFY(m_bed);
    // the call that asks for the second context: after all of the enumeration's
    ledger().before = [&](int call) {
        if (call > 0 && ledger().contexts == 0) {
            ledger().refused = contexts++ == 0 ? call : -1;
        }
    };
    const mountPathsStruct paths = MountedUSBDeviceList::getUSBMountPaths();
    QVERIFY(contexts > 0);
    QCOMPARE(paths.items.size(), 2);
    QCOMPARE(paths.items.at(0).fileSystemType, QStringLiteral("vfat"));
    QCOMPARE(paths.items.at(1).fileSystemType, QStringLiteral("fat32"));
    COMPARE_LEDGER_IS_EVEN();
}

void tst_UsbFaults::aDeviceThatVanishesMidWayIsSkipped()
{
    MountedUSBDeviceList::getUSBMountPaths();
    const int calls = ledger().calls;
    bool wasMissed = false;
    for (int i = 0; i < calls; ++i) {
        ledger() = Ledger();
        ledger().before = [&](int call) {
            if (call == i) {
                m_bed->remove(m_first);
            }
        };
        const auto devices = MountedUSBDeviceList::getUSBMountInfo();
        QVERIFY2(!devices.isEmpty(), qPrintable(QString::number(i)));
        QCOMPARE(devices.last()->deviceNode(), QStringLiteral("/dev/sdb"));
        QCOMPARE(devices.last()->mountInfo().items.size(), 1);
        wasMissed = wasMissed || devices.size() == 1;
        COMPARE_LEDGER_IS_EVEN();

        ledger() = Ledger();
        m_bed->remove(m_second);
        m_bed.reset();
        m_bed = std::make_unique<UdevTestBed>();
        m_first = m_bed->addStick("sda", {{"sda1", "vfat"}});
        m_second = m_bed->addStick("sdb", {{"sdb1", "vfat"}});
    }
    QVERIFY(wasMissed);
}

void tst_UsbFaults::aChildBelongsToTheCaller()
{
    udev *context = udev_new();
    udev_device *parent = udev_device_new_from_syspath(context, m_first.constData());
    QVERIFY(parent);
    QCOMPARE(ledger().devices, 1);
    udev_device *child = MountedUSBDeviceList::getChild(context, parent, "block");
    QVERIFY(child);
    QCOMPARE(ledger().devices, 2);
    QCOMPARE(ledger().enumerations, 0);
    udev_device_unref(child);
    QVERIFY(!MountedUSBDeviceList::getChild(context, parent, "none"));
    QCOMPARE(ledger().devices, 1);
    ledger().refused = ledger().calls;
    QVERIFY(!MountedUSBDeviceList::getChild(context, parent, "block"));
    QCOMPARE(ledger().enumerations, 0);
    udev_device_unref(parent);
    udev_unref(context);
    COMPARE_LEDGER_IS_EVEN();
}

void tst_UsbFaults::aFailedFlushIsNoSuccess()
{
    const QTemporaryDir folder;
    const QString device = folder.filePath(QStringLiteral("device"));
    QVERIFY(USBDriveCleanAccessManager::writeByteIntoDev(device, 65, 1));
    s_flushFails = true;
    QVERIFY(!USBDriveCleanAccessManager::writeByteIntoDev(device, 65, 1));
}

void tst_UsbFaults::aRefusedMountIsIgnored()
{
    const RefusedProcesses refused(EAGAIN);
    MountedUSBDeviceList::mountUSB();
    QCOMPARE(refused.count(), 1);
    QVERIFY(RefusedProcesses::killedGroups().empty());
    QCOMPARE(m_commands->journal(), QStringList());
}

void tst_UsbFaults::aRefusedUnmountIsTriedAgain()
{
    PrivateMounts::setMountTable(mounted("/dev/sda1", "/media/usbdrive"));
    const RefusedProcesses refused(ENOMEM, 3); // "umount", "usleep", "umount"
    MountedUSBDeviceList::dismountUSB();
    QCOMPARE(refused.count(), 3);
    QVERIFY(RefusedProcesses::killedGroups().empty());
    QCOMPARE(m_commands->journal(),
             (QStringList{QStringLiteral("usleep 500"), QStringLiteral("umount /dev/sda1")}));
}

USB_TEST_MAIN(tst_UsbFaults)
#include "tst_UsbFaults.moc"
