// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Shared::detail {

/**
 * Sum of the sizes of the files below @p path, in bytes; 0 when it is no directory. Hidden entries
 * count, links do not, except @p path itself. Blocks for as long as it takes.
 */
qint64 treeSize(const QString &path);

} // namespace Tavro::Shared::detail
