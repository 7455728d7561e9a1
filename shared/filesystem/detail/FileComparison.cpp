#include "shared/filesystem/detail/FileComparison.h"

#include "shared/filesystem/detail/NativeName.h"

#include <QCryptographicHash>
#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>

namespace Tavro::Shared::detail {

namespace {

constexpr size_t s_blockSize = 128UL * 1024; // two of them stay in a processor's cache

/** A file that is read block by block. */
class BlockReader
{
    Q_DISABLE_COPY(BlockReader)

public:
    explicit BlockReader(const QString &path);
    ~BlockReader();

    /** True until opening or reading fails. */
    bool isReadable() const { return m_fd >= 0 && !m_hasFailed; }
    /** Reads the next block, whole unless the file ends. */
    void next();
    const char *data() const { return m_block.get(); }
    size_t size() const { return m_size; }

    void rewind();
    /** Whether all that is left can be read. */
    bool readToEnd();
    /** MD5 sum of the whole file; null when it cannot be read. */
    QByteArray digest();

private:
    int m_fd = -1;
    bool m_hasFailed = false;
    std::unique_ptr<char[]> m_block{new char[s_blockSize]};
    size_t m_size = 0;
};

// Anything but a regular file counts as unreadable: a FIFO would have its reader wait, and some
// devices never end.
BlockReader::BlockReader(const QString &path)
{
    if (!isNameable(path)) {
        return;
    }
    const QByteArray name = QFile::encodeName(path);
    do {
        m_fd = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    } while (m_fd < 0 && errno == EINTR);
    struct stat info = {};
    m_hasFailed = m_fd < 0 || ::fstat(m_fd, &info) != 0 || !S_ISREG(info.st_mode);
    if (!m_hasFailed) {
        ::posix_fadvise(m_fd, 0, 0, POSIX_FADV_SEQUENTIAL);
    }
}

BlockReader::~BlockReader()
{
    if (m_fd >= 0) {
        ::close(m_fd);
    }
}

void BlockReader::next()
{
    m_size = 0;
    while (m_size < s_blockSize && isReadable()) {
        const ssize_t n = ::read(m_fd, m_block.get() + m_size, s_blockSize - m_size);
        if (n == 0) {
            return;
        }
        if (n > 0) {
            m_size += static_cast<size_t>(n);
        } else if (errno != EINTR) {
            m_hasFailed = true;
        }
    }
}

void BlockReader::rewind()
{
    m_hasFailed = m_hasFailed || ::lseek(m_fd, 0, SEEK_SET) != 0;
}

bool BlockReader::readToEnd()
{
    do {
        next();
    } while (isReadable() && m_size > 0);
    return isReadable();
}

QByteArray BlockReader::digest()
{
    QCryptographicHash hash(QCryptographicHash::Md5);
    rewind();
    do {
        next();
        hash.addData(m_block.get(), static_cast<int>(m_size));
    } while (isReadable() && m_size > 0);
    return isReadable() ? hash.result() : QByteArray();
}

bool isSameBlock(const BlockReader &a, const BlockReader &b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size()) == 0;
}

Comparison compareDigests(BlockReader &a, BlockReader &b)
{
    const QByteArray digestA = a.digest();
    if (digestA.isNull()) {
        return Comparison::FirstUnreadable;
    }
    const QByteArray digestB = b.digest();
    if (digestB.isNull()) {
        return Comparison::SecondUnreadable;
    }
    return digestA == digestB ? Comparison::SameDigest : Comparison::OtherDigest;
}

} // namespace

Comparison compareByDigest(const QString &pathA, const QString &pathB)
{
    BlockReader a(pathA);
    if (!a.isReadable()) {
        return Comparison::FirstUnreadable;
    }
    BlockReader b(pathB);
    while (b.isReadable()) {
        a.next();
        if (!a.isReadable()) {
            return Comparison::FirstUnreadable;
        }
        b.next();
        if (!b.isReadable()) {
            break;
        }
        if (!isSameBlock(a, b)) {
            return compareDigests(a, b);
        }
        if (a.size() == 0) {
            return Comparison::SameDigest;
        }
    }
    // it is the second; unless the first turns out to be, further on
    return a.readToEnd() ? Comparison::SecondUnreadable : Comparison::FirstUnreadable;
}

} // namespace Tavro::Shared::detail
