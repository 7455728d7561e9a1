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

/**
 * The folders, @p folder and with Depth::Tree those below it, that cannot be listed to their end
 * or whose entries cannot be reached. Links are not followed.
 */
QVector<UnreadableFolder> unreadableFolders(const QString &folder, Depth depth);

} // namespace Tavro::FieldHost
