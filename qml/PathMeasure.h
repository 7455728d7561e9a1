// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

namespace Tavro::Qml {

// base classes are named in full: moc does not look them up for the type list

/**
 * A number of bytes that belongs to a path, found out on another thread.
 *
 * GUI thread only. No function blocks. What has begun cannot be stopped: when the path changes
 * meanwhile, or the object is destroyed, its result is dropped.
 */
class PathMeasure : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged)
    Q_PROPERTY(qlonglong bytes READ bytes NOTIFY bytesChanged)
    Q_PROPERTY(bool ready READ isReady NOTIFY readyChanged)
    QML_ANONYMOUS

public:
    /** The path, in its local form. Default: empty. */
    QString path() const { return m_path; }
    /** Sets the path, a local one or a `file:` URL, and begins to measure. */
    void setPath(const QString &path);
    /** The last result for the path; a number that the subclass names while there is none. */
    qlonglong bytes() const { return m_bytes; }
    /** True when bytes is up to date: false for an empty path, and while another result is due. */
    bool isReady() const { return m_isReady; }

    /** Measures again. Neither the disk nor the directory is watched. */
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    /** Emitted when path has changed, before readyChanged(). */
    void pathChanged();
    /** Emitted when bytes has changed. */
    void bytesChanged();
    /** Emitted when ready has changed, after bytesChanged(). */
    void readyChanged();

protected:
    /** @p unknown is the value of bytes while there is no result. */
    PathMeasure(qlonglong unknown, QObject *parent);

    /** Begins, and returns at once. setResult() is called later, on the GUI thread. */
    virtual void measure(const QString &path, int request) = 0;
    /** The result of measure(). That of an earlier request is dropped. */
    void setResult(int request, qlonglong bytes);

private:
    void set(qlonglong bytes, bool ready);

    QString m_path;
    qlonglong m_unknown;
    qlonglong m_bytes;
    int m_request = 0; // number of the one whose result counts
    bool m_isReady = false;
};

/**
 * The size of a directory: `DirectorySize { path: project.path }`.
 *
 * bytes is the sum of all files below the directory, hidden ones included: 0 before the first
 * result, and if there is no such directory. Shared::CDirectorySizeFinder walks it.
 */
class DirectorySize : public Tavro::Qml::PathMeasure
{
    Q_OBJECT
    QML_NAMED_ELEMENT(DirectorySize)

public:
    explicit DirectorySize(QObject *parent = nullptr);

protected:
    void measure(const QString &path, int request) override;
};

/**
 * The free space of the volume that a path is on: `FreeSpace { path: drive.path }`.
 *
 * bytes is what the user may still write: -1 before the first result, and if there is no such
 * path. A volume that does not answer, as that of a network, blocks one thread of Qt's global pool.
 */
class FreeSpace : public Tavro::Qml::PathMeasure
{
    Q_OBJECT
    QML_NAMED_ELEMENT(FreeSpace)

public:
    explicit FreeSpace(QObject *parent = nullptr);

protected:
    void measure(const QString &path, int request) override;
};

} // namespace Tavro::Qml
