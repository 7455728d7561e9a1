#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * Brackets a time of writing to the USB drive: lock() mounts it and marks its FAT file system as
 * in use, unlock() unmounts it and marks it clean.
 *
 * The mark is the dirty byte of the volume, written to the block device itself. A drive that is
 * pulled, or loses its power, between the two has it set, and the next system that meets the
 * drive checks it. The mark is not asked before it is set: a volume that was dirty before lock()
 * is clean after unlock(), although nobody has checked it.
 *
 * There is no count: every call acts at once. An unlock() is about the volume that a lock() has
 * found last. Where its device has become another volume's, because another drive was plugged in
 * or this one formatted, neither function writes to it: kind of FAT, OEM name, volume serial number
 * and sizes in the boot sector have to be those that lock() has found.
 *
 * Every function works on the caller's thread and **blocks it while commands run
 * and the device is written**. One object brackets one writer. Needs the right to mount the
 * drive and to write to its block device.
 */
class OVO_SHARED_EXPORT USBDriveCleanAccessManager : public QObject
{
    Q_OBJECT

public:
    explicit USBDriveCleanAccessManager(QObject *parent = nullptr);
    ~USBDriveCleanAccessManager() override;

    /**
     * Mounts the drive and marks the partition dirty that holds @p mountPath: the first one with
     * a mount point by which the path begins. **Only the letters count**: with the mount point
     * /media/usbdrive the path /media/usbdrive-backup/x is on the drive, /media is not. Where no
     * mount point fits, the partition found by an earlier call is marked once more.
     *
     * True when the mark is on the device. False where there is no partition to write to (the
     * drive is left as it is then, though it may have been mounted for the look), and where the
     * partition cannot be marked. The drive is mounted nevertheless in these cases:
     * - its type has no dirty byte ("vfat", "ntfs", "exfat");
     * - the right to read from and write to the device is missing;
     * - the device is another volume's by now;
     * - no call has found a partition yet.
     *
     * **Blocks without limit** as MountedUSBDeviceList::getUSBMountPaths() and mountUSB() do, and
     * until all of the system's caches are written.
     */
    Q_INVOKABLE bool lock(const QString &mountPath);

    /**
     * Unmounts the drive if it is mounted on /media/usbdrive, and marks the partition of the last
     * lock() clean. True when the mark is on the device. False where it is not, where the device is
     * another volume's by now, and where no lock() has found a partition: the drive is unmounted
     * nevertheless.
     *
     * **Blocks without limit**, for good where the drive stays in use, as
     * MountedUSBDeviceList::dismountUSB() does.
     */
    Q_INVOKABLE bool unlock();

    /**
     * Writes 1 to the dirty byte of a file system of the type @p fileSystemType on
     * @p devicePath; the result is that of writeByteIntoDev(), false for types without one.
     */
    static bool setDirtyFlag(const QString &devicePath, const QString &fileSystemType);

    /** Writes 0 there, and is as setDirtyFlag() in everything else. */
    static bool clearDirtyFlag(const QString &devicePath, const QString &fileSystemType);

    /**
     * Replaces one whole byte, at @p offset bytes from the beginning of @p devicePath. True when
     * the device has taken it. False for a negative offset, and when the device cannot be opened
     * or does not take the byte. Blocks until all of the system's caches are written.
     *
     * **A regular file is emptied first**, or created, so that all before the byte reads 0. Below
     * /dev/, though, a name that does not exist is not opened: it is that of a pulled drive, and
     * the next drive could not get its node.
     */
    static bool writeByteIntoDev(const QString &devicePath, qint64 offset, char value);

    /**
     * The byte at @p offset bytes from the beginning of @p devicePath. **0 also when the offset is
     * negative or nothing can be read there.** Blocks while the device is read.
     */
    static char readByteFromDev(const QString &devicePath, qint64 offset);

private:
    class Private;

    std::unique_ptr<Private> d;
};

/**
 * Where the dirty byte of a FAT volume is, in bytes from the beginning of its partition (the
 * reserved byte behind the drive number, of the FAT boot sector): 37 for "fat12" and "fat16", 65
 * for "fat32". -1 for every other type: there is none.
 */
OVO_SHARED_EXPORT qint64 getDirtyByteOffset(const QString &fileSystemType);

} // namespace Tavro::Shared
