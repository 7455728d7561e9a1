#include "fieldhost/jobs/StagingFolder.h"

#include "fieldhost/jobs/Paths.h"
#include "shared/filesystem/CFileSystemHelper.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

const QString s_prefix = QStringLiteral(".ovo-export-");
constexpr int s_randomLetters = 6;

bool isStagingName(const QString &name)
{
    return name.startsWith(s_prefix) && name.size() == s_prefix.size() + s_randomLetters;
}

// the type bits of what has the name, which a link has of its own; 0 when nothing has it
mode_t typeOf(const QString &path)
{
    struct stat status
    {
    };
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}

// Hands each entry of a folder to visit; false when that does, or when not all could be listed.
bool forEachEntry(const QString &folder, const std::function<bool(const QString &name)> &visit)
{
    bool isWhole = true;
    const int error = visitEntries(openFolder(folder), [&](const dirent &entry) {
        isWhole = visit(QFile::decodeName(entry.d_name)) && isWhole;
    });
    return error == 0 && isWhole;
}

bool removeFolder(const QString &path)
{
    return ::rmdir(QFile::encodeName(path).constData()) == 0;
}

bool removeEmptyFolders(const QString &path)
{
    forEachEntry(path, [&](const QString &name) { return removeEmptyFolders(below(path, name)); });
    return removeFolder(path);
}

// On FAT a power cut can leave a file with both of its names, of which removing one frees the data
// of the other.
bool mayBeOneFile(const QString &a, const QString &b)
{
    bool ok = false;
    const bool isEqual = Shared::CFileSystemHelper::compareFiles(a, b, ok);
    return !ok || isEqual;
}

/** How the files of a staging folder are cleared. */
struct Clearing
{
    bool putsBack; // those whose place is empty
    bool isAfterCut; // of power, perhaps
};

bool clearFile(const QString &file, const QString &place, Clearing how)
{
    const QByteArray name = QFile::encodeName(file);
    const mode_t type = typeOf(place);
    if (type == 0) {
        return how.putsBack
            ? std::rename(name.constData(), QFile::encodeName(place).constData()) == 0
            : ::unlink(name.constData()) == 0;
    }
    const bool isSafe =
        type == S_IFREG ? !how.isAfterCut || !mayBeOneFile(file, place) : !how.putsBack;
    return isSafe && ::unlink(name.constData()) == 0;
}

// Files below folder belong to the same paths below place.
bool clearFolder(const QString &folder, const QString &place, Clearing how)
{
    if (!existsOrIsLink(folder)) {
        return true;
    }
    const bool isClear = forEachEntry(folder, [&](const QString &name) {
        const QString entry = below(folder, name);
        return typeOf(entry) == S_IFDIR ? clearFolder(entry, below(place, name), how)
                                        : clearFile(entry, below(place, name), how);
    });
    return isClear && removeFolder(folder);
}

} // namespace

std::unique_ptr<StagingFolder> StagingFolder::create(const QString &place, int &error)
{
    QByteArray path = QFile::encodeName(below(place, s_prefix + QStringLiteral("XXXXXX")));
    if (!::mkdtemp(path.data())) {
        error = errno;
        return nullptr;
    }
    auto folder = adopt(QFile::decodeName(path));
    if (!folder) {
        error = errno;
        ::rmdir(path.constData());
        return nullptr;
    }
    folder->m_isOurs = true;
    return folder;
}

// null when somebody else has it
std::unique_ptr<StagingFolder> StagingFolder::adopt(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const int lock = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat locked
    {
    };
    struct stat named
    {
    };
    // between its creation and its lock it looks abandoned
    if (lock >= 0 && ::flock(lock, LOCK_EX | LOCK_NB) == 0 && ::fstat(lock, &locked) == 0
        && ::lstat(name.constData(), &named) == 0 && locked.st_ino == named.st_ino) {
        return std::unique_ptr<StagingFolder>(new StagingFolder(path, lock));
    }
    const int error = errno;
    if (lock >= 0) {
        ::close(lock);
    }
    errno = error;
    return nullptr;
}

StagingFolder::~StagingFolder()
{
    ::close(m_lock);
}

QString StagingFolder::rootFor(const QString &name, bool isFolder) const
{
    // a folder keeps its name, because the controller shows it; a file is written by one that
    // ends in no blank, because the controller takes blanks at the end away
    return isFolder ? m_path + QStringLiteral("/folder/") + name
                    : m_path + QStringLiteral("/file/") + name + QStringLiteral("/data");
}

QString StagingFolder::backups() const
{
    return m_path + QStringLiteral("/old");
}

bool StagingFolder::beginMerge()
{
    return ::mkdir(QFile::encodeName(backups()).constData(), 0777) == 0;
}

bool StagingFolder::removeEmpty()
{
    return removeEmptyFolders(m_path);
}

bool StagingFolder::discard()
{
    if (!existsOrIsLink(backups())) {
        return QDir(m_path).removeRecursively();
    }
    const QString place = parentOf(m_path);
    bool isClear = clearFolder(backups(), place, {true, !m_isOurs});
    const QString folders = m_path + QStringLiteral("/folder");
    if (existsOrIsLink(folders)) {
        isClear =
            forEachEntry(folders,
                         [&](const QString &name) {
                             return clearFolder(below(folders, name), place, {false, !m_isOurs});
                         })
            && isClear;
    }
    const QString files = m_path + QStringLiteral("/file");
    if (existsOrIsLink(files)) {
        isClear = forEachEntry(files,
                               [&](const QString &name) {
                                   const QString data =
                                       below(files, name) + QStringLiteral("/data");
                                   return !existsOrIsLink(data)
                                       || clearFile(data, below(place, name), {false, !m_isOurs});
                               })
            && isClear;
    }
    return removeEmpty() && isClear;
}

bool StagingFolder::isFilled(const QString &folder)
{
    return !forEachEntry(folder, [&](const QString &name) {
        return isStagingName(name) && adopt(below(folder, name));
    });
}

QStringList StagingFolder::discardAbandoned(const QString &place)
{
    QStringList staying;
    QStringList found;
    forEachEntry(place, [&](const QString &name) {
        if (isStagingName(name)) {
            found.append(below(place, name));
        }
        return true;
    });
    for (const QString &path : qAsConst(found)) {
        const auto folder = adopt(path);
        if (folder && !folder->discard()) {
            staying.append(path);
        }
    }
    return staying;
}

} // namespace Tavro::FieldHost
