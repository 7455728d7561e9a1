// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/detail/MountTable.h"

#include <QFile>

#include <cstring>
#include <memory>

#include <mntent.h>

namespace Tavro::Shared::detail {

namespace {

const char s_mountTable[] = "/etc/mtab";
const char s_usbMountPoint[] = "/media/usbdrive";
const char s_devicePrefix[] = "/dev";

struct MountTableCloser
{
    void operator()(std::FILE *table) const { ::endmntent(table); }
};

using MountTable = std::unique_ptr<std::FILE, MountTableCloser>;

MountTable openMountTable()
{
    return MountTable(::setmntent(s_mountTable, "r"));
}

bool startsWith(const char *text, const char *prefix)
{
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

} // namespace

bool isUsbDriveInMountTable()
{
    const MountTable table = openMountTable();
    if (!table) {
        return false;
    }
    while (const mntent *entry = ::getmntent(table.get())) {
        if (std::strcmp(entry->mnt_dir, s_usbMountPoint) == 0
            && startsWith(entry->mnt_fsname, s_devicePrefix)) {
            return true;
        }
    }
    return false;
}

QList<mountItem> readMountTable()
{
    QList<mountItem> items;
    const MountTable table = openMountTable();
    if (!table) {
        return items;
    }
    while (const mntent *entry = ::getmntent(table.get())) {
        mountItem item;
        item.device = QFileInfo(QFile::decodeName(entry->mnt_fsname));
        item.mountPoint = QFileInfo(QFile::decodeName(entry->mnt_dir));
        item.fileSystemType = QString::fromLatin1(entry->mnt_type);
        items.append(item);
    }
    return items;
}

} // namespace Tavro::Shared::detail
