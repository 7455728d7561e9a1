// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * Marks the USB drive as in use while it is written to: lock() mounts the drive and marks its FAT
 * file system dirty, unlock() unmounts it and marks it clean.
 *
 * The mark is the dirty byte of the volume, see getDirtyByteOffset(). It is written to the block
 * device. If the drive is pulled or loses its power between lock() and unlock(), the byte stays
 * set, and the next system that uses the drive checks it. lock() does not check the byte before:
 * a volume that was dirty before lock() is clean after unlock(), although it has not been checked.
 *
 * Calls are not counted: each one acts at once. unlock() applies to the volume that a lock() has
 * found last. If the device contains another volume by then, because another drive was plugged in
 * or the drive was formatted, neither function writes to it: type of FAT, OEM name, volume serial
 * number and the sizes in the boot sector must be those that lock() has found.
 *
 * The functions run on the thread of the caller and **block while commands run and the device is
 * written**. Not thread-safe; use one object for each writer. The process needs the rights to mount
 * the drive and to read and write its block device. Nothing is logged.
 */
class OVO_SHARED_EXPORT USBDriveCleanAccessManager : public QObject
{
    Q_OBJECT

public:
    explicit USBDriveCleanAccessManager(QObject *parent = nullptr);
    ~USBDriveCleanAccessManager() override;

    /**
     * Mounts the drive and marks the partition of @p mountPath dirty: the first one in
     * MountedUSBDeviceList::getUSBMountPaths() whose mount point is a prefix of the path. **The
     * paths are compared as texts**: with the mount point /media/usbdrive, the path
     * /media/usbdrive-backup/x matches and /media does not. If no mount point matches, the
     * partition of an earlier call is marked again.
     *
     * Returns true when the mark is on the device. Returns false when there is no writable
     * partition; then the drive is left as it was, apart from the temporary mount to inspect it.
     * Returns false also when the partition cannot be marked; then the drive is mounted
     * nevertheless:
     * - its type has no dirty byte ("vfat", "ntfs", "exfat");
     * - the right to read and write the device is missing;
     * - the device contains another volume by now;
     * - no call has found a partition yet.
     *
     * **Blocks without limit** as MountedUSBDeviceList::getUSBMountPaths() and mountUSB() do, and
     * until sync() has written all caches of the system.
     */
    Q_INVOKABLE bool lock(const QString &mountPath);

    /**
     * Unmounts the drive if it is mounted on /media/usbdrive, and marks the partition that lock()
     * has found last as clean. Returns true when the mark is on the device. Returns false when the
     * byte cannot be written, when the device contains another volume by now, and when no lock()
     * has found a partition. The drive is unmounted in all cases.
     *
     * **Blocks without limit** as MountedUSBDeviceList::dismountUSB() does: for ever while the
     * drive is in use. Then blocks until sync() has written all caches of the system.
     */
    Q_INVOKABLE bool unlock();

    /**
     * Sets the dirty byte on @p devicePath to 1. @p fileSystemType determines its offset, see
     * getDirtyByteOffset(). Returns false for a type without a dirty byte, else the result of
     * writeByteIntoDev(); see there for errors and blocking. Does not check which volume the device
     * contains.
     */
    static bool setDirtyFlag(const QString &devicePath, const QString &fileSystemType);

    /** Sets the dirty byte to 0. See setDirtyFlag() for parameters, errors and blocking. */
    static bool clearDirtyFlag(const QString &devicePath, const QString &fileSystemType);

    /**
     * Writes @p value to the byte at @p offset, in bytes from the beginning of @p devicePath.
     * Returns true when the byte is on the device. Returns false for a negative offset, and when
     * the device cannot be opened or written. Blocks until sync() has written all caches of the
     * system.
     *
     * **A regular file is truncated first**, or created, so all bytes before the offset read 0. A
     * name below /dev/ that does not exist is not created: it belongs to a drive that was pulled,
     * and a file of that name would take the place of the next drive's node.
     */
    static bool writeByteIntoDev(const QString &devicePath, qint64 offset, char value);

    /**
     * Returns the byte at @p offset, in bytes from the beginning of @p devicePath. **Returns 0 also
     * when the offset is negative or the byte cannot be read.** Blocks while the device is read.
     */
    static char readByteFromDev(const QString &devicePath, qint64 offset);

private:
    class Private;

    std::unique_ptr<Private> d;
};

/**
 * Offset of the dirty byte of a FAT volume, in bytes from the beginning of its partition: 37 for
 * "fat12" and "fat16", 65 for "fat32". It is the reserved byte after the drive number in the FAT
 * boot sector. -1 for any other type, which has no dirty byte. Any thread; does not block.
 */
OVO_SHARED_EXPORT qint64 getDirtyByteOffset(const QString &fileSystemType);

} // namespace Tavro::Shared
