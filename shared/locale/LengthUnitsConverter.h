#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/** Lengths between "m", "ft", "inch", "mm" and "cm". Static functions, any thread. */
class OVO_SHARED_EXPORT LengthUnitsConverter
{
public:
    /**
     * @p value in @p toUnit; unit texts are matched exactly.
     *
     * NaN when a unit is empty or @p value is NaN. The same unit on both sides, known or not,
     * gives @p value. An unknown @p fromUnit counts as a length of 0. An unknown @p toUnit gives
     * @p value unchanged, and is logged at level Error under "LengthUnitsConverter".
     */
    static double convert(const QString &fromUnit, const QString &toUnit, double value);
};

} // namespace Tavro::Shared
