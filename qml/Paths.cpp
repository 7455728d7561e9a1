// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/Paths.h"

#include <QFileInfo>
#include <QUrl>

namespace Tavro::Qml {

namespace {

bool hasScheme(const QString &path, QLatin1String scheme)
{
    return path.startsWith(scheme, Qt::CaseInsensitive);
}

} // namespace

Paths::Paths(QObject *parent)
    : QObject(parent)
{
}

QString Paths::local(const QString &path)
{
    if (hasScheme(path, QLatin1String("file:"))) {
        return QUrl(path).toLocalFile();
    }
    if (hasScheme(path, QLatin1String("qrc:"))) {
        return QLatin1Char(':') + QUrl(path).path();
    }
    return path;
}

QString Paths::url(const QString &path)
{
    if (path.isEmpty() || hasScheme(path, QLatin1String("file:"))
        || hasScheme(path, QLatin1String("qrc:"))) {
        return path;
    }
    QUrl url;
    if (path.startsWith(QLatin1Char(':'))) {
        url.setScheme(QStringLiteral("qrc"));
        url.setPath(path.mid(1));
    } else {
        url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    }
    return url.toString(QUrl::FullyEncoded);
}

} // namespace Tavro::Qml
