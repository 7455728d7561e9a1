// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/detail/MountTable.h"

#include <QFile>

#include <array>
#include <cstring>
#include <memory>

#include <mntent.h>

namespace Tavro::Shared::detail {

namespace {

const char s_mountTable[] = "/etc/mtab";
const char s_usbMountPoint[] = "/media/usbdrive";
const char s_devicePrefix[] = "/dev";

// getmntent() has one buffer for all threads
class MountTable
{
public:
    MountTable()
        : m_file(::setmntent(s_mountTable, "r"))
    {
    }

    // valid until the next call; null at the end, and when the table cannot be read
    const mntent *next()
    {
        return m_file
            ? ::getmntent_r(m_file.get(), &m_entry, m_line.data(), static_cast<int>(m_line.size()))
            : nullptr;
    }

private:
    struct Closer
    {
        void operator()(std::FILE *file) const { ::endmntent(file); }
    };

    const std::unique_ptr<std::FILE, Closer> m_file;
    mntent m_entry{};
    std::array<char, 4096> m_line{}; // as much as getmntent() reads of one
};

bool startsWith(const char *text, const char *prefix)
{
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

} // namespace

bool isUsbDriveInMountTable()
{
    MountTable table;
    while (const mntent *entry = table.next()) {
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
    MountTable table;
    while (const mntent *entry = table.next()) {
        mountItem item;
        item.device = QFileInfo(QFile::decodeName(entry->mnt_fsname));
        item.mountPoint = QFileInfo(QFile::decodeName(entry->mnt_dir));
        item.fileSystemType = QString::fromLatin1(entry->mnt_type);
        items.append(item);
    }
    return items;
}

} // namespace Tavro::Shared::detail
