// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Tavro::FieldHost {

/** A directory whose entries are not all known. */
struct UnreadableDirectory
{
    QByteArray path;
    int error = 0; // the errno
};

/** Whether a look goes into the directories of a directory, too. */
enum class Depth { Directory, Tree };

/** What a look at a directory finds. */
struct DirectoryListing
{
    /** The directories that cannot be listed to their end, or whose entries cannot be reached. */
    QVector<UnreadableDirectory> unreadable;
    /** The sum of the sizes of the regular files. */
    qint64 bytes = 0;
};

/** Looks at @p directory, and with Depth::Tree at those below it. Links are not followed. */
DirectoryListing listDirectory(const QString &directory, Depth depth);

} // namespace Tavro::FieldHost
