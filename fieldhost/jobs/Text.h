// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/services/Printable.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace Tavro::FieldHost {

/** Translates the texts of the jobs that no QObject says. */
class JobText
{
    Q_DECLARE_TR_FUNCTIONS(Tavro::FieldHost::JobText)
};

/** "1023 B", "12.3 MiB": binary units. */
QString formatBytes(qint64 bytes);
/** "45.2 MiB/s", with two decimals below 10; always in MiB, so that rates compare at a glance. */
QString formatRate(double bytesPerSecond);
/** A clock: "0:07", "1:02:03". */
QString formatClock(qint64 milliseconds);
/** A length of time in words: "1.3 s", "2 min 05 s", "1 h 02 min". */
QString formatDuration(qint64 milliseconds);
/** @p one for 1, else @p many with the number in the place of %1. */
QString counted(qint64 n, const QString &one, const QString &many);

/** @p path as a terminal can show it, in double quotes. */
QString quoted(const QString &path);
/** The same for a name as the file system has it; bytes that are not UTF-8 read \xNN. */
QString quoted(const QByteArray &path);

/** What the system calls the error number @p error. */
QString systemText(int error);

/** The sentence of @p clause, with what the system says of @p error unless that is 0. */
QString withCause(const QString &clause, int error);
/** All of @p paths, quoted. */
QString quotedList(const QStringList &paths);
/** The first of @p sentences, and how many more there are: two sentences for counted(). */
QStringList listed(const QStringList &sentences, const QString &oneMore, const QString &manyMore);

} // namespace Tavro::FieldHost
