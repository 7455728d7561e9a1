// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QFileInfo>
#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

#include <memory>

// of libudev; whoever calls the two functions that take them includes <libudev.h> and links it
struct udev;
struct udev_device;

namespace Tavro::Shared {

/** An entry of the mount table: one mounted partition. */
struct mountItem
{
    /** Block device of the partition, such as "/dev/sda1". */
    QFileInfo device;
    /** Directory on which the partition is mounted. */
    QFileInfo mountPoint;
    /**
     * Type of the file system in the mount table, such as "exfat". In results of
     * MountedUSBDeviceList, where udev reports FAT (ID_FS_TYPE "vfat"), it is the result of
     * MountedUSBDeviceList::getFatSubtype() instead: "fat12", "fat16", "fat32" or empty.
     */
    QString fileSystemType;
};

/** Mounted partitions, and whether the application supports the file systems of all of them. */
struct mountPathsStruct
{
    /** The partitions, in the order of the mount table. */
    QList<mountItem> items;
    /**
     * True when each type is one of "fat12", "fat16", "fat32", "vfat", "ntfs" and "exfat", compared
     * exactly, and when there are no partitions.
     */
    bool supported = true;
};

/**
 * A USB mass-storage device at the time when MountedUSBDeviceList found it. It is not updated.
 *
 * Holds values only: nothing blocks or fails. Not thread-safe.
 */
class OVO_SHARED_EXPORT usbDeviceInfo : public QObject
{
    Q_OBJECT

public:
    explicit usbDeviceInfo(QObject *parent = nullptr);
    /** Creates a device of the given values; see the readers below. mountInfo() is empty. */
    usbDeviceInfo(const QString &deviceNode, const QString &vendorId, const QString &productId,
                  const QString &vendorName, QObject *parent = nullptr);
    ~usbDeviceInfo() override;

    /** Device node of the whole disk, such as "/dev/sda". */
    QString deviceNode() const;
    /** USB vendor ID, idVendor in sysfs: four hexadecimal digits. Empty when there is none. */
    QString vendorId() const;
    /** USB product ID, idProduct in sysfs: four hexadecimal digits. Empty when there is none. */
    QString productId() const;
    /**
     * Name of the manufacturer, in the SCSI inquiry data of the disk: often padded with blanks to
     * eight characters. Empty when there is none.
     */
    QString vendorName() const;
    /** The mounted partitions of this disk. */
    mountPathsStruct mountInfo() const;

    /** Sets the mounted partitions. Default: no partitions, supported. */
    void setMountInfo(const mountPathsStruct &mountInfo);

private:
    class Private;

    std::unique_ptr<Private> d;
};

/**
 * Finds the USB mass-storage devices of the system, their mounted partitions, and the directory to
 * offer as the USB drive. Mounts and unmounts the drive.
 *
 * The USB drive is the partition /dev/sda1, which /etc/fstab mounts on /media/usbdrive. Both are
 * fixed. The class has no state: each call inspects the system again.
 *
 * The functions run on the thread of the caller, normally the GUI thread. Any thread may call those
 * that only read at any time, isUSBMounted() for example. Do not call one that mounts or unmounts
 * the drive while another thread is in one of the class: the drive would be unmounted beneath it.
 * Many block without limit, because they run "mount" and "umount"; each function says so. Nothing
 * is logged.
 *
 * **If nothing is mounted on /media/usbdrive, the functions that look for mounted partitions mount
 * the drive temporarily to inspect it, and unmount it again.** Each of them says so.
 */
class OVO_SHARED_EXPORT MountedUSBDeviceList : public QObject
{
    Q_OBJECT

public:
    explicit MountedUSBDeviceList(QObject *parent = nullptr);
    ~MountedUSBDeviceList() override;

    /**
     * Returns true when /etc/mtab lists a device whose name begins with "/dev" with the mount point
     * "/media/usbdrive", in exactly this spelling. Returns false when the table cannot be read.
     * Does not block.
     */
    static bool isUSBMounted();

    /**
     * Runs "mount /dev/sda1", which is found through PATH, even if the drive is mounted already.
     * Call isUSBMounted() to see whether it succeeded. **Blocks without limit until the command has
     * ended.**
     */
    static void mountUSB();

    /**
     * Does nothing unless isUSBMounted(). Runs "umount /dev/sda1", and repeats "usleep 500" and
     * "umount /dev/sda1" until umount exits with 0; a command that is missing or crashes counts as
     * failed. **Blocks without limit**: for ever while a program has an open file or its working
     * directory on the drive, or while the right to unmount is missing.
     */
    static void dismountUSB();

    /**
     * The USB mass-storage devices, with and without a medium, in the order of libudev. Each has
     * its mounted partitions, in the order of the mount table. A partition belongs to a device if
     * its name begins with that of the device: /dev/sda1 belongs to /dev/sda, but so does
     * /dev/sdaa1. Empty when there is no device or libudev cannot be used.
     *
     * If nothing is mounted on /media/usbdrive, mounts the drive temporarily to inspect it, and
     * then **blocks without limit** as mountUSB() and dismountUSB() do.
     */
    static QList<QSharedPointer<usbDeviceInfo>> getUSBMountInfo();

    /**
     * The partitions in getUSBMountInfo() whose mount point is a directory that this process may
     * write to. mountPathsStruct::supported takes all mounted partitions of all devices into
     * account, writable or not. It is true when there is no device.
     *
     * Mounts the drive temporarily and **blocks without limit** as getUSBMountInfo() does.
     */
    static mountPathsStruct getUSBMountPaths();

    /**
     * The directory to offer as the USB drive, as a list of two values: the absolute path
     * (QString), and mountPathsStruct::supported of getUSBMountPaths() (bool). An empty path and
     * false when no partition is writable.
     *
     * The directory is the mount point of the first writable partition. If several are writable, it
     * is the parent directory of that mount point, unless that is "/". The parent directory is on
     * none of the partitions, so USBDriveCleanAccessManager::lock() marks nothing for it.
     *
     * Mounts the drive temporarily and **blocks without limit** as getUSBMountInfo() does.
     */
    Q_INVOKABLE static QVariantList getUSBMountPathRoot();

    /**
     * Type of a FAT file system by the 16-bit little-endian number at byte 22 of its boot sector,
     * the sectors per FAT: "fat12" for 256, "fat16" for 512, "fat32" for 0. Empty for any other
     * number, and when the device cannot be read. Blocks while the device is read.
     *
     * The system uses this small table instead of the rule of the FAT format, which counts
     * clusters. So a FAT16 volume with 256 sectors per FAT, the default of mkfs for some sizes, is
     * "fat12", and most FAT12 volumes, which have far fewer, have no type. The dirty byte is at the
     * same offset in both. The device must contain a FAT: on exFAT and NTFS the number is 0, too.
     */
    static QString getFatSubtype(const QString &devicePath);

    /**
     * Appends the USB mass-storage devices of @p context to @p devices, without mount information:
     * the SCSI devices that have a block device and a disk below them and a USB device above them.
     * Appends nothing when @p context is null. Mounts nothing. The caller keeps the ownership of
     * @p context.
     */
    static void enumerateUsbMassStorageDevices(udev *context,
                                               QList<QSharedPointer<usbDeviceInfo>> &devices);

    /**
     * The first device of @p subsystem below @p parent, in the order of libudev. Null when there is
     * none, or when libudev is out of memory. **The caller owns the result** and releases it with
     * udev_device_unref().
     */
    static udev_device *getChild(udev *context, udev_device *parent, const char *subsystem);

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

/**
 * Returns the items whose device has an absolute path that begins with @p prefix, in their order.
 * The comparison is case-sensitive. An empty prefix matches all items. Does not block.
 */
OVO_SHARED_EXPORT QList<mountItem> findAllItemsWithPrefix(const QList<mountItem> &items,
                                                          const QString &prefix);

} // namespace Tavro::Shared
