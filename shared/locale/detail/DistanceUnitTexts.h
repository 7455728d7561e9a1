// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

// The unit texts of the catalog templates. They are shown as they are, and name the units of a
// conversion, too: one text for all three, or a template's unit would be unknown to the converter.
// CLocaleSupport's constants repeat them as literals of QString.
namespace Tavro::Shared::detail {

constexpr QStringView s_meters(u"m");
constexpr QStringView s_feet(u"ft");
constexpr QStringView s_inches(u"inch");

} // namespace Tavro::Shared::detail
