// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/SurveyedFiles.h"

#include <cstring>

namespace Tavro::FieldHost {

void SurveyedFiles::append(const QString &directory, const QString &name, qint64 size)
{
    if (m_directories.empty() || m_directories.back().path != directory) {
        m_directories.push_back({directory, QByteArray()});
    }
    QByteArray &records = m_directories.back().records;
    records.append(reinterpret_cast<const char *>(&size), sizeof size);
    records.append(name.toUtf8());
    records.append('\0');
    ++m_size;
}

SurveyedFiles::const_iterator SurveyedFiles::begin() const
{
    return const_iterator(m_directories.begin());
}

SurveyedFiles::const_iterator SurveyedFiles::end() const
{
    return const_iterator(m_directories.end());
}

SurveyedFile SurveyedFiles::at(int index) const
{
    const_iterator file = begin();
    for (int i = 0; i < index; ++i) {
        ++file;
    }
    return *file;
}

const char *SurveyedFiles::const_iterator::nameBytes() const
{
    return m_directory->records.constData() + m_offset + sizeof(qint64);
}

SurveyedFile SurveyedFiles::const_iterator::operator*() const
{
    SurveyedFile file = {m_directory->path + QString::fromUtf8(nameBytes()), 0};
    std::memcpy(&file.size, m_directory->records.constData() + m_offset, sizeof file.size);
    return file;
}

SurveyedFiles::const_iterator &SurveyedFiles::const_iterator::operator++()
{
    m_offset += static_cast<int>(sizeof(qint64) + std::strlen(nameBytes()) + 1);
    if (m_offset == m_directory->records.size()) {
        ++m_directory;
        m_offset = 0;
    }
    return *this;
}

} // namespace Tavro::FieldHost
