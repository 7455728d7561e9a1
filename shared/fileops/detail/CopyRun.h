// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/CFileCopyData.h"
#include "shared/fileops/CFileCopyWorker.h"
#include "shared/fileops/detail/WorkerCore.h"
#include "shared/fileops/detail/WrittenVolumes.h"

#include <QSet>

#include <sys/stat.h>

namespace Tavro::Shared::detail {

class DestinationTree;
class FileDescriptor;

/** What one run copies. */
struct CopyRequest : RunRequest
{
    QStringList sources() const;

    QList<CFileCopyData> jobs;
    QStringList directoryNames; // what the directory that each job fills is called in the request
    QSet<QString> specialFiles; // those of the jobs' files that are not to be opened
    std::atomic<int> error{CFileCopyController::ErrorNone};
};

using CopyCore = WorkerCore<CFileCopyWorker, CopyRequest>;

/** The part of a run in which files are copied. What fails is noted in the request's result. */
class CopyRun
{
    Q_DISABLE_COPY(CopyRun)

public:
    CopyRun(CFileCopyWorker &worker, CopyCore &core, CopyRequest &request);

    void copyTrees();
    void copySingleFile();
    /**
     * Copies one file into a directory that is there, empty files durably as well. Returns a
     * CFileCopyController::Error.
     */
    int copyFile(const QString &sourcePath, const QString &targetPath);

private:
    enum class Source {
        Unknown, /**< it may be anything */
        FoundByWalk, /**< the walk has told files from the rest */
    };
    struct Target;

    bool copyTree(const CFileCopyData &job);
    void makeDirectories(const CFileCopyData &job, DestinationTree &destination);
    int copyFile(const QString &sourcePath, Source kind, const QString &targetPath,
                 DestinationTree &destination);
    int copyInto(Target &target, const QString &sourcePath, FileDescriptor &source,
                 const struct stat &sourceInfo);
    int copyChunks(Target &target, const QString &sourcePath, FileDescriptor &source,
                   qint64 sourceSize);
    bool finishChunk(qint64 size);
    int finish(const QString &path);
    bool isKept(const QString &targetPath) const;
    void failForDoubled(const QString &path);
    int fail(CFileCopyController::Error error, const QString &path);

    CFileCopyWorker &m_worker;
    CopyCore &m_core;
    CopyRequest &m_request;
    WrittenVolumes m_volumes;
    bool m_isUnsynced = false; // something was made since the last "sync"
};

} // namespace Tavro::Shared::detail
