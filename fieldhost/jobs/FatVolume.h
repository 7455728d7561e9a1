// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace Tavro::FieldHost {

/** What the boot sector of a device says of itself. */
struct FatVolume
{
    /** "fat12", "fat16" or "fat32", as the volume calls itself; empty when it holds no FAT. */
    QString type;
    /** Whether the last system that wrote to it left it without unmounting it. */
    bool isDirty = false;
    /** The boot sector but for the dirty byte: the same for as long as it is the same volume. */
    QByteArray identity;
};

/** Reads the boot sector of @p device; a volume of no type when it cannot be read. */
FatVolume readFatVolume(const QString &device);

} // namespace Tavro::FieldHost
