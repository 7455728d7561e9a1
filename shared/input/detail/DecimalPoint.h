// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

class QString;

namespace Tavro::Shared::detail {

/** Each "." and each "," in @p number becomes the decimal point of the current locale. */
void useCurrentDecimalPoint(QString &number);

} // namespace Tavro::Shared::detail
