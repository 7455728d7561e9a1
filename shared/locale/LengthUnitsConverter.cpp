// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/LengthUnitsConverter.h"

#include "host/CLogger.h"
#include "shared/locale/detail/DistanceUnitTexts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

using Tavro::Logging::CLogger;
using Tavro::Logging::LogLevel;

namespace Tavro::Shared {

namespace {

struct Unit
{
    QStringView text;
    double (*toMeters)(double);
    double (*fromMeters)(double);
};

// Divisions stay divisions: the product with the reciprocal differs in the last bit.
constexpr std::array s_units = {
    Unit{detail::s_meters, [](double x) { return x; }, [](double x) { return x; }},
    Unit{detail::s_feet, [](double x) { return x * 0.3048; }, [](double x) { return x / 0.3048; }},
    Unit{detail::s_inches, [](double x) { return x * 0.0254; },
         [](double x) { return x / 0.0254; }},
    Unit{u"mm", [](double x) { return x / 1000; }, [](double x) { return x * 1000; }},
    Unit{u"cm", [](double x) { return x / 100; }, [](double x) { return x * 100; }},
};

// in line: Qt's comparison of two short texts takes longer than the conversion
bool isSame(QStringView a, QStringView b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

// null when there is no unit of that text
const Unit *unitOf(QStringView text)
{
    for (const Unit &unit : s_units) {
        if (isSame(text, unit.text)) {
            return &unit;
        }
    }
    return nullptr;
}

} // namespace

double LengthUnitsConverter::convert(const QString &fromUnit, const QString &toUnit, double value)
{
    if (fromUnit.isEmpty() || toUnit.isEmpty() || std::isnan(value)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (isSame(fromUnit, toUnit)) {
        return value;
    }
    const Unit *to = unitOf(toUnit);
    if (!to) {
        CLogger::logMessage(LogLevel::Error, QStringLiteral("LengthUnitsConverter"),
                            QStringLiteral("DistanceUnitsConverter - Units converter not found"));
        return value;
    }
    const Unit *from = unitOf(fromUnit);
    const double meters = from ? from->toMeters(value) : 0; // unknown: 0, not logged
    return to->fromMeters(meters);
}

} // namespace Tavro::Shared
