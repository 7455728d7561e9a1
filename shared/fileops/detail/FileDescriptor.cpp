// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/FileDescriptor.h"

#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/SystemCall.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

constexpr mode_t s_resourceMode = 0444; // what QFile says of a resource
constexpr mode_t s_newFileMode = 0666; // less what the umask takes away

// not blocking: the path may have come to mean a FIFO
constexpr int s_flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

bool isMeant(const QString &path)
{
    if (!isNameable(path)) {
        errno = ENOENT;
        return false;
    }
    return true;
}

} // namespace

FileDescriptor FileDescriptor::openRegularFile(const QString &path, struct stat &info)
{
    if (isResource(path)) {
        return openResource(path).ifRegular(info);
    }
    if (!isMeant(path) || ::stat(QFile::encodeName(path).constData(), &info) != 0) {
        return {};
    }
    if (!S_ISREG(info.st_mode)) {
        errno = S_ISDIR(info.st_mode) ? EISDIR : EINVAL;
        return {};
    }
    return openFoundFile(path, info);
}

FileDescriptor FileDescriptor::openFoundFile(const QString &path, struct stat &info)
{
    if (isResource(path)) {
        return openResource(path).ifRegular(info);
    }
    if (!isMeant(path)) {
        return {};
    }
    const NativeName name(path, 0);
    FileDescriptor file(uninterrupted([&] { return ::open(name.get(), O_RDONLY | s_flags); }));
    return file.ifRegular(info);
}

// A resource lies in the program's memory. A file in memory is read like any other.
FileDescriptor FileDescriptor::openResource(const QString &path)
{
    if (QFileInfo(path).isDir()) { // QFile opens it, and finds it empty
        errno = EISDIR;
        return {};
    }
    QFile resource(path);
    if (!resource.open(QIODevice::ReadOnly)) {
        errno = ENOENT;
        return {};
    }
    const QByteArray content = resource.readAll();
    FileDescriptor file(::memfd_create("resource", MFD_CLOEXEC));
    if (file.isOpen()
        && (!file.write(content.constData(), content.size())
            || ::lseek(file.get(), 0, SEEK_SET) != 0
            || ::fchmod(file.get(), s_resourceMode) != 0)) {
        file.close();
    }
    return file;
}

// asked again, now that it is open: it may be something else than it was
FileDescriptor FileDescriptor::ifRegular(struct stat &info)
{
    const bool isExamined = examine(info);
    if (!isExamined || !S_ISREG(info.st_mode)) {
        const int error = isExamined ? EINVAL : errno;
        close();
        errno = error;
    }
    return std::move(*this);
}

FileDescriptor FileDescriptor::openForHolding(const char *path)
{
    return FileDescriptor(uninterrupted([=] { return ::open(path, O_PATH | O_CLOEXEC); }));
}

FileDescriptor FileDescriptor::openOrCreate(int directory, const char *name)
{
    // not emptied by open(): it may be the source, and must be asked first
    return FileDescriptor(uninterrupted(
        [=] { return ::openat(directory, name, O_WRONLY | O_CREAT | s_flags, s_newFileMode); }));
}

FileDescriptor FileDescriptor::createNew(int directory, const char *name)
{
    return FileDescriptor(uninterrupted([=] {
        return ::openat(directory, name, O_WRONLY | O_CREAT | O_EXCL | s_flags, s_newFileMode);
    }));
}

bool FileDescriptor::examine(struct stat &info) const
{
    return isOpen() && ::fstat(get(), &info) == 0;
}

qint64 FileDescriptor::read(char *data, qint64 size, qint64 expected)
{
    qint64 total = 0;
    do {
        const auto n = uninterrupted(
            [&] { return ::read(get(), data + total, static_cast<size_t>(size - total)); });
        if (n < 0) {
            return -1;
        }
        if (n == 0) {
            break;
        }
        total += n;
    } while (total < size && total < expected);
    return total;
}

bool FileDescriptor::truncate()
{
    return uninterrupted([this] { return ::ftruncate(get(), 0); }) == 0;
}

bool FileDescriptor::write(const char *data, qint64 size)
{
    while (size > 0) {
        const auto n =
            uninterrupted([&] { return ::write(get(), data, static_cast<size_t>(size)); });
        if (n <= 0) {
            return false;
        }
        data += n;
        size -= n;
    }
    return true;
}

bool FileDescriptor::flush()
{
    return uninterrupted([this] { return ::fsync(get()); }) == 0;
}

} // namespace Tavro::Shared::detail
