#pragma once

#include "shared/OvoSharedBaseExport.h"

namespace Tavro::Shared {

/** Equality of doubles that were computed in different ways. Static functions, any thread. */
class OVO_SHARED_EXPORT DoubleComparer
{
public:
    /**
     * True when both are within 1e-12 of zero, or when at most 8 units in the last place lie
     * between them. An infinity or NaN equals nothing, not even itself.
     */
    static bool fuzzyCompare(double a, double b);
};

} // namespace Tavro::Shared
