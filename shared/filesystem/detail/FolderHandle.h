#pragma once

#include <utility>

namespace Tavro::Shared::detail {

/** An open folder, closed when it goes out of scope. */
class FolderHandle
{
public:
    FolderHandle() = default;
    FolderHandle(FolderHandle &&other) noexcept
        : m_fd(std::exchange(other.m_fd, -1))
    {
    }
    FolderHandle &operator=(FolderHandle &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~FolderHandle() { close(); }

    enum class Links { Follow, Refuse };

    /** Opens a folder by its path; @p links says what to do when the path itself is a link. */
    static FolderHandle open(const char *path, Links links);
    /** Opens what @p name means in @p folder; @p links says what to do when it is a link. */
    static FolderHandle openBelow(int folder, const char *name, Links links = Links::Refuse);

    bool isOpen() const { return m_fd >= 0; }
    int get() const { return m_fd; }
    void close();

private:
    explicit FolderHandle(int fd)
        : m_fd(fd)
    {
    }

    int m_fd = -1;
};

} // namespace Tavro::Shared::detail
