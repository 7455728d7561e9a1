// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/usb/MountedUSBDeviceList.h"

#include <QMutex>
#include <QString>

#include <optional>

namespace Tavro::FieldHost {

/** Where the library mounts the drive. */
extern const char usbMountPoint[];

/**
 * To be held around calls of MountedUSBDeviceList that mount or unmount the drive, and around all
 * that has to find it as it is: one thread would unmount it beneath another. DriveAccess and the
 * functions below that call them hold it. Looking at the mount table alone needs no lock.
 */
QRecursiveMutex &usbDriveMutex();

/** Whether an absolute path, links resolved, is to be found on the drive once it is mounted. */
bool isOnUsbDrive(const QString &path);

/** The device that is mounted as the drive, by the mount table; empty when there is none. */
QString mountedUsbDevice();
/** Whether what mountedUsbDevice() has returned is no longer there. */
bool isPulledOut(const QString &device);
/** What the user is to do about it, in two sentences: before it is unmounted, and after. */
QString pulledOutWhileMounted();
QString unmountedAfterPull();

/**
 * The mounted partition that a lock of @p path takes. If isUSBMounted(), asking runs no command;
 * otherwise the drive is mounted temporarily to inspect it.
 */
std::optional<Shared::mountItem> partitionOf(const QString &path);

/**
 * The kind of file system, as "fat16" or "exfat"; empty for a FAT of no known type. Which FAT it is
 * a volume says itself, and the type of the library differs: see getFatSubtype().
 */
QString kindOf(const Shared::mountItem &partition);

/** A partition in words: "/dev/sda1" (fat32). */
QString described(const Shared::mountItem &partition);

/** What the user lacks to mount the drive, as a sentence; empty when nothing is known to lack. */
QString missingMountRight();
/** What the user lacks to write to a block device; the same way. */
QString missingWriteRight(const QString &device);
/** What the user lacks to read a block device; the same way. */
QString missingReadRight(const QString &device);

/** Why a lock of @p path has answered false, in a sentence or two. */
QString whyNotMarked(const QString &path);

/** What became of a drive that was to be unmounted and marked clean. */
struct UnmountResult
{
    bool isClean = false; // or has no mark
    QString sentence; // for the user
};

/**
 * Unmounts the drive, as soon as nobody uses it, and clears its mark. Writes to no other volume
 * that has taken its place meanwhile.
 */
UnmountResult unmountUsbDrive();

/** True for file systems of the FAT family, whose files have less than 4 GiB. */
bool isFat(const QString &fileSystemType);

} // namespace Tavro::FieldHost
