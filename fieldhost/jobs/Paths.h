// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

#include <dirent.h>
#include <sys/stat.h>

namespace Tavro::FieldHost {

/** The directory that an absolute, clean path lies in; "/" for that itself. */
QString parentOf(const QString &path);

/** @p name in @p directory, which may end in "/". */
QString below(const QString &directory, const QString &name);

/** What the system says of a file; st_mode is 0, and an errno is left, when it says nothing. */
using FileStatus = struct stat;
/** Of what has that name, which a link has itself. */
FileStatus statusOf(const QString &path);
/** Of what the path leads to, links followed. */
FileStatus targetStatusOf(const QString &path);
/** Whether both are there and the same. */
bool isSameFile(const FileStatus &a, const FileStatus &b);

/** Whether there is anything of that name, a link that leads nowhere included. */
bool existsOrIsLink(const QString &path);

/** A path as typed, made absolute and clean. */
QString absolutePath(const QString &typed);

/** Whether a path is a directory's own or lies below it; both absolute and clean. */
bool isSameOrBelow(const QString &path, const QString &directory);

/** The longest beginning of an absolute path that there is. */
QString nearestExisting(QString path);

/** A descriptor of the directory @p path for reading; -1, with errno, when there is none to be had.
 */
int openDirectory(const QString &path);

/**
 * Hands each entry of the directory @p descriptor, but for "." and "..", to @p visit, and closes
 * it. Returns the errno of what kept entries from being listed; 0 when all were. Of -1, as
 * openDirectory() has just answered it, none is.
 */
int visitEntries(int descriptor, const std::function<void(const dirent &entry)> &visit);

/** The name of a file in the file system; null when no text stands for exactly these bytes. */
QString nameFromBytes(const QByteArray &bytes);

/** The canonical path that something is going to have that need not exist yet. */
QString futureCanonicalPath(const QString &path);

} // namespace Tavro::FieldHost
