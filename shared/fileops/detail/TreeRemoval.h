#pragma once

#include "shared/filesystem/detail/FolderHandle.h"

#include <QString>

namespace Tavro::Shared::detail {

/**
 * The directory that @p path means now, as an absolute path that goes on meaning it: "." and ".."
 * are gone from it, a link at its end is not followed. Empty when it means none.
 */
QString removalRoot(const QString &path);

/** True when @p root is a directory that may be gone through: no link, and not the root of all. */
bool isRemovableTree(const QString &root);

/**
 * Removes what is left below the directory @p root, and itself. True when it is gone, and when
 * there was none. What cannot be removed stays, the rest goes all the same.
 *
 * Links are removed, never followed; so is @p root, where it is a link to a directory. The root
 * of all is not removed.
 */
bool removeTree(const QString &root);

/** Removes single files below a directory; files of the same folder in a row cost the least. */
class FileRemoval
{
public:
    /** @p root is a directory; each file's path begins with it. */
    explicit FileRemoval(const QString &root);

    /** False when the file is still there, or was gone before. */
    bool remove(const QString &path);

private:
    bool enterFolder(const QString &path, int length);

    const QString m_prefix; // the root, ending in "/"
    FolderHandle m_root;
    FolderHandle m_folder;
    QString m_folderPath; // of the open folder, ending in "/"
};

} // namespace Tavro::Shared::detail
