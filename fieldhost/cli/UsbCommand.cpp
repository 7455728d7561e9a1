// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/FatVolume.h"
#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"
#include "fieldhost/jobs/UsbDrive.h"
#include "shared/usb/USBDriveCleanAccessManager.h"

#include <QFile>

namespace Tavro::FieldHost {

using Shared::MountedUSBDeviceList;
using Shared::mountItem;
using Shared::USBDriveCleanAccessManager;

namespace {

const char s_helpText[] = QT_TRANSLATE_NOOP(
    "Tavro::FieldHost::CommandText",
    R"(Usage: ovo-fieldhost usb [options] [list | root | lock PATH | unlock | dirty DEVICE]

Shows the USB drive, and makes it safe to pull.

  list          Shows the USB drives and their mounted partitions. This is the default.
  root          Prints the directory to offer as the USB drive.
  lock PATH     Mounts the drive and marks the partition that PATH lies on as in use.
  unlock        Unmounts the drive, as soon as nobody uses it, and marks it clean.
  dirty DEVICE  Tells whether the FAT volume on DEVICE, such as /dev/sda1, is marked as in use.

The drive is /dev/sda1, mounted on /media/usbdrive. If it is not mounted, "list", "root" and "lock"
mount it temporarily to inspect it.

Options:
  --dry-run   Runs and writes nothing. Prints what would be run and written.
  -h, --help  Shows this text.

Exit codes:
  0  done
  1  failed, or there is no such drive; the message says why
  2  the command line was not understood)");

const char s_device[] = "/dev/sda1";

void wouldRun(Console &console, const char *command)
{
    console.print(
        CommandText::tr("Would run: %1 %2").arg(QLatin1String(command), QLatin1String(s_device)));
}

void wouldWrite(Console &console, int value, const mountItem &partition)
{
    const qint64 offset = Shared::getDirtyByteOffset(partition.fileSystemType);
    console.print(offset < 0 ? CommandText::tr("Would write nothing: %1 has no dirty byte.")
                                   .arg(described(partition))
                             : CommandText::tr("Would write: %1 to byte %2 of %3")
                                   .arg(value)
                                   .arg(offset)
                                   .arg(described(partition)));
}

// the commands by which the library looks for partitions where the drive is not mounted
bool wouldLook(Console &console)
{
    if (MountedUSBDeviceList::isUSBMounted()) {
        return false;
    }
    wouldRun(console, "mount");
    wouldRun(console, "umount");
    return true;
}

int list(const CommandLine &line, Console &console, const QString & /*argument*/)
{
    if (line.isSet("dry-run")) {
        if (!wouldLook(console)) {
            console.print(CommandText::tr("Would run nothing: the drive is mounted."));
        }
        return ExitDone;
    }
    const auto devices = MountedUSBDeviceList::getUSBMountInfo();
    if (devices.isEmpty()) {
        console.print(CommandText::tr("There is no USB drive."));
    }
    if (isPulledOut(mountedUsbDevice())) {
        console.print(pulledOutWhileMounted());
    }
    for (const auto &device : devices) {
        console.print(QStringLiteral("%1  %2:%3  %4")
                          .arg(quoted(device->deviceNode()), device->vendorId(),
                               device->productId(), quoted(device->vendorName().trimmed())));
        const Shared::mountPathsStruct info = device->mountInfo();
        if (info.items.isEmpty()) {
            console.print(CommandText::tr("  nothing mounted"));
        }
        for (const mountItem &item : info.items) {
            console.print(CommandText::tr("  %1 on %2")
                              .arg(described(item), quoted(item.mountPoint.filePath())));
        }
        if (!info.supported) {
            console.print(CommandText::tr("  not supported: the application works with exFAT, NTFS "
                                          "and the FAT volumes that it can mark"));
        }
    }
    return ExitDone;
}

int root(const CommandLine &line, Console &console, const QString &argument)
{
    if (line.isSet("dry-run")) {
        return list(line, console, argument);
    }
    const QVariantList answer = MountedUSBDeviceList::getUSBMountPathRoot();
    const QString path = answer.at(0).toString();
    if (path.isEmpty()) {
        console.printError(CommandText::tr("There is no mounted USB drive that you may write to."));
        const QString missing = missingMountRight();
        if (!missing.isEmpty()) {
            console.printError(missing);
        }
        return ExitFailed;
    }
    console.print(path);
    if (!answer.at(1).toBool()) {
        console.printError(CommandText::tr("A file system on it is not supported; see: "
                                           "ovo-fieldhost usb list"));
    }
    return ExitDone;
}

int lock(const CommandLine &line, Console &console, const QString &argument)
{
    const QString path = absolutePath(argument);
    if (line.isSet("dry-run")) {
        if (wouldLook(console)) {
            wouldRun(console, "mount");
            console.print(CommandText::tr("Would write: 1 to the dirty byte of the partition, if "
                                          "it has one"));
            return ExitDone;
        }
        // nothing is run to find it: the drive is mounted
        const auto partition = partitionOf(path);
        if (!partition) {
            console.print(whyNotMarked(path));
            return ExitFailed;
        }
        wouldRun(console, "mount");
        wouldWrite(console, 1, *partition);
        return ExitDone;
    }
    USBDriveCleanAccessManager manager;
    if (!manager.lock(path)) {
        console.printError(whyNotMarked(path));
        if (QFile::exists(mountedUsbDevice())) {
            console.printError(CommandText::tr("The drive is mounted on %1, and not marked.")
                                   .arg(quoted(QString::fromLatin1(usbMountPoint))));
        }
        return ExitFailed;
    }
    const auto partition = partitionOf(path);
    console.print(
        partition ? CommandText::tr("Mounted and marked as in use: %1.").arg(described(*partition))
                  : CommandText::tr("Mounted and marked as in use."));
    return ExitDone;
}

int unlock(const CommandLine &line, Console &console, const QString & /*argument*/)
{
    if (!MountedUSBDeviceList::isUSBMounted()) {
        console.print(CommandText::tr("Nothing is mounted on %1.")
                          .arg(quoted(QString::fromLatin1(usbMountPoint))));
        return ExitDone;
    }
    if (line.isSet("dry-run")) {
        wouldRun(console, "umount");
        const auto partition = partitionOf(QString::fromLatin1(usbMountPoint));
        if (partition) {
            wouldWrite(console, 0, *partition);
        }
        return ExitDone;
    }
    const QString missing = missingMountRight();
    if (!missing.isEmpty()) {
        console.printError(missing);
        return ExitFailed;
    }
    console.print(
        CommandText::tr("Unmounting, as soon as nobody uses the drive; Ctrl-C gives up."));
    const UnmountResult result = unmountUsbDrive();
    if (result.isClean) {
        console.print(result.sentence);
        return ExitDone;
    }
    console.printError(result.sentence);
    return ExitFailed;
}

int dirty(const CommandLine &line, Console &console, const QString &argument)
{
    const QString path = absolutePath(argument);
    if (line.isSet("dry-run")) {
        console.print(CommandText::tr("Would read: the boot sector of %1").arg(quoted(path)));
        return ExitDone;
    }
    const QString missing = missingReadRight(path);
    if (!missing.isEmpty()) {
        console.printError(missing);
        return ExitFailed;
    }
    const FatVolume volume = readFatVolume(path);
    if (volume.type.isEmpty()) {
        console.printError(CommandText::tr("%1 holds no FAT file system, and so has no dirty byte "
                                           "that is known here.")
                               .arg(quoted(path)));
        return ExitFailed;
    }
    console.print(QStringLiteral("%1: %2 (%3)")
                      .arg(volume.isDirty ? CommandText::tr("dirty") : CommandText::tr("clean"),
                           quoted(path), volume.type));
    if (MountedUSBDeviceList::getFatSubtype(path).isEmpty()) {
        console.print(CommandText::tr("A lock does not mark it: it knows no type for volumes of "
                                      "this size."));
    }
    return ExitDone;
}

int runUsb(const CommandLine &line, Console & /*console*/)
{
    return line.runAction({
        {"list", nullptr, list},
        {"root", nullptr, root},
        {"lock", "PATH", lock},
        {"unlock", nullptr, unlock},
        {"dirty", "DEVICE", dirty},
    });
}

} // namespace

const Command usbCommand = {
    "usb",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Shows the USB drive, and makes it safe to pull."),
    s_helpText,
    "dry-run",
    "[ACTION]...",
    runUsb,
};

} // namespace Tavro::FieldHost
