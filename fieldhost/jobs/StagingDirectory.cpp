// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/StagingDirectory.h"

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
    return statusOf(path).st_mode & S_IFMT;
}

// Hands each entry of a directory to visit; false when that does, or when not all could be listed.
bool forEachEntry(const QString &directory, const std::function<bool(const QString &name)> &visit)
{
    bool isWhole = true;
    const int error = visitEntries(openDirectory(directory), [&](const dirent &entry) {
        isWhole = visit(QFile::decodeName(entry.d_name)) && isWhole;
    });
    return error == 0 && isWhole;
}

bool removeDirectory(const QString &path)
{
    return ::rmdir(QFile::encodeName(path).constData()) == 0;
}

bool removeEmptyDirectories(const QString &path)
{
    forEachEntry(path,
                 [&](const QString &name) { return removeEmptyDirectories(below(path, name)); });
    return removeDirectory(path);
}

// On FAT a power cut can leave a file with both of its names, of which removing one frees the data
// of the other.
bool mayBeOneFile(const QString &a, const QString &b)
{
    bool ok = false;
    const bool isEqual = Shared::CFileSystemHelper::compareFiles(a, b, ok);
    return !ok || isEqual;
}

/** How the files of a staging directory are cleared. */
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

// Files below directory belong to the same paths below place.
bool clearDirectory(const QString &directory, const QString &place, Clearing how)
{
    if (!existsOrIsLink(directory)) {
        return true;
    }
    const bool isClear = forEachEntry(directory, [&](const QString &name) {
        const QString entry = below(directory, name);
        return typeOf(entry) == S_IFDIR ? clearDirectory(entry, below(place, name), how)
                                        : clearFile(entry, below(place, name), how);
    });
    return isClear && removeDirectory(directory);
}

} // namespace

std::unique_ptr<StagingDirectory> StagingDirectory::create(const QString &place, int &error)
{
    QByteArray path = QFile::encodeName(below(place, s_prefix + QStringLiteral("XXXXXX")));
    if (!::mkdtemp(path.data())) {
        error = errno;
        return nullptr;
    }
    auto directory = adopt(QFile::decodeName(path));
    if (!directory) {
        error = errno;
        ::rmdir(path.constData());
        return nullptr;
    }
    directory->m_isOurs = true;
    return directory;
}

// null when somebody else has it
std::unique_ptr<StagingDirectory> StagingDirectory::adopt(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const int lock = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    FileStatus locked = {};
    // between its creation and its lock it looks abandoned
    if (lock >= 0 && ::flock(lock, LOCK_EX | LOCK_NB) == 0 && ::fstat(lock, &locked) == 0
        && isSameFile(locked, statusOf(path))) {
        return std::unique_ptr<StagingDirectory>(new StagingDirectory(path, lock));
    }
    const int error = errno;
    if (lock >= 0) {
        ::close(lock);
    }
    errno = error;
    return nullptr;
}

StagingDirectory::~StagingDirectory()
{
    ::close(m_lock);
}

QString StagingDirectory::rootFor(const QString &name, bool isDirectory) const
{
    // a directory keeps its name, because the controller shows it; a file is written by one that
    // ends in no blank, because the controller takes blanks at the end away
    return isDirectory ? m_path + QStringLiteral("/folder/") + name
                       : m_path + QStringLiteral("/file/") + name + QStringLiteral("/data");
}

QString StagingDirectory::backups() const
{
    return m_path + QStringLiteral("/old");
}

bool StagingDirectory::beginMerge()
{
    return ::mkdir(QFile::encodeName(backups()).constData(), 0777) == 0;
}

bool StagingDirectory::removeEmpty()
{
    return removeEmptyDirectories(m_path);
}

bool StagingDirectory::discard()
{
    if (!existsOrIsLink(backups())) {
        return QDir(m_path).removeRecursively();
    }
    const QString place = parentOf(m_path);
    bool isClear = clearDirectory(backups(), place, {true, !m_isOurs});
    const QString copies = m_path + QStringLiteral("/folder");
    if (existsOrIsLink(copies)) {
        isClear =
            forEachEntry(copies,
                         [&](const QString &name) {
                             return clearDirectory(below(copies, name), place, {false, !m_isOurs});
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

bool StagingDirectory::isFilled(const QString &directory)
{
    return !forEachEntry(directory, [&](const QString &name) {
        return isStagingName(name) && adopt(below(directory, name));
    });
}

QStringList StagingDirectory::discardAbandoned(const QString &place)
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
        const auto directory = adopt(path);
        if (directory && !directory->discard()) {
            staying.append(path);
        }
    }
    return staying;
}

} // namespace Tavro::FieldHost
