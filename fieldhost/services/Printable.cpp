// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/Printable.h"

namespace Tavro::FieldHost {

namespace {

bool isUnsafe(ushort c)
{
    const bool control = c < 0x20 || (c >= 0x7f && c < 0xa0);
    const bool direction = (c >= 0x202a && c <= 0x202e) || (c >= 0x2066 && c <= 0x2069);
    const bool lineEnd = c == 0x2028 || c == 0x2029;
    return control || direction || lineEnd;
}

QString escaped(const QString &text, bool keepsLineFeeds)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (!isUnsafe(c.unicode()) || (keepsLineFeeds && c == QLatin1Char('\n'))) {
            result += c;
        } else if (c.unicode() < 0x100) {
            result += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        } else {
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        }
    }
    return result;
}

} // namespace

QString printable(const QString &text)
{
    return escaped(text, false);
}

QString printableLines(const QString &text)
{
    return escaped(text, true);
}

} // namespace Tavro::FieldHost
