// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/DestinationTree.h"

#include "shared/fileops/detail/WrittenVolumes.h"
#include "shared/filesystem/detail/FileIdentity.h"
#include "shared/filesystem/detail/NativeName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

constexpr QLatin1Char s_slash('/');
constexpr mode_t s_newDirectoryMode = 0777; // less what the umask takes away

int lengthOfDirectory(const QString &path)
{
    return path.lastIndexOf(s_slash) + 1;
}

bool examine(const QString &path, struct stat &info)
{
    return ::stat(NativeName(path, 0).get(), &info) == 0;
}

QString canonicalPath(const QString &path)
{
    return QFileInfo(path).canonicalFilePath();
}

} // namespace

DestinationTree::DestinationTree(const QString &root, Root whenMissing, WrittenVolumes &volumes)
    : m_rootPath(root)
    , m_whenMissing(whenMissing)
    , m_volumes(volumes)
{
}

int DestinationTree::makeDirectories(const QStringList &directories)
{
    int made = 0;
    for (const QString &directory : directories) {
        const QString path = m_rootPath + directory;
        if (!enterDirectoryOf(path)) {
            break;
        }
        const NativeName name(path, lengthOfDirectory(path));
        if (::mkdirat(m_directory.get(), name.get(), s_newDirectoryMode) != 0) {
            struct stat info = {};
            if (errno != EEXIST || ::fstatat(m_directory.get(), name.get(), &info, 0) != 0) {
                break;
            }
            if (!S_ISDIR(info.st_mode)) {
                errno = ENOTDIR;
                break;
            }
            struct stat entry = {};
            const bool isLink =
                ::fstatat(m_directory.get(), name.get(), &entry, AT_SYMLINK_NOFOLLOW) == 0
                && S_ISLNK(entry.st_mode);
            if (isLink || info.st_dev != m_directoryInfo.st_dev) {
                m_waysOut.insert(path + s_slash, info);
            }
        }
        ++made;
    }
    return made;
}

bool DestinationTree::enterDirectoryOf(const QString &path)
{
    if (!isNameable(path)) {
        errno = ENOENT;
        return false;
    }
    const int length = lengthOfDirectory(path);
    struct stat info = {};
    if (m_directory.isOpen() && m_directoryPath.size() == length && path.startsWith(m_directoryPath)
        && examine(m_directoryPath, info) && isSameFile(info, m_directoryInfo)) {
        return true;
    }
    m_directory.close();
    return isRootUsable() && descendTo(path.left(length));
}

bool DestinationTree::openRoot()
{
    if (!isNameable(m_rootPath)) {
        errno = ENOENT;
        return false;
    }
    const bool isRootOfAll = m_rootPath.size() == 1;
    const QByteArray path = QFile::encodeName(isRootOfAll ? m_rootPath : m_rootPath.chopped(1));
    m_root = DirectoryHandle::open(path.constData(), Links::Follow);
    if (!m_root.isOpen() && errno == ENOENT && m_whenMissing == Root::MadeWhenMissing
        && QDir().mkpath(m_rootPath)) {
        m_root = DirectoryHandle::open(path.constData(), Links::Follow);
    }
    if (!m_root.isOpen()) {
        return false;
    }
    if (::fstat(m_root.get(), &m_rootInfo) != 0) {
        m_root.close();
        return false;
    }
    m_flushed.clear();
    m_waysOut.clear();
    return true;
}

// A destination that is gone is made again, and one that was made anew is used. Not so when its
// path leads elsewhere now: behind a link, or to the volume below the one that was taken away.
bool DestinationTree::isRootUsable()
{
    if (m_canonicalRoot.isEmpty()) {
        if (!openRoot()) {
            return false; // with errno as it is: nothing is asked of the system any more
        }
        m_device = m_rootInfo.st_dev;
        m_canonicalRoot = canonicalPath(m_rootPath);
        return true;
    }
    struct stat info = {};
    if (examine(m_rootPath, info)) {
        if (m_root.isOpen() && isSameFile(info, m_rootInfo)) {
            return true;
        }
        if (info.st_dev != m_device || canonicalPath(m_rootPath) != m_canonicalRoot) {
            errno = ENODEV;
            return false;
        }
    } else if (errno != ENOENT || !mayMakeRootAgain()) {
        return false;
    }
    if (!openRoot()) {
        return false;
    }
    if (m_rootInfo.st_dev != m_device) {
        m_root.close();
        errno = ENODEV;
        return false;
    }
    return true;
}

// where what is left of the path is still on the same volume, and no link leads away
bool DestinationTree::mayMakeRootAgain() const
{
    QString rest;
    QString existing = m_rootPath.chopped(1);
    struct stat info = {};
    while (!existing.isEmpty() && !examine(existing, info)) {
        const int end = existing.lastIndexOf(s_slash);
        rest.prepend(existing.mid(end));
        existing.truncate(end);
    }
    const bool isRootOfAll = existing.isEmpty() && examine(QStringLiteral("/"), info);
    const QString canonical = isRootOfAll ? QString() : canonicalPath(existing);
    const bool isThere = info.st_dev == m_device && canonical + rest == m_canonicalRoot;
    if (!isThere) {
        errno = ENODEV;
    }
    return isThere;
}

// Name by name from the root: what stands in the place of a directory may be a link now, or the
// root of another volume.
bool DestinationTree::descendTo(const QString &path)
{
    DirectoryHandle directory = DirectoryHandle::openBelow(m_root.get(), ".");
    for (int begin = m_rootPath.size(); directory.isOpen() && begin < path.size();) {
        const int end = path.indexOf(s_slash, begin);
        directory = openBelow(directory, path, begin, end);
        begin = end + 1;
    }
    if (!directory.isOpen() || ::fstat(directory.get(), &m_directoryInfo) != 0
        || !m_volumes.add(directory.get(), m_directoryInfo.st_dev)) {
        return false;
    }
    m_directory = std::move(directory);
    m_directoryPath = path;
    m_coversNames = fsyncCoversName(m_directory.get());
    m_isDirectoryFlushed = false;
    m_written.clear();
    return true;
}

DirectoryHandle DestinationTree::openBelow(const DirectoryHandle &directory, const QString &path,
                                           int begin, int end) const
{
    const NativeName name(path.mid(begin, end - begin), 0);
    const auto wayOut = m_waysOut.constFind(path.left(end + 1));
    const bool leadsOut = wayOut != m_waysOut.cend();
    DirectoryHandle below = DirectoryHandle::openBelow(directory.get(), name.get(),
                                                       leadsOut ? Links::Follow : Links::Refuse);
    struct stat above = {};
    struct stat info = {};
    if (!below.isOpen() || ::fstat(directory.get(), &above) != 0
        || ::fstat(below.get(), &info) != 0) {
        return {};
    }
    if (leadsOut ? !isSameFile(info, *wayOut) : info.st_dev != above.st_dev) {
        errno = ENODEV;
        return {};
    }
    return below;
}

FileDescriptor DestinationTree::openFile(const char *name, bool &isNew) const
{
    isNew = false;
    if (m_coversNames) { // nobody will ask
        return FileDescriptor::openOrCreate(m_directory.get(), name);
    }
    FileDescriptor file = FileDescriptor::createNew(m_directory.get(), name);
    isNew = file.isOpen();
    return isNew || errno != EEXIST ? std::move(file)
                                    : FileDescriptor::openOrCreate(m_directory.get(), name);
}

bool DestinationTree::noteWritten(const struct stat &file)
{
    return m_written.insert(file.st_ino).second;
}

bool DestinationTree::flushNames(bool isNewFile)
{
    if (m_coversNames || (m_isDirectoryFlushed && !isNewFile)) {
        return true;
    }
    // at first what lies above: a name is found from the root of the volume on
    if (!m_isDirectoryFlushed && !flushWay()) {
        return false;
    }
    m_isDirectoryFlushed = flushDirectory(m_directory.get());
    return m_isDirectoryFlushed;
}

// each directory above the one entered, once
bool DestinationTree::flushWay()
{
    DirectoryHandle directory = DirectoryHandle::openBelow(m_root.get(), ".");
    for (int begin = m_rootPath.size(); directory.isOpen() && begin < m_directoryPath.size();) {
        const QString path = m_directoryPath.left(begin);
        if (!m_flushed.contains(path)) {
            if (!flushDirectory(directory.get())) {
                return false;
            }
            m_flushed.insert(path);
        }
        const int end = m_directoryPath.indexOf(s_slash, begin);
        directory = openBelow(directory, m_directoryPath, begin, end);
        begin = end + 1;
    }
    const QString above; // stands for what lies above the root
    if (!m_flushed.contains(above)) {
        if (!flushVolumeAboveRoot()) {
            return false;
        }
        m_flushed.insert(above);
    }
    return directory.isOpen();
}

bool DestinationTree::flushVolumeAboveRoot() const
{
    DirectoryHandle directory = DirectoryHandle::openBelow(m_root.get(), "..");
    struct stat below = m_rootInfo;
    struct stat info = {};
    while (directory.isOpen()) {
        if (::fstat(directory.get(), &info) != 0) {
            return false;
        }
        if (info.st_dev != below.st_dev || isSameFile(info, below)) {
            return true;
        }
        if (!flushDirectory(directory.get())) {
            return false;
        }
        directory = DirectoryHandle::openBelow(directory.get(), "..");
        below = info;
    }
    return errno == EACCES; // whoever may not look into it cannot flush it either
}

void DestinationTree::removeFile(const char *name, const struct stat &written) const
{
    struct stat entry = {};
    struct stat meant = {};
    if (::fstatat(m_directory.get(), name, &entry, AT_SYMLINK_NOFOLLOW) == 0
        && ::fstatat(m_directory.get(), name, &meant, 0) == 0 && isSameFile(meant, written)
        && (S_ISREG(entry.st_mode) || S_ISLNK(entry.st_mode))) {
        ::unlinkat(m_directory.get(), name, 0);
    }
}

} // namespace Tavro::Shared::detail
