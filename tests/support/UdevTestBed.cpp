// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/support/UdevTestBed.h"

#include <QDir>
#include <QFile>

#include <vector>

#include <umockdev.h>

namespace Test {

namespace {

// the null-terminated list of names and values that the test bed wants
std::vector<char *> flat(const UdevTestBed::Texts &texts)
{
    std::vector<char *> list;
    for (const auto &text : texts) {
        if (!text.second.isNull()) {
            // taken as they are, without a copy, and not written to
            list.push_back(const_cast<char *>(text.first.constData()));
            list.push_back(const_cast<char *>(text.second.constData()));
        }
    }
    list.push_back(nullptr);
    return list;
}

} // namespace

struct UdevTestBed::Private
{
    UMockdevTestbed *bed = umockdev_testbed_new();
};

UdevTestBed::UdevTestBed()
    : d(std::make_unique<Private>())
{
    if (!umockdev_in_mock_environment()) {
        qFatal("libudev would see the machine's own devices");
    }
}

UdevTestBed::~UdevTestBed()
{
    g_object_unref(d->bed);
}

QByteArray UdevTestBed::add(const char *subsystem, const QByteArray &name, const QByteArray &parent,
                            const Texts &attributes, const Texts &properties)
{
    std::vector<char *> attributeList = flat(attributes);
    std::vector<char *> propertyList = flat(properties);
    gchar *path = umockdev_testbed_add_devicev(d->bed, subsystem, name.constData(),
                                               parent.isNull() ? nullptr : parent.constData(),
                                               attributeList.data(), propertyList.data());
    if (!path) {
        qFatal("no device %s on the test bed", name.constData());
    }
    QByteArray result(path);
    g_free(path);
    return result;
}

QByteArray UdevTestBed::addUsbStorage(const QByteArray &port, const QByteArray &vendorId,
                                      const QByteArray &productId)
{
    const QByteArray device =
        add("usb", "pci0000:00/usb1/" + port, {},
            {{"idVendor", vendorId}, {"idProduct", productId}}, {{"DEVTYPE", "usb_device"}});
    return add("usb", port + ":1.0", device, {}, {{"DEVTYPE", "usb_interface"}});
}

QByteArray UdevTestBed::addScsiDevice(const QByteArray &controller, const QByteArray &address,
                                      const QByteArray &vendor)
{
    const QByteArray number = address.left(address.indexOf(':'));
    const QByteArray host =
        add("scsi", "host" + number, controller, {}, {{"DEVTYPE", "scsi_host"}});
    const QByteArray target =
        add("scsi", "target" + number + ":0:0", host, {}, {{"DEVTYPE", "scsi_target"}});
    return add("scsi", address, target, {{"vendor", vendor}}, {{"DEVTYPE", "scsi_device"}});
}

void UdevTestBed::addScsiDisk(const QByteArray &scsiDevice, const QByteArray &address)
{
    add("scsi_disk", "scsi_disk/" + address, scsiDevice, {}, {});
}

QByteArray UdevTestBed::addBlockDevice(const QByteArray &scsiDevice, const QByteArray &name,
                                       const QByteArray &node)
{
    return add("block", "block/" + name, scsiDevice, {}, {{"DEVTYPE", "disk"}, {"DEVNAME", node}});
}

QByteArray UdevTestBed::addPartition(const QByteArray &blockDevice, const BedPartition &partition)
{
    return add("block", partition.name, blockDevice, {},
               {{"DEVTYPE", "partition"},
                {"DEVNAME", "/dev/" + partition.name},
                {"ID_FS_TYPE", partition.fileSystemType}});
}

QByteArray UdevTestBed::addStick(const QByteArray &name, const QList<BedPartition> &partitions)
{
    const QByteArray number = QByteArray::number(name.back() - 'a' + 1);
    const QByteArray address = number + ":0:0:0";
    const QByteArray storage = addUsbStorage("1-" + number, "090" + number, "100" + number);
    QByteArray device = addScsiDevice(storage, address, "Maker " + number);
    addScsiDisk(device, address);
    const QByteArray block = addBlockDevice(device, name, "/dev/" + name);
    for (const BedPartition &partition : partitions) {
        addPartition(block, partition);
    }
    return device;
}

void UdevTestBed::remove(const QByteArray &device)
{
    // the library of the test bed takes away what it has put in /sys/bus and /sys/class, too
    umockdev_testbed_remove_device(d->bed, device.constData());
}

} // namespace Test
