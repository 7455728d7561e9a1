// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/USBDriveCleanAccessManager.h"

#include "shared/usb/MountedUSBDeviceList.h"
#include "shared/usb/detail/FileHandle.h"
#include "shared/usb/detail/VolumeIdentity.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include <unistd.h>

namespace Tavro::Shared {

namespace {

constexpr char s_dirty = 1;
constexpr char s_clean = 0;
constexpr qint64 s_noDirtyByte = -1;

// the tablet is a 32-bit machine, and drives are larger than 2 GiB
static_assert(sizeof(off_t) == sizeof(qint64), "offsets must reach all of a drive");

// of a drive that was pulled: opening it to write would create a file in place of its node
bool isMissingNode(const QString &path)
{
    return QDir::cleanPath(path).startsWith(QLatin1String("/dev/"))
        && ::access(QFile::encodeName(path).constData(), F_OK) != 0;
}

// sync() reports no error: a drive that fails now would count as marked
bool reachesTheDevice(std::FILE *device)
{
    return ::fsync(::fileno(device)) == 0 || errno == EINVAL; // a device without a cache
}

// with a buffer, a write that the device refuses would count as done
std::FILE *openUnbuffered(const QString &path, const char *mode)
{
    std::FILE *device = std::fopen(QFile::encodeName(path).constData(), mode);
    if (device) {
        std::setvbuf(device, nullptr, _IONBF, 0);
    }
    return device;
}

// closes the device, before everything is synced
bool putByte(std::FILE *device, qint64 offset, char value)
{
    const bool written = ::fseeko(device, offset, SEEK_SET) == 0
        && std::fwrite(&value, sizeof value, 1, device) == 1 && reachesTheDevice(device);
    const bool closed = std::fclose(device) == 0;
    ::sync();
    return written && closed;
}

QByteArray identityOf(const mountItem &partition)
{
    if (getDirtyByteOffset(partition.fileSystemType) < 0) {
        return {};
    }
    const detail::FileHandle device = detail::openForReading(partition.device.absoluteFilePath());
    return device ? detail::volumeIdentity(device.get(), partition.fileSystemType) : QByteArray();
}

} // namespace

class Q_DECL_HIDDEN USBDriveCleanAccessManager::Private
{
public:
    // The node may be another drive's by now, which has something else where this one has its
    // dirty byte. One descriptor for the look and the write: it stays with the drive that it was
    // opened on.
    bool mark(char value) const
    {
        if (volume.isEmpty()) {
            return false;
        }
        // neither truncates a file nor creates one
        std::FILE *file = openUnbuffered(device.absoluteFilePath(), "r+b");
        if (!file) {
            return false;
        }
        if (detail::volumeIdentity(file, fileSystemType) != volume) {
            std::fclose(file);
            return false;
        }
        return putByte(file, getDirtyByteOffset(fileSystemType), value);
    }

    QFileInfo device;
    QString fileSystemType; // empty until a lock() has found a partition
    QByteArray volume; // what tells it from others; empty when it is not to be marked
};

USBDriveCleanAccessManager::USBDriveCleanAccessManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

USBDriveCleanAccessManager::~USBDriveCleanAccessManager() = default;

bool USBDriveCleanAccessManager::lock(const QString &mountPath)
{
    QList<mountItem> items = MountedUSBDeviceList::getUSBMountPaths().items;
    if (items.isEmpty()) {
        // a drive that was plugged in a moment ago may have its node by now
        items = MountedUSBDeviceList::getUSBMountPaths().items;
    }
    if (items.isEmpty()) {
        return false;
    }
    const auto item = std::find_if(items.cbegin(), items.cend(), [&](const mountItem &candidate) {
        return mountPath.startsWith(candidate.mountPoint.absoluteFilePath());
    });
    if (item != items.cend()) {
        d->device = item->device;
        d->fileSystemType = item->fileSystemType;
        d->volume = identityOf(*item);
    }
    // the inspection may have unmounted it; if it is mounted, this fails and does no harm
    MountedUSBDeviceList::mountUSB();
    return d->mark(s_dirty);
}

bool USBDriveCleanAccessManager::unlock()
{
    MountedUSBDeviceList::dismountUSB();
    return d->mark(s_clean);
}

bool USBDriveCleanAccessManager::setDirtyFlag(const QString &devicePath,
                                              const QString &fileSystemType)
{
    return writeByteIntoDev(devicePath, getDirtyByteOffset(fileSystemType), s_dirty);
}

bool USBDriveCleanAccessManager::clearDirtyFlag(const QString &devicePath,
                                                const QString &fileSystemType)
{
    return writeByteIntoDev(devicePath, getDirtyByteOffset(fileSystemType), s_clean);
}

bool USBDriveCleanAccessManager::writeByteIntoDev(const QString &devicePath, qint64 offset,
                                                  char value)
{
    if (offset < 0 || isMissingNode(devicePath)) {
        return false;
    }
    std::FILE *device = openUnbuffered(devicePath, "wb");
    if (!device) {
        return false;
    }
    return putByte(device, offset, value);
}

char USBDriveCleanAccessManager::readByteFromDev(const QString &devicePath, qint64 offset)
{
    if (offset < 0) {
        return 0;
    }
    const detail::FileHandle device = detail::openForReading(devicePath);
    char value = 0;
    if (!device || ::fseeko(device.get(), offset, SEEK_SET) != 0
        || std::fread(&value, sizeof value, 1, device.get()) != 1) {
        return 0;
    }
    return value;
}

qint64 getDirtyByteOffset(const QString &fileSystemType)
{
    static constexpr struct
    {
        const char *fileSystemType;
        qint64 offset;
    } table[] = {
        {"fat12", 37},
        {"fat16", 37},
        {"fat32", 65},
    };
    for (const auto &row : table) {
        if (fileSystemType == QLatin1String(row.fileSystemType)) {
            return row.offset;
        }
    }
    return s_noDirtyByte;
}

} // namespace Tavro::Shared
