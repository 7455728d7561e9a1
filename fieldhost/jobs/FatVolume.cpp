// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/FatVolume.h"

#include "shared/usb/USBDriveCleanAccessManager.h"

#include <QFile>

namespace Tavro::FieldHost {

namespace {

constexpr int s_bootSectorSize = 512;
constexpr char s_dirtyBit = 1; // bit 1 asks for a test of the surface

QString typeOf(const QByteArray &bootSector)
{
    if (bootSector.size() != s_bootSectorSize || !bootSector.endsWith("\x55\xaa")) {
        return {};
    }
    static constexpr struct
    {
        int offset;
        const char *text;
        const char *type;
    } table[] = {
        {54, "FAT12   ", "fat12"},
        {54, "FAT16   ", "fat16"},
        {82, "FAT32   ", "fat32"},
    };
    for (const auto &row : table) {
        if (bootSector.mid(row.offset).startsWith(row.text)) {
            return QLatin1String(row.type);
        }
    }
    return {};
}

} // namespace

FatVolume readFatVolume(const QString &device)
{
    FatVolume volume;
    QFile file(device);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return volume;
    }
    // not by the library's own table: most volumes are of sizes that it has no type for
    volume.identity = file.read(s_bootSectorSize);
    volume.type = typeOf(volume.identity);
    const auto offset = static_cast<int>(Shared::getDirtyByteOffset(volume.type));
    if (offset >= 0) {
        volume.isDirty = (volume.identity.at(offset) & s_dirtyBit) != 0;
        volume.identity[offset] = 0;
    }
    return volume;
}

} // namespace Tavro::FieldHost
