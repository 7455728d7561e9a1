// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/CFileSystemHelper.h"

#include "host/CLogger.h"
#include "shared/filesystem/detail/FileComparison.h"
#include "shared/filesystem/detail/PathText.h"
#include "shared/filesystem/detail/TreeSize.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSet>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <vector>

namespace Tavro::Shared {

namespace {

constexpr QChar s_slash = QLatin1Char('/');
constexpr QChar s_backslash = QLatin1Char('\\');
constexpr int s_digits = 4; // of a number in a name; more when it needs them

// no removable drive takes the first nine; an export's own separators are the other three
constexpr char s_invalidCharacters[] = R"(\"<>|:*?/,.&)";

bool isInvalid(QChar c)
{
    const char *end = std::end(s_invalidCharacters) - 1; // without its NUL
    return std::any_of(std::begin(s_invalidCharacters), end,
                       [c](char invalid) { return c == QLatin1Char(invalid); });
}

QString textBehindLast(QChar separator, const QString &text)
{
    const int position = text.lastIndexOf(separator);
    return position < 0 ? QString() : text.mid(position + 1);
}

QString numberText(quint64 n)
{
    return QString::number(n).rightJustified(s_digits, QLatin1Char('0'));
}

// 0 when numberText() writes no number like that
quint64 numberFrom(const QString &text)
{
    bool isNumber = false;
    const quint64 n = text.toULongLong(&isNumber);
    return isNumber && text == numberText(n) ? n : 0;
}

/**
 * Numbers of the names in a directory that consist of @p stem, a number and @p extension; sorted.
 *
 * One pass over the names, whatever their number: asking for one candidate after the other would
 * take a time that grows with their square.
 */
std::vector<quint64> takenNumbers(const QString &directory, const QString &stem,
                                  const QString &extension)
{
    std::vector<quint64> numbers;
    // the filter ignores case, and takes "*", "?" and "[" of an extension for wildcards
    QDirIterator names(QDir(directory).path(), {QLatin1Char('*') + extension}, QDir::Files);
    while (names.hasNext()) {
        names.next();
        QString name = names.fileName();
        if (extension.isEmpty()) {
            name = name.section(QLatin1Char('.'), 0, 0);
        }
        if (name.size() >= stem.size() + extension.size() && name.startsWith(stem)
            && name.endsWith(extension)) {
            const int length = name.size() - stem.size() - extension.size();
            numbers.push_back(numberFrom(name.mid(stem.size(), length)));
        }
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

QString uniqueFileName(const QString &directory, const QString &stem, const QString &extension,
                       bool withPath)
{
    const bool lacksPoint = !extension.isEmpty() && !extension.startsWith(QLatin1Char('.'));
    const QString ending = lacksPoint ? QLatin1Char('.') + extension : extension;
    quint64 n = 1;
    for (const quint64 taken : takenNumbers(directory, stem, ending)) {
        if (taken == n) {
            ++n;
        }
    }
    const QString name = stem + numberText(n) + ending;
    return withPath ? CFileSystemHelper::buildAbsoluteFileName(directory, name) : name;
}

void logUnreadable(const QString &path)
{
    Logging::CLogger::logMessage(
        Logging::LogLevel::Error, QStringLiteral("Tavro::FileSystemHelper"),
        QLatin1String("Could not read file content for MD5 sum check: ") + path);
}

} // namespace

QString CFileSystemHelper::fromWindowsSeparators(const QString &path)
{
    return QString(path).replace(s_backslash, s_slash);
}

QString CFileSystemHelper::toWindowsSeparators(const QString &path)
{
    return QString(path).replace(s_slash, s_backslash);
}

QString CFileSystemHelper::buildPath(const QString &path, const QString &name)
{
    return detail::withFinalSlash(path) + name;
}

QString CFileSystemHelper::buildAbsoluteFileName(const QString &path, const QString &fileName)
{
    return buildPath(path, fileName);
}

QString CFileSystemHelper::extractFileExtension(const QString &fileName)
{
    return textBehindLast(QLatin1Char('.'), fileName);
}

QString CFileSystemHelper::extractFileName(const QString &path)
{
    return textBehindLast(s_slash, path);
}

QString CFileSystemHelper::extractDirectoryName(const QString &path)
{
    return QDir(path).dirName();
}

QString CFileSystemHelper::extractPath(const QString &fileName)
{
    const QString path = QFileInfo(fileName).absolutePath();
    return path.isEmpty() ? path : detail::withFinalSlash(path);
}

QString CFileSystemHelper::projectNameFromPath(QString path)
{
    if (path.endsWith(s_slash)) {
        path.chop(1);
    }
    return path.mid(path.lastIndexOf(s_slash) + 1);
}

QString CFileSystemHelper::getValidFileSystemName(const QString &name)
{
    QString valid = name;
    std::replace_if(valid.begin(), valid.end(), isInvalid, QLatin1Char('_'));
    return detail::withoutBlanksAtEnd(valid);
}

QString CFileSystemHelper::getPreferredSuffixFromMIMEType(const QMimeType &type)
{
    const QString jpg = QStringLiteral("jpg"); // the database would rather have "jpeg"
    return type.suffixes().contains(jpg) ? jpg : type.preferredSuffix();
}

QString CFileSystemHelper::createUniqueFileName(const QString &directory, const QString &extension,
                                                bool withPath)
{
    // not in the language of the user, whose digits may be others
    const QString stem =
        QLocale::c().toString(QDateTime::currentDateTime(), QStringLiteral("yyyy-MM-dd_HH-mm_"));
    return uniqueFileName(directory, stem, extension, withPath);
}

QString CFileSystemHelper::createUniqueFileNameWithPrefix(const QString &directory,
                                                          const QString &prefix,
                                                          const QString &extension, bool withPath)
{
    return uniqueFileName(directory, getValidFileSystemName(prefix) + QLatin1Char('_'), extension,
                          withPath);
}

bool CFileSystemHelper::createDirectory(const QString &path, const QString &name)
{
    return !name.isEmpty() && QDir(path).mkdir(name);
}

bool CFileSystemHelper::createDirectory(const QString &path)
{
    const QDir directory(path);
    if (!directory.exists()) {
        directory.mkpath(QStringLiteral("."));
    }
    return true; // callers find out by using it
}

QString CFileSystemHelper::getTempDirPath()
{
    return detail::withFinalSlash(QStandardPaths::writableLocation(QStandardPaths::TempLocation));
}

QString CFileSystemHelper::createUniqueTempDirectory()
{
    if (QStandardPaths::writableLocation(QStandardPaths::TempLocation).isEmpty()) {
        return {}; // TMPDIR leads nowhere: the directory would be made in the root
    }
    QTemporaryDir directory(getTempDirPath() + QLatin1String("XXXXXX"));
    if (!directory.isValid()) {
        return {};
    }
    directory.setAutoRemove(false);
    return detail::withFinalSlash(directory.path());
}

qint64 CFileSystemHelper::getFileSize(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() ? info.size() : 0;
}

qint64 CFileSystemHelper::getDirectorySize(const QString &path)
{
    return detail::treeSize(path);
}

qint64 CFileSystemHelper::getDiskFreeSpace(const QString &path)
{
    QStorageInfo storage;
    storage.setPath(path);
    return storage.bytesAvailable();
}

bool CFileSystemHelper::deleteFiles(const QStringList &files, bool removeEmptyDirectories)
{
    const bool ok = std::all_of(files.cbegin(), files.cend(),
                                [](const QString &file) { return QFile::remove(file); });
    if (!removeEmptyDirectories) {
        return ok;
    }
    QSet<QString> handled;
    for (const QString &file : files) {
        QDir directory(file);
        if (!directory.cdUp()) {
            continue;
        }
        const QString path = directory.absolutePath();
        if (!path.isEmpty() && !handled.contains(path)) {
            handled.insert(path);
            QDir().rmdir(path); // fails where something is left in it, and may
        }
    }
    return ok;
}

bool CFileSystemHelper::compareFiles(const QString &pathA, const QString &pathB, bool &ok)
{
    const detail::Comparison result = detail::compareByDigest(pathA, pathB);
    ok = true;
    if (result == detail::Comparison::FirstUnreadable) {
        logUnreadable(pathA);
        ok = false;
    } else if (result == detail::Comparison::SecondUnreadable) {
        logUnreadable(pathB);
        ok = false;
    }
    return result == detail::Comparison::SameDigest;
}

} // namespace Tavro::Shared
