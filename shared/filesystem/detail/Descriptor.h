// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <unistd.h>

#include <utility>

namespace Tavro::Shared::detail {

/** A file descriptor, closed when it goes out of scope. */
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int fd)
        : m_fd(fd)
    {
    }
    Descriptor(Descriptor &&other) noexcept
        : m_fd(std::exchange(other.m_fd, -1))
    {
    }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~Descriptor() { close(); }

    bool isOpen() const { return m_fd >= 0; }
    int get() const { return m_fd; }
    /** False when the system reports that the file was not closed properly. */
    bool close()
    {
        // not repeated when interrupted: the descriptor is gone, and its number may be another's
        return !isOpen() || ::close(std::exchange(m_fd, -1)) == 0;
    }

private:
    int m_fd = -1;
};

} // namespace Tavro::Shared::detail
