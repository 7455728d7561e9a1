#pragma once

#include <QString>

namespace Tavro::Shared::detail {

/** A destination without the blanks and tabs at its end; what a copy writes to, and an abort
 * removes. */
inline QString trimmedDestination(const QString &path)
{
    int length = path.size();
    while (
        length > 0
        && (path.at(length - 1) == QLatin1Char(' ') || path.at(length - 1) == QLatin1Char('\t'))) {
        --length;
    }
    return path.left(length);
}

} // namespace Tavro::Shared::detail
