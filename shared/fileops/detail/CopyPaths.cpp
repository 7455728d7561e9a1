#include "shared/fileops/detail/CopyPaths.h"

#include "shared/fileops/detail/TreeRemoval.h"
#include "shared/filesystem/detail/NativeName.h"

#include <QDir>
#include <QFileInfo>

namespace Tavro::Shared::detail {

namespace {

constexpr QLatin1Char s_slash('/');

// not cleaned: behind a link, ".." is not where the text says
QString absolute(const QString &path)
{
    if (path.startsWith(s_slash) || isResource(path)) {
        return path;
    }
    const QString current = QDir::currentPath();
    // a current directory that was removed must not turn the path into one below the root
    return current.isEmpty() ? QString() : withFinalSlash(current) + path;
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

QString withoutBlanksAtEnd(const QString &path)
{
    int length = path.size();
    const auto isBlank = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); };
    while (length > 0 && isBlank(path.at(length - 1))) {
        --length;
    }
    return path.left(length);
}

QString withFinalSlash(const QString &path)
{
    return path.endsWith(s_slash) ? path : path + s_slash;
}

QString withoutFinalSlash(const QString &path)
{
    return path.size() > 1 && path.endsWith(s_slash) ? path.chopped(1) : path;
}

QString sourceDirectory(const QString &path)
{
    if (path.isEmpty()) {
        return path;
    }
    const RemovalRoot directory = removalRoot(path);
    if (isResource(directory.path)) {
        return withFinalSlash(QDir::cleanPath(directory.path));
    }
    // one that is not there keeps its name, for whoever reports it
    const bool isKnown = !directory.path.isEmpty() && directory.systemError == 0;
    return withFinalSlash(isKnown ? directory.path : absolute(resolvedPath(path)));
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
