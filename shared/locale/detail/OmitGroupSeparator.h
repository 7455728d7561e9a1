// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>

namespace Tavro::Shared::detail {

// Beside the options that the locale has already: a host may have set some of its own.
inline void omitGroupSeparator(QLocale &locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
}

} // namespace Tavro::Shared::detail
