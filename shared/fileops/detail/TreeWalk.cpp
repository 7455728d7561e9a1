// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/TreeWalk.h"

#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/PathText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringBuilder>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <deque>
#include <memory>
#include <vector>

namespace Tavro::Shared::detail {

namespace {

struct DirectoryCloser
{
    void operator()(DIR *directory) const { ::closedir(directory); }
};
using DirectoryStream = std::unique_ptr<DIR, DirectoryCloser>;

/** Texts that stay where they are until clear(). A short one costs no allocation of its own. */
class TextStore
{
public:
    QChar *allocate(int length)
    {
        if (m_blocks.empty() || m_used + length > s_blockSize) {
            m_blocks.push_back(std::make_unique<QChar[]>(std::max(length, s_blockSize)));
            m_used = 0;
        }
        m_used += length;
        return m_blocks.back().get() + m_used - length;
    }

    // keeps what most directories need
    void clear()
    {
        m_blocks.resize(std::min<size_t>(m_blocks.size(), 1));
        m_used = 0;
    }

private:
    static constexpr int s_blockSize = 32 * 1024;

    std::vector<std::unique_ptr<QChar[]>> m_blocks;
    int m_used = 0; // of the last one
};

/** An entry of one directory. */
struct Entry
{
    QStringView name() const { return {nameBegin, nameLength}; }
    QStringView foldedName() const { return {foldedBegin, foldedLength}; }

    const QChar *nameBegin;
    const QChar *foldedBegin; // of what it is sorted by
    qint64 size;
    quint16 nameLength; // the system's names are short
    quint16 foldedLength;
    bool isSpecial; // neither regular file nor directory
};
using Entries = std::deque<Entry>; // which takes no more than its entries while it grows

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
    QStringView keep(const char *ascii, int length);
    QStringView keep(const QString &text);
    QStringView keepFolded(QStringView name, bool isAscii);

    const Links m_links;
    const std::atomic<bool> *const m_abandoned;
    QString m_prefix; // the directory's path, ending in "/"
    QByteArray m_nativePath; // the same as the system takes it
    TextStore m_texts;
    Entries m_files;
    Entries m_directories;
    int m_error = 0;
};

int DirectoryReader::read(const QString &path)
{
    m_error = 0;
    m_texts.clear();
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

    // with the path in front: decoding would take a byte order mark at the very beginning off
    const QStringView kept = isAscii
        ? keep(name, length)
        : keep(QFile::decodeName(m_nativePath + name).mid(m_prefix.size()));
    const QStringView folded = isAscii && !hasCapitals ? kept : keepFolded(kept, isAscii);
    Entry found = {};
    found.nameBegin = kept.data();
    found.nameLength = static_cast<quint16>(kept.size());
    found.foldedBegin = folded.data();
    found.foldedLength = static_cast<quint16>(folded.size());
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

QStringView DirectoryReader::keep(const char *ascii, int length)
{
    QChar *begin = m_texts.allocate(length);
    std::transform(ascii, ascii + length, begin, [](char c) { return QLatin1Char(c); });
    return {begin, length};
}

QStringView DirectoryReader::keep(const QString &text)
{
    QChar *begin = m_texts.allocate(text.size());
    std::copy(text.begin(), text.end(), begin);
    return {begin, text.size()};
}

QStringView DirectoryReader::keepFolded(QStringView name, bool isAscii)
{
    if (!isAscii) {
        return keep(name.toString().toLower());
    }
    QChar *begin = m_texts.allocate(static_cast<int>(name.size()));
    std::transform(name.begin(), name.end(), begin, [](QChar c) {
        return c >= QLatin1Char('A') && c <= QLatin1Char('Z') ? QChar(c.unicode() + ('a' - 'A'))
                                                              : c;
    });
    return {begin, name.size()};
}

// By name ignoring case. Names that differ only in case stand in the order in which std::sort
// happens to leave them: QDir's order, as long as it sorts the same entries from the same order by
// the same comparison. So no stable sort here, and no look at the names themselves.
void sort(Entries &entries)
{
    std::sort(entries.begin(), entries.end(),
              [](const Entry &a, const Entry &b) { return a.foldedName() < b.foldedName(); });
}

void DirectoryReader::listDirectories(int rootLength, QStringList &directories)
{
    sort(m_directories);
    const QString prefix = m_prefix.mid(rootLength);
    for (const Entry &entry : m_directories) {
        directories.append(prefix % entry.name());
    }
}

void DirectoryReader::listFiles(TreeListing &listing)
{
    sort(m_files);
    listing.files.enterDirectory(m_prefix);
    for (const Entry &entry : m_files) {
        listing.files.append(entry.name(), entry.size, entry.isSpecial);
        listing.bytes += entry.size;
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
    listing.files.enterDirectory(withFinalSlash(directory.absolutePath()));
    const QFileInfoList files = directory.entryInfoList(QDir::Files, QDir::NoSort);
    for (const QFileInfo &file : files) {
        listing.files.append(file.fileName(), file.size());
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
