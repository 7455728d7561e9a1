// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/**
 * Compares version numbers of four parts, such as "1.10.0.2".
 *
 * Static functions without state. Any thread. Nothing blocks.
 */
class OVO_SHARED_EXPORT CVersionComparer
{
public:
    /**
     * Returns 1 when @p a is newer than @p b, -1 when it is older, and 0 when they are equal.
     *
     * @p ok becomes false, and the result is 0, when they cannot be compared: both need exactly
     * four parts. The parts are read as signed 32-bit integers, pair by pair from the left, up to
     * the first pair that differs. The parts after it are not read and may be any text.
     */
    static int compare(const QString &a, const QString &b, bool &ok);
};

} // namespace Tavro::Shared
