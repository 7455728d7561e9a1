// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Table.h"

#include "fieldhost/cli/Width.h"

#include <algorithm>

namespace Tavro::FieldHost {

QString formatTable(const std::vector<QStringList> &rows)
{
    std::vector<int> widths;
    for (const QStringList &row : rows) {
        widths.resize(std::max(widths.size(), static_cast<size_t>(row.size())));
        for (int i = 0; i < row.size(); ++i) {
            int &width = widths[static_cast<size_t>(i)];
            width = std::max(width, columnsOf(row.at(i)));
        }
    }
    QStringList lines;
    for (const QStringList &row : rows) {
        QString line;
        int gap = 2;
        for (int i = 0; i < row.size(); ++i) {
            line += QString(gap, QLatin1Char(' ')) + row.at(i);
            gap = widths[static_cast<size_t>(i)] - columnsOf(row.at(i)) + 2;
        }
        while (line.endsWith(QLatin1Char(' '))) {
            line.chop(1);
        }
        lines += line;
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace Tavro::FieldHost
