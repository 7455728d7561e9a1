// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileEntry.h"

namespace Tavro::Shared {

CFileEntry::CFileEntry(const QString &path, qint64 size)
    : m_path(path)
    , m_size(size)
{
}

QString CFileEntry::path() const
{
    return m_path;
}

void CFileEntry::setPath(const QString &path)
{
    m_path = path;
}

qint64 CFileEntry::size() const
{
    return m_size;
}

void CFileEntry::setSize(const qint64 &size)
{
    m_size = size;
}

} // namespace Tavro::Shared
