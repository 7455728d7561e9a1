#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Tavro::FieldHost {

/** A folder whose entries are not all known. */
struct UnreadableFolder
{
    QByteArray path;
    int error = 0; // the errno
};

/** Whether a look goes into the folders of a folder, too. */
enum class Depth { Folder, Tree };

/** What a look at a folder finds. */
struct FolderListing
{
    /** The folders that cannot be listed to their end, or whose entries cannot be reached. */
    QVector<UnreadableFolder> unreadable;
    /** The sum of the sizes of the regular files. */
    qint64 bytes = 0;
};

/** Looks at @p folder, and with Depth::Tree at those below it. Links are not followed. */
FolderListing listFolder(const QString &folder, Depth depth);

} // namespace Tavro::FieldHost
