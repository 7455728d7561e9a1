// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/usb/detail/VolumeIdentity.h"

#include <QString>

#include <algorithm>
#include <iterator>

#include <sys/stat.h>

namespace Tavro::Shared::detail {

namespace {

// places in the boot sector of a FAT, each with its size in bytes
struct Field
{
    int offset;
    int size;
};

constexpr int s_bootSectorSize = 512;
constexpr Field s_oemName = {3, 8};
constexpr Field s_sectorsPerFat = {22, 2}; // 0: FAT32, which has a field of 32 bits elsewhere
constexpr Field s_fat16Kind = {54, 8}; // as a text
constexpr Field s_fat32Kind = {82, 8};
constexpr Field s_signature = {510, 2};

constexpr Field s_fat16Fields[] = {
    s_oemName,   {11, 25}, // sizes
    {39, 4}, // volume serial number
    s_fat16Kind, s_signature,
};

constexpr Field s_fat32Fields[] = {
    s_oemName,   {11, 25}, // sizes
    {36, 16}, // sizes that only FAT32 has, places of its root directory and of its copies
    {67, 4}, // volume serial number
    s_fat32Kind, s_signature,
};

QByteArray valueOf(const Field &field, const QByteArray &bootSector)
{
    return bootSector.mid(field.offset, field.size);
}

bool isZero(const QByteArray &value)
{
    return value.count('\0') == value.size();
}

// the type was detected earlier, and the offset of the dirty byte in one type is that of a size in
// another
bool isOfAnotherType(const QByteArray &bootSector, bool isFat32)
{
    // without the signature the types cannot be distinguished, and Linux mounts such a FAT
    if (valueOf(s_signature, bootSector) != "\x55\xAA") {
        return false;
    }
    const QByteArray oemName = valueOf(s_oemName, bootSector);
    if (oemName == "EXFAT   " || oemName == "NTFS    ") {
        return true;
    }
    return isFat32 ? !isZero(valueOf(s_sectorsPerFat, bootSector))
                   : valueOf(s_fat32Kind, bootSector) == "FAT32   ";
}

} // namespace

QByteArray volumeIdentity(std::FILE *device, const QString &fileSystemType)
{
    struct stat status = {};
    // the seek fails on a pipe, on which a read would wait
    if (::fstat(::fileno(device), &status) != 0 || ::fseeko(device, 0, SEEK_SET) != 0) {
        return {};
    }
    QByteArray bootSector(s_bootSectorSize, '\0');
    bootSector.truncate(
        static_cast<int>(std::fread(bootSector.data(), 1, s_bootSectorSize, device)));
    const bool isFat32 = fileSystemType == QLatin1String("fat32");
    if (std::ferror(device) != 0 || isOfAnotherType(bootSector, isFat32)) {
        return {};
    }
    // a copy of the volume in a file is not the drive
    QByteArray identity = QByteArray::number(status.st_mode & S_IFMT);
    const auto append = [&](const Field &field) { identity += valueOf(field, bootSector); };
    if (isFat32) {
        std::for_each(std::begin(s_fat32Fields), std::end(s_fat32Fields), append);
    } else {
        std::for_each(std::begin(s_fat16Fields), std::end(s_fat16Fields), append);
    }
    return identity;
}

} // namespace Tavro::Shared::detail
