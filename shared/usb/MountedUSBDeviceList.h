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
    /** Its block device, such as "/dev/sda1". */
    QFileInfo device;
    /** The directory that it is mounted on. */
    QFileInfo mountPoint;
    /**
     * The mount table's type, such as "exfat". For a FAT file system "fat12", "fat16", "fat32" or
     * empty, see MountedUSBDeviceList::getFatSubtype().
     */
    QString fileSystemType;
};

/** Mounted partitions, and whether the application can work with all of them. */
struct mountPathsStruct
{
    /** In the order of the mount table. */
    QList<mountItem> items;
    /**
     * True when every item's type is one of "fat12", "fat16", "fat32", "vfat", "ntfs" and
     * "exfat", in exactly this spelling; true, too, where there is no item.
     */
    bool supported = true;
};

/** A USB mass-storage device, as MountedUSBDeviceList found it; it does not change by itself. */
class OVO_SHARED_EXPORT usbDeviceInfo : public QObject
{
    Q_OBJECT

public:
    explicit usbDeviceInfo(QObject *parent = nullptr);
    /** Texts as the readers below describe them; nothing is mounted yet. */
    usbDeviceInfo(const QString &deviceNode, const QString &vendorId, const QString &productId,
                  const QString &vendorName, QObject *parent = nullptr);
    ~usbDeviceInfo() override;

    /** Node of the whole disk, such as "/dev/sda". */
    QString deviceNode() const;
    /** Four hexadecimal digits as the USB device gives them; empty when the system has none. */
    QString vendorId() const;
    /** Four hexadecimal digits as the USB device gives them; empty when the system has none. */
    QString productId() const;
    /**
     * Name of the maker, as the disk gives it: often filled up to eight letters with blanks at its
     * end. Empty when the system has none.
     */
    QString vendorName() const;
    /** The partitions of this disk that are mounted; none and supported until they are set. */
    mountPathsStruct mountInfo() const;

    /** Takes over the items and the flag of @p mountInfo. */
    void setMountInfo(const mountPathsStruct &mountInfo);

private:
    class Private;

    std::unique_ptr<Private> d;
};

/**
 * The USB mass-storage devices attached to this system, their mounted partitions, and the
 * directory to offer as "the" USB drive.
 *
 * The system expects one drive: the partition /dev/sda1, which /etc/fstab mounts on
 * /media/usbdrive. Nothing is kept between two calls. Every function looks afresh, on the
 * caller's thread, normally the GUI thread; two threads must not be in here at the same time, as
 * the C library hands out the entries of a mount table in one place.
 *
 * **Where nothing is mounted on /media/usbdrive, the functions that look for mounted partitions
 * mount the drive for the look and unmount it again.** Each says so.
 */
class OVO_SHARED_EXPORT MountedUSBDeviceList : public QObject
{
    Q_OBJECT

public:
    explicit MountedUSBDeviceList(QObject *parent = nullptr);
    ~MountedUSBDeviceList() override;

    /**
     * Whether /etc/mtab has a device whose name begins with "/dev" mounted on exactly
     * "/media/usbdrive". False, too, when the table cannot be read. Does not block.
     */
    static bool isUSBMounted();

    /**
     * Runs "mount /dev/sda1", found through PATH, whatever is mounted already. Whether it worked
     * is answered by isUSBMounted(). **Blocks, without limit, until the command has ended.**
     */
    static void mountUSB();

    /**
     * Runs "umount /dev/sda1" if isUSBMounted(), and "usleep 500" and "umount /dev/sda1" again
     * until the latter ends with exit code 0; a command that is missing or crashes has not ended
     * so. **Blocks without limit**, and for good where the drive stays in use: a program with
     * an open file or its working directory on it, or a missing right to unmount.
     */
    static void dismountUSB();

    /**
     * The USB mass-storage devices, with and without medium, in the system's order; each with
     * its mounted partitions in the order of the mount table. Partitions are told by their
     * name's beginning: /dev/sda takes /dev/sda1, and /dev/sdaa1, too. Empty when there is no
     * device or no libudev.
     *
     * Mounts the drive for the look and unmounts it again if nothing is mounted on
     * /media/usbdrive. **Blocks without limit** then, as mountUSB() and dismountUSB() do.
     */
    static QList<QSharedPointer<usbDeviceInfo>> getUSBMountInfo();

    /**
     * The mounted partitions of all these devices whose mount point is a directory that this
     * process may write to. The flag is true when no device has a mounted partition of another
     * type than those of mountPathsStruct, written to or not; true, too, without any device.
     *
     * Mounts the drive for the look and **blocks without limit**, as getUSBMountInfo() does.
     */
    static mountPathsStruct getUSBMountPaths();

    /**
     * The directory to offer as the USB drive, as a list of two: its absolute path (a text), and
     * whether all file systems on the drives are supported (a bool). Where several partitions
     * are mounted, it is the directory above the first one's mount point, unless that is "/": it is
     * on none of them then, and USBDriveCleanAccessManager::lock() marks nothing for it. An empty
     * text and false when no partition can be written to.
     *
     * Mounts the drive for the look and **blocks without limit**, as getUSBMountInfo() does.
     */
    Q_INVOKABLE static QVariantList getUSBMountPathRoot();

    /**
     * Which FAT a partition is taken for, by the 16-bit number at byte 22 of its boot sector
     * (sectors per FAT, little-endian): 256 "fat12", 512 "fat16", 0 "fat32". Empty for every
     * other number, and when the device cannot be read. Blocks while the device is read.
     *
     * This small table is what the system goes by, and not the rule of the FAT format, which
     * counts clusters. A FAT16 volume whose FAT has 256 sectors, as mkfs makes it by default for
     * some sizes, is called "fat12" here; most FAT12 volumes, which have far fewer, get no type.
     * The place of the dirty byte is the same for both. The number says nothing about devices
     * that hold no FAT at all: on exFAT and NTFS it is 0, too.
     */
    static QString getFatSubtype(const QString &devicePath);

    /**
     * Appends the USB mass-storage devices of @p context to @p devices, without mount
     * information: all SCSI devices with a block device and a disk that hang on a USB device.
     * Appends nothing when @p context is null. Mounts nothing. The context stays the caller's.
     */
    static void enumerateUsbMassStorageDevices(udev *context,
                                               QList<QSharedPointer<usbDeviceInfo>> &devices);

    /**
     * The first device of @p subsystem below @p parent, in libudev's order. Null when there is
     * none, and when libudev has no memory. **Belongs to the caller**, who gives it back with
     * udev_device_unref().
     */
    static udev_device *getChild(udev *context, udev_device *parent, const char *subsystem);

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

/**
 * Those of @p items whose device's absolute path begins with @p prefix, in their order. Upper and
 * lower case differ; an empty prefix takes all.
 */
OVO_SHARED_EXPORT QList<mountItem> findAllItemsWithPrefix(const QList<mountItem> &items,
                                                          const QString &prefix);

} // namespace Tavro::Shared
