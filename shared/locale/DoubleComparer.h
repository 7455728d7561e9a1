// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

namespace Tavro::Shared {

/**
 * Compares doubles with a tolerance for rounding errors.
 *
 * Static functions without state. Any thread. Nothing blocks.
 */
class OVO_SHARED_EXPORT DoubleComparer
{
public:
    /**
     * Returns true when both numbers are at most 1e-12 away from 0, or when they are at most 8
     * units in the last place apart. Infinity and NaN are equal to nothing, not even to themselves.
     */
    static bool fuzzyCompare(double a, double b);
};

} // namespace Tavro::Shared
