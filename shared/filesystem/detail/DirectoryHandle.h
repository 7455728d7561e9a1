#pragma once

#include <utility>

namespace Tavro::Shared::detail {

/** An open directory, closed when it goes out of scope. */
class DirectoryHandle
{
public:
    DirectoryHandle() = default;
    DirectoryHandle(DirectoryHandle &&other) noexcept
        : m_fd(std::exchange(other.m_fd, -1))
    {
    }
    DirectoryHandle &operator=(DirectoryHandle &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~DirectoryHandle() { close(); }

    enum class Links { Follow, Refuse };

    /** Opens a directory by its path; @p links says what to do when the path itself is a link. */
    static DirectoryHandle open(const char *path, Links links);
    /** Opens what @p name means in @p directory; @p links says what to do when it is a link. */
    static DirectoryHandle openBelow(int directory, const char *name, Links links = Links::Refuse);

    bool isOpen() const { return m_fd >= 0; }
    int get() const { return m_fd; }
    void close();

private:
    explicit DirectoryHandle(int fd)
        : m_fd(fd)
    {
    }

    int m_fd = -1;
};

} // namespace Tavro::Shared::detail
