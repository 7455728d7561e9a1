// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Shared::detail {

inline QString withFinalSlash(const QString &path)
{
    return path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
}

/** The root keeps one. */
inline QString withoutFinalSlashes(QString path)
{
    while (path.size() > 1 && path.endsWith(QLatin1Char('/'))) {
        path.chop(1);
    }
    return path;
}

inline QString withoutBlanksAtEnd(QString text)
{
    while (text.endsWith(QLatin1Char(' ')) || text.endsWith(QLatin1Char('\t'))) {
        text.chop(1);
    }
    return text;
}

} // namespace Tavro::Shared::detail
