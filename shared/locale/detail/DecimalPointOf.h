// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>

namespace Tavro::Shared::detail {

// Qt 5 returns a character, Qt 6 a text; it is one sign in every locale that Qt knows. A text made
// of the character would cost an allocation.
inline QChar firstOf(QChar character)
{
    return character;
}

inline QChar firstOf(const QString &text)
{
    return text.front();
}

inline QChar decimalPointOf(const QLocale &locale)
{
    return firstOf(locale.decimalPoint());
}

} // namespace Tavro::Shared::detail
