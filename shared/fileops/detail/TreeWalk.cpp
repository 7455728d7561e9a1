#include "shared/fileops/detail/TreeWalk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <vector>

namespace Tavro::Shared::detail {

namespace {

struct DirectoryCloser
{
    void operator()(DIR *directory) const { ::closedir(directory); }
};
using DirectoryHandle = std::unique_ptr<DIR, DirectoryCloser>;

/** An entry of one directory, with what it is sorted by. */
struct Entry
{
    QString path;
    QString foldedName; // null where the name is in lower case already
    int nameStart;
    qint64 size;

    QStringView sortKey() const
    {
        return foldedName.isNull() ? QStringView(path).mid(nameStart) : QStringView(foldedName);
    }
};
using Entries = std::vector<Entry>;

/** The files and the subdirectories of one directory; some entries are both. */
struct Folder
{
    Entries files;
    Entries directories;
};

enum class Kind { Nothing, File, Directory, Other };

struct Examined
{
    Kind kind = Kind::Nothing;
    qint64 size = 0;
};

Kind kindOf(mode_t mode)
{
    if (S_ISREG(mode)) {
        return Kind::File;
    }
    return S_ISDIR(mode) ? Kind::Directory : Kind::Other;
}

// a name that is not UTF-8 has no QString that means it
bool isAddressable(const char *name)
{
    // behind a "/": decoding would take a byte order mark at the very beginning off
    const QByteArray bytes = QByteArray("/") + name;
    return QFile::encodeName(QFile::decodeName(bytes)) == bytes;
}

/** Reads one directory; the buffers are kept from one to the next. */
class FolderReader
{
public:
    // the result holds, and may be changed, until the next call
    Folder &read(const QString &path);

private:
    void add(int directoryFd, const dirent &entry);
    Examined examine(int directoryFd, const dirent &entry, qsizetype nameLength) const;
    Examined examineLink(const char *name) const;
    Entry makeEntry(const char *name, int nameLength, bool isAscii, bool isLower,
                    qint64 size) const;

    QString m_prefix; // the directory's path, ending in "/"
    QByteArray m_nativePath; // the same as the system takes it
    Folder m_folder;
};

Folder &FolderReader::read(const QString &path)
{
    m_folder.files.clear();
    m_folder.directories.clear();
    m_prefix = path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
    m_nativePath = QFile::encodeName(m_prefix);

    // by its full path, not relative to its parent: the system counts the links of a path, and
    // that count is what ends a walk through a link to a directory above
    const DirectoryHandle directory(::opendir(QFile::encodeName(path).constData()));
    if (directory) {
        const int fd = ::dirfd(directory.get());
        while (const dirent *entry = ::readdir(directory.get())) {
            if (entry->d_name[0] != '.') { // hidden, or the directory itself, or its parent
                add(fd, *entry);
            }
        }
    }
    return m_folder;
}

void FolderReader::add(int directoryFd, const dirent &entry)
{
    const char *name = entry.d_name;
    int length = 0;
    bool isAscii = true;
    bool isLower = true;
    for (; name[length] != '\0'; ++length) {
        isAscii = isAscii && static_cast<unsigned char>(name[length]) < 0x80;
        isLower = isLower && !(name[length] >= 'A' && name[length] <= 'Z');
    }
    if (!isAscii && !isAddressable(name)) {
        return;
    }

    const Examined examined = examine(directoryFd, entry, length);
    if (examined.kind == Kind::Nothing) {
        return;
    }
    Entry found = makeEntry(name, length, isAscii, isAscii && isLower, examined.size);
    if (examined.kind == Kind::Other) {
        m_folder.directories.push_back(found);
    }
    Entries &list = examined.kind == Kind::Directory ? m_folder.directories : m_folder.files;
    list.push_back(std::move(found));
}

// QFileInfo believes what the directory says of an entry, and follows links by the full path
Examined FolderReader::examine(int directoryFd, const dirent &entry, qsizetype nameLength) const
{
    const bool isTooLong = m_nativePath.size() + nameLength >= PATH_MAX;
    struct stat info = {};
    switch (entry.d_type) {
    case DT_REG:
        if (isTooLong || ::fstatat(directoryFd, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) != 0) {
            return {Kind::File, 0};
        }
        return {Kind::File, info.st_size};
    case DT_DIR:
        return {Kind::Directory, 0};
    case DT_LNK:
        return examineLink(entry.d_name);
    case DT_UNKNOWN: // some file systems leave the question to us
        if (isTooLong || ::fstatat(directoryFd, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) != 0) {
            return {};
        }
        if (S_ISLNK(info.st_mode)) {
            return examineLink(entry.d_name);
        }
        if (S_ISREG(info.st_mode) || S_ISDIR(info.st_mode)) {
            return {kindOf(info.st_mode), info.st_size};
        }
        return {};
    default: // FIFO, socket or device
        return {};
    }
}

Examined FolderReader::examineLink(const char *name) const
{
    struct stat info = {};
    if (::stat((m_nativePath + name).constData(), &info) != 0) {
        return {}; // broken
    }
    return {kindOf(info.st_mode), info.st_size};
}

Entry FolderReader::makeEntry(const char *name, int nameLength, bool isAscii, bool isLower,
                              qint64 size) const
{
    Entry entry{QString(), QString(), m_prefix.size(), size};
    if (isAscii) {
        entry.path.reserve(m_prefix.size() + nameLength);
        entry.path += m_prefix;
        entry.path += QLatin1String(name, nameLength);
    } else {
        entry.path = QFile::decodeName(m_nativePath + name);
    }
    if (!isLower) {
        entry.foldedName = entry.path.mid(entry.nameStart).toLower();
    }
    return entry;
}

/** Sorts by name ignoring case; false when that leaves the order of two entries open. */
bool sortByFoldedName(Entries &entries)
{
    std::sort(entries.begin(), entries.end(),
              [](const Entry &a, const Entry &b) { return a.sortKey() < b.sortKey(); });
    return std::adjacent_find(
               entries.begin(), entries.end(),
               [](const Entry &a, const Entry &b) { return a.sortKey() == b.sortKey(); })
        == entries.end();
}

// Names that differ only in case stand in the order in which QDir's own sorting happens to
// leave them, so QDir is asked for these rare directories.
Entries filesInOrderOf(const QString &path)
{
    Entries entries;
    const QFileInfoList files = QDir(path).entryInfoList(QDir::Files, QDir::NoSort);
    for (const QFileInfo &file : files) {
        entries.push_back({file.absoluteFilePath(), QString(), 0, file.size()});
    }
    return entries;
}

Entries directoriesInOrderOf(const QString &path)
{
    Entries entries;
    const QDir directory(path);
    const QStringList names =
        directory.entryList(QDir::AllDirs | QDir::NoDotAndDotDot, QDir::NoSort);
    for (const QString &name : names) {
        entries.push_back({directory.absoluteFilePath(name), QString(), 0, 0});
    }
    return entries;
}

} // namespace

TreeListing listTree(const QString &root)
{
    TreeListing listing;
    const QString prefix = root.endsWith(QLatin1Char('/')) ? root : root + QLatin1Char('/');
    FolderReader reader;

    const auto visit = [&](const QString &path) {
        Folder &folder = reader.read(path);
        if (!sortByFoldedName(folder.files)) {
            folder.files = filesInOrderOf(path);
        }
        if (!sortByFoldedName(folder.directories)) {
            folder.directories = directoriesInOrderOf(path);
        }
        for (const Entry &directory : folder.directories) {
            listing.directories.append(directory.path.mid(prefix.size()));
        }
        for (const Entry &file : folder.files) {
            listing.files.append(CFileEntry(file.path, file.size));
            listing.bytes += file.size;
        }
    };

    visit(root);
    // the list of what was found is also the queue of what to visit: breadth first
    for (int i = 0; i < listing.directories.size(); ++i) {
        visit(prefix + listing.directories.at(i));
    }
    return listing;
}

} // namespace Tavro::Shared::detail
