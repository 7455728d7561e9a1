#include "shared/fileops/detail/CopyPaths.h"

#include "shared/fileops/detail/TreeRemoval.h"
#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/PathText.h"

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
    // one that was removed, or has no name as a text, must not turn the path into another
    const RemovalRoot current = currentDirectory();
    const bool isKnown = !current.path.isEmpty() && current.systemError == 0;
    return isKnown ? withFinalSlash(current.path) + path : QString();
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
