#include "shared/fileops/detail/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

// repeats a system call that a signal interrupted
template<typename Call> auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

// the system would take a name only up to its first NUL, and so mean another file
bool isNameable(const QString &path)
{
    return !path.isEmpty() && !path.contains(QLatin1Char('\0'));
}

bool isSameFile(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

FileDescriptor FileDescriptor::openRegularFile(const QString &path, struct stat &info)
{
    if (!isNameable(path)) {
        return {};
    }
    if (::stat(QFile::encodeName(path).constData(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return {};
    }
    return openFoundFile(path, info);
}

FileDescriptor FileDescriptor::openFoundFile(const QString &path, struct stat &info)
{
    if (!isNameable(path)) {
        return {};
    }
    const QByteArray name = QFile::encodeName(path);
    // non-blocking, and asked again: the path may have come to mean a FIFO in between
    const auto open = [&name] {
        return ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    };
    FileDescriptor file(uninterrupted(open));
    if (!file.examine(info) || !S_ISREG(info.st_mode)) {
        file.close();
    }
    return file;
}

FileDescriptor FileDescriptor::createUnlessSame(const QString &path, const struct stat &source,
                                                struct stat &info)
{
    if (!isNameable(path)) {
        return {};
    }
    const QByteArray name = QFile::encodeName(path);
    // not emptied by open(): it may be the source, and must be asked first
    const auto open = [&name] {
        return ::open(name.constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                      0666);
    };
    FileDescriptor file(uninterrupted(open));
    if (!file.examine(info) || isSameFile(info, source)) {
        file.close();
        return file;
    }
    if (S_ISREG(info.st_mode) && info.st_size > 0
        && uninterrupted([&file] { return ::ftruncate(file.m_fd, 0); }) != 0) {
        file.close();
    }
    return file;
}

bool FileDescriptor::examine(struct stat &info) const
{
    return isOpen() && ::fstat(m_fd, &info) == 0;
}

qint64 FileDescriptor::read(char *data, qint64 size, qint64 expected)
{
    qint64 total = 0;
    do {
        const auto n = uninterrupted(
            [&] { return ::read(m_fd, data + total, static_cast<size_t>(size - total)); });
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

bool FileDescriptor::write(const char *data, qint64 size)
{
    while (size > 0) {
        const auto n =
            uninterrupted([&] { return ::write(m_fd, data, static_cast<size_t>(size)); });
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
    return uninterrupted([this] { return ::fsync(m_fd); }) == 0;
}

bool FileDescriptor::close()
{
    if (!isOpen()) {
        return true;
    }
    // not repeated when interrupted: the descriptor is gone, and its number may be another's
    return ::close(std::exchange(m_fd, -1)) == 0;
}

void removeWrittenFile(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat info = {};
    if (::lstat(name.constData(), &info) == 0 && (S_ISREG(info.st_mode) || S_ISLNK(info.st_mode))) {
        ::unlink(name.constData());
    }
}

} // namespace Tavro::Shared::detail
