#include "shared/filesystem/detail/FolderDescent.h"

#include "shared/filesystem/detail/NativeName.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace Tavro::Shared::detail {

namespace {

constexpr size_t s_bufferSize = 64UL * 1024;
constexpr size_t s_openFolders = 32; // the nearest ones, besides the root
constexpr int s_passes = 16; // over a folder that changes while it is read

bool isSelfOrParent(const char *name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

ssize_t readEntries(int folder, char *buffer)
{
    ssize_t size = -1;
    do {
        size = ::getdents64(folder, buffer, s_bufferSize);
    } while (size < 0 && errno == EINTR);
    return size;
}

} // namespace

struct FolderDescent::Level
{
    FolderHandle folder; // closed while it is far above
    dev_t device = 0; // by which it is known again then
    ino_t inode = 0;
    std::string folders; // names of those in it, a NUL behind each
    size_t position = 0; // of the one being gone through

    bool isDone() const { return position >= folders.size(); }
    const char *current() const { return folders.data() + position; }
    void advance() { position += std::strlen(current()) + 1; }
};

FolderDescent::FolderDescent()
    : m_buffer(new char[s_bufferSize])
{
}

FolderDescent::~FolderDescent() = default;

void FolderDescent::notice(const QByteArray & /*path*/, int /*error*/)
{
}

QByteArray FolderDescent::pathOfFolder() const
{
    QByteArray path;
    for (size_t i = 0; i + 1 < m_levels.size(); ++i) {
        path += i == 0 ? "" : "/";
        path += m_levels[i].current();
    }
    return path;
}

QByteArray FolderDescent::pathOf(const char *name) const
{
    const QByteArray folder = pathOfFolder();
    return folder.isEmpty() ? QByteArray(name) : folder + '/' + name;
}

void FolderDescent::run(FolderHandle root)
{
    enter(std::move(root));
    while (!m_levels.empty()) {
        const Level &level = m_levels.back();
        if (level.isDone()) {
            ascend();
            continue;
        }
        const int folder = level.folder.get();
        FolderHandle below = FolderHandle::openBelow(folder, level.current());
        if (below.isOpen() && mayEnter(below.get())) {
            enter(std::move(below));
        } else {
            noticeUnlessGone(pathOf(level.current()), errno);
            leave(folder, level.current());
            m_levels.back().advance();
        }
    }
}

void FolderDescent::noticeUnlessGone(const QByteArray &path, int error)
{
    if (error != ENOENT) {
        notice(path, error);
    }
}

void FolderDescent::enter(FolderHandle folder)
{
    m_levels.emplace_back();
    Level &level = m_levels.back();
    level.folder = std::move(folder);
    for (int pass = 0; pass < s_passes && !readFolder(level); ++pass) {
        ::lseek(level.folder.get(), 0, SEEK_SET);
    }
    closeFarthest();
}

// false when it has to be read again
bool FolderDescent::readFolder(Level &level)
{
    level.folders.clear();
    bool isUnchanged = true;
    const int folder = level.folder.get();
    ssize_t size = 0;
    while ((size = readEntries(folder, m_buffer.get())) > 0) {
        for (ssize_t at = 0; at < size;) {
            const void *record = m_buffer.get() + at; // the system aligns it
            const auto &entry = *static_cast<const dirent64 *>(record);
            at += entry.d_reclen;
            if (isSelfOrParent(entry.d_name)) {
                continue;
            }
            if (!isAddressable(entry.d_name)) {
                notice(pathOfFolder(), EILSEQ);
            } else if (isFolder(folder, entry)) {
                level.folders.append(entry.d_name).push_back('\0');
            } else if (visit(folder, entry) == Next::ReadAgain) {
                isUnchanged = false;
            }
        }
    }
    if (size < 0) {
        noticeUnlessGone(pathOfFolder(), errno);
    }
    return isUnchanged;
}

bool FolderDescent::isFolder(int folder, const dirent64 &entry)
{
    if (entry.d_type != DT_UNKNOWN) { // which is what some file systems say of all
        return entry.d_type == DT_DIR;
    }
    struct stat info = {};
    if (::fstatat(folder, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0) {
        return S_ISDIR(info.st_mode);
    }
    noticeUnlessGone(pathOfFolder(), errno);
    return false;
}

void FolderDescent::closeFarthest()
{
    if (m_levels.size() <= s_openFolders + 1) {
        return;
    }
    Level &level = m_levels[m_levels.size() - 1 - s_openFolders];
    struct stat info = {};
    if (level.folder.isOpen() && ::fstat(level.folder.get(), &info) == 0) {
        level.device = info.st_dev;
        level.inode = info.st_ino;
        level.folder.close();
    }
}

void FolderDescent::ascend()
{
    const Level below = std::move(m_levels.back());
    m_levels.pop_back();
    if (m_levels.empty()) {
        return;
    }
    Level &level = m_levels.back();
    int error = 0;
    if (!level.folder.isOpen() && below.folder.isOpen()) {
        level.folder = FolderHandle::openBelow(below.folder.get(), "..");
        struct stat info = {};
        if (!level.folder.isOpen() || ::fstat(level.folder.get(), &info) != 0) {
            error = errno;
            level.folder.close();
        } else if (info.st_dev != level.device || info.st_ino != level.inode) {
            level.folder.close(); // somebody has moved what lies below: this is not the way back
        }
    }
    if (level.folder.isOpen()) {
        leave(level.folder.get(), level.current());
        level.advance();
    } else {
        level.position = level.folders.size();
        notice(pathOfFolder(), error);
    }
}

} // namespace Tavro::Shared::detail
