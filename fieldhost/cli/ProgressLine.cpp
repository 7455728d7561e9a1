// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/ProgressLine.h"

#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Width.h"
#include "fieldhost/jobs/Progress.h"
#include "fieldhost/jobs/Text.h"

namespace Tavro::FieldHost {

namespace {

constexpr int s_mostOfDirectory = 30; // columns
constexpr int s_leastOfDirectory = 4;

QString joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QLatin1String("  "));
}

} // namespace

QString progressLine(const Progress &progress, const QString &directory, const QString &remark,
                     int columns)
{
    const QString bytes =
        CommandText::tr("%1 of %2")
            .arg(formatBytes(progress.bytes()), formatBytes(progress.totalBytes()));
    const QString percent = QStringLiteral("%1 %").arg(progress.percent());
    const double bytesPerSecond = progress.rate();
    const QString rate = bytesPerSecond > 0 ? formatRate(bytesPerSecond) : QString();
    const qint64 timeLeft = progress.timeLeft();
    const QString left =
        timeLeft < 0 ? QString() : CommandText::tr("%1 left").arg(formatClock(timeLeft));

    QString line;
    for (const QStringList &parts :
         {QStringList{bytes, percent, rate, left, remark},
          QStringList{bytes, percent, left, remark}, QStringList{percent, left, remark}}) {
        line = joined(parts);
        if (columns == 0 || columnsOf(line) <= columns) {
            break;
        }
    }
    const int room = qMin(columns - columnsOf(line) - 2, s_mostOfDirectory);
    return directory.isEmpty() || room < s_leastOfDirectory
        ? line
        : fitToColumns(printable(directory), room) + QLatin1String("  ") + line;
}

} // namespace Tavro::FieldHost
