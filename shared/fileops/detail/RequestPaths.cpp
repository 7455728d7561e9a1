// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/RequestPaths.h"

#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/PathText.h"
#include "shared/filesystem/detail/SystemText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

constexpr QLatin1Char s_slash('/');

// what a system call has answered for @p path; null when it has failed
ResolvedDirectory found(const SystemText &answer, const QString &path)
{
    if (!answer) {
        return meansNothing(errno) ? ResolvedDirectory() : ResolvedDirectory{path, errno};
    }
    return isAddressable(answer.get()) ? ResolvedDirectory{QFile::decodeName(answer.get()), 0}
                                       : ResolvedDirectory{path, EILSEQ};
}

// where the system finds it now, links and ".." followed
ResolvedDirectory realPath(const QString &path)
{
    return found(SystemText(::realpath(QFile::encodeName(path).constData(), nullptr)), path);
}

ResolvedDirectory currentDirectory()
{
    return found(SystemText(::getcwd(nullptr, 0)), {});
}

// not cleaned: behind a link, ".." is not where the text says
QString absolute(const QString &path)
{
    if (path.startsWith(s_slash) || isResource(path)) {
        return path;
    }
    // one that was removed, or has no name as a text, must not turn the path into another
    const ResolvedDirectory current = currentDirectory();
    return current.isKnown() ? withFinalSlash(current.path) + path : QString();
}

// Empty where the path goes up from what is not there: nobody can tell where it would lead.
QString withoutParents(const QString &path)
{
    const QString up = QStringLiteral("/..");
    int end = path.lastIndexOf(up + s_slash);
    end = path.endsWith(up) ? path.size() : end < 0 ? -1 : end + up.size();
    if (end < 0) {
        return path;
    }
    const QString directory = QFileInfo(path.left(end)).canonicalFilePath();
    return directory.isEmpty() || end == path.size()
        ? directory
        : withFinalSlash(directory) + path.mid(end + 1);
}

} // namespace

bool meansNothing(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

ResolvedDirectory resolvedDirectory(const QString &path)
{
    const QString resolved = resolvedPath(path);
    if (!isNameable(resolved)) {
        return {};
    }
    if (isResource(resolved)) {
        return {resolved, 0};
    }
    QString whole = resolved;
    if (!resolved.startsWith(s_slash)) {
        // perhaps removed; the path must not come to mean one of the root's
        const ResolvedDirectory current = currentDirectory();
        if (!current.isKnown()) {
            return {current.systemError == 0 ? QString() : resolved, current.systemError};
        }
        whole = current.path + s_slash + resolved;
    }
    whole = withoutFinalSlashes(whole);

    const QStringList names = whole.split(s_slash, Qt::SkipEmptyParts);
    if (!names.contains(QLatin1String(".."))) {
        return {QDir::cleanPath(whole), 0};
    }
    // behind a link, ".." is not where the text says
    if (names.constLast() == QLatin1String("..") || names.constLast() == QLatin1String(".")) {
        return realPath(whole);
    }
    const int end = whole.lastIndexOf(s_slash);
    ResolvedDirectory root = realPath(whole.left(end));
    if (root.isKnown()) {
        root.path = withoutFinalSlashes(root.path) + whole.mid(end);
    }
    return root;
}

QString sourceDirectory(const QString &path)
{
    if (path.isEmpty()) {
        return path;
    }
    const ResolvedDirectory directory = resolvedDirectory(path);
    if (isResource(directory.path)) {
        return withFinalSlash(QDir::cleanPath(directory.path));
    }
    // one that is not there keeps its name, for whoever reports it
    return withFinalSlash(directory.isKnown() ? directory.path : absolute(resolvedPath(path)));
}

QString sourceFile(const QString &path)
{
    return path.isEmpty() ? path : absolute(resolvedPath(path));
}

QString destination(const QString &path)
{
    return destinationFile(withoutBlanksAtEnd(path));
}

QString destinationFile(const QString &path)
{
    if (path.isEmpty()) {
        return path;
    }
    const QString resolved = resolvedPath(path);
    return isResource(resolved) ? QString() : withoutParents(absolute(resolved));
}

} // namespace Tavro::Shared::detail
