// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/DriveSurvey.h"

#include "fieldhost/jobs/FatVolume.h"
#include "fieldhost/jobs/UsbDrive.h"
#include "shared/usb/MountedUSBDeviceList.h"

#include <QStorageInfo>

namespace Tavro::FieldHost {

using Shared::MountedUSBDeviceList;
using Shared::mountItem;

namespace {

DrivePartition partitionFrom(const mountItem &item)
{
    DrivePartition partition;
    partition.device = item.device.filePath();
    partition.kind = kindOf(item);
    partition.mountPoint = item.mountPoint.filePath();
    const QStorageInfo volume(partition.mountPoint);
    partition.size = volume.bytesTotal();
    partition.free = volume.bytesAvailable();
    return partition;
}

DrivePartition::Mark markOf(const DrivePartition &partition)
{
    if (!partition.kind.isEmpty() && !isFat(partition.kind)) {
        return DrivePartition::Mark::None;
    }
    if (!missingReadRight(partition.device).isEmpty()) {
        return DrivePartition::Mark::Unreadable;
    }
    const FatVolume volume = readFatVolume(partition.device);
    if (volume.type.isEmpty()) {
        return DrivePartition::Mark::None;
    }
    return volume.isDirty ? DrivePartition::Mark::Dirty : DrivePartition::Mark::Clean;
}

} // namespace

bool surveyMounts()
{
    return !MountedUSBDeviceList::isUSBMounted();
}

QList<SurveyedDrive> surveyDrives()
{
    const QMutexLocker locker(&usbDriveMutex());
    const bool mounts = surveyMounts();
    if (mounts) {
        MountedUSBDeviceList::mountUSB(); // and not by the library: the space is to be read, too
    }
    QList<SurveyedDrive> drives;
    const auto devices = MountedUSBDeviceList::getUSBMountInfo();
    for (const auto &device : devices) {
        SurveyedDrive drive;
        drive.device = device->deviceNode();
        drive.vendor = device->vendorName().trimmed();
        const Shared::mountPathsStruct info = device->mountInfo();
        drive.isSupported = info.supported;
        for (const mountItem &item : info.items) {
            drive.partitions += partitionFrom(item);
        }
        drives += drive;
    }
    if (mounts) {
        MountedUSBDeviceList::dismountUSB();
    }
    // once it is unmounted again: while it is mounted, the system marks it
    for (SurveyedDrive &drive : drives) {
        for (DrivePartition &partition : drive.partitions) {
            partition.mark = markOf(partition);
            if (mounts && partition.mountPoint == QLatin1String(usbMountPoint)) {
                partition.mountPoint.clear();
            }
        }
    }
    return drives;
}

} // namespace Tavro::FieldHost
