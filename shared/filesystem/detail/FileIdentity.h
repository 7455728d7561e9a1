// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/stat.h>

namespace Tavro::Shared::detail {

/** True when both describe the same file, by whatever names it was found. */
inline bool isSameFile(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace Tavro::Shared::detail
