// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/PathMeasure.h"

#include "qml/Paths.h"
#include "shared/fileops/CDirectorySizeFinder.h"
#include "shared/filesystem/CFileSystemHelper.h"

#include <QFutureWatcher>
#include <QtConcurrent>

namespace Tavro::Qml {

using Shared::CDirectorySizeFinder;
using Shared::CFileSystemHelper;

PathMeasure::PathMeasure(qlonglong unknown, QObject *parent)
    : QObject(parent)
    , m_unknown(unknown)
    , m_bytes(unknown)
{
}

void PathMeasure::setPath(const QString &path)
{
    const QString local = Paths::local(path);
    if (local == m_path) {
        return;
    }
    m_path = local;
    const int request = ++m_request; // what is on its way belongs to the path before
    Q_EMIT pathChanged();
    if (request == m_request) {
        set(m_unknown, m_isReady);
        refresh();
    }
}

void PathMeasure::refresh()
{
    const int request = ++m_request;
    set(m_bytes, false);
    if (!m_path.isEmpty()) {
        measure(m_path, request);
    }
}

void PathMeasure::setResult(int request, qlonglong bytes)
{
    if (request == m_request) {
        set(bytes, true);
    }
}

void PathMeasure::set(qlonglong bytes, bool ready)
{
    const bool otherBytes = bytes != m_bytes;
    const bool otherReady = ready != m_isReady;
    m_bytes = bytes;
    m_isReady = ready;
    if (otherBytes) {
        Q_EMIT bytesChanged();
    }
    if (otherReady) {
        Q_EMIT readyChanged();
    }
}

DirectorySize::DirectorySize(QObject *parent)
    : PathMeasure(0, parent)
{
}

void DirectorySize::measure(const QString &path, int request)
{
    auto *finder = new CDirectorySizeFinder(this);
    connect(finder, &CDirectorySizeFinder::gotSizeOfPath, this,
            [this, finder, request](const QString &, qulonglong size) {
                finder->deleteLater();
                setResult(request, static_cast<qlonglong>(size));
            });
    finder->startDirectorySizeCalculation(path);
}

FreeSpace::FreeSpace(QObject *parent)
    : PathMeasure(-1, parent)
{
}

void FreeSpace::measure(const QString &path, int request)
{
    auto *watcher = new QFutureWatcher<qint64>(this);
    connect(watcher, &QFutureWatcher<qint64>::finished, this, [this, watcher, request] {
        watcher->deleteLater();
        setResult(request, watcher->result());
    });
    watcher->setFuture(QtConcurrent::run(&CFileSystemHelper::getDiskFreeSpace, path));
}

} // namespace Tavro::Qml
