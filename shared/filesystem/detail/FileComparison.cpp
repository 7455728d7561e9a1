// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/detail/FileComparison.h"

#include "shared/filesystem/detail/Descriptor.h"
#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/SystemCall.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

    /** True until opening or reading fails. */
    bool isReadable() const { return !m_hasFailed; }
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
    bool openResource(const QString &path);
    bool openFile(const QString &path);
    qint64 read(char *data, size_t size);

    QFile m_resource; // open in place of the file
    Descriptor m_file;
    bool m_hasFailed = false;
    std::unique_ptr<char[]> m_block{new char[s_blockSize]};
    size_t m_size = 0;
};

// Anything but a regular file counts as unreadable: a FIFO would have its reader wait, and some
// devices never end.
BlockReader::BlockReader(const QString &path)
{
    const QString resolved = resolvedPath(path);
    m_hasFailed = isResource(resolved) ? !openResource(resolved) : !openFile(resolved);
}

bool BlockReader::openResource(const QString &path)
{
    m_resource.setFileName(path);
    return QFileInfo(path).isFile() && m_resource.open(QIODevice::ReadOnly);
}

bool BlockReader::openFile(const QString &path)
{
    if (!isNameable(path)) {
        return false;
    }
    const QByteArray name = QFile::encodeName(path);
    m_file = Descriptor(uninterrupted([&name] {
        return ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    }));
    struct stat info = {};
    if (!m_file.isOpen() || ::fstat(m_file.get(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return false;
    }
    ::posix_fadvise(m_file.get(), 0, 0, POSIX_FADV_SEQUENTIAL);
    return true;
}

qint64 BlockReader::read(char *data, size_t size)
{
    return m_resource.isOpen() ? m_resource.read(data, static_cast<qint64>(size))
                               : uninterrupted([&] { return ::read(m_file.get(), data, size); });
}

void BlockReader::next()
{
    m_size = 0;
    while (m_size < s_blockSize && isReadable()) {
        const qint64 n = read(m_block.get() + m_size, s_blockSize - m_size);
        if (n == 0) {
            return;
        }
        if (n < 0) {
            m_hasFailed = true;
            return;
        }
        m_size += static_cast<size_t>(n);
    }
}

void BlockReader::rewind()
{
    m_hasFailed = m_hasFailed
        || !(m_resource.isOpen() ? m_resource.seek(0) : ::lseek(m_file.get(), 0, SEEK_SET) == 0);
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
        hash.addData(QByteArray::fromRawData(m_block.get(), static_cast<int>(m_size)));
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
