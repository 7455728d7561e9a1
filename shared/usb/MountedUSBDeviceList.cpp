// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/MountedUSBDeviceList.h"

#include "shared/base/detail/ChildProcess.h"
#include "shared/usb/detail/FileHandle.h"
#include "shared/usb/detail/MountTable.h"
#include "shared/usb/detail/UdevHandles.h"

#include <QDir>
#include <QtEndian>

#include <algorithm>

namespace Tavro::Shared {

namespace {

constexpr qint64 s_sectorsPerFatOffset = 22; // in a FAT boot sector

constexpr QStringView s_usbDevice(u"/dev/sda1");
constexpr QStringView s_devicePrefix(u"/dev/");

bool isAcceptedType(const QString &fileSystemType)
{
    static const char *const types[] = {
        "fat12", "fat16", "fat32", "vfat", "ntfs", "exfat",
    };
    return std::any_of(std::begin(types), std::end(types),
                       [&](const char *type) { return fileSystemType == QLatin1String(type); });
}

// the fixed table of the system, not the count of clusters that defines FAT
QString fatSubtypeOf(quint16 sectorsPerFat)
{
    static constexpr struct
    {
        quint16 sectorsPerFat;
        const char *subtype;
    } table[] = {
        {256, "fat12"},
        {512, "fat16"},
        {0, "fat32"},
    };
    for (const auto &row : table) {
        if (row.sectorsPerFat == sectorsPerFat) {
            return QLatin1String(row.subtype);
        }
    }
    return {};
}

// null unless the SCSI device is a disk on a USB device
QSharedPointer<usbDeviceInfo> massStorageDevice(udev *context, udev_device *scsiDevice)
{
    const detail::UdevDevice block(MountedUSBDeviceList::getChild(context, scsiDevice, "block"));
    const detail::UdevDevice disk(MountedUSBDeviceList::getChild(context, scsiDevice, "scsi_disk"));
    // belongs to scsiDevice
    udev_device *usb =
        udev_device_get_parent_with_subsystem_devtype(scsiDevice, "usb", "usb_device");
    if (!block || !disk || !usb) {
        return {};
    }
    const char *node = udev_device_get_devnode(block.get());
    if (!node) {
        return {}; // every mounted partition would begin with an empty name
    }
    const auto attribute = [](udev_device *device, const char *name) {
        return QString::fromUtf8(udev_device_get_sysattr_value(device, name));
    };
    return QSharedPointer<usbDeviceInfo>::create(
        QFile::decodeName(node), attribute(usb, "idVendor"), attribute(usb, "idProduct"),
        attribute(scsiDevice, "vendor"));
}

// the mount table says "vfat" for every FAT; the type is on the device
void refineFatTypes(QList<mountItem> &items)
{
    if (items.isEmpty()) {
        return;
    }
    const detail::UdevContext context(udev_new());
    if (!context) {
        return;
    }
    for (mountItem &item : items) {
        const QString path = item.device.absoluteFilePath();
        if (!path.startsWith(s_devicePrefix)) {
            continue;
        }
        const QByteArray kernelName = QFile::encodeName(path.mid(s_devicePrefix.size()));
        const detail::UdevDevice partition(
            udev_device_new_from_subsystem_sysname(context.get(), "block", kernelName.constData()));
        if (!partition) {
            continue; // pulled in the meantime
        }
        if (qstrcmp(udev_device_get_property_value(partition.get(), "ID_FS_TYPE"), "vfat") == 0) {
            item.fileSystemType = MountedUSBDeviceList::getFatSubtype(path);
        }
    }
}

mountPathsStruct mountInfoOf(const usbDeviceInfo &device, const QList<mountItem> &mountTable)
{
    mountPathsStruct info;
    info.items = findAllItemsWithPrefix(mountTable, device.deviceNode());
    refineFatTypes(info.items);
    // without items the flag keeps its default
    for (const mountItem &item : qAsConst(info.items)) {
        info.supported = info.supported && isAcceptedType(item.fileSystemType);
    }
    return info;
}

} // namespace

class Q_DECL_HIDDEN usbDeviceInfo::Private
{
public:
    QString deviceNode;
    QString vendorId;
    QString productId;
    QString vendorName;
    mountPathsStruct mountInfo;
};

usbDeviceInfo::usbDeviceInfo(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

usbDeviceInfo::usbDeviceInfo(const QString &deviceNode, const QString &vendorId,
                             const QString &productId, const QString &vendorName, QObject *parent)
    : QObject(parent)
    , d(new Private{deviceNode, vendorId, productId, vendorName, {}})
{
}

usbDeviceInfo::~usbDeviceInfo() = default;

QString usbDeviceInfo::deviceNode() const
{
    return d->deviceNode;
}

QString usbDeviceInfo::vendorId() const
{
    return d->vendorId;
}

QString usbDeviceInfo::productId() const
{
    return d->productId;
}

QString usbDeviceInfo::vendorName() const
{
    return d->vendorName;
}

mountPathsStruct usbDeviceInfo::mountInfo() const
{
    return d->mountInfo;
}

void usbDeviceInfo::setMountInfo(const mountPathsStruct &mountInfo)
{
    d->mountInfo = mountInfo;
}

class Q_DECL_HIDDEN MountedUSBDeviceList::Private
{
};

MountedUSBDeviceList::MountedUSBDeviceList(QObject *parent)
    : QObject(parent)
{
}

MountedUSBDeviceList::~MountedUSBDeviceList() = default;

bool MountedUSBDeviceList::isUSBMounted()
{
    return detail::isUsbDriveInMountTable();
}

void MountedUSBDeviceList::mountUSB()
{
    detail::exitCodeOf(QStringLiteral("mount"), {s_usbDevice.toString()});
}

void MountedUSBDeviceList::dismountUSB()
{
    if (!isUSBMounted()) {
        return;
    }
    // for ever, if need be: a drive that is still mounted must not count as safe to pull
    while (detail::exitCodeOf(QStringLiteral("umount"), {s_usbDevice.toString()}) != 0) {
        detail::exitCodeOf(QStringLiteral("usleep"), {QStringLiteral("500")});
    }
}

QList<QSharedPointer<usbDeviceInfo>> MountedUSBDeviceList::getUSBMountInfo()
{
    const bool mountedForTheLook = !isUSBMounted();
    if (mountedForTheLook) {
        mountUSB();
    }
    QList<QSharedPointer<usbDeviceInfo>> devices;
    {
        const detail::UdevContext context(udev_new());
        enumerateUsbMassStorageDevices(context.get(), devices);
    }
    const QList<mountItem> mountTable = detail::readMountTable();
    for (const auto &device : qAsConst(devices)) {
        device->setMountInfo(mountInfoOf(*device, mountTable));
    }
    if (mountedForTheLook) {
        dismountUSB();
    }
    return devices;
}

mountPathsStruct MountedUSBDeviceList::getUSBMountPaths()
{
    mountPathsStruct paths;
    const auto devices = getUSBMountInfo();
    for (const auto &device : devices) {
        const mountPathsStruct info = device->mountInfo();
        for (const mountItem &item : info.items) {
            if (item.mountPoint.exists() && item.mountPoint.isDir()
                && item.mountPoint.isWritable()) {
                paths.items.append(item);
            }
        }
        // also of a device without a writable partition
        paths.supported = paths.supported && info.supported;
    }
    return paths;
}

QVariantList MountedUSBDeviceList::getUSBMountPathRoot()
{
    const mountPathsStruct paths = getUSBMountPaths();
    if (paths.items.isEmpty()) {
        return {QString(), false};
    }
    const QString first = paths.items.first().mountPoint.absoluteFilePath();
    if (paths.items.size() == 1) {
        return {first, paths.supported};
    }
    QDir parent(first);
    if (!parent.cdUp() || parent.isRoot()) {
        return {first, paths.supported};
    }
    return {parent.absolutePath(), paths.supported};
}

QString MountedUSBDeviceList::getFatSubtype(const QString &devicePath)
{
    const detail::FileHandle device = detail::openForReading(devicePath);
    uchar bytes[sizeof(quint16)] = {};
    // a number that was not read must not count as the 0 of FAT32
    if (!device || ::fseeko(device.get(), s_sectorsPerFatOffset, SEEK_SET) != 0
        || std::fread(bytes, sizeof bytes, 1, device.get()) != 1) {
        return {};
    }
    return fatSubtypeOf(qFromLittleEndian<quint16>(bytes));
}

void MountedUSBDeviceList::enumerateUsbMassStorageDevices(
    udev *context, QList<QSharedPointer<usbDeviceInfo>> &devices)
{
    if (!context) {
        return;
    }
    const detail::UdevEnumeration enumeration(udev_enumerate_new(context));
    if (!enumeration) {
        return;
    }
    udev_enumerate_add_match_subsystem(enumeration.get(), "scsi");
    // a host and a target also have the disk below them and the USB device above them
    udev_enumerate_add_match_property(enumeration.get(), "DEVTYPE", "scsi_device");
    udev_enumerate_scan_devices(enumeration.get());
    udev_list_entry *entry = udev_enumerate_get_list_entry(enumeration.get());
    for (; entry; entry = udev_list_entry_get_next(entry)) {
        const detail::UdevDevice scsiDevice(
            udev_device_new_from_syspath(context, udev_list_entry_get_name(entry)));
        if (!scsiDevice) {
            continue; // gone since the scan
        }
        const auto device = massStorageDevice(context, scsiDevice.get());
        if (device) {
            devices.append(device);
        }
    }
}

udev_device *MountedUSBDeviceList::getChild(udev *context, udev_device *parent,
                                            const char *subsystem)
{
    const detail::UdevEnumeration enumeration(udev_enumerate_new(context));
    if (!enumeration) {
        return nullptr;
    }
    udev_enumerate_add_match_parent(enumeration.get(), parent);
    udev_enumerate_add_match_subsystem(enumeration.get(), subsystem);
    udev_enumerate_scan_devices(enumeration.get());
    udev_list_entry *first = udev_enumerate_get_list_entry(enumeration.get());
    return first ? udev_device_new_from_syspath(context, udev_list_entry_get_name(first)) : nullptr;
}

QList<mountItem> findAllItemsWithPrefix(const QList<mountItem> &items, const QString &prefix)
{
    QList<mountItem> found;
    std::copy_if(items.begin(), items.end(), std::back_inserter(found), [&](const mountItem &item) {
        return item.device.absoluteFilePath().startsWith(prefix);
    });
    return found;
}

} // namespace Tavro::Shared
