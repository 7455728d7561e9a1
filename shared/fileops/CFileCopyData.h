// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/CFileEntry.h"

#include <QList>
#include <QStringList>

namespace Tavro::Shared {

/** One source, its destination, and what an enumeration has found in the source. */
struct CFileCopyData
{
    /** Subdirectories of the source, relative to it, in the order in which they were found. */
    QStringList directories;
    /** Files below the source, in the order in which they are copied. */
    QList<CFileEntry> files;
    /** A directory, ending in "/", or a single file. */
    QString sourcePath;
    /** A directory, ending in "/", or a single file; without blanks and tabs at the end. */
    QString destinationPath;
    /** For use by callers, in bytes; the worker does not use it. */
    qint64 size = 0;
};

} // namespace Tavro::Shared
