#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QMimeType>
#include <QString>
#include <QStringList>

namespace Tavro::Shared {

/**
 * Names, sizes and contents of files and directories.
 *
 * Functions only, from any thread; those that look at the disk block for as long as that takes.
 * Paths are written with "/" and taken as they are, links and ".." included. Nothing throws: what
 * fails shows in the value that is returned.
 */
class OVO_SHARED_EXPORT CFileSystemHelper
{
public:
    CFileSystemHelper() = delete;

    /** @p path with "/" for each "\". */
    static QString fromWindowsSeparators(const QString &path);
    /** @p path with "\" for each "/". */
    static QString toWindowsSeparators(const QString &path);

    /** @p name behind @p path, with one "/" between unless @p path ends with one. */
    static QString buildPath(const QString &path, const QString &name);
    /** The same; for the name of a file. */
    static QString buildAbsoluteFileName(const QString &path, const QString &fileName);

    /** What stands behind the last "."; null when there is none. */
    static QString extractFileExtension(const QString &fileName);
    /** What stands behind the last "/"; null when there is none, **as for a bare file name**. */
    static QString extractFileName(const QString &path);
    /** The last name in @p path, of a directory written without "/" at its end. */
    static QString extractDirectoryName(const QString &path);
    /** The directory of a file as an absolute path ending in "/"; empty for an empty name. */
    static QString extractPath(const QString &fileName);
    /** The last name in @p path, whether or not a "/" follows it. */
    static QString projectNameFromPath(QString path);

    /**
     * @p name with "_" for each character that a removable drive or an export does not take,
     * \ " < > | : * ? / , . & and nothing else, and without blanks and tabs at its end. Control
     * characters stay.
     */
    static QString getValidFileSystemName(const QString &name);
    /** "jpg" for a type that allows it, else the suffix that the MIME database prefers. */
    static QString getPreferredSuffixFromMIMEType(const QMimeType &type);

    /**
     * A name of the local date and time, a number, and @p extension, with or without its ".":
     * "2024-03-07_14-05_0001.jpg". The number is the first from 1 on whose name is not among the
     * visible files of @p directory; case matters. Without an extension, a name counts as taken
     * with any extension.
     *
     * Nothing is created: asked twice in the same minute, it answers the same unless the file
     * was made in between. With @p withPath the directory stands in front.
     */
    static QString createUniqueFileName(const QString &directory, const QString &extension,
                                        bool withPath);
    /** The same with @p prefix, as getValidFileSystemName() has it, for date and time. */
    static QString createUniqueFileNameWithPrefix(const QString &directory, const QString &prefix,
                                                  const QString &extension, bool withPath);

    /** Creates one directory in @p path, which must exist. False when it was not created. */
    static bool createDirectory(const QString &path, const QString &name);
    /** Creates a directory and those above it. **True in any case**, also when that failed. */
    static bool createDirectory(const QString &path);
    /** The folder for temporary files, ending in "/"; that alone when there is none. */
    static QString getTempDirPath();
    /**
     * Creates a directory of a new name in the folder for temporary files, and answers its path,
     * ending in "/". It is the caller's to remove. Null when that failed, and when there is no
     * such folder.
     */
    static QString createUniqueTempDirectory();

    /** Bytes of a regular file, links followed; 0 when @p path is none. */
    static qint64 getFileSize(const QString &path);
    /**
     * Bytes of all files below @p path; 0 when that is no directory. Hidden ones count; links
     * neither count nor are followed, except @p path itself.
     */
    static qint64 getDirectorySize(const QString &path);
    /** Bytes that the calling user may still fill on the volume of @p path; -1 without one. */
    static qint64 getDiskFreeSpace(const QString &path);

    /**
     * Removes files in this order, up to the first that cannot be removed; false then. With
     * @p removeEmptyDirectories the directories of all of @p files are removed as well, if
     * nothing is left in them.
     */
    static bool deleteFiles(const QStringList &files, bool removeEmptyDirectories);

    /**
     * Whether two files have the same MD5 sum; files of the same content always do. Takes
     * regular files of any size, links followed, and little memory. @p ok is false when one of
     * them cannot be read: its path is logged at level Error under "Tavro::FileSystemHelper",
     * that of @p pathA alone if it is both.
     */
    static bool compareFiles(const QString &pathA, const QString &pathB, bool &ok);
};

} // namespace Tavro::Shared
