// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QUrl>

namespace Tavro::FieldHost {

/** The path of a local file that is written as a path or as a "file:" URL. */
inline QString localPath(const QString &pathOrUrl)
{
    return pathOrUrl.startsWith(QLatin1String("file:")) ? QUrl(pathOrUrl).toLocalFile() : pathOrUrl;
}

} // namespace Tavro::FieldHost
