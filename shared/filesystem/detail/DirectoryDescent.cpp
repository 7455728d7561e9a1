// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/detail/DirectoryDescent.h"

#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/SystemCall.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace Tavro::Shared::detail {

namespace {

constexpr size_t s_bufferSize = 64UL * 1024;
constexpr size_t s_openDirectories = 32; // the nearest ones, besides the root
constexpr int s_passes = 16; // over a directory that changes while it is read

bool isSelfOrParent(const char *name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

ssize_t readEntries(int directory, char *buffer)
{
    return uninterrupted([=] { return ::getdents64(directory, buffer, s_bufferSize); });
}

} // namespace

struct DirectoryDescent::Level
{
    DirectoryHandle directory; // closed while it is far above
    dev_t device = 0; // by which it is known again then
    ino_t inode = 0;
    std::string directories; // names of those in it, a NUL behind each
    size_t position = 0; // of the one being gone through

    bool isDone() const { return position >= directories.size(); }
    const char *current() const { return directories.data() + position; }
    void advance() { position += std::strlen(current()) + 1; }
};

DirectoryDescent::DirectoryDescent()
    : m_buffer(new char[s_bufferSize])
{
}

DirectoryDescent::~DirectoryDescent() = default;

void DirectoryDescent::notice(const QByteArray & /*path*/, int /*error*/)
{
}

QByteArray DirectoryDescent::pathOfDirectory() const
{
    QByteArray path;
    for (size_t i = 0; i + 1 < m_levels.size(); ++i) {
        path += i == 0 ? "" : "/";
        path += m_levels[i].current();
    }
    return path;
}

QByteArray DirectoryDescent::pathOf(const char *name) const
{
    const QByteArray directory = pathOfDirectory();
    return directory.isEmpty() ? QByteArray(name) : directory + '/' + name;
}

void DirectoryDescent::run(DirectoryHandle root)
{
    enter(std::move(root));
    while (!m_levels.empty()) {
        const Level &level = m_levels.back();
        if (level.isDone()) {
            ascend();
            continue;
        }
        const int directory = level.directory.get();
        DirectoryHandle below = DirectoryHandle::openBelow(directory, level.current());
        if (below.isOpen() && mayEnter(below.get())) {
            enter(std::move(below));
        } else {
            noticeUnlessGone(pathOf(level.current()), errno);
            leave(directory, level.current());
            m_levels.back().advance();
        }
    }
}

void DirectoryDescent::noticeUnlessGone(const QByteArray &path, int error)
{
    if (error != ENOENT) {
        notice(path, error);
    }
}

void DirectoryDescent::enter(DirectoryHandle directory)
{
    m_levels.emplace_back();
    Level &level = m_levels.back();
    level.directory = std::move(directory);
    for (int pass = 0; pass < s_passes && !readDirectory(level); ++pass) {
        ::lseek(level.directory.get(), 0, SEEK_SET);
    }
    closeFarthest();
}

// false when it has to be read again
bool DirectoryDescent::readDirectory(Level &level)
{
    level.directories.clear();
    bool isUnchanged = true;
    const int directory = level.directory.get();
    ssize_t size = 0;
    while ((size = readEntries(directory, m_buffer.get())) > 0) {
        for (ssize_t at = 0; at < size;) {
            const void *record = m_buffer.get() + at; // the system aligns it
            const auto &entry = *static_cast<const dirent64 *>(record);
            at += entry.d_reclen;
            if (isSelfOrParent(entry.d_name)) {
                continue;
            }
            if (!isAddressable(entry.d_name)) {
                notice(pathOfDirectory(), EILSEQ);
            } else if (isDirectory(directory, entry)) {
                level.directories.append(entry.d_name).push_back('\0');
            } else if (visit(directory, entry) == Next::ReadAgain) {
                isUnchanged = false;
            }
        }
    }
    if (size < 0) {
        noticeUnlessGone(pathOfDirectory(), errno);
    }
    return isUnchanged;
}

bool DirectoryDescent::isDirectory(int directory, const dirent64 &entry)
{
    if (entry.d_type != DT_UNKNOWN) { // which is what some file systems say of all
        return entry.d_type == DT_DIR;
    }
    struct stat info = {};
    if (::fstatat(directory, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0) {
        return S_ISDIR(info.st_mode);
    }
    noticeUnlessGone(pathOfDirectory(), errno);
    return false;
}

void DirectoryDescent::closeFarthest()
{
    if (m_levels.size() <= s_openDirectories + 1) {
        return;
    }
    Level &level = m_levels[m_levels.size() - 1 - s_openDirectories];
    struct stat info = {};
    if (level.directory.isOpen() && ::fstat(level.directory.get(), &info) == 0) {
        level.device = info.st_dev;
        level.inode = info.st_ino;
        level.directory.close();
    }
}

void DirectoryDescent::ascend()
{
    const Level below = std::move(m_levels.back());
    m_levels.pop_back();
    if (m_levels.empty()) {
        return;
    }
    Level &level = m_levels.back();
    int error = 0;
    if (!level.directory.isOpen() && below.directory.isOpen()) {
        level.directory = DirectoryHandle::openBelow(below.directory.get(), "..");
        struct stat info = {};
        if (!level.directory.isOpen() || ::fstat(level.directory.get(), &info) != 0) {
            error = errno;
            level.directory.close();
        } else if (info.st_dev != level.device || info.st_ino != level.inode) {
            level.directory.close(); // somebody has moved what lies below: this is not the way back
        }
    }
    if (level.directory.isOpen()) {
        leave(level.directory.get(), level.current());
        level.advance();
    } else {
        level.position = level.directories.size();
        notice(pathOfDirectory(), error);
    }
}

} // namespace Tavro::Shared::detail
