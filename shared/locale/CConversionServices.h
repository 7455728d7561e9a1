#pragma once

#include "shared/OvoSharedBaseExport.h"

namespace Tavro::Shared {

/** Conversions by a fixed factor. Static functions, any thread. */
class OVO_SHARED_EXPORT CConversionServices
{
public:
    CConversionServices() = delete;

    /**
     * By the rounded factor 3.2808, so that the way back by convertFeetToMeters() does not return
     * the same value; LengthUnitsConverter is exact.
     */
    static double convertMetersToFeet(double m);
    /** By the factor 39.3700787. */
    static double convertMetersToInches(double m);
    /** By the factor 0.3048: the international foot. */
    static double convertFeetToMeters(double ft);
    /** In units of 2^20 bytes, to the 24 bits of a float. */
    static float toMegabytes(unsigned long long bytes);
};

} // namespace Tavro::Shared
