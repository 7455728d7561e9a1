#pragma once

#include <QString>

namespace Tavro::FieldHost {

/** What the boot sector of a device says of itself. */
struct FatVolume
{
    /** "fat12", "fat16" or "fat32", as the volume calls itself; empty when it holds no FAT. */
    QString type;
    /** Whether the last system that wrote to it left it without unmounting it. */
    bool isDirty = false;
};

/** Reads the boot sector of @p device; a volume of no type when it cannot be read. */
FatVolume readFatVolume(const QString &device);

} // namespace Tavro::FieldHost
