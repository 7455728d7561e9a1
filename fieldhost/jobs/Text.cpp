// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/Text.h"

#include <QLocale>

#include <system_error>

namespace Tavro::FieldHost {

namespace {

constexpr qint64 s_kibi = 1024;
constexpr double s_mebi = 1024 * 1024;
constexpr int s_listed = 5; // of what may be many

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

// numbers are written as in the sentences that they are part of
QLocale numberLocale()
{
    //: The locale of the numbers in all texts: "de" for German
    QLocale locale(JobText::tr("C"));
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

} // namespace

QString formatBytes(qint64 bytes)
{
    if (bytes < s_kibi) {
        return QStringLiteral("%1 B").arg(bytes);
    }
    const QLocale locale = numberLocale();
    const QString text = locale.formattedDataSize(bytes, 1);
    // as much as reads 1024 of a unit is 1 of the next
    return text.startsWith(locale.toString(1024.0, 'f', 1))
        ? locale.formattedDataSize(bytes + bytes / s_kibi, 1)
        : text;
}

QString formatRate(double bytesPerSecond)
{
    const double rate = bytesPerSecond / s_mebi;
    return QStringLiteral("%1 MiB/s").arg(numberLocale().toString(rate, 'f', rate < 10 ? 2 : 1));
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
        const double seconds = static_cast<double>(milliseconds) / 1000;
        return QStringLiteral("%1 s").arg(numberLocale().toString(seconds, 'f', 1));
    }
    const qint64 seconds = (milliseconds + 500) / 1000;
    if (seconds < 3600) {
        return QStringLiteral("%1 min %2 s").arg(seconds / 60).arg(seconds % 60, 2, 10, zero);
    }
    return QStringLiteral("%1 h %2 min").arg(seconds / 3600).arg(seconds / 60 % 60, 2, 10, zero);
}

QString counted(qint64 n, const QString &one, const QString &many)
{
    return n == 1 ? one : many.arg(n);
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

QString systemText(int error)
{
    return QString::fromStdString(std::generic_category().message(error));
}

QString withCause(const QString &clause, int error)
{
    return error == 0 ? clause + QLatin1Char('.')
                      : QStringLiteral("%1: %2.").arg(clause, systemText(error));
}

QString quotedList(const QStringList &paths)
{
    QStringList texts;
    for (const QString &path : paths) {
        texts.append(quoted(path));
    }
    return texts.join(QLatin1String(", "));
}

QStringList listed(const QStringList &sentences, const QString &oneMore, const QString &manyMore)
{
    QStringList shown = sentences.mid(0, s_listed);
    if (sentences.size() > s_listed) {
        shown.append(counted(sentences.size() - s_listed, oneMore, manyMore));
    }
    return shown;
}

} // namespace Tavro::FieldHost
