#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/** A file as an enumeration found it. A value; nothing about it follows the file afterwards. */
class OVO_SHARED_EXPORT CFileEntry
{
public:
    /** @p path is absolute, @p size in bytes; both are stored unchecked. */
    CFileEntry(const QString &path, qint64 size);

    /** Absolute path. */
    QString path() const;
    /** Replaces the path. */
    void setPath(const QString &path);

    /** Size in bytes at the time of the enumeration. */
    qint64 size() const;
    /** Replaces the size; any value is stored, negative ones too. */
    void setSize(const qint64 &size);

private:
    QString m_path;
    qint64 m_size;
};

} // namespace Tavro::Shared

Q_DECLARE_TYPEINFO(Tavro::Shared::CFileEntry, Q_MOVABLE_TYPE);
