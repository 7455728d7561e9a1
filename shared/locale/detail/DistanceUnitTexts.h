#pragma once

#include <QLatin1String>

// The unit texts of the catalog templates. They are shown as they are, and name the units of a
// conversion, too: one text for all three, or a template's unit would be unknown to the converter.
namespace Tavro::Shared::detail {

constexpr QLatin1String s_meters("m");
constexpr QLatin1String s_feet("ft");
constexpr QLatin1String s_inches("inch");

} // namespace Tavro::Shared::detail
