// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/TreeWalk.h"

#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/PathText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
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
using DirectoryStream = std::unique_ptr<DIR, DirectoryCloser>;

/** A piece of a DirectoryReader's text. */
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

// repeats a call that a signal interrupted
template<typename Call> auto uninterrupted(Call call)
{
    auto result = call();
    while (!result && errno == EINTR) {
        result = call();
    }
    return result;
}

// null at the end, with errno 0, and when the system fails
const dirent *next(DIR *directory)
{
    return uninterrupted([directory] {
        errno = 0;
        return ::readdir(directory);
    });
}

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
class DirectoryReader
{
public:
    DirectoryReader(Links links, const std::atomic<bool> *abandoned)
        : m_links(links)
        , m_abandoned(abandoned)
    {
    }

    bool isAbandoned() const { return m_abandoned != nullptr && *m_abandoned; }

    // the errno of what kept entries from being seen, the first one; 0 when all were
    int read(const QString &path);

    // subdirectories and files, in order; some entries are both
    void listDirectories(int rootLength, QStringList &directories);
    void listFiles(TreeListing &listing);

private:
    void add(int directoryFd, const dirent &entry);
    Examined examine(int directoryFd, const dirent &entry, qsizetype nameLength);
    Examined examineLink(const char *name, bool isTooLong);
    Examined hidden(int error);
    Piece append(const char *ascii, int length);
    Piece append(const QString &text);
    Piece appendFolded(Piece name, bool isAscii);
    std::u16string_view text(Piece piece) const;
    void sort(Entries &entries) const;
    QString pathOf(const Entry &entry, int begin) const;

    const Links m_links;
    const std::atomic<bool> *const m_abandoned;
    QString m_prefix; // the directory's path, ending in "/"
    QByteArray m_nativePath; // the same as the system takes it
    std::u16string m_text;
    Entries m_files;
    Entries m_directories;
    int m_error = 0;
};

int DirectoryReader::read(const QString &path)
{
    m_error = 0;
    m_text.clear();
    m_files.clear();
    m_directories.clear();
    m_prefix = withFinalSlash(path);
    m_nativePath = QFile::encodeName(m_prefix);

    // by its full path, not relative to its parent: the system counts the links of a path, and
    // that count is what ends a walk through a link to a directory above
    const QByteArray nativePath = QFile::encodeName(path);
    const DirectoryStream directory(
        uninterrupted([&nativePath] { return ::opendir(nativePath.constData()); }));
    if (!directory) {
        return errno;
    }
    const int fd = ::dirfd(directory.get());
    while (const dirent *entry = next(directory.get())) {
        if (isAbandoned()) {
            return m_error;
        }
        if (entry->d_name[0] != '.') { // hidden, or the directory itself, or its parent
            add(fd, *entry);
        }
    }
    if (errno != 0) {
        hidden(errno);
    }
    return m_error;
}

void DirectoryReader::add(int directoryFd, const dirent &entry)
{
    const char *name = entry.d_name;
    int length = 0;
    bool isAscii = true;
    bool hasCapitals = false;
    for (; name[length] != '\0'; ++length) {
        isAscii = isAscii && static_cast<unsigned char>(name[length]) < 0x80;
        hasCapitals = hasCapitals || (name[length] >= 'A' && name[length] <= 'Z');
    }
    const Examined examined = examine(directoryFd, entry, length);
    if (examined.kind == Kind::Nothing) {
        return;
    }
    if (!isAscii && !isAddressable(name)) {
        hidden(EILSEQ);
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

// an entry that may be there, and cannot be told from one that is not
Examined DirectoryReader::hidden(int error)
{
    if (m_error == 0) {
        m_error = error;
    }
    return {};
}

// QFileInfo believes what the directory says of an entry, and follows links by the full path
Examined DirectoryReader::examine(int directoryFd, const dirent &entry, qsizetype nameLength)
{
    const bool isTooLong = m_nativePath.size() + nameLength >= PATH_MAX;
    struct stat info = {};
    switch (entry.d_type) {
    case DT_REG:
        // without its size it is listed all the same: whoever opens it will hear what is wrong
        if (isTooLong || ::fstatat(directoryFd, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) != 0) {
            return {Kind::File, 0};
        }
        return {Kind::File, info.st_size};
    case DT_DIR:
        return {Kind::Directory, 0};
    case DT_LNK:
        return examineLink(entry.d_name, isTooLong);
    case DT_UNKNOWN: // some file systems leave the question to us
        if (isTooLong) {
            return hidden(ENAMETOOLONG);
        }
        if (::fstatat(directoryFd, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) != 0) {
            return errno == ENOENT ? Examined() : hidden(errno);
        }
        if (S_ISLNK(info.st_mode)) {
            return examineLink(entry.d_name, isTooLong);
        }
        if (S_ISREG(info.st_mode) || S_ISDIR(info.st_mode)) {
            return {kindOf(info.st_mode), info.st_size};
        }
        return {};
    default: // FIFO, socket or device
        return {};
    }
}

Examined DirectoryReader::examineLink(const char *name, bool isTooLong)
{
    struct stat info = {};
    if (m_links == Links::Refuse) {
        return {};
    }
    if (isTooLong) {
        return hidden(ENAMETOOLONG);
    }
    if (::stat((m_nativePath + name).constData(), &info) == 0) {
        return {kindOf(info.st_mode), info.st_size};
    }
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG: // of what it points to: no such name can exist
    case ELOOP: // points to itself, or to a directory above and has been followed often enough
        return {}; // broken
    default:
        return hidden(errno);
    }
}

Piece DirectoryReader::append(const char *ascii, int length)
{
    const size_t begin = m_text.size();
    m_text.append(ascii, ascii + length);
    return {begin, m_text.size() - begin};
}

Piece DirectoryReader::append(const QString &text)
{
    const size_t begin = m_text.size();
    m_text.append(reinterpret_cast<const char16_t *>(text.utf16()),
                  static_cast<size_t>(text.size()));
    return {begin, m_text.size() - begin};
}

Piece DirectoryReader::appendFolded(Piece name, bool isAscii)
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

std::u16string_view DirectoryReader::text(Piece piece) const
{
    return {m_text.data() + piece.begin, piece.length};
}

// By name ignoring case. Names that differ only in case stand in the order in which std::sort
// happens to leave them: QDir's order, as long as it sorts the same entries from the same order by
// the same comparison. So no stable sort here, and no look at the names themselves.
void DirectoryReader::sort(Entries &entries) const
{
    std::sort(entries.begin(), entries.end(), [this](const Entry &a, const Entry &b) {
        return text(a.foldedName) < text(b.foldedName);
    });
}

// the entry's path without its first characters
QString DirectoryReader::pathOf(const Entry &entry, int begin) const
{
    const int prefixLength = m_prefix.size() - begin;
    QString path(prefixLength + static_cast<int>(entry.name.length), Qt::Uninitialized);
    std::copy_n(m_prefix.constData() + begin, prefixLength, path.data());
    std::copy_n(reinterpret_cast<const QChar *>(m_text.data() + entry.name.begin),
                entry.name.length, path.data() + prefixLength);
    return path;
}

void DirectoryReader::listDirectories(int rootLength, QStringList &directories)
{
    sort(m_directories);
    for (const Entry &entry : m_directories) {
        directories.append(pathOf(entry, rootLength));
    }
}

void DirectoryReader::listFiles(TreeListing &listing)
{
    sort(m_files);
    for (const Entry &entry : m_files) {
        listing.files.append(CFileEntry(pathOf(entry, 0), entry.size));
        listing.bytes += entry.size;
        if (entry.isSpecial) {
            listing.specialFiles.insert(listing.files.constLast().path());
        }
    }
}

void visitResources(const QString &path, int rootLength, TreeListing &listing)
{
    const QDir directory(path);
    const QStringList names =
        directory.entryList(QDir::AllDirs | QDir::NoDotAndDotDot, QDir::NoSort);
    for (const QString &name : names) {
        listing.directories.append(directory.absoluteFilePath(name).mid(rootLength));
    }
    const QFileInfoList files = directory.entryInfoList(QDir::Files, QDir::NoSort);
    for (const QFileInfo &file : files) {
        listing.files.append(CFileEntry(file.absoluteFilePath(), file.size()));
        listing.bytes += file.size();
    }
}

void noteUnreadable(const QString &path, int error, TreeListing &listing)
{
    listing.unreadableDirectories.append(withoutFinalSlashes(path));
    if (listing.systemError == 0) {
        listing.systemError = error;
    }
}

} // namespace

TreeListing listTree(const QString &root, Links links, const std::atomic<bool> *abandoned)
{
    TreeListing listing;
    const QString prefix = withFinalSlash(root);
    const bool isOfResources = isResource(root);
    DirectoryReader reader(links, abandoned);
    const auto visit = [&](const QString &path) {
        if (isOfResources) {
            visitResources(path, prefix.size(), listing);
            return;
        }
        const int error = reader.read(path);
        if (error != 0) {
            noteUnreadable(path, error, listing);
        }
        reader.listDirectories(prefix.size(), listing.directories);
        reader.listFiles(listing);
    };

    visit(root);
    if (isOfResources && !QDir(root).exists()) {
        noteUnreadable(root, ENOENT, listing);
    }
    // the list of what was found is also the queue of what to visit: breadth first
    for (int i = 0; i < listing.directories.size() && !reader.isAbandoned(); ++i) {
        visit(prefix + listing.directories.at(i));
    }
    return listing;
}

} // namespace Tavro::Shared::detail
