#include "shared/locale/DoubleComparer.h"

#include <QtGlobal>
#include <QtNumeric>

#include <cmath>

namespace Tavro::Shared {

bool DoubleComparer::fuzzyCompare(double a, double b)
{
    constexpr double nothing = 1e-12;
    constexpr quint64 tolerance = 8;

    if (!std::isfinite(a) || !std::isfinite(b)) {
        return false;
    }
    // around zero the doubles lie so close that millions of them may be between two noughts
    if (std::abs(a) <= nothing && std::abs(b) <= nothing) {
        return true;
    }
    return qFloatDistance(a, b) <= tolerance;
}

} // namespace Tavro::Shared
