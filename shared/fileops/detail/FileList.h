// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QVector>

namespace Tavro::Shared::detail {

/** A file of a list. */
struct FoundFile
{
    QString path; // absolute
    qint64 size = 0; // in bytes, when it was found
    bool isSpecial = false; // no regular file, and not to be opened: a link to a FIFO, a device
};

/**
 * Files in the order in which they were added, directory by directory.
 *
 * A file takes the bytes of its name and 16 more: paths are put together when they are asked for. A
 * copy of a list is cheap until one of the two is added to.
 */
class FileList
{
public:
    class const_iterator;

    /** Files are added to the directory @p prefix from now on; it is absolute and ends in "/". */
    void enterDirectory(const QString &prefix);
    /** Adds the file @p name of the directory entered last. */
    void append(QStringView name, qint64 size, bool isSpecial = false);

    FileList &operator+=(const FileList &other);

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    /** The directories entered that have files, in order. */
    QStringList directories() const;

    const_iterator begin() const;
    const_iterator end() const;

private:
    struct Directory
    {
        QString prefix;
        int end; // number of files up to its last one
    };

    QString m_entered;
    QVector<Directory> m_directories;
    QVector<QByteArray> m_blocks; // of records, none of which is in two
    int m_size = 0;
};

class FileList::const_iterator
{
public:
    FoundFile operator*() const;
    const_iterator &operator++();
    bool operator!=(const const_iterator &other) const { return m_index != other.m_index; }

private:
    friend class FileList;
    const_iterator(const FileList &list, int index)
        : m_list(list)
        , m_index(index)
    {
    }

    const FileList &m_list;
    int m_index; // of the file
    int m_directory = 0;
    int m_block = 0;
    int m_offset = 0; // of the file's record
};

} // namespace Tavro::Shared::detail
