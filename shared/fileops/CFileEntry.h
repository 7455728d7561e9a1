// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/** Path and size of a file at the time of an enumeration. Later changes of the file do not show. */
class OVO_SHARED_EXPORT CFileEntry
{
public:
    /** @p path is absolute, @p size is in bytes. Neither is checked. */
    CFileEntry(const QString &path, qint64 size);

    /** Absolute path. */
    QString path() const;
    /** Sets the absolute path. It is not checked. */
    void setPath(const QString &path);

    /** Size in bytes at the time of the enumeration. */
    qint64 size() const;
    /** Sets the size in bytes. Any value is stored, also a negative one. */
    void setSize(const qint64 &size);

private:
    QString m_path;
    qint64 m_size;
};

} // namespace Tavro::Shared

Q_DECLARE_TYPEINFO(Tavro::Shared::CFileEntry, Q_MOVABLE_TYPE);
