// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/filesystem/detail/DirectoryHandle.h"

#include <QByteArray>

#include <dirent.h>
#include <sys/types.h>

#include <memory>
#include <string>
#include <vector>

namespace Tavro::Shared::detail {

/**
 * Traverses a tree, depth first.
 *
 * Each directory is opened by its name in the one above: no path is too long, and a directory that
 * is replaced by a link meanwhile leads nowhere else. Links are not followed. What is kept of the
 * directories above stands on the heap, and few of them are open at a time, so that no depth
 * exhausts a thread's stack or the process' descriptors. Names that are not UTF-8 are left out.
 */
class DirectoryDescent
{
    Q_DISABLE_COPY(DirectoryDescent)

public:
    DirectoryDescent();
    virtual ~DirectoryDescent();

    /** Goes through what lies below @p root. */
    void run(DirectoryHandle root);

protected:
    enum class Next { GoOn, ReadAgain };

    /**
     * @p entry of the open directory @p directory is no directory itself. ReadAgain when it is gone
     * now: some file systems pass others over then.
     */
    virtual Next visit(int directory, const dirent64 &entry) = 0;
    /** False when @p directory, open and found below the root, is not to be entered. */
    virtual bool mayEnter(int /*directory*/) { return true; }
    /** The directory @p name in @p directory was gone through, as far as it could be opened. */
    virtual void leave(int directory, const char *name) = 0;
    /**
     * The directory @p path, below the root, was not seen, or only in part: an errno, or 0 when
     * somebody has moved it. Told while it is gone through, or before leave() when it is not, and
     * perhaps more than once. A directory that is gone has nothing in it.
     */
    virtual void notice(const QByteArray &path, int error);

    /** The path of the directory at hand, below the root. */
    QByteArray pathOfDirectory() const;
    /** The path of @p name in it. */
    QByteArray pathOf(const char *name) const;

private:
    struct Level;

    void enter(DirectoryHandle directory);
    bool readDirectory(Level &level);
    void noticeUnlessGone(const QByteArray &path, int error);
    bool isDirectory(int directory, const dirent64 &entry);
    void closeFarthest();
    void ascend();

    std::vector<Level> m_levels; // from the root to the directory at hand
    std::unique_ptr<char[]> m_buffer;
};

} // namespace Tavro::Shared::detail
