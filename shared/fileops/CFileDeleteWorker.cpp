// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileDeleteWorker.h"

#include "shared/fileops/detail/CFileDeleteWorkerPrivate.h"
#include "shared/fileops/detail/TreeRemoval.h"
#include "shared/fileops/detail/TreeWalk.h"

namespace Tavro::Shared {

namespace {

using State = CFileDeleteController::State;

// the first failure of a run is the one that its result names
void note(detail::DeleteRequest &request, CFileDeleteController::Error error, int systemError,
          const QString &path)
{
    CFileOperationResult &result = request.result;
    if (result.errorCode == 0) {
        result.errorCode = CFileDeleteController::createErrorCode(error);
        result.systemError = systemError;
        result.path = path;
    }
}

void showUnreadable(detail::DeleteRequest &request)
{
    QStringList directories;
    for (const detail::DeleteJob &job : qAsConst(request.jobs)) {
        directories += job.unreadable;
    }
    directories.removeDuplicates();
    request.result.unreadableDirectories = directories;
}

} // namespace

CFileDeleteWorker::CFileDeleteWorker(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
}

CFileDeleteWorker::~CFileDeleteWorker() = default;

int CFileDeleteWorker::state() const
{
    return d->shownState();
}

bool CFileDeleteWorker::isCanceled() const
{
    return d->loaded()->canceled;
}

void CFileDeleteWorker::deleteDirectory(const QString &path)
{
    deleteDirectories({path});
}

void CFileDeleteWorker::deleteDirectories(const QStringList &paths)
{
    d->load(Private::requestFor(paths));
}

void CFileDeleteWorker::pause()
{
    d->pause();
}

void CFileDeleteWorker::resume()
{
    d->resume();
}

void CFileDeleteWorker::reset()
{
    d->reset();
}

void CFileDeleteWorker::cancelWork()
{
    d->cancel();
}

void CFileDeleteWorker::setState(State state)
{
    d->advance(*d->active(), state);
}

void CFileDeleteWorker::updateProcessedBytes(qint64 n)
{
    d->addProcessedBytes(*d->active(), n);
}

void CFileDeleteWorker::enumerateFiles()
{
    Private::enumerateFiles(*d->active());
}

void CFileDeleteWorker::doWork()
{
    d->run();
}

CFileDeleteWorker::Private::RequestPointer CFileDeleteWorker::Private::requestFor(
    const QStringList &paths)
{
    auto request = std::make_shared<detail::DeleteRequest>();
    request->step = CFileDeleteController::StateEnumeratingFiles;
    for (const QString &path : paths) {
        request->jobs.append({detail::resolvedDirectory(path), {}, {}});
    }
    return request;
}

void CFileDeleteWorker::Private::enumerateFiles(detail::DeleteRequest &request)
{
    for (detail::DeleteJob &job : request.jobs) {
        if (job.root.systemError != 0 || !detail::isRemovableTree(job.root.path)) {
            continue;
        }
        const detail::TreeListing listing =
            detail::listTree(job.root.path, detail::Links::Refuse, &request.abandoned);
        job.unreadable = listing.unreadableDirectories;
        job.files += listing.files;
        request.totalBytes += listing.bytes;
    }
    showUnreadable(request);
}

bool CFileDeleteWorker::Private::takeStep(detail::DeleteRequest &request)
{
    switch (request.step) {
    case CFileDeleteController::StateEnumeratingFiles:
        enumerateFiles(request);
        advance(request, CFileDeleteController::StateDeleting);
        Q_EMIT q.totalBytesChanged(request.totalBytes);
        return true;
    case CFileDeleteController::StateDeleting:
        deleteTrees(request);
        return false;
    default: // nothing is loaded
        request.canceled = true;
        fail(request, CFileDeleteController::ErrorInternal, 0, QString());
        return true;
    }
}

// what was loaded meanwhile stays, its pause too
void CFileDeleteWorker::Private::close(const RequestPointer &request)
{
    request->jobs.clear(); // here, not in the thread that hears of the result
    unload(request);
    showCleanSlate();
}

void CFileDeleteWorker::Private::deleteTrees(detail::DeleteRequest &request)
{
    QStringList touchedRoots;
    for (detail::DeleteJob &job : request.jobs) {
        const detail::ResolvedDirectory root = job.root;
        if (root.systemError != 0) {
            fail(request, CFileDeleteController::ErrorDirectoryDeletionFailed, root.systemError,
                 root.path);
            continue;
        }
        const qint64 filesBefore = request.result.files;
        const bool isToGo = deleteFiles(request, job);
        // whatever was passed over goes now: a deletion that has begun leaves no half of a tree
        const bool isTouched = isToGo && deleteRest(request, job);
        if (isTouched || request.result.files > filesBefore) {
            touchedRoots.append(root.path);
        }
        if (!isToGo) {
            break;
        }
    }
    showUnreadable(request);
    const detail::FlushFailure failure = detail::flushRemovals(touchedRoots);
    if (failure.systemError != 0) {
        // nothing is left of it, for now: no news to whoever listens to the signals
        note(request, CFileDeleteController::ErrorDirectoryDeletionFailed, failure.systemError,
             failure.path);
    }
}

// false at the first file that cannot be removed
bool CFileDeleteWorker::Private::deleteFiles(detail::DeleteRequest &request,
                                             const detail::DeleteJob &job)
{
    const detail::FileList files = job.files;
    if (files.isEmpty()) {
        return true;
    }
    detail::FileRemoval removal(job.root.path);
    for (const detail::FoundFile &file : files) {
        if (request.canceled || isPaused()) {
            continue; // without waiting: a deletion does not halt half way
        }
        if (const int error = removal.remove(file.path)) {
            fail(request, CFileDeleteController::ErrorFileDeletionFailed, error, file.path);
            return false;
        }
        ++request.result.files;
        request.result.bytes += file.size;
        addProcessedBytes(request, file.size);
    }
    return true;
}

// whether there was something to remove
bool CFileDeleteWorker::Private::deleteRest(detail::DeleteRequest &request, detail::DeleteJob &job)
{
    using Outcome = detail::TreeRemoval::Outcome;
    const detail::TreeRemoval removal = detail::removeTree(job.root.path);
    job.unreadable = removal.unreadableDirectories;
    const auto error = CFileDeleteController::ErrorDirectoryDeletionFailed;
    if (removal.outcome == Outcome::Failed) {
        fail(request, error, removal.systemError, removal.path);
    } else if (removal.outcome == Outcome::NoDirectory) {
        note(request, error, removal.systemError, removal.path); // there is no directory
    }
    return removal.wasThere;
}

void CFileDeleteWorker::Private::fail(detail::DeleteRequest &request,
                                      CFileDeleteController::Error error, int systemError,
                                      const QString &path)
{
    note(request, error, systemError, path);
    Q_EMIT q.errorOccurred(error);
}

} // namespace Tavro::Shared
