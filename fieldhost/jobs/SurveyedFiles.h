// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace Tavro::FieldHost {

/** A file that a copy of the source is to hold. */
struct SurveyedFile
{
    QString path; // relative to the source; empty when the source is the file itself
    qint64 size = 0;
};

/**
 * Files in the order in which they are copied, directory by directory.
 *
 * A file takes the bytes of its name and nine more: there may be a million of them, and their list
 * stays until the copy is verified.
 */
class SurveyedFiles
{
public:
    class const_iterator;

    /** Adds the file @p name of @p directory, which is empty or ends in "/". */
    void append(const QString &directory, const QString &name, qint64 size);

    int size() const { return m_size; }
    const_iterator begin() const;
    const_iterator end() const;
    /** Looks through the list up to there. */
    SurveyedFile at(int index) const;

private:
    struct Directory
    {
        QString path;
        QByteArray records; // of each file, the bytes of its size and its name with a final null
    };

    std::vector<Directory> m_directories;
    int m_size = 0;
};

class SurveyedFiles::const_iterator
{
public:
    SurveyedFile operator*() const;
    const_iterator &operator++();
    bool operator==(const const_iterator &other) const
    {
        return m_directory == other.m_directory && m_offset == other.m_offset;
    }
    bool operator!=(const const_iterator &other) const { return !(*this == other); }

private:
    friend class SurveyedFiles;
    explicit const_iterator(std::vector<Directory>::const_iterator directory)
        : m_directory(directory)
    {
    }

    const char *nameBytes() const;

    std::vector<Directory>::const_iterator m_directory;
    int m_offset = 0; // of the file's record
};

} // namespace Tavro::FieldHost
