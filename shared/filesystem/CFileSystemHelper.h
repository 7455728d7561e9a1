// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QMimeType>
#include <QString>
#include <QStringList>

namespace Tavro::Shared {

/**
 * Static functions for paths, names, sizes and contents of files and directories.
 *
 * Every function may be called from any thread. Functions that access the disk block until they are
 * done. Paths use "/" as separator and are not canonicalized. Failures are reported by the return
 * value; nothing throws.
 */
class OVO_SHARED_EXPORT CFileSystemHelper
{
public:
    CFileSystemHelper() = delete;

    /** Returns @p path with each "\" replaced by "/". */
    static QString fromWindowsSeparators(const QString &path);
    /** Returns @p path with each "/" replaced by "\". */
    static QString toWindowsSeparators(const QString &path);

    /** Returns @p path and @p name, with "/" between them unless @p path ends with "/". */
    static QString buildPath(const QString &path, const QString &name);
    /** The same as buildPath(), for the name of a file. */
    static QString buildAbsoluteFileName(const QString &path, const QString &fileName);

    /** Returns the text after the last "."; null if there is none. */
    static QString extractFileExtension(const QString &fileName);
    /** Returns the text after the last "/"; null if there is none, **as in a bare file name**. */
    static QString extractFileName(const QString &path);
    /** Returns the last name in @p path, which must not end with "/". */
    static QString extractDirectoryName(const QString &path);
    /** Returns the directory of a file, absolute and ending in "/"; empty for an empty name. */
    static QString extractPath(const QString &fileName);
    /** Returns the last name in @p path, which may end with "/". */
    static QString projectNameFromPath(QString path);

    /**
     * Returns @p name with each of the characters \ " < > | : * ? / , . & replaced by "_", because
     * removable drives or exports do not accept them. Blanks and tabs at the end are removed.
     * Control characters stay.
     */
    static QString getValidFileSystemName(const QString &name);
    /** Returns "jpg" if @p type has this suffix, otherwise the suffix that @p type prefers. */
    static QString getPreferredSuffixFromMIMEType(const QMimeType &type);

    /**
     * Returns a file name made of the local date and time, a number and @p extension, for example
     * "2024-03-07_14-05_0001.jpg". @p extension may be given with or without its ".". The number is
     * the first one, from 1, that gives a name which no visible file in @p directory has; case
     * matters. If @p extension is empty, files with any extension count. If @p withPath is true,
     * the path of @p directory is prepended.
     *
     * The file is not created. Two calls in the same minute return the same name unless the file
     * was created in between.
     */
    static QString createUniqueFileName(const QString &directory, const QString &extension,
                                        bool withPath);
    /** The same with getValidFileSystemName(@p prefix) in place of date and time. */
    static QString createUniqueFileNameWithPrefix(const QString &directory, const QString &prefix,
                                                  const QString &extension, bool withPath);

    /** Creates the directory @p name in @p path, which must exist. False if it was not created. */
    static bool createDirectory(const QString &path, const QString &name);
    /** Creates a directory and those above it. **Always returns true**, even if this failed. */
    static bool createDirectory(const QString &path);
    /** Returns the directory for temporary files, ending in "/"; "/" alone if there is none. */
    static QString getTempDirPath();
    /**
     * Creates a directory with a new name in the directory for temporary files. Returns its path,
     * ending in "/"; null if this failed, or if there is no directory for temporary files. The
     * caller removes the new directory.
     */
    static QString createUniqueTempDirectory();

    /** Returns the bytes of a regular file, links followed; 0 if @p path is not one. */
    static qint64 getFileSize(const QString &path);
    /**
     * Returns the number of bytes in all files below @p path; 0 if it is not a directory or cannot
     * be read. Hidden files count. Symbolic links do not count and are not followed, except @p path
     * itself.
     */
    static qint64 getDirectorySize(const QString &path);
    /** Returns the bytes available to the user on the volume of @p path; -1 if there is none. */
    static qint64 getDiskFreeSpace(const QString &path);

    /**
     * Removes files in this order. Stops at the first one that cannot be removed and returns false
     * then. If @p removeEmptyDirectories is true, the directories of all @p files are removed as
     * well, provided that they are empty.
     */
    static bool deleteFiles(const QStringList &files, bool removeEmptyDirectories);

    /**
     * Returns whether two regular files, links followed, have the same MD5 sum. Files with the same
     * content always do. Files of any size are compared in a quarter of a MiB of memory.
     *
     * @p ok is false if one of them cannot be read. Its path is logged at level Error, category
     * "Tavro::FileSystemHelper"; if both cannot be read, only @p pathA is logged.
     */
    static bool compareFiles(const QString &pathA, const QString &pathB, bool &ok);
};

} // namespace Tavro::Shared
