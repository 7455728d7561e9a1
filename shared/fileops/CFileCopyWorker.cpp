// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyWorker.h"

#include "shared/fileops/detail/CFileCopyWorkerPrivate.h"
#include "shared/fileops/detail/RequestPaths.h"
#include "shared/fileops/detail/TreeWalk.h"
#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/PathText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace Tavro::Shared {

namespace {

using State = CFileCopyController::State;

// as it is written, ".." and all
QString directoryName(const QString &destinationPath)
{
    return QDir(detail::withFinalSlash(detail::withoutBlanksAtEnd(destinationPath))).dirName();
}

detail::CopyJob directoryJob(const QString &sourcePath, const QString &destinationPath)
{
    detail::CopyJob job;
    job.sourcePath = detail::sourceDirectory(sourcePath);
    const QString destination = detail::destination(destinationPath);
    job.destinationPath = destination.isEmpty() ? destination : detail::withFinalSlash(destination);
    job.directoryName = directoryName(destinationPath);
    return job;
}

// why there is nothing to be listed; 0 for a directory
int errorOfDirectory(const QString &path)
{
    if (detail::isResource(path)) {
        const QFileInfo resource(path);
        return resource.isDir() ? 0 : resource.exists() ? ENOTDIR : ENOENT;
    }
    struct stat info = {};
    if (!detail::isNameable(path)) {
        return ENOENT;
    }
    if (::stat(QFile::encodeName(path).constData(), &info) != 0) {
        return errno;
    }
    return S_ISDIR(info.st_mode) ? 0 : ENOTDIR;
}

void enumerate(detail::CopyJob &job, detail::CopyRequest &request)
{
    CFileOperationResult &result = request.result;
    const int error = errorOfDirectory(job.sourcePath);
    if (error != 0) {
        if (result.errorCode == 0) {
            result.errorCode = CFileCopyController::createErrorCode(
                CFileCopyController::ErrorSourceFileOpenFailed);
            result.systemError = error;
            result.path = detail::withoutFinalSlashes(job.sourcePath);
        }
        return;
    }
    const detail::TreeListing listing =
        detail::listTree(job.sourcePath, detail::Links::Follow, &request.abandoned);
    job.directories += listing.directories;
    job.files += listing.files;
    request.totalBytes += listing.bytes;
    if (!listing.unreadableDirectories.isEmpty()) {
        result.unreadableDirectories += listing.unreadableDirectories;
        result.systemError = result.systemError == 0 ? listing.systemError : result.systemError;
    }
}

} // namespace

CFileCopyWorker::CFileCopyWorker(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
}

CFileCopyWorker::~CFileCopyWorker() = default;

int CFileCopyWorker::state() const
{
    return d->shownState();
}

int CFileCopyWorker::error() const
{
    return d->loaded()->error;
}

bool CFileCopyWorker::isCanceled() const
{
    return d->loaded()->canceled;
}

void CFileCopyWorker::copyDirectory(const QString &sourcePath, const QString &destinationPath)
{
    copyDirectories({sourcePath}, {destinationPath});
}

void CFileCopyWorker::copyDirectories(const QStringList &sourcePaths,
                                      const QStringList &destinationPaths)
{
    d->load(Private::requestForDirectories(sourcePaths, destinationPaths));
}

void CFileCopyWorker::copyLargeFile(const QString &sourcePath, const QString &destinationPath)
{
    d->load(Private::requestForFile(sourcePath, destinationPath));
}

void CFileCopyWorker::reset()
{
    d->reset();
}

void CFileCopyWorker::pause()
{
    d->pause();
}

void CFileCopyWorker::resume()
{
    d->resume();
}

void CFileCopyWorker::cancelWork()
{
    d->cancel();
}

void CFileCopyWorker::setState(State state)
{
    d->advance(*d->active(), state);
}

void CFileCopyWorker::updateProcessedBytes(qint64 n)
{
    d->addProcessedBytes(*d->active(), n);
}

void CFileCopyWorker::updateProcessingDirectory(const QString &processingDirectory)
{
    Q_EMIT processingDirectoryChanged(processingDirectory);
}

bool CFileCopyWorker::createFolderStructure(const QString &root, const QStringList &directories)
{
    const QDir directory(root);
    return std::all_of(directories.cbegin(), directories.cend(),
                       [&directory](const QString &name) { return directory.mkpath(name); });
}

void CFileCopyWorker::prepareFile()
{
    Private::prepareFile(*d->active());
}

void CFileCopyWorker::enumerateFiles()
{
    Private::enumerateFiles(*d->active());
}

int CFileCopyWorker::copyFile(const QString &sourcePath, const QString &destinationPath)
{
    const auto request = d->active();
    return detail::CopyRun(*this, *d, *request)
        .copyFile(detail::sourceFile(sourcePath), detail::destinationFile(destinationPath));
}

void CFileCopyWorker::doWork()
{
    d->run();
}

CFileCopyWorker::Private::RequestPointer CFileCopyWorker::Private::requestForDirectories(
    const QStringList &sourcePaths, const QStringList &destinationPaths)
{
    auto request = std::make_shared<detail::CopyRequest>();
    request->step = CFileCopyController::StateEnumeratingFiles;
    const int count = std::min(sourcePaths.size(), destinationPaths.size());
    for (int i = 0; i < count; ++i) {
        request->jobs.append(directoryJob(sourcePaths.at(i), destinationPaths.at(i)));
    }
    return request;
}

CFileCopyWorker::Private::RequestPointer CFileCopyWorker::Private::requestForFile(
    const QString &sourcePath, const QString &destinationPath)
{
    detail::CopyJob job;
    job.sourcePath = detail::sourceFile(sourcePath);
    job.destinationPath = detail::destination(destinationPath);
    auto request = std::make_shared<detail::CopyRequest>();
    request->step = CFileCopyController::StateCopyingLargeFile;
    request->jobs.append(job);
    return request;
}

void CFileCopyWorker::Private::enumerateFiles(detail::CopyRequest &request)
{
    for (detail::CopyJob &job : request.jobs) {
        enumerate(job, request);
    }
}

void CFileCopyWorker::Private::prepareFile(detail::CopyRequest &request)
{
    if (!request.jobs.isEmpty()) {
        request.totalBytes = QFileInfo(request.jobs.constFirst().sourcePath).size();
    }
}

bool CFileCopyWorker::Private::takeStep(detail::CopyRequest &request)
{
    switch (request.step) {
    case CFileCopyController::StateEnumeratingFiles:
        enumerateFiles(request);
        Q_EMIT q.totalBytesChanged(request.totalBytes);
        advance(request, CFileCopyController::StateCheckingSize);
        return true;
    case CFileCopyController::StateCheckingSize:
        advance(request, CFileCopyController::StateCopying);
        return true;
    case CFileCopyController::StateCopying:
        detail::CopyRun(q, *this, request).copyTrees();
        return false;
    case CFileCopyController::StateCopyingLargeFile:
        prepareFile(request);
        Q_EMIT q.totalBytesChanged(request.totalBytes);
        detail::CopyRun(q, *this, request).copySingleFile();
        return false;
    default: // nothing is loaded
        request.canceled = true;
        return true;
    }
}

void CFileCopyWorker::Private::close(const RequestPointer &request)
{
    advance(*request, CFileCopyController::StateIdle);
}

} // namespace Tavro::Shared
