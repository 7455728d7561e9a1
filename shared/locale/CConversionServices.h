// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

namespace Tavro::Shared {

/**
 * Conversions by fixed factors.
 *
 * Static functions without state. Any thread. Nothing blocks or fails.
 */
class OVO_SHARED_EXPORT CConversionServices
{
public:
    CConversionServices() = delete;

    /**
     * Returns @p m * 3.2808. The factor is rounded: convertFeetToMeters() of the result is not
     * @p m. LengthUnitsConverter uses the exact factor.
     */
    static double convertMetersToFeet(double m);
    /** Returns @p m * 39.3700787. */
    static double convertMetersToInches(double m);
    /** Returns @p ft * 0.3048, the exact length of the international foot. */
    static double convertFeetToMeters(double ft);
    /** Returns @p bytes / 2^20, rounded to a float, which has 24 significant bits. */
    static float toMegabytes(unsigned long long bytes);
};

} // namespace Tavro::Shared
