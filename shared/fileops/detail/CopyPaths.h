#pragma once

#include <QString>

namespace Tavro::Shared::detail {

// What the paths of a request mean at the moment of the request, whatever the current directory
// is later on. A prefix of QDir::addSearchPath() is resolved.

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
