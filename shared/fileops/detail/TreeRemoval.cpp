// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/TreeRemoval.h"

#include "shared/fileops/detail/RequestPaths.h"
#include "shared/fileops/detail/WrittenVolumes.h"
#include "shared/filesystem/detail/DirectoryDescent.h"
#include "shared/filesystem/detail/FileIdentity.h"
#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/PathText.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <set>
#include <utility>
#include <vector>

namespace Tavro::Shared::detail {

namespace {

using Outcome = TreeRemoval::Outcome;

/** Removes everything that it meets. */
class Removal : public DirectoryDescent
{
public:
    explicit Removal(const QString &root)
        : m_root(root)
    {
    }

    // what kept the tree, whose root could not be removed for @p error
    TreeRemoval failure(int error)
    {
        TreeRemoval result = {Outcome::Failed, error, m_root, {}, true};
        if (m_hasFailed) {
            result.systemError = m_error;
            result.path = absolute(m_path);
        } else if (!m_notices.empty()) {
            result.systemError = m_notices.front().error;
            result.path = absolute(m_notices.front().path);
        }
        for (const Notice &notice : m_notices) {
            result.unreadableDirectories.append(absolute(notice.path));
        }
        result.unreadableDirectories.removeDuplicates();
        return result;
    }

    void notice(const QByteArray &path, int error) override
    {
        if (m_notices.empty() || m_notices.back().path != path) {
            m_notices.push_back({path, error});
        }
    }

protected:
    Next visit(int directory, const dirent64 &entry) override
    {
        if (::unlinkat(directory, entry.d_name, 0) == 0) {
            forgive(entry.d_name);
            return Next::ReadAgain;
        }
        // what somebody else has removed is gone, too
        if (errno != ENOENT) {
            // a directory here is one that could not be told from a file
            const bool isUntold = errno == EISDIR && hasNoticed(pathOfDirectory());
            fail(entry.d_name, isUntold ? m_notices.back().error : errno);
        }
        return Next::GoOn;
    }

    void leave(int directory, const char *name) override
    {
        const bool isGone = ::unlinkat(directory, name, AT_REMOVEDIR) == 0 || errno == ENOENT;
        const int error = errno;
        // its path is long in a deep tree, so it is made only when it is needed
        const QByteArray path = isGone && m_notices.empty() ? QByteArray() : pathOf(name);
        if (isGone) {
            while (hasNoticed(path)) {
                m_notices.pop_back();
            }
            return;
        }
        if (error == EBUSY) {
            flushMount(directory, name);
        }
        fail(name, hasNoticed(path) ? m_notices.back().error : error);
    }

private:
    /** A directory that was not seen, or only in part. */
    struct Notice
    {
        QByteArray path;
        int error;
    };

    QString absolute(const QByteArray &path) const
    {
        if (path.isEmpty()) {
            return m_root;
        }
        const QByteArray root = QFile::encodeName(m_root);
        return QFile::decodeName(root.endsWith('/') ? root + path : root + '/' + path);
    }

    void fail(const char *name, int error)
    {
        if (!m_hasFailed) {
            m_hasFailed = true;
            m_error = error;
            m_path = pathOf(name);
        }
    }

    // it is gone at a second try
    void forgive(const char *name) { m_hasFailed = m_hasFailed && m_path != pathOf(name); }

    // of what was in it nothing is left to tell of
    bool hasNoticed(const QByteArray &directory) const
    {
        return !m_notices.empty() && m_notices.back().path == directory;
    }

    // what was removed below a mount point is not on the volume that is flushed in the end
    static void flushMount(int directory, const char *name)
    {
        const DirectoryHandle mount = DirectoryHandle::openBelow(directory, name);
        if (mount.isOpen()) {
            ::syncfs(mount.get());
            flushDirectory(mount.get());
        }
    }

    const QString m_root;
    std::vector<Notice> m_notices;
    bool m_hasFailed = false;
    int m_error = 0; // of the first failure
    QByteArray m_path;
};

// also when nobody can tell: too much is at stake
bool mayBeRootOfAll(const struct stat &info)
{
    struct stat root = {};
    return ::stat("/", &root) != 0 || isSameFile(info, root);
}

TreeRemoval removeLinkToDirectory(const QString &root, const QByteArray &link)
{
    struct stat target = {};
    if (::stat(link.constData(), &target) != 0) {
        const bool isBroken = meansNothing(errno) || errno == ELOOP;
        return isBroken ? TreeRemoval{Outcome::NoDirectory, ENOTDIR, root, {}, false}
                        : TreeRemoval{Outcome::Failed, errno, root, {}, true};
    }
    if (!S_ISDIR(target.st_mode)) {
        return {Outcome::NoDirectory, ENOTDIR, root, {}, false};
    }
    if (::unlink(link.constData()) == 0 || errno == ENOENT) {
        return {Outcome::Gone, 0, {}, {}, true};
    }
    return {Outcome::Failed, errno, root, {}, true};
}

} // namespace

bool isRemovableTree(const QString &root)
{
    if (isResource(root)) {
        return QFileInfo(root).isDir();
    }
    struct stat info = {};
    return isNameable(root) && ::lstat(QFile::encodeName(root).constData(), &info) == 0
        && S_ISDIR(info.st_mode) && !mayBeRootOfAll(info);
}

TreeRemoval removeTree(const QString &root)
{
    if (!isNameable(root)) {
        return {};
    }
    if (isResource(root)) {
        return QFileInfo(root).isDir() ? TreeRemoval{Outcome::Failed, EROFS, root, {}, true}
                                       : TreeRemoval();
    }
    const QByteArray name = QFile::encodeName(root);
    struct stat info = {};
    if (::lstat(name.constData(), &info) != 0) {
        return meansNothing(errno) ? TreeRemoval()
                                   : TreeRemoval{Outcome::Failed, errno, root, {}, false};
    }
    if (S_ISLNK(info.st_mode)) {
        return removeLinkToDirectory(root, name);
    }
    if (!S_ISDIR(info.st_mode)) {
        return {Outcome::NoDirectory, ENOTDIR, root, {}, false};
    }
    if (mayBeRootOfAll(info)) {
        return {Outcome::Failed, EBUSY, root, {}, false};
    }
    Removal removal(root);
    DirectoryHandle directory = DirectoryHandle::open(name.constData(), Links::Refuse);
    if (directory.isOpen()) {
        removal.run(std::move(directory));
    } else {
        removal.notice({}, errno);
    }
    // which an empty directory alone allows
    if (::rmdir(name.constData()) == 0 || errno == ENOENT) {
        return {Outcome::Gone, 0, {}, {}, true};
    }
    return removal.failure(errno);
}

FileRemoval::FileRemoval(const QString &root)
    : m_prefix(withFinalSlash(root))
{
    if (isResource(root)) {
        m_error = EROFS;
        return;
    }
    m_root = DirectoryHandle::open(QFile::encodeName(root).constData(), Links::Refuse);
    m_error = m_root.isOpen() ? 0 : errno;
}

FileRemoval::~FileRemoval()
{
    leaveDirectory();
}

int FileRemoval::remove(const QString &path)
{
    const int begin = path.lastIndexOf(QLatin1Char('/')) + 1;
    if (const int error = enterDirectory(path, begin)) {
        return error;
    }
    const NativeName name(path, begin);
    return ::unlinkat(m_directory.get(), name.get(), 0) == 0 ? 0 : errno;
}

// Name by name from the root: what stands in the place of a directory of the walk may be a link
// now.
int FileRemoval::enterDirectory(const QString &path, int length)
{
    if (!m_root.isOpen()
        || (m_directoryPath.size() == length && path.startsWith(m_directoryPath))) {
        return m_error;
    }
    leaveDirectory();
    m_directoryPath = path.left(length);
    if (!m_directoryPath.startsWith(m_prefix)) {
        return m_error = ENOENT;
    }
    m_directory = DirectoryHandle::openBelow(m_root.get(), ".");
    for (int begin = m_prefix.size(); m_directory.isOpen() && begin < length;) {
        const int end = path.indexOf(QLatin1Char('/'), begin);
        const NativeName name(path.mid(begin, end - begin), 0);
        m_directory = DirectoryHandle::openBelow(m_directory.get(), name.get());
        begin = end + 1;
    }
    struct stat info = {};
    struct stat root = {};
    const bool isFound = m_directory.isOpen() && ::fstat(m_directory.get(), &info) == 0
        && ::fstat(m_root.get(), &root) == 0;
    m_error = isFound ? 0 : errno;
    m_isOnOtherVolume = isFound && info.st_dev != root.st_dev;
    return m_error;
}

void FileRemoval::leaveDirectory()
{
    if (m_directory.isOpen() && m_isOnOtherVolume) {
        ::syncfs(m_directory.get());
        flushDirectory(m_directory.get());
    }
    m_directory.close();
}

FlushFailure flushRemovals(const QStringList &roots)
{
    QStringList directories;
    for (const QString &root : roots) {
        directories.append(withoutFinalSlashes(root.left(root.lastIndexOf(QLatin1Char('/')) + 1)));
    }
    directories += roots; // what is left of them may be mount points
    directories.removeDuplicates();

    FlushFailure failure;
    std::set<dev_t> volumes;
    for (const QString &path : qAsConst(directories)) {
        const DirectoryHandle directory =
            DirectoryHandle::open(QFile::encodeName(path).constData(), Links::Refuse);
        struct stat info = {};
        if (!directory.isOpen() || ::fstat(directory.get(), &info) != 0) {
            if (errno != ENOENT) {
                ::sync(); // a directory may be changed, and not be read
            }
            continue;
        }
        int error = 0;
        if (volumes.insert(info.st_dev).second && ::syncfs(directory.get()) != 0) {
            error = errno;
        }
        // on FAT, this is what makes the drive empty its own cache
        const int directoryError = flushDirectory(directory.get()) ? 0 : errno;
        if (failure.systemError == 0 && (error != 0 || directoryError != 0)) {
            failure = {error != 0 ? error : directoryError, path};
        }
    }
    return failure;
}

} // namespace Tavro::Shared::detail
