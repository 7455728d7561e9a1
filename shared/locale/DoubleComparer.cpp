// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

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
    // around 0 doubles are so dense that millions may be between two values that count as 0
    if (std::abs(a) <= nothing && std::abs(b) <= nothing) {
        return true;
    }
    return qFloatDistance(a, b) <= tolerance;
}

} // namespace Tavro::Shared
