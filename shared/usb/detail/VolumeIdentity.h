#pragma once

#include <QByteArray>

#include <cstdio>

class QString;

namespace Tavro::Shared::detail {

/**
 * What tells the FAT volume on @p device from every other one: the fields of its boot sector that
 * stay as they were formatted, and what sort of node it is read from. The dirty byte and the label,
 * which change in use, are not among them.
 *
 * Empty when the device cannot be read, and when its boot sector is that of something else than a
 * volume of @p fileSystemType ("fat12", "fat16" or "fat32"). @p device stays the caller's.
 */
QByteArray volumeIdentity(std::FILE *device, const QString &fileSystemType);

} // namespace Tavro::Shared::detail
