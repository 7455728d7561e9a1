// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/**
 * Formats numbers of bytes.
 *
 * Static functions without state. Any thread. Nothing blocks.
 */
class OVO_SHARED_EXPORT SizeFormater
{
public:
    /**
     * Returns @p bytes with one decimal, a blank and the unit: "B", "KB", "MB", "GB", "TB", "PB" or
     * "EB". Each unit is 1024 of the one before. The decimal point is "." in every locale. The unit
     * of a negative number is "B".
     *
     * The unit is chosen by the number of bytes, before rounding: one byte less than a megabyte is
     * "1024.0 KB".
     */
    static QString toString(long long bytes);
};

} // namespace Tavro::Shared
