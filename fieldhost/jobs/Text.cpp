#include "fieldhost/jobs/Text.h"

#include <QVector>

#include <array>
#include <cmath>
#include <cstring>

#include <wchar.h>

namespace Tavro::FieldHost {

namespace {

constexpr double s_kibi = 1024;
constexpr double s_mebi = s_kibi * s_kibi;

// length of the UTF-8 sequence at the beginning of bytes, 0 when there is no valid one
int utf8Length(const QByteArray &bytes)
{
    for (int length = 1; length <= 4 && length <= bytes.size(); ++length) {
        const QByteArray sequence = bytes.left(length);
        const QString text = QString::fromUtf8(sequence);
        if (text.toUtf8() == sequence) {
            return length;
        }
    }
    return 0;
}

int columnsOf(uint codePoint)
{
    const int width = ::wcwidth(static_cast<wchar_t>(codePoint));
    return width < 0 ? 1 : width;
}

} // namespace

QString formatBytes(qint64 bytes)
{
    if (bytes < 1024) {
        return QStringLiteral("%1 B").arg(bytes);
    }
    static constexpr std::array<const char *, 5> units = {"KiB", "MiB", "GiB", "TiB", "PiB"};
    double value = static_cast<double>(bytes) / s_kibi;
    size_t unit = 0;
    // 1023.95 already reads 1024.0
    while (value >= 1023.95 && unit + 1 < units.size()) {
        value /= s_kibi;
        ++unit;
    }
    return QStringLiteral("%1 %2").arg(value, 0, 'f', 1).arg(QLatin1String(units[unit]));
}

QString formatRate(double bytesPerSecond)
{
    const double rate = bytesPerSecond / s_mebi;
    return QStringLiteral("%1 MiB/s").arg(rate, 0, 'f', rate < 10 ? 2 : 1);
}

QString formatClock(qint64 milliseconds)
{
    const qint64 seconds = (milliseconds + 999) / 1000;
    const QLatin1Char zero('0');
    if (seconds < 3600) {
        return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, zero);
    }
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, zero)
        .arg(seconds % 60, 2, 10, zero);
}

QString formatDuration(qint64 milliseconds)
{
    const QLatin1Char zero('0');
    if (milliseconds < 59'950) {
        return QStringLiteral("%1 s").arg(static_cast<double>(milliseconds) / 1000, 0, 'f', 1);
    }
    const qint64 seconds = (milliseconds + 500) / 1000;
    if (seconds < 3600) {
        return QStringLiteral("%1 min %2 s").arg(seconds / 60).arg(seconds % 60, 2, 10, zero);
    }
    return QStringLiteral("%1 h %2 min").arg(seconds / 3600).arg(seconds / 60 % 60, 2, 10, zero);
}

QString counted(qint64 n, const char *singular, const char *plural)
{
    if (n == 1) {
        return QStringLiteral("1 %1").arg(QLatin1String(singular));
    }
    if (plural) {
        return QStringLiteral("%1 %2").arg(n).arg(QLatin1String(plural));
    }
    return QStringLiteral("%1 %2s").arg(n).arg(QLatin1String(singular));
}

QString quoted(const QString &path)
{
    return QLatin1Char('"') + printable(path) + QLatin1Char('"');
}

QString quoted(const QByteArray &path)
{
    QString text;
    int i = 0;
    while (i < path.size()) {
        const int length = utf8Length(path.mid(i, 4));
        if (length == 0) {
            text += QStringLiteral("\\x%1").arg(static_cast<uchar>(path.at(i)), 2, 16,
                                                QLatin1Char('0'));
        } else {
            text += printable(QString::fromUtf8(path.mid(i, length)));
        }
        i += qMax(length, 1);
    }
    return QLatin1Char('"') + text + QLatin1Char('"');
}

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

QString systemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

} // namespace Tavro::FieldHost
