// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/CopyRun.h"

#include "shared/fileops/detail/DestinationRemoval.h"
#include "shared/fileops/detail/DestinationTree.h"
#include "shared/fileops/detail/FileDescriptor.h"
#include "shared/fileops/detail/SystemSync.h"
#include "shared/filesystem/detail/FileIdentity.h"
#include "shared/filesystem/detail/NativeName.h"
#include "shared/filesystem/detail/PathText.h"

#include <QSet>
#include <QStringBuilder>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace Tavro::Shared::detail {

namespace {

constexpr qint64 s_chunkSize = 4LL * 1024 * 1024;
constexpr qint64 s_pageSize = 4096; // the kernel copies whole pages fastest
constexpr qint64 s_prefetchSize = 128LL * 1024; // what the kernel starts to read at one request

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

// nearly never: the path of the source stands in that of the file once more
bool repeatsSource(const CopyJob &job, const QString &path)
{
    return path.lastIndexOf(job.sourcePath) != 0;
}

QString targetOf(const CopyJob &job, const QString &path)
{
    if (!repeatsSource(job, path)) { // saves two copies of the path
        return job.destinationPath % QStringView(path).mid(job.sourcePath.size());
    }
    // every occurrence goes, not only the first: destinations have always been named so
    return job.destinationPath + QString(path).remove(job.sourcePath);
}

// A target that two files of the job have, because a repetition is cut out of their paths; null
// when there is none.
QString doubledTarget(const CopyJob &job)
{
    // it ends in "/", and no name has one
    const QStringList directories = job.files.directories();
    if (std::none_of(directories.cbegin(), directories.cend(),
                     [&job](const QString &path) { return repeatsSource(job, path); })) {
        return {};
    }
    QSet<QString> targets;
    for (const FoundFile &file : job.files) {
        QString target = targetOf(job, file.path);
        if (targets.contains(target)) {
            return target;
        }
        targets.insert(target);
    }
    return {};
}

// Before anything is written, so that the flushes cover them. Not QFile's permissions: for root
// they add what root may do, and 0444 would become 0644.
void takeOverPermissions(const detail::FileDescriptor &destination,
                         const struct stat &destinationInfo, const struct stat &sourceInfo)
{
    const mode_t permissions = sourceInfo.st_mode & 0777;
    const bool isDevice = !S_ISREG(destinationInfo.st_mode); // everybody's, and stays as it is
    if (!isDevice && (destinationInfo.st_mode & 0777) != permissions) {
        ::fchmod(destination.get(), permissions);
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

} // namespace

QStringList CopyRequest::sources() const
{
    QStringList paths;
    for (const CopyJob &job : jobs) {
        paths.append(job.sourcePath);
    }
    return paths;
}

/** A file that is written to. */
struct CopyRun::Target
{
    DestinationTree &tree;
    const QString &path;
    FileDescriptor file = {};
    bool isNew = false;
    bool isNamed = false; // its name is on the device
    bool isCutOff = false; // by an abort, before all of it was written
};

CopyRun::CopyRun(CFileCopyWorker &worker, CopyCore &core, CopyRequest &request)
    : m_worker(worker)
    , m_core(core)
    , m_request(request)
{
}

void CopyRun::copyTrees()
{
    const QList<CopyJob> jobs = m_request.jobs;
    bool isDone = true;
    for (int i = 0; isDone && i < jobs.size(); ++i) {
        m_worker.updateProcessingDirectory(jobs.at(i).directoryName);
        isDone = copyTree(jobs.at(i));
    }
    const int error = finish(withoutFinalSlashes(jobs.value(0).destinationPath));
    if (isDone && error != CFileCopyController::ErrorNone) {
        m_request.error = error;
        Q_EMIT m_worker.errorOccurred(error);
    }
}

// false when the run is to stop here
bool CopyRun::copyTree(const CopyJob &job)
{
    DestinationTree destination(job.destinationPath, DestinationTree::Root::MadeWhenMissing,
                                m_volumes);
    makeDirectories(job, destination);
    const bool hasDestination = !job.destinationPath.isEmpty(); // an empty path is not the root
    const QString doubled = doubledTarget(job);
    if (!doubled.isNull()) {
        failForDoubled(doubled);
    }
    for (const FoundFile &file : job.files) {
        const QString target = hasDestination ? targetOf(job, file.path) : QString();
        const Source kind = file.isSpecial ? Source::Special : Source::File;
        m_request.error = copyFile(file.path, kind, target, destination);
        if (m_request.error != CFileCopyController::ErrorNone) {
            Q_EMIT m_worker.errorOccurred(m_request.error);
            return false;
        }
        if (m_request.canceled) {
            return false;
        }
    }
    return true;
}

// Does not end the run: a file whose directory is missing says so when it is copied. An empty
// directory that is missing shows in the result alone.
void CopyRun::makeDirectories(const CopyJob &job, DestinationTree &destination)
{
    if (job.directories.isEmpty()) {
        return;
    }
    m_isUnsynced = true;
    const int made = destination.makeDirectories(job.directories);
    if (made < job.directories.size()) {
        fail(CFileCopyController::ErrorDestinationFileOpenFailed,
             job.destinationPath + job.directories.at(made));
    }
}

void CopyRun::copySingleFile()
{
    const CopyJob job = m_request.jobs.value(0);
    m_request.error = copyFile(job.sourcePath, job.destinationPath);
    if (m_request.error != CFileCopyController::ErrorNone) {
        Q_EMIT m_worker.errorOccurred(m_request.error);
    }
}

int CopyRun::copyFile(const QString &sourcePath, const QString &targetPath)
{
    const QString directory = targetPath.left(targetPath.lastIndexOf(QLatin1Char('/')) + 1);
    DestinationTree destination(directory, DestinationTree::Root::MustExist, m_volumes);
    const int error = copyFile(sourcePath, Source::Unknown, targetPath, destination);
    return error == CFileCopyController::ErrorNone ? finish(targetPath) : error;
}

int CopyRun::copyFile(const QString &sourcePath, Source kind, const QString &targetPath,
                      DestinationTree &destination)
{
    struct stat sourceInfo = {};
    FileDescriptor source;
    if (kind == Source::Unknown) {
        source = FileDescriptor::openRegularFile(sourcePath, sourceInfo);
    } else if (kind == Source::File) {
        source = FileDescriptor::openFoundFile(sourcePath, sourceInfo);
    } else {
        errno = EINVAL; // not even opened
    }
    if (!source.isOpen()) {
        return fail(CFileCopyController::ErrorSourceFileOpenFailed, sourcePath);
    }
    if (!destination.enterDirectoryOf(targetPath)) {
        return fail(CFileCopyController::ErrorDestinationFileOpenFailed, targetPath);
    }
    Target target = {destination, targetPath};
    const int error = copyInto(target, sourcePath, source, sourceInfo);
    source.close();
    if (error == CFileCopyController::ErrorNone) {
        ++m_request.result.files;
    }
    return error;
}

int CopyRun::copyInto(Target &target, const QString &sourcePath, FileDescriptor &source,
                      const struct stat &sourceInfo)
{
    const NativeName name(target.path, target.path.lastIndexOf(QLatin1Char('/')) + 1);
    target.file = target.tree.openFile(name.get(), target.isNew);
    struct stat info = {};
    if (!target.file.examine(info)) {
        return fail(CFileCopyController::ErrorDestinationFileOpenFailed, target.path);
    }
    if (isSameFile(info, sourceInfo)) { // and stays as it is
        errno = 0;
        return fail(CFileCopyController::ErrorDestinationFileOpenFailed, target.path);
    }
    if (S_ISREG(info.st_mode) && info.st_size > 0 && !target.file.truncate()) {
        return fail(CFileCopyController::ErrorDestinationFileOpenFailed, target.path);
    }
    if (!target.tree.noteWritten(info)) {
        failForDoubled(target.path);
    }
    m_isUnsynced = true;
    takeOverPermissions(target.file, info, sourceInfo);

    int error = copyChunks(target, sourcePath, source, sourceInfo.st_size);
    if (!target.file.close() && error == CFileCopyController::ErrorNone) {
        error = fail(CFileCopyController::ErrorDestinationFileWriteFailed, target.path);
    }
    // one that is cut off goes with the destinations, unless nobody removes these
    const bool isLeftOver =
        target.isCutOff && (m_request.abandoned || (info.st_size == 0 && isKept(target.path)));
    if (error != CFileCopyController::ErrorNone || isLeftOver) {
        target.tree.removeFile(name.get(), info);
    }
    return error;
}

int CopyRun::copyChunks(Target &target, const QString &sourcePath, FileDescriptor &source,
                        qint64 sourceSize)
{
    ChunkBuffer buffer(sourceSize);
    if (buffer.isNull()) {
        errno = ENOMEM;
        return fail(CFileCopyController::ErrorSourceFileReadFailed, sourcePath);
    }
    qint64 copied = 0;
    for (;;) {
        m_core.processEvents();
        if (m_request.canceled) {
            target.isCutOff = copied < sourceSize;
            return CFileCopyController::ErrorNone;
        }
        m_core.waitWhilePaused();

        qint64 n = source.read(buffer.data(), buffer.size(), sourceSize - copied);
        if (n > 0 && copied + n > sourceSize && buffer.size() < s_chunkSize) {
            // the file is growing: what it has by now still makes a chunk of the usual size
            ChunkBuffer whole(s_chunkSize);
            if (whole.isNull()) {
                errno = ENOMEM;
                return fail(CFileCopyController::ErrorSourceFileReadFailed, sourcePath);
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
            return fail(CFileCopyController::ErrorSourceFileReadFailed, sourcePath);
        }
        if (!target.file.write(buffer.data(), n)) {
            return fail(CFileCopyController::ErrorDestinationFileWriteFailed, target.path);
        }
        copied += n;
        prefetch(source.get(), copied, sourceSize);
        // A chunk that counts is on the device, so that a drive pulled out now loses at most this
        // one, and can be found again. In this order: the flush of a file on FAT writes its own
        // entry, too, which is then not written twice.
        const bool isFlushed = target.file.flush();
        target.isNamed = target.isNamed || (isFlushed && target.tree.flushNames(target.isNew));
        if (!isFlushed || !target.isNamed || !finishChunk(n)) {
            return fail(CFileCopyController::ErrorDestinationFileWriteFailed, target.path);
        }
    }
}

// false when the drive did not take what the system had for it
bool CopyRun::finishChunk(qint64 size)
{
    if (m_request.processedBytes + size >= m_request.totalBytes) {
        syncSystem();
        m_isUnsynced = false;
        if (!m_volumes.flushDrives()) {
            return false;
        }
    }
    m_request.result.bytes += size;
    m_core.addProcessedBytes(m_request, size);
    return true;
}

// Files without a byte, and directories, that came after the last "sync".
int CopyRun::finish(const QString &path)
{
    if (!m_isUnsynced || m_request.canceled || m_volumes.sync()) {
        return CFileCopyController::ErrorNone;
    }
    return fail(CFileCopyController::ErrorDestinationFileWriteFailed, path);
}

// true when an abort leaves the destination that holds the file
bool CopyRun::isKept(const QString &targetPath) const
{
    const KeptSources kept(m_request.sources());
    return std::any_of(m_request.jobs.cbegin(), m_request.jobs.cend(), [&](const CopyJob &job) {
        return targetPath.startsWith(job.destinationPath) && kept.contains(job.destinationPath);
    });
}

// The later one of the files replaces the earlier, as it always has; the result alone tells.
void CopyRun::failForDoubled(const QString &path)
{
    errno = EEXIST;
    fail(CFileCopyController::ErrorDestinationFileOpenFailed, path);
}

// the first failure is the one that counts: what follows comes of it
int CopyRun::fail(CFileCopyController::Error error, const QString &path)
{
    CFileOperationResult &result = m_request.result;
    if (result.errorCode == 0) {
        result.systemError = errno;
        result.errorCode = CFileCopyController::createErrorCode(error);
        result.path = path;
    }
    return error;
}

} // namespace Tavro::Shared::detail
