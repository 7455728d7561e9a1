// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <cstdio>

class QString;

namespace Tavro::Shared::detail {

/**
 * Identifies the FAT volume on @p device: the fields of its boot sector that do not change after
 * formatting, and the type of the node. The dirty byte and the label, which change in use, are not
 * among them.
 *
 * Empty when the device cannot be read, and when its boot sector is not that of a volume of
 * @p fileSystemType ("fat12", "fat16" or "fat32"). The caller keeps @p device open.
 */
QByteArray volumeIdentity(std::FILE *device, const QString &fileSystemType);

} // namespace Tavro::Shared::detail
