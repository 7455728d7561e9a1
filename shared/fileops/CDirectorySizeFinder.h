#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QPair>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * Adds up the sizes of the files in a directory tree, off the caller's thread.
 *
 * Each request is a task of its own on the global thread pool, and several may run at a time.
 * There is no way to stop one. A finder may be destroyed while they run: nothing is announced
 * then.
 *
 * A request that the pool has not begun after some seconds gets a thread of its own, and where the
 * system has no thread to give, the thread of the finder computes the size.
 */
class OVO_SHARED_EXPORT CDirectorySizeFinder : public QObject
{
    Q_OBJECT

public:
    explicit CDirectorySizeFinder(QObject *parent = nullptr);
    ~CDirectorySizeFinder() override;

    /**
     * Starts one request and returns at once; gotSizeOfPath() follows through the event loop of
     * the calling thread. A relative path counts from the current directory of the moment in
     * which the task runs.
     */
    void startDirectorySizeCalculation(const QString &path);

    /**
     * The computation itself, on the calling thread: the bytes of all files below @p path, and
     * @p path as it was given. Hidden entries count; links neither count nor are followed,
     * except @p path itself. 0 when it is no directory, or none that can be read. From any thread;
     * it looks at nothing of the finder, so QtConcurrent::run() takes it.
     */
    QPair<quint64, QString> dirSize(const QString &path);

Q_SIGNALS:
    /**
     * A request is done: once for each, in the order in which they end. @p path as it was given,
     * @p size in bytes.
     */
    void gotSizeOfPath(const QString &path, qulonglong size);

private Q_SLOTS:
    void handleFinshed();

private:
    class Private; // none yet: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
