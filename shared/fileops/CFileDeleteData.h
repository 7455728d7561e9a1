// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/CFileEntry.h"

#include <QList>
#include <QStringList>

namespace Tavro::Shared {

/** One directory to delete, and what an enumeration has found in it. */
struct CFileDeleteData
{
    /** Subdirectories, relative to the directory, in the order in which they were found. */
    QStringList directories;
    /** Files below the directory, in the order in which they are deleted. */
    QList<CFileEntry> files;
    /** The directory, exactly as the caller named it. */
    QString path;
    /** For use by callers, in bytes; the worker does not use it. */
    qint64 size = 0;
};

} // namespace Tavro::Shared
