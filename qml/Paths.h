// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

namespace Tavro::Qml {

/**
 * The two forms of a path: the library takes local paths, and QML's dialogs and images take URLs.
 *
 * Any thread. Nothing blocks: no function looks at the disk.
 */
class Paths : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Paths)
    QML_SINGLETON

public:
    explicit Paths(QObject *parent = nullptr);

    /**
     * The local path that @p path means. A `file:` URL becomes the path that it names, with "%20"
     * as a blank; `qrc:/name` becomes the resource ":/name". Any other text is returned unchanged:
     * it is a path already, and a "%" in it is a character of the name.
     */
    Q_INVOKABLE static QString local(const QString &path);
    /**
     * The URL of a local path: `file:///…`, or `qrc:/…` for a resource. A URL is returned
     * unchanged. A relative path becomes absolute by the working directory. Empty for an empty
     * path.
     */
    Q_INVOKABLE static QString url(const QString &path);
};

} // namespace Tavro::Qml
