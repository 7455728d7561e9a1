#include "shared/fileops/CDirectorySizeFinder.h"

#include "shared/filesystem/CFileSystemHelper.h"

#include <QFutureWatcher>
#include <QPointer>
#include <QtConcurrentRun>

namespace Tavro::Shared {

namespace {

using Result = QPair<quint64, QString>;
using Watcher = QFutureWatcher<Result>;

} // namespace

CDirectorySizeFinder::CDirectorySizeFinder(QObject *parent)
    : QObject(parent)
{
}

void CDirectorySizeFinder::startDirectorySizeCalculation(const QString &path)
{
    auto *watcher = new Watcher; // goes with its result, or with the finder
    connect(watcher, SIGNAL(finished()), this, SLOT(handleFinshed()));
    connect(this, &QObject::destroyed, watcher, &QObject::deleteLater);
    // the task knows nothing of the finder, which may be gone before it ends
    watcher->setFuture(QtConcurrent::run(&CDirectorySizeFinder::dirSize, path));
}

QPair<quint64, QString> CDirectorySizeFinder::dirSize(const QString &path)
{
    return {static_cast<quint64>(CFileSystemHelper::getDirectorySize(path)), path};
}

void CDirectorySizeFinder::handleFinshed()
{
    const QPointer<Watcher> watcher = static_cast<Watcher *>(sender());
    if (!watcher) {
        return; // called by name, for no request
    }
    const Result result = watcher->result();
    Q_EMIT gotSizeOfPath(result.second, result.first);
    // a slot may have been the end of this finder, and its event loop that of the watcher
    if (watcher) {
        watcher->deleteLater();
    }
}

} // namespace Tavro::Shared
