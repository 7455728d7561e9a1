#include "shared/fileops/CFileDeleteWorker.h"

#include "shared/fileops/CFileDeleteData.h"
#include "shared/fileops/detail/DeleteRequest.h"
#include "shared/fileops/detail/TreeRemoval.h"
#include "shared/fileops/detail/TreeWalk.h"
#include "shared/fileops/detail/WorkerCore.h"

namespace Tavro::Shared {

namespace {

using State = CFileDeleteController::State;
using Core = detail::WorkerCore<CFileDeleteWorker, detail::DeleteRequest>;

} // namespace

struct CFileDeleteWorker::Private : Core
{
    using Core::Core;
};

CFileDeleteWorker::CFileDeleteWorker(QObject *parent)
    : QObject(parent)
    , m_d(std::make_unique<Private>(this))
{
}

CFileDeleteWorker::~CFileDeleteWorker() = default;

int CFileDeleteWorker::state() const
{
    return m_d->shownState();
}

bool CFileDeleteWorker::isCanceled() const
{
    return m_d->requests().loaded()->canceled;
}

void CFileDeleteWorker::deleteDirectory(const QString &path)
{
    deleteDirectories({path});
}

void CFileDeleteWorker::deleteDirectories(const QStringList &paths)
{
    auto request = std::make_shared<detail::DeleteRequest>();
    for (const QString &path : paths) {
        CFileDeleteData job;
        job.path = path;
        request->jobs.append(job);
        request->roots.append(detail::removalRoot(path));
    }
    m_d->load(CFileDeleteController::StateEnumeratingFiles, std::move(request));
}

void CFileDeleteWorker::pause()
{
    m_d->gate().close();
}

void CFileDeleteWorker::resume()
{
    m_d->gate().open();
}

void CFileDeleteWorker::reset()
{
    m_d->reset();
}

void CFileDeleteWorker::cancelWork()
{
    m_d->cancel();
}

detail::RunControl &CFileDeleteWorker::runs()
{
    return *m_d;
}

void CFileDeleteWorker::setState(State state)
{
    m_d->setState(state);
}

void CFileDeleteWorker::updateProcessedBytes(qint64 n)
{
    m_d->updateProcessedBytes(n);
}

void CFileDeleteWorker::enumerateFiles()
{
    const auto request = m_d->requests().active();
    for (int i = 0; i < request->jobs.size(); ++i) {
        const QString &root = request->roots.at(i);
        if (!detail::isRemovableTree(root)) {
            continue;
        }
        const detail::TreeListing listing = detail::listTree(root, detail::Links::LeaveOut);
        CFileDeleteData &job = request->jobs[i];
        job.directories += listing.directories;
        job.files += listing.files;
        request->totalBytes += listing.bytes;
    }
}

void CFileDeleteWorker::doWork()
{
    m_d->run([this](detail::DeleteRequest &request) { return takeStep(request); },
             [this](const Core::RequestPointer &request) { m_d->resetAfter(request); });
}

// false when the run is over
bool CFileDeleteWorker::takeStep(detail::DeleteRequest &request)
{
    switch (request.step) {
    case CFileDeleteController::StateEnumeratingFiles:
        enumerateFiles();
        m_d->advance(request, CFileDeleteController::StateDeleting);
        Q_EMIT totalBytesChanged(request.totalBytes);
        return true;
    case CFileDeleteController::StateDeleting:
        deleteTrees(request);
        return false;
    default: // nothing is loaded
        request.canceled = true;
        Q_EMIT errorOccurred(CFileDeleteController::ErrorInternal);
        return true;
    }
}

void CFileDeleteWorker::deleteTrees(const detail::DeleteRequest &request)
{
    for (int i = 0; i < request.jobs.size(); ++i) {
        const QString &root = request.roots.at(i);
        if (!deleteFiles(request, request.jobs.at(i), root)) {
            Q_EMIT errorOccurred(CFileDeleteController::ErrorFileDeletionFailed);
            return;
        }
        // whatever was passed over goes now: a deletion that has begun leaves no half of a tree
        if (!detail::removeTree(root)) {
            Q_EMIT errorOccurred(CFileDeleteController::ErrorDirectoryDeletionFailed);
        }
    }
}

// false at the first file that cannot be removed
bool CFileDeleteWorker::deleteFiles(const detail::DeleteRequest &request,
                                    const CFileDeleteData &job, const QString &root)
{
    if (job.files.isEmpty()) {
        return true;
    }
    detail::FileRemoval removal(root);
    for (const CFileEntry &file : job.files) {
        if (request.canceled || m_d->gate().isClosed()) {
            continue; // without waiting: a deletion does not halt half way
        }
        if (!removal.remove(file.path())) {
            return false;
        }
        updateProcessedBytes(file.size());
    }
    return true;
}

} // namespace Tavro::Shared
