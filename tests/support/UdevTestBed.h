// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>

#include <memory>

namespace Test {

/** A partition as udev knows it: "sda1" and its ID_FS_TYPE, null for none. */
struct BedPartition
{
    QByteArray name;
    QByteArray fileSystemType;
};

/**
 * The devices that libudev sees, in this process and in programs started by it that are linked
 * with ovo_udev_redirect, for as long as the object lives. At first there is none.
 *
 * Devices are named by their paths below /sys. A null attribute is one that is missing. There are
 * no nodes in /dev that come with them.
 */
class UdevTestBed
{
public:
    UdevTestBed();
    ~UdevTestBed();

    UdevTestBed(const UdevTestBed &) = delete;
    UdevTestBed &operator=(const UdevTestBed &) = delete;

    using Texts = QList<QPair<QByteArray, QByteArray>>;

    /** Any device. */
    QByteArray add(const char *subsystem, const QByteArray &name, const QByteArray &parent,
                   const Texts &attributes, const Texts &properties);

    /** A USB device with its storage interface; returns the interface. */
    QByteArray addUsbStorage(const QByteArray &port, const QByteArray &vendorId,
                             const QByteArray &productId);
    /** The host, target and SCSI device @p address ("4:0:0:0") on a controller. */
    QByteArray addScsiDevice(const QByteArray &controller, const QByteArray &address,
                             const QByteArray &vendor);
    /** What makes a SCSI device a disk. */
    void addScsiDisk(const QByteArray &scsiDevice, const QByteArray &address);
    /** The block device of a SCSI device, without a node if @p node is null. */
    QByteArray addBlockDevice(const QByteArray &scsiDevice, const QByteArray &name,
                              const QByteArray &node);
    /** A partition of a block device. */
    QByteArray addPartition(const QByteArray &blockDevice, const BedPartition &partition);

    /** All of the above for a stick: "sda" at port "1-1", and so on by its last letter. */
    QByteArray addStick(const QByteArray &name, const QList<BedPartition> &partitions);

    /** Takes a device away with all that hangs on it. */
    void remove(const QByteArray &device);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace Test
