// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::Shared {
class CInputType;
class TextValidator;
} // namespace Tavro::Shared

namespace Tavro::FieldHost {

/**
 * Adds the rules to @p rules that follow from @p type: the kind of its data with its limits, its
 * longest text, and that a mandatory field is not left empty. None for a field whose value is
 * chosen from a list.
 */
void addFieldRules(Shared::TextValidator &rules, const Shared::CInputType &type);

} // namespace Tavro::FieldHost
