// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QPair>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * Adds up the sizes of the files in a directory tree in the background.
 *
 * Each request is one task on the global thread pool. Several requests may run at the same time.
 * A request cannot be canceled. The finder may be destroyed while requests run; they emit nothing
 * then.
 *
 * A request that the pool has not begun after 3 s gets a thread of its own, one request at a time.
 * If the system cannot create a thread, the finder's thread computes the size and blocks meanwhile.
 */
class OVO_SHARED_EXPORT CDirectorySizeFinder : public QObject
{
    Q_OBJECT

public:
    explicit CDirectorySizeFinder(QObject *parent = nullptr);
    ~CDirectorySizeFinder() override;

    /**
     * Starts one request and returns at once. gotSizeOfPath() is emitted later, through the event
     * loop of the calling thread, which must be the finder's. A relative @p path is resolved
     * against the current directory at the time when the task runs.
     */
    void startDirectorySizeCalculation(const QString &path);

    /**
     * Computes the size on the calling thread and blocks until it is known. Returns the number of
     * bytes in all files below @p path, and @p path as it was given. The size is 0 if @p path is
     * not a directory or cannot be read.
     *
     * Hidden entries count. Symbolic links do not count and are not followed, except @p path
     * itself. Thread-safe: it uses no member of the finder, so it can be passed to
     * QtConcurrent::run().
     */
    QPair<quint64, QString> dirSize(const QString &path);

Q_SIGNALS:
    /**
     * Emitted once for each request, in the order in which the requests end. @p path is the path
     * as it was given, @p size the size in bytes.
     */
    void gotSizeOfPath(const QString &path, qulonglong size);

private Q_SLOTS:
    void handleFinshed();

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
