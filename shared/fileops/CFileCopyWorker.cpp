#include "shared/fileops/CFileCopyWorker.h"

#include "shared/fileops/CFileCopyData.h"
#include "shared/fileops/detail/CopyRequest.h"
#include "shared/fileops/detail/FileDescriptor.h"
#include "shared/fileops/detail/TreeWalk.h"
#include "shared/fileops/detail/TrimmedDestination.h"
#include "shared/fileops/detail/WorkerCore.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringBuilder>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace Tavro::Shared {

namespace {

constexpr qint64 s_chunkSize = 4LL * 1024 * 1024;
constexpr qint64 s_pageSize = 4096; // the kernel copies whole pages fastest
constexpr qint64 s_prefetchSize = 128LL * 1024; // what the kernel starts to read at one request

using State = CFileCopyController::State;
using Core = detail::WorkerCore<CFileCopyWorker, detail::CopyRequest>;

// true when it was missing and is there now
bool makeDirectory(const QString &path)
{
    return !path.isEmpty() && !QDir(path).exists() && QDir().mkpath(path);
}

/**
 * Holds one chunk, or less where the file is smaller: for a small file, mapping 4 MiB and giving
 * them back is a cost that shows. Left as it comes: filling it with zeros would cost far more.
 */
class ChunkBuffer
{
public:
    explicit ChunkBuffer(qint64 fileSize)
    {
        // one byte more than the file: a buffer filled to its end says that the file has grown
        const qint64 pages = fileSize / s_pageSize + 1;
        m_size = std::min(pages * s_pageSize, s_chunkSize);
        m_memory.reset(
            static_cast<char *>(std::aligned_alloc(s_pageSize, static_cast<size_t>(m_size))));
    }

    bool isNull() const { return !m_memory; }
    char *data() const { return m_memory.get(); }
    qint64 size() const { return m_size; }

private:
    struct Free
    {
        void operator()(char *memory) const { std::free(memory); }
    };

    qint64 m_size;
    std::unique_ptr<char, Free> m_memory;
};

QString withFinalSlash(const QString &path)
{
    return path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
}

// The files found are known by absolute clean paths, and the source is cut out of them: it has
// to be in the same form. An empty path is nobody's wish to copy a whole disk.
QString sourceDirectory(const QString &path)
{
    return path.isEmpty() ? QString()
                          : withFinalSlash(QDir::cleanPath(QDir().absoluteFilePath(path)));
}

QString destinationDirectory(const QString &path)
{
    const QString trimmed = detail::trimmedDestination(path);
    return trimmed.isEmpty() ? trimmed : withFinalSlash(trimmed);
}

CFileCopyData directoryJob(const QString &sourcePath, const QString &destinationPath)
{
    CFileCopyData job;
    job.sourcePath = sourceDirectory(sourcePath);
    job.destinationPath = destinationDirectory(destinationPath);
    return job;
}

QString targetOf(const CFileCopyData &job, const QString &path)
{
    if (path.lastIndexOf(job.sourcePath) == 0) { // nearly always, and saves two copies of the path
        return job.destinationPath % path.midRef(job.sourcePath.size());
    }
    // every occurrence goes, not only the first: destinations have always been named so
    return job.destinationPath + QString(path).remove(job.sourcePath);
}

// Before anything is written, so that the flushes cover them. Not QFile's permissions: for root
// they add what root may do, and 0444 would become 0644.
void takeOverPermissions(const detail::FileDescriptor &destination,
                         const struct stat &destinationInfo, const struct stat &sourceInfo)
{
    const mode_t permissions = sourceInfo.st_mode & 0777;
    const bool isDevice = !S_ISREG(destinationInfo.st_mode); // everybody's, and stays as it is
    if (!isDevice && (destinationInfo.st_mode & 0777) != permissions) {
        ::fchmod(destination.handle(), permissions);
    }
}

// while this chunk is flushed, the next one can already be on its way from a slow source
void prefetch(int source, qint64 begin, qint64 sourceSize)
{
    const qint64 end = std::min(begin + s_chunkSize, sourceSize);
    for (qint64 offset = begin; offset < end; offset += s_prefetchSize) {
        ::posix_fadvise(source, offset, std::min(s_prefetchSize, end - offset),
                        POSIX_FADV_WILLNEED);
    }
}

// blocks until the whole system's caches are written, names and directories among them
void syncSystem()
{
    QProcess process;
    process.start(QStringLiteral("sync"), QStringList(), QIODevice::ReadWrite);
    // no limit: a slow stick takes minutes, and a process given up on would be killed
    const bool ran = process.waitForFinished(-1);
    if (!ran && process.error() == QProcess::FailedToStart) {
        ::sync(); // the new files' names must reach a system without the command, too
    }
}

} // namespace

struct CFileCopyWorker::Private : Core
{
    using Core::Core;
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
    }
    m_d->load(CFileCopyController::StateEnumeratingFiles, std::move(request));
}

void CFileCopyWorker::copyLargeFile(const QString &sourcePath, const QString &destinationPath)
{
    CFileCopyData job;
    job.sourcePath = sourcePath;
    job.destinationPath = detail::trimmedDestination(destinationPath);
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
        if (job.sourcePath.isEmpty()) {
            continue;
        }
        const detail::TreeListing listing = detail::listTree(job.sourcePath);
        job.directories += listing.directories;
        job.files += listing.files;
        request->specialFiles += listing.specialFiles;
        request->totalBytes += listing.bytes;
    }
}

void CFileCopyWorker::doWork()
{
    m_d->run([this](detail::CopyRequest &request) { return takeStep(request); },
             [this](const Core::RequestPointer &request) {
                 m_d->advance(*request, CFileCopyController::StateIdle);
             });
}

// false when the run is over
bool CFileCopyWorker::takeStep(detail::CopyRequest &request)
{
    switch (request.step) {
    case CFileCopyController::StateEnumeratingFiles:
        enumerateFiles();
        Q_EMIT totalBytesChanged(request.totalBytes);
        m_d->advance(request, CFileCopyController::StateCheckingSize);
        return true;
    case CFileCopyController::StateCheckingSize:
        m_d->advance(request, CFileCopyController::StateCopying);
        return true;
    case CFileCopyController::StateCopying:
        copyTrees(request);
        return false;
    case CFileCopyController::StateCopyingLargeFile:
        copySingleFile(request);
        return false;
    default: // nothing is loaded
        request.canceled = true;
        return true;
    }
}

void CFileCopyWorker::copyTrees(detail::CopyRequest &request)
{
    const QList<CFileCopyData> jobs = request.jobs;
    for (const CFileCopyData &job : jobs) {
        if (!copyTree(request, job)) {
            return;
        }
    }
}

// false when the run is to stop here
bool CFileCopyWorker::copyTree(detail::CopyRequest &request, const CFileCopyData &job)
{
    updateProcessingDirectory(QDir(job.destinationPath).dirName());
    const bool hasDestination = !job.destinationPath.isEmpty(); // an empty path is not the root
    if (hasDestination) {
        // not judged here: a file whose directory is missing says so when it is copied
        createFolderStructure(job.destinationPath, job.directories);
    }
    bool isAsked = false; // whether the destination is there, once; and again when a file finds not
    for (const CFileEntry &file : job.files) {
        const QString target = hasDestination ? targetOf(job, file.path()) : QString();
        if (!isAsked) {
            isAsked = true;
            makeDirectory(job.destinationPath);
        }
        request.error = copyFile(request, file.path(), target, Source::FoundByWalk);
        if (request.error == CFileCopyController::ErrorDestinationFileOpenFailed
            && makeDirectory(job.destinationPath)) {
            request.error = copyFile(request, file.path(), target, Source::FoundByWalk);
        }
        if (request.error != CFileCopyController::ErrorNone) {
            Q_EMIT errorOccurred(request.error);
            return false;
        }
        if (request.canceled) {
            return false;
        }
    }
    return true;
}

void CFileCopyWorker::copySingleFile(detail::CopyRequest &request)
{
    prepareFile();
    Q_EMIT totalBytesChanged(request.totalBytes);
    const CFileCopyData job = request.jobs.value(0);
    request.error = copyFile(job.sourcePath, job.destinationPath);
    if (request.error != CFileCopyController::ErrorNone) {
        Q_EMIT errorOccurred(request.error);
    }
}

int CFileCopyWorker::copyFile(const QString &sourcePath, const QString &destinationPath)
{
    return copyFile(*m_d->requests().active(), sourcePath, destinationPath, Source::Unknown);
}

int CFileCopyWorker::copyFile(detail::CopyRequest &request, const QString &sourcePath,
                              const QString &destinationPath, Source kind)
{
    struct stat sourceInfo = {};
    detail::FileDescriptor source;
    if (kind == Source::Unknown) {
        source = detail::FileDescriptor::openRegularFile(sourcePath, sourceInfo);
    } else if (!request.specialFiles.contains(sourcePath)) {
        source = detail::FileDescriptor::openFoundFile(sourcePath, sourceInfo);
    }
    if (!source.isOpen()) {
        return CFileCopyController::ErrorSourceFileOpenFailed;
    }
    struct stat destinationInfo = {};
    auto destination =
        detail::FileDescriptor::createUnlessSame(destinationPath, sourceInfo, destinationInfo);
    if (!destination.isOpen()) {
        return CFileCopyController::ErrorDestinationFileOpenFailed;
    }

    takeOverPermissions(destination, destinationInfo, sourceInfo);

    int error = copyChunks(request, source, destination, sourceInfo.st_size);
    if (!destination.close() && error == CFileCopyController::ErrorNone) {
        error = CFileCopyController::ErrorDestinationFileWriteFailed;
    }
    source.close();
    if (error != CFileCopyController::ErrorNone) {
        detail::removeWrittenFile(destinationPath);
    }
    return error;
}

int CFileCopyWorker::copyChunks(detail::CopyRequest &request, detail::FileDescriptor &source,
                                detail::FileDescriptor &destination, qint64 sourceSize)
{
    ChunkBuffer buffer(sourceSize);
    if (buffer.isNull()) {
        return CFileCopyController::ErrorSourceFileReadFailed;
    }
    qint64 copied = 0;
    for (;;) {
        m_d->processEvents();
        if (request.canceled) {
            // cut off: whoever cancelled removes it, unless nobody is left to
            return request.abandoned ? CFileCopyController::ErrorDestinationFileWriteFailed
                                     : CFileCopyController::ErrorNone;
        }
        m_d->gate().pass();

        qint64 n = source.read(buffer.data(), buffer.size(), sourceSize - copied);
        if (n > 0 && copied + n > sourceSize && buffer.size() < s_chunkSize) {
            // the file is growing: what it has by now still makes a chunk of the usual size
            ChunkBuffer whole(s_chunkSize);
            if (whole.isNull()) {
                return CFileCopyController::ErrorSourceFileReadFailed;
            }
            std::copy_n(buffer.data(), n, whole.data());
            buffer = std::move(whole);
            const qint64 room = buffer.size() - n;
            const qint64 more = source.read(buffer.data() + n, room, room);
            n = more < 0 ? more : n + more;
        }
        if (n == 0) {
            return CFileCopyController::ErrorNone;
        }
        if (n < 0) {
            return CFileCopyController::ErrorSourceFileReadFailed;
        }
        if (!destination.write(buffer.data(), n)) {
            return CFileCopyController::ErrorDestinationFileWriteFailed;
        }
        copied += n;
        prefetch(source.handle(), copied, sourceSize);
        // each chunk: a drive pulled out now loses at most this one
        if (!destination.flush()) {
            return CFileCopyController::ErrorDestinationFileWriteFailed;
        }
        if (request.processedBytes + n >= request.totalBytes) {
            syncSystem();
        }
        Q_EMIT processedBytesChanged(request.processedBytes += n);
    }
}

} // namespace Tavro::Shared
