// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Shared::detail {

// What the paths of a request mean at the moment of the request, whatever the current directory
// is later on. A prefix of QDir::addSearchPath() is resolved.

/** What the path of a directory means at one moment. */
struct ResolvedDirectory
{
    /**
     * Absolute, and goes on meaning the same: "." and ".." are gone from it, a link at its end is
     * not followed. Empty when the path means nothing.
     */
    QString path;
    int systemError = 0; // why the system cannot tell what it means

    bool isKnown() const { return !path.isEmpty() && systemError == 0; }
};

/** True for an errno by which the system says that there is nothing of that name. */
bool meansNothing(int systemError);

/** What the directory @p path means now. A directory of resources keeps its name. */
ResolvedDirectory resolvedDirectory(const QString &path);

/**
 * A source directory as an absolute path ending in "/", without "." and "..": the files found
 * below it are known by such paths. Empty for an empty path, which is nobody's wish to copy a
 * whole disk.
 */
QString sourceDirectory(const QString &path);

/** A source file as an absolute path, or as the name of a resource of the program. */
QString sourceFile(const QString &path);

/**
 * A destination as an absolute path without ".." and without the blanks and tabs at its end: what
 * a copy writes to, and an abort removes. Empty when nothing can be written there.
 */
QString destination(const QString &path);

/** The same for a destination whose name is taken as it is given. */
QString destinationFile(const QString &path);

} // namespace Tavro::Shared::detail
