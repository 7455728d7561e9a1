#pragma once

#include <QString>

#include <sys/stat.h>

#include <utility>

namespace Tavro::Shared::detail {

/**
 * An open file, closed when it goes out of scope.
 *
 * Calls that a signal interrupted are made again; no call blocks on a pipe or a device.
 */
class FileDescriptor
{
public:
    FileDescriptor() = default;
    FileDescriptor(FileDescriptor &&other) noexcept
        : m_fd(std::exchange(other.m_fd, -1))
    {
    }
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~FileDescriptor() { close(); }

    /**
     * Opens a regular file, links followed, for reading. Anything else is not even opened: a
     * FIFO would wait for a writer, and some devices act on being opened. @p info describes it.
     */
    static FileDescriptor openRegularFile(const QString &path, struct stat &info);
    /** The same for what a walk has just found to be a regular file, and with one question less. */
    static FileDescriptor openFoundFile(const QString &path, struct stat &info);

    /**
     * Opens or creates a file for writing, empty, unless it is the file that @p source describes
     * (then it stays as it is and the result is closed). @p info describes it.
     */
    static FileDescriptor createUnlessSame(const QString &path, const struct stat &source,
                                           struct stat &info);

    bool isOpen() const { return m_fd >= 0; }
    int handle() const { return m_fd; }

    /** Reads until @p size bytes, or @p expected of them, are there, or the file ends. -1: error.
     */
    qint64 read(char *data, qint64 size, qint64 expected);
    /** True when all of it was written. */
    bool write(const char *data, qint64 size);
    /** True when what was written so far is on the device. */
    bool flush();
    /** False when the system reports that the file was not closed properly. */
    bool close();

private:
    explicit FileDescriptor(int fd)
        : m_fd(fd)
    {
    }

    bool examine(struct stat &info) const;

    int m_fd = -1;
};

/** Removes a file or a link; never a device node that the path may name. */
void removeWrittenFile(const QString &path);

} // namespace Tavro::Shared::detail
