#pragma once

#include "shared/filesystem/detail/FolderHandle.h"

#include <QByteArray>

#include <dirent.h>
#include <sys/types.h>

#include <memory>
#include <string>
#include <vector>

namespace Tavro::Shared::detail {

/**
 * Goes through a tree, folder by folder, each below the last before the next beside it.
 *
 * Each folder is opened by its name in the one above: no path is too long, and a folder that is
 * replaced by a link meanwhile leads nowhere else. Links are not followed. What is kept of the
 * folders above stands on the heap, and few of them are open at a time, so that no depth
 * exhausts a thread's stack or the process' descriptors. Names that are not UTF-8 are left out.
 */
class FolderDescent
{
    Q_DISABLE_COPY(FolderDescent)

public:
    FolderDescent();
    virtual ~FolderDescent();

    /** Goes through what lies below @p root. */
    void run(FolderHandle root);

protected:
    enum class Next { GoOn, ReadAgain };

    /**
     * @p entry of the open folder @p folder is no folder itself. ReadAgain when it is gone now:
     * some file systems pass others over then.
     */
    virtual Next visit(int folder, const dirent64 &entry) = 0;
    /** False when the open folder @p folder, found below the root, is not to be gone through. */
    virtual bool mayEnter(int /*folder*/) { return true; }
    /** The folder @p name in @p folder was gone through, as far as it could be opened. */
    virtual void leave(int folder, const char *name) = 0;
    /**
     * The folder @p path, below the root, was not seen, or only in part: an errno, or 0 when
     * somebody has moved it. Told while it is gone through, or before leave() when it is not, and
     * perhaps more than once. A folder that is gone has nothing in it.
     */
    virtual void notice(const QByteArray &path, int error);

    /** The path of the folder at hand, below the root. */
    QByteArray pathOfFolder() const;
    /** The path of @p name in it. */
    QByteArray pathOf(const char *name) const;

private:
    struct Level;

    void enter(FolderHandle folder);
    bool readFolder(Level &level);
    void noticeUnlessGone(const QByteArray &path, int error);
    bool isFolder(int folder, const dirent64 &entry);
    void closeFarthest();
    void ascend();

    std::vector<Level> m_levels; // from the root to the folder at hand
    std::unique_ptr<char[]> m_buffer;
};

} // namespace Tavro::Shared::detail
