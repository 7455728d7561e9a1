// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>

namespace Tavro::Shared::detail {

// One sign in every locale that Qt knows, though Qt 6 returns it as a text.
inline QChar decimalPointOf(const QLocale &locale)
{
    const QString point = locale.decimalPoint();
    return point.front();
}

} // namespace Tavro::Shared::detail
