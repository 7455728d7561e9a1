// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/UsbDrive.h"

#include "fieldhost/jobs/FatVolume.h"
#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"
#include "shared/usb/USBDriveCleanAccessManager.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include <mntent.h>
#include <unistd.h>

namespace Tavro::FieldHost {

using Shared::MountedUSBDeviceList;
using Shared::mountItem;

const char usbMountPoint[] = "/media/usbdrive";

namespace {

const char s_device[] = "/dev/sda1";
const char s_fstab[] = "/etc/fstab";
const char s_mountTable[] = "/etc/mtab";

struct TableCloser
{
    void operator()(std::FILE *table) const { ::endmntent(table); }
};

// Looks for an entry in a table of mounts. Screens ask while a thread looks at a drive, and
// getmntent() has one buffer for all threads.
template<typename Wanted> bool findEntry(const char *path, const Wanted &isWanted)
{
    const std::unique_ptr<std::FILE, TableCloser> table(::setmntent(path, "r"));
    mntent entry = {};
    std::array<char, 4096> line = {};
    while (table
           && ::getmntent_r(table.get(), &entry, line.data(), static_cast<int>(line.size()))) {
        if (isWanted(entry)) {
            return true;
        }
    }
    return false;
}

// whether /etc/fstab lets others than root mount the drive
bool mayAnybodyMount()
{
    static constexpr const char *options[] = {"user", "users", "owner", "group"};
    return findEntry(s_fstab, [](const mntent &entry) {
        return qstrcmp(entry.mnt_fsname, s_device) == 0
            && std::any_of(std::begin(options), std::end(options),
                           [&](const char *option) { return ::hasmntopt(&entry, option); });
    });
}

QString missingRight(const QString &device, int mode, const QString &needsRoot,
                     const QString &impossible)
{
    if (::access(QFile::encodeName(device).constData(), mode) == 0) {
        return {};
    }
    const int error = errno;
    if (error == EACCES || error == EPERM) {
        return needsRoot.arg(quoted(device));
    }
    return impossible.arg(quoted(device), systemText(error));
}

} // namespace

QRecursiveMutex &usbDriveMutex()
{
    static QRecursiveMutex mutex;
    return mutex;
}

bool isOnUsbDrive(const QString &path)
{
    return isSameOrBelow(path, QLatin1String(usbMountPoint));
}

// not by way of udev, which no longer knows a drive that was pulled out
QString mountedUsbDevice()
{
    QString device;
    findEntry(s_mountTable, [&](const mntent &entry) {
        const bool isDrive = qstrcmp(entry.mnt_dir, usbMountPoint) == 0
            && qstrncmp(entry.mnt_fsname, "/dev", 4) == 0;
        if (isDrive) {
            device = QFile::decodeName(entry.mnt_fsname);
        }
        return isDrive;
    });
    return device;
}

bool isPulledOut(const QString &device)
{
    return !device.isEmpty() && !QFile::exists(device);
}

QString pulledOutWhileMounted()
{
    return JobText::tr("The USB drive on %1 was pulled out. Run \"ovo-fieldhost usb unlock\", then "
                       "plug it in again.")
        .arg(quoted(QString::fromLatin1(usbMountPoint)));
}

QString unmountedAfterPull()
{
    return JobText::tr(
        "The USB drive was pulled out while it was mounted. It is unmounted now, but "
        "what was written last may be missing, and a FAT volume is still marked as "
        "in use. Plug it in again and check it, or lock and unlock it, which marks "
        "it clean.");
}

std::optional<mountItem> partitionOf(const QString &path)
{
    const QMutexLocker locker(&usbDriveMutex());
    const auto items = MountedUSBDeviceList::getUSBMountPaths().items;
    for (const mountItem &item : items) {
        if (path.startsWith(item.mountPoint.absoluteFilePath())) { // as lock() sees it
            return item;
        }
    }
    return {};
}

// the library's type of a FAT is for the place of the dirty byte: a FAT16 of 128 MiB is "fat12"
QString kindOf(const mountItem &partition)
{
    const QString &type = partition.fileSystemType;
    const QString ownType = type.isEmpty() || isFat(type)
        ? readFatVolume(partition.device.absoluteFilePath()).type
        : QString();
    return ownType.isEmpty() ? type : ownType;
}

QString described(const mountItem &partition)
{
    const QString kind = kindOf(partition);
    return QStringLiteral("%1 (%2)").arg(quoted(partition.device.filePath()),
                                         kind.isEmpty() ? JobText::tr("FAT of no known type")
                                                        : kind);
}

QString missingMountRight()
{
    return ::geteuid() == 0 || mayAnybodyMount()
        ? QString()
        : JobText::tr("Mounting and unmounting %1 needs root, or a line for it in %2 with the "
                      "option \"users\".")
              .arg(QLatin1String(s_device), QLatin1String(s_fstab));
}

QString missingWriteRight(const QString &device)
{
    return missingRight(device, W_OK,
                        JobText::tr("Writing to %1 needs root, or a udev rule that gives the "
                                    "device to one of your groups."),
                        JobText::tr("Writing to %1 is not possible (%2)."));
}

QString missingReadRight(const QString &device)
{
    return missingRight(
        device, R_OK,
        JobText::tr(
            "Reading %1 needs root, or a udev rule that gives the device to one of your groups."),
        JobText::tr("Reading %1 is not possible (%2)."));
}

QString whyNotMarked(const QString &path)
{
    const QMutexLocker locker(&usbDriveMutex());
    const std::optional<mountItem> partition = partitionOf(path);
    if (partition) {
        const QString device = partition->device.absoluteFilePath();
        if (Shared::getDirtyByteOffset(partition->fileSystemType) < 0) {
            return (isFat(kindOf(*partition))
                        ? JobText::tr("A lock does not mark %1: it knows no type for volumes of "
                                      "this size.")
                        : JobText::tr("%1 has no dirty byte to set."))
                .arg(described(*partition));
        }
        const QString missing = missingWriteRight(device);
        return missing.isEmpty()
            ? JobText::tr("%1 did not take the dirty byte.").arg(described(*partition))
            : missing;
    }
    const QString mounted = mountedUsbDevice();
    if (isPulledOut(mounted)) {
        return pulledOutWhileMounted();
    }
    if (!mounted.isEmpty()) {
        return JobText::tr("%1 lies on no mounted USB drive that you may write to.")
            .arg(quoted(path));
    }
    QStringList sentences(JobText::tr("No USB drive is mounted on %1.")
                              .arg(quoted(QString::fromLatin1(usbMountPoint))));
    const QString missing = missingMountRight();
    if (!missing.isEmpty()) {
        sentences.append(missing);
    }
    return sentences.join(QLatin1Char(' '));
}

UnmountResult unmountUsbDrive()
{
    const QMutexLocker locker(&usbDriveMutex());
    QDir::setCurrent(QStringLiteral("/")); // a directory of the drive keeps it in use
    // another process has locked it, so the partition has to be found again
    const auto partition = partitionOf(QString::fromLatin1(usbMountPoint));
    const QString device = mountedUsbDevice();
    const QByteArray mountedVolume = readFatVolume(device).identity;
    MountedUSBDeviceList::dismountUSB();
    if (isPulledOut(device)) {
        return {false, unmountedAfterPull()};
    }
    const FatVolume volume = readFatVolume(device);
    if (volume.identity != mountedVolume) {
        return {false,
                JobText::tr("Unmounted. Another drive is in its place now, and was not touched: "
                            "the drive that was mounted is still marked as in use.")};
    }
    if (!partition || Shared::getDirtyByteOffset(partition->fileSystemType) < 0) {
        return volume.isDirty
            ? UnmountResult{false,
                            JobText::tr("Unmounted. %1 is marked as in use all the same, and was "
                                        "not touched: check it.")
                                .arg(quoted(device))}
            : UnmountResult{true, JobText::tr("Unmounted. There was no dirty byte to clear.")};
    }
    if (Shared::USBDriveCleanAccessManager::clearDirtyFlag(device, partition->fileSystemType)) {
        return {true, JobText::tr("Unmounted and marked clean: %1.").arg(described(*partition))};
    }
    const QString missing = missingWriteRight(device);
    return {false,
            JobText::tr("Unmounted, and still marked as in use. %1")
                .arg(missing.isEmpty()
                         ? JobText::tr("%1 did not take the mark back.").arg(described(*partition))
                         : missing)};
}

bool isFat(const QString &fileSystemType)
{
    static const char *const types[] = {
        "fat12", "fat16", "fat32", "vfat", "msdos",
    };
    return std::any_of(std::begin(types), std::end(types),
                       [&](const char *type) { return fileSystemType == QLatin1String(type); });
}

} // namespace Tavro::FieldHost
