#include "shared/fileops/detail/TreeWalk.h"

#include "shared/filesystem/detail/NativeName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Tavro::Shared::detail {

namespace {

struct DirectoryCloser
{
    void operator()(DIR *directory) const { ::closedir(directory); }
};
using DirectoryHandle = std::unique_ptr<DIR, DirectoryCloser>;

/** A piece of a FolderReader's text. */
struct Piece
{
    size_t begin;
    size_t length;
};

/** An entry of one directory. */
struct Entry
{
    Piece name;
    Piece foldedName; // what it is sorted by
    qint64 size;
    bool isSpecial; // neither regular file nor directory
};
using Entries = std::vector<Entry>;

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

/**
 * Reads and sorts one directory.
 *
 * The names stand one behind the other in a text that is kept from one directory to the next: a
 * name costs no allocation before its path is made.
 */
class FolderReader
{
public:
    explicit FolderReader(Links links)
        : m_links(links)
    {
    }

    void read(const QString &path);

    // subdirectories and files, in order; some entries are both
    void listDirectories(int rootLength, QStringList &directories);
    void listFiles(TreeListing &listing);

private:
    static void appendFile(TreeListing &listing, const CFileEntry &file, bool isSpecial);
    void add(int directoryFd, const dirent &entry);
    Examined examine(int directoryFd, const dirent &entry, qsizetype nameLength) const;
    Examined examineLink(const char *name) const;
    Piece append(const char *ascii, int length);
    Piece append(const QString &text);
    Piece appendFolded(Piece name, bool isAscii);
    std::u16string_view text(Piece piece) const;
    bool sort(Entries &entries) const;
    QString pathOf(const Entry &entry, int begin) const;

    QDir::Filters filters(QDir::Filters kinds) const;

    const Links m_links;
    QString m_prefix; // the directory's path, ending in "/"
    QByteArray m_nativePath; // the same as the system takes it
    std::u16string m_text;
    Entries m_files;
    Entries m_directories;
};

void FolderReader::read(const QString &path)
{
    m_text.clear();
    m_files.clear();
    m_directories.clear();
    m_prefix = path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
    m_nativePath = QFile::encodeName(m_prefix);

    // by its full path, not relative to its parent: the system counts the links of a path, and
    // that count is what ends a walk through a link to a directory above
    const DirectoryHandle directory(::opendir(QFile::encodeName(path).constData()));
    if (!directory) {
        return;
    }
    const int fd = ::dirfd(directory.get());
    while (const dirent *entry = ::readdir(directory.get())) {
        if (entry->d_name[0] != '.') { // hidden, or the directory itself, or its parent
            add(fd, *entry);
        }
    }
}

void FolderReader::add(int directoryFd, const dirent &entry)
{
    const char *name = entry.d_name;
    int length = 0;
    bool isAscii = true;
    bool hasCapitals = false;
    for (; name[length] != '\0'; ++length) {
        isAscii = isAscii && static_cast<unsigned char>(name[length]) < 0x80;
        hasCapitals = hasCapitals || (name[length] >= 'A' && name[length] <= 'Z');
    }
    if (!isAscii && !isAddressable(name)) {
        return;
    }
    const Examined examined = examine(directoryFd, entry, length);
    if (examined.kind == Kind::Nothing) {
        return;
    }

    Entry found = {};
    // with the path in front: decoding would take a byte order mark at the very beginning off
    found.name = isAscii ? append(name, length)
                         : append(QFile::decodeName(m_nativePath + name).mid(m_prefix.size()));
    found.foldedName = isAscii && !hasCapitals ? found.name : appendFolded(found.name, isAscii);
    found.size = examined.size;
    found.isSpecial = examined.kind == Kind::Other;
    if (examined.kind != Kind::Directory) {
        m_files.push_back(found);
    }
    if (examined.kind != Kind::File) {
        m_directories.push_back(found);
    }
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
    if (m_links == Links::LeaveOut) {
        return {};
    }
    if (::stat((m_nativePath + name).constData(), &info) != 0) {
        return {}; // broken
    }
    return {kindOf(info.st_mode), info.st_size};
}

Piece FolderReader::append(const char *ascii, int length)
{
    const size_t begin = m_text.size();
    m_text.append(ascii, ascii + length);
    return {begin, m_text.size() - begin};
}

Piece FolderReader::append(const QString &text)
{
    const size_t begin = m_text.size();
    m_text.append(reinterpret_cast<const char16_t *>(text.utf16()),
                  static_cast<size_t>(text.size()));
    return {begin, m_text.size() - begin};
}

Piece FolderReader::appendFolded(Piece name, bool isAscii)
{
    if (!isAscii) {
        const auto *begin = reinterpret_cast<const QChar *>(m_text.data() + name.begin);
        return append(QString(begin, static_cast<int>(name.length)).toLower());
    }
    const size_t begin = m_text.size();
    for (size_t i = name.begin; i < name.begin + name.length; ++i) {
        const char16_t c = m_text[i];
        m_text.push_back(c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c);
    }
    return {begin, name.length};
}

std::u16string_view FolderReader::text(Piece piece) const
{
    return {m_text.data() + piece.begin, piece.length};
}

// by name ignoring case; false when that leaves the order of two entries open
bool FolderReader::sort(Entries &entries) const
{
    std::sort(entries.begin(), entries.end(), [this](const Entry &a, const Entry &b) {
        return text(a.foldedName) < text(b.foldedName);
    });
    const auto tie = [this](const Entry &a, const Entry &b) {
        return text(a.foldedName) == text(b.foldedName);
    };
    return std::adjacent_find(entries.begin(), entries.end(), tie) == entries.end();
}

// the entry's path without its first characters
QString FolderReader::pathOf(const Entry &entry, int begin) const
{
    const int prefixLength = m_prefix.size() - begin;
    QString path(prefixLength + static_cast<int>(entry.name.length), Qt::Uninitialized);
    std::copy_n(m_prefix.constData() + begin, prefixLength, path.data());
    std::copy_n(reinterpret_cast<const QChar *>(m_text.data() + entry.name.begin),
                entry.name.length, path.data() + prefixLength);
    return path;
}

QDir::Filters FolderReader::filters(QDir::Filters kinds) const
{
    return m_links == Links::LeaveOut ? kinds | QDir::NoSymLinks : kinds;
}

// Names that differ only in case stand in the order in which QDir's own sorting happens to
// leave them, so QDir is asked for these rare directories.

void FolderReader::listDirectories(int rootLength, QStringList &directories)
{
    if (sort(m_directories)) {
        for (const Entry &entry : m_directories) {
            directories.append(pathOf(entry, rootLength));
        }
        return;
    }
    const QDir directory(m_prefix);
    const QStringList names =
        directory.entryList(filters(QDir::AllDirs | QDir::NoDotAndDotDot), QDir::NoSort);
    for (const QString &name : names) {
        directories.append(directory.absoluteFilePath(name).mid(rootLength));
    }
}

void FolderReader::listFiles(TreeListing &listing)
{
    if (sort(m_files)) {
        for (const Entry &entry : m_files) {
            appendFile(listing, CFileEntry(pathOf(entry, 0), entry.size), entry.isSpecial);
        }
        return;
    }
    const QFileInfoList files = QDir(m_prefix).entryInfoList(filters(QDir::Files), QDir::NoSort);
    for (const QFileInfo &file : files) {
        appendFile(listing, CFileEntry(file.absoluteFilePath(), file.size()), !file.isFile());
    }
}

void FolderReader::appendFile(TreeListing &listing, const CFileEntry &file, bool isSpecial)
{
    listing.files.append(file);
    listing.bytes += file.size();
    if (isSpecial) {
        listing.specialFiles.insert(file.path());
    }
}

} // namespace

TreeListing listTree(const QString &root, Links links)
{
    TreeListing listing;
    const QString prefix = root.endsWith(QLatin1Char('/')) ? root : root + QLatin1Char('/');
    FolderReader reader(links);
    const auto visit = [&](const QString &path) {
        reader.read(path);
        reader.listDirectories(prefix.size(), listing.directories);
        reader.listFiles(listing);
    };

    visit(root);
    // the list of what was found is also the queue of what to visit: breadth first
    for (int i = 0; i < listing.directories.size(); ++i) {
        visit(prefix + listing.directories.at(i));
    }
    return listing;
}

} // namespace Tavro::Shared::detail
