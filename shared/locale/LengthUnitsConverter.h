// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/**
 * Converts lengths between the units "m", "ft", "inch", "mm" and "cm", by their exact definitions.
 *
 * Static functions without state. Any thread. Nothing blocks.
 */
class OVO_SHARED_EXPORT LengthUnitsConverter
{
public:
    /**
     * Returns @p value, which is in @p fromUnit, in @p toUnit. The texts of the units are compared
     * exactly. The first row that applies counts:
     *
     * | arguments | result |
     * | --- | --- |
     * | a unit is empty, or @p value is NaN | NaN |
     * | both units are the same text, known or not | @p value |
     * | @p toUnit is unknown | @p value; logged at level Error under "LengthUnitsConverter" |
     * | @p fromUnit is unknown | 0; not logged |
     */
    static double convert(const QString &fromUnit, const QString &toUnit, double value);
};

} // namespace Tavro::Shared
