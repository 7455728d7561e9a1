// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Width.h"

#include <QVector>

#include <wchar.h>

namespace Tavro::FieldHost {

namespace {

int columnsOf(uint codePoint)
{
    const int width = ::wcwidth(static_cast<wchar_t>(codePoint));
    return width < 0 ? 1 : width;
}

} // namespace

int columnsOf(const QString &text)
{
    const QVector<uint> codePoints = text.toUcs4();
    int width = 0;
    for (const uint codePoint : codePoints) {
        width += columnsOf(codePoint);
    }
    return width;
}

QString fitToColumns(const QString &line, int columns)
{
    if (columnsOf(line) <= columns) {
        return line;
    }
    const QVector<uint> codePoints = line.toUcs4();
    QVector<uint> kept;
    int used = 1; // the ellipsis
    for (const uint codePoint : codePoints) {
        used += columnsOf(codePoint);
        if (used > columns) {
            break;
        }
        kept.append(codePoint);
    }
    if (columns < 1) {
        return {};
    }
    return QString::fromUcs4(kept.constData(), kept.size()) + QChar(0x2026);
}

} // namespace Tavro::FieldHost
