#include "fieldhost/cli/Paths.h"

#include <QFile>

#include <sys/stat.h>

namespace Tavro::FieldHost {

QString parentOf(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? path.left(slash) : QStringLiteral("/");
}

QString below(const QString &folder, const QString &name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

bool existsOrIsLink(const QString &path)
{
    struct stat status
    {
    };
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
}

} // namespace Tavro::FieldHost
