#pragma once

#include "shared/fileops/CFileEntry.h"

#include <QList>
#include <QStringList>

namespace Tavro::Shared {

/** One source to copy to one destination, with what an enumeration found in the source. */
struct CFileCopyData
{
    /** Subdirectories of the source, relative to it, in the order in which they were found. */
    QStringList directories;
    /** Files of the source, in the order in which they are copied. */
    QList<CFileEntry> files;
    /** Directory, ending in "/", or single file. */
    QString sourcePath;
    /** Directory, ending in "/", or single file; no trailing blanks or tabs. */
    QString destinationPath;
    /** Carried along for callers, in bytes; the worker keeps its totals itself. */
    qint64 size = 0;
};

} // namespace Tavro::Shared
