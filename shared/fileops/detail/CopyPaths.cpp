#include "shared/fileops/detail/CopyPaths.h"

#include "shared/fileops/detail/TreeRemoval.h"
#include "shared/filesystem/detail/NativeName.h"

#include <QDir>

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

QString trimmed(const QString &path)
{
    int length = path.size();
    const auto isBlank = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); };
    while (length > 0 && isBlank(path.at(length - 1))) {
        --length;
    }
    return path.left(length);
}

} // namespace

QString withFinalSlash(const QString &path)
{
    return path.endsWith(s_slash) ? path : path + s_slash;
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
    return destinationFile(trimmed(path));
}

QString destinationFile(const QString &path)
{
    if (path.isEmpty()) {
        return path;
    }
    const QString resolved = resolvedPath(path);
    return isResource(resolved) ? QString() : absolute(resolved);
}

} // namespace Tavro::Shared::detail
