// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace Tavro::FieldHost {

QString parentOf(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? path.left(slash) : QStringLiteral("/");
}

QString below(const QString &directory, const QString &name)
{
    return directory.endsWith(QLatin1Char('/')) ? directory + name
                                                : directory + QLatin1Char('/') + name;
}

FileStatus statusOf(const QString &path)
{
    FileStatus status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status : FileStatus();
}

FileStatus targetStatusOf(const QString &path)
{
    FileStatus status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status : FileStatus();
}

bool isSameFile(const FileStatus &a, const FileStatus &b)
{
    return a.st_mode != 0 && b.st_mode != 0 && a.st_ino == b.st_ino && a.st_dev == b.st_dev;
}

bool existsOrIsLink(const QString &path)
{
    return statusOf(path).st_mode != 0;
}

QString absolutePath(const QString &typed)
{
    // QDir's own way reads ":/x" and "prefix:x" as something else
    QString path = typed;
    if (!path.startsWith(QLatin1Char('/'))) {
        path.prepend(QDir::currentPath() + QLatin1Char('/'));
    }
    // "a/.." is not "." where a is a link, so only the file system can resolve it
    const bool goesUp = path.endsWith(QLatin1String("/..")) || path.contains(QLatin1String("/../"));
    const QString resolved = goesUp ? QFileInfo(path).canonicalFilePath() : QString();
    return resolved.isEmpty() ? QDir::cleanPath(path) : resolved;
}

bool isSameOrBelow(const QString &path, const QString &directory)
{
    return path == directory || path.startsWith(below(directory, QString()));
}

QString nearestExisting(QString path)
{
    while (path != QLatin1String("/") && !existsOrIsLink(path)) {
        path = parentOf(path);
    }
    return path;
}

int openDirectory(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

int visitEntries(int descriptor, const std::function<void(const dirent &entry)> &visit)
{
    struct CloseDirectory
    {
        void operator()(DIR *directory) const { ::closedir(directory); }
    };
    const std::unique_ptr<DIR, CloseDirectory> directory(descriptor < 0 ? nullptr
                                                                        : ::fdopendir(descriptor));
    if (!directory) {
        const int error = errno;
        if (descriptor >= 0) {
            ::close(descriptor);
        }
        return error;
    }
    errno = 0;
    while (const dirent *entry = ::readdir(directory.get())) {
        if (qstrcmp(entry->d_name, ".") != 0 && qstrcmp(entry->d_name, "..") != 0) {
            visit(*entry);
        }
        errno = 0;
    }
    return errno;
}

QString nameFromBytes(const QByteArray &bytes)
{
    const QString text = QFile::decodeName(bytes);
    return QFile::encodeName(text) == bytes ? text : QString();
}

QString futureCanonicalPath(const QString &path)
{
    const QString existing = nearestExisting(path);
    const QString canonical = QFileInfo(existing).canonicalFilePath();
    return QDir::cleanPath(canonical + QLatin1Char('/') + path.mid(existing.size()));
}

} // namespace Tavro::FieldHost
