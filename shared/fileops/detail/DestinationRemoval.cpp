// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/DestinationRemoval.h"

#include "shared/filesystem/detail/DirectoryDescent.h"
#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/PathText.h"
#include "shared/filesystem/detail/SystemText.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

/** Removes everything that it meets and need not keep. */
class Removal : public DirectoryDescent
{
public:
    explicit Removal(const KeptSources &sources)
        : m_sources(sources)
    {
    }

protected:
    bool mayEnter(int directory) override
    {
        struct stat info = {};
        return ::fstat(directory, &info) == 0 && !m_sources.contains(info);
    }
    Next visit(int directory, const dirent64 &entry) override
    {
        return ::unlinkat(directory, entry.d_name, 0) == 0 ? Next::ReadAgain : Next::GoOn;
    }
    void leave(int directory, const char *name) override
    {
        struct stat info = {};
        if (::fstatat(directory, name, &info, AT_SYMLINK_NOFOLLOW) == 0
            && !m_sources.contains(info)) {
            ::unlinkat(directory, name, AT_REMOVEDIR);
        }
    }

private:
    const KeptSources &m_sources;
};

QByteArray parentOf(const QByteArray &path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

void removeDirectory(const QString &path, const KeptSources &sources)
{
    const QByteArray native = QFile::encodeName(path);
    DirectoryHandle directory = DirectoryHandle::open(native.constData(), Links::Follow);
    struct stat info = {};
    // asked again, now that it is open
    if (!directory.isOpen() || ::fstat(directory.get(), &info) != 0 || sources.contains(info)) {
        return;
    }
    // not by the path as it is: the system does not remove "dir/."
    const SystemText name(QFileInfo(path).isSymLink() ? nullptr
                                                      : ::realpath(native.constData(), nullptr));
    Removal(sources).run(std::move(directory));
    if (name) {
        ::rmdir(name.get());
    }
}

} // namespace

KeptSources::KeptSources(const QStringList &sources)
{
    insertWithAncestors("/");
    for (const QString &source : sources) {
        const QString path =
            withoutFinalSlashes(source); // what is asked for as a directory may be a file
        const QByteArray native = QFile::encodeName(path);
        struct stat info = {};
        if (!isNameable(path)) {
            continue;
        }
        if (::stat(native.constData(), &info) != 0) {
            m_isComplete = m_isComplete && (errno == ENOENT || errno == ENOTDIR || errno == ELOOP);
            continue;
        }
        insert(native);
        // a link and what it points to are held by directories of their own
        insertWithAncestors(parentOf(native));
        if (const SystemText real{::realpath(native.constData(), nullptr)}) {
            insertWithAncestors(parentOf(real.get()));
        }
    }
}

// false when it was there already
bool KeptSources::insert(const QByteArray &path)
{
    FileDescriptor file = FileDescriptor::openForHolding(path.constData());
    struct stat info = {};
    if (!file.examine(info)) {
        m_isComplete = false;
        return false;
    }
    return m_files.try_emplace({info.st_dev, info.st_ino}, std::move(file)).second;
}

// up to the root, which is above itself
void KeptSources::insertWithAncestors(const QByteArray &directory)
{
    QByteArray path = directory;
    while (insert(path)) {
        path += "/..";
    }
}

bool KeptSources::contains(const struct stat &info) const
{
    return !m_isComplete || m_files.count({info.st_dev, info.st_ino}) != 0;
}

bool KeptSources::contains(const QString &destination) const
{
    struct stat info = {};
    return isNameable(destination) && ::stat(QFile::encodeName(destination).constData(), &info) == 0
        && contains(info);
}

void removeDestination(const QString &destination, const KeptSources &sources)
{
    struct stat info = {};
    const QByteArray name = QFile::encodeName(destination);
    if (!isNameable(destination) || ::stat(name.constData(), &info) != 0
        || sources.contains(info)) {
        return;
    }
    if (S_ISDIR(info.st_mode)) {
        removeDirectory(destination, sources);
    } else if (S_ISREG(info.st_mode)) {
        ::unlink(name.constData());
    }
}

} // namespace Tavro::Shared::detail
