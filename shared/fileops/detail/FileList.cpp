// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/FileList.h"

#include <algorithm>
#include <cstring>

namespace Tavro::Shared::detail {

namespace {

constexpr int s_blockSize = 64 * 1024;

/** Stands before each name. */
struct Record
{
    qint64 size;
    int bytes; // of the name
    bool isWide; // the name is in UTF-16, because it is not plain ASCII
    bool isSpecial;
};

Record recordAt(const QByteArray &block, int offset)
{
    Record record = {};
    std::memcpy(&record, block.constData() + offset, sizeof record);
    return record;
}

int lengthOf(const Record &record)
{
    return static_cast<int>(sizeof record) + record.bytes;
}

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

void FileList::enterDirectory(const QString &prefix)
{
    m_entered = prefix;
}

void FileList::append(QStringView name, qint64 size, bool isSpecial)
{
    const bool isWide = !isAscii(name);
    const int units = static_cast<int>(name.size());
    const Record record = {size, isWide ? units * 2 : units, isWide, isSpecial};
    if (m_blocks.isEmpty() || m_blocks.constLast().size() + lengthOf(record) > s_blockSize) {
        m_blocks.append(QByteArray());
        m_blocks.last().reserve(std::max(s_blockSize, lengthOf(record)));
    }
    QByteArray &block = m_blocks.last();
    const int begin = block.size();
    block.resize(begin + lengthOf(record)); // within what is reserved
    char *bytes = block.data() + begin;
    std::memcpy(bytes, &record, sizeof record);
    bytes += sizeof record;
    if (isWide) {
        std::memcpy(bytes, name.data(), static_cast<size_t>(record.bytes));
    } else {
        std::transform(name.begin(), name.end(), bytes,
                       [](QChar c) { return static_cast<char>(c.unicode()); });
    }

    if (m_directories.isEmpty() || m_directories.constLast().prefix != m_entered) {
        m_directories.append({m_entered, m_size});
    }
    m_directories.last().end = ++m_size;
}

FileList &FileList::operator+=(const FileList &other)
{
    for (const Directory &directory : other.m_directories) {
        m_directories.append({directory.prefix, m_size + directory.end});
    }
    m_blocks += other.m_blocks;
    m_size += other.m_size;
    return *this;
}

QStringList FileList::directories() const
{
    QStringList prefixes;
    for (const Directory &directory : m_directories) {
        prefixes.append(directory.prefix);
    }
    return prefixes;
}

FileList::const_iterator FileList::begin() const
{
    return {*this, 0};
}

FileList::const_iterator FileList::end() const
{
    return {*this, m_size};
}

FoundFile FileList::const_iterator::operator*() const
{
    const QByteArray &block = m_list.m_blocks.at(m_block);
    const Record record = recordAt(block, m_offset);
    const char *name = block.constData() + m_offset + sizeof record;
    const QString &prefix = m_list.m_directories.at(m_directory).prefix;
    const int units = record.isWide ? record.bytes / 2 : record.bytes;
    QString path(prefix.size() + units, Qt::Uninitialized);
    QChar *end = std::copy(prefix.begin(), prefix.end(), path.begin());
    if (record.isWide) {
        std::memcpy(end, name, static_cast<size_t>(record.bytes));
    } else {
        std::transform(name, name + units, end, [](char c) { return QLatin1Char(c); });
    }
    return {path, record.size, record.isSpecial};
}

FileList::const_iterator &FileList::const_iterator::operator++()
{
    m_offset += lengthOf(recordAt(m_list.m_blocks.at(m_block), m_offset));
    if (m_offset == m_list.m_blocks.at(m_block).size()) {
        ++m_block;
        m_offset = 0;
    }
    if (++m_index == m_list.m_directories.at(m_directory).end) {
        ++m_directory;
    }
    return *this;
}

} // namespace Tavro::Shared::detail
