#include "shared/fileops/CFileCopyWorker.h"

#include "shared/fileops/CFileCopyData.h"
#include "shared/fileops/detail/CopyPaths.h"
#include "shared/fileops/detail/CopyRun.h"
#include "shared/fileops/detail/TreeWalk.h"
#include "shared/filesystem/detail/NativeName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace Tavro::Shared {

namespace {

using State = CFileCopyController::State;

CFileCopyData directoryJob(const QString &sourcePath, const QString &destinationPath)
{
    CFileCopyData job;
    job.sourcePath = detail::sourceDirectory(sourcePath);
    const QString destination = detail::destination(destinationPath);
    job.destinationPath = destination.isEmpty() ? destination : detail::withFinalSlash(destination);
    return job;
}

// as it is written, ".." and all
QString directoryName(const QString &destinationPath)
{
    return QDir(detail::withFinalSlash(detail::withoutBlanksAtEnd(destinationPath))).dirName();
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

void enumerate(CFileCopyData &job, detail::CopyRequest &request)
{
    CFileOperationResult &result = request.result;
    const int error = errorOfDirectory(job.sourcePath);
    if (error != 0) {
        if (result.errorCode == 0) {
            result.errorCode = CFileCopyController::createErrorCode(
                CFileCopyController::ErrorSourceFileOpenFailed);
            result.systemError = error;
            result.path = detail::withoutFinalSlash(job.sourcePath);
        }
        return;
    }
    const detail::TreeListing listing =
        detail::listTree(job.sourcePath, detail::Links::Follow, &request.abandoned);
    job.directories += listing.directories;
    job.files += listing.files;
    request.specialFiles += listing.specialFiles;
    request.totalBytes += listing.bytes;
    if (!listing.unreadableDirectories.isEmpty()) {
        result.unreadableDirectories += listing.unreadableDirectories;
        result.systemError = result.systemError == 0 ? listing.systemError : result.systemError;
    }
}

} // namespace

struct CFileCopyWorker::Private : detail::CopyCore
{
    explicit Private(CFileCopyWorker *worker)
        : WorkerCore(worker)
        , q(*worker)
    {
    }

    bool takeStep(detail::CopyRequest &request);

    CFileCopyWorker &q;
};

CFileCopyWorker::CFileCopyWorker(QObject *parent)
    : QObject(parent)
    , m_d(std::make_unique<Private>(this))
{
}

CFileCopyWorker::~CFileCopyWorker() = default;

int CFileCopyWorker::state() const
{
    return m_d->shownState();
}

int CFileCopyWorker::error() const
{
    return m_d->requests().loaded()->error;
}

bool CFileCopyWorker::isCanceled() const
{
    return m_d->requests().loaded()->canceled;
}

void CFileCopyWorker::copyDirectory(const QString &sourcePath, const QString &destinationPath)
{
    copyDirectories({sourcePath}, {destinationPath});
}

void CFileCopyWorker::copyDirectories(const QStringList &sourcePaths,
                                      const QStringList &destinationPaths)
{
    auto request = std::make_shared<detail::CopyRequest>();
    const int count = std::min(sourcePaths.size(), destinationPaths.size());
    for (int i = 0; i < count; ++i) {
        request->jobs.append(directoryJob(sourcePaths.at(i), destinationPaths.at(i)));
        request->directoryNames.append(directoryName(destinationPaths.at(i)));
    }
    m_d->load(CFileCopyController::StateEnumeratingFiles, std::move(request));
}

void CFileCopyWorker::copyLargeFile(const QString &sourcePath, const QString &destinationPath)
{
    CFileCopyData job;
    job.sourcePath = detail::sourceFile(sourcePath);
    job.destinationPath = detail::destination(destinationPath);
    auto request = std::make_shared<detail::CopyRequest>();
    request->jobs.append(job);
    m_d->load(CFileCopyController::StateCopyingLargeFile, std::move(request));
}

void CFileCopyWorker::reset()
{
    m_d->reset();
}

void CFileCopyWorker::pause()
{
    m_d->gate().close();
}

void CFileCopyWorker::resume()
{
    m_d->gate().open();
}

void CFileCopyWorker::cancelWork()
{
    m_d->cancel();
}

detail::RunControl &CFileCopyWorker::runs()
{
    return *m_d;
}

void CFileCopyWorker::setState(State state)
{
    m_d->setState(state);
}

void CFileCopyWorker::updateProcessedBytes(qint64 n)
{
    m_d->updateProcessedBytes(n);
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
    const auto request = m_d->requests().active();
    if (!request->jobs.isEmpty()) {
        request->totalBytes = QFileInfo(request->jobs.constFirst().sourcePath).size();
    }
}

void CFileCopyWorker::enumerateFiles()
{
    const auto request = m_d->requests().active();
    for (CFileCopyData &job : request->jobs) {
        enumerate(job, *request);
    }
}

void CFileCopyWorker::doWork()
{
    m_d->run([this](detail::CopyRequest &request) { return m_d->takeStep(request); },
             [this](const detail::CopyCore::RequestPointer &request) {
                 m_d->advance(*request, CFileCopyController::StateIdle);
             });
}

// false when the run is over
bool CFileCopyWorker::Private::takeStep(detail::CopyRequest &request)
{
    switch (request.step) {
    case CFileCopyController::StateEnumeratingFiles:
        q.enumerateFiles();
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
        q.prepareFile();
        Q_EMIT q.totalBytesChanged(request.totalBytes);
        detail::CopyRun(q, *this, request).copySingleFile();
        return false;
    default: // nothing is loaded
        request.canceled = true;
        return true;
    }
}

int CFileCopyWorker::copyFile(const QString &sourcePath, const QString &destinationPath)
{
    const auto request = m_d->requests().active();
    return detail::CopyRun(*this, *m_d, *request)
        .copyFile(detail::sourceFile(sourcePath), detail::destinationFile(destinationPath));
}

} // namespace Tavro::Shared
