// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

class QString;

namespace Tavro::Shared::detail {

/**
 * Writes the Debug log entry of a rule that finds @p text Invalid. @p category is the name of
 * the rule's class.
 */
void logRefusedText(const QString &category, const QString &text);

} // namespace Tavro::Shared::detail
