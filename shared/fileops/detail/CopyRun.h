// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/CFileCopyWorker.h"
#include "shared/fileops/detail/FileList.h"
#include "shared/fileops/detail/WorkerCore.h"
#include "shared/fileops/detail/WrittenVolumes.h"

#include <QList>
#include <QStringList>

#include <sys/stat.h>

namespace Tavro::Shared::detail {

class DestinationTree;
class FileDescriptor;

/** One source and its destination: a CFileCopyData that has room for a million files. */
struct CopyJob
{
    QString sourcePath;
    QString destinationPath;
    QString directoryName; // what the directory that it fills is called in the request
    QStringList directories;
    FileList files;
};

/** What one run copies. */
struct CopyRequest : RunRequest
{
    QStringList sources() const;

    QList<CopyJob> jobs;
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
        File, /**< the walk has told files from the rest */
        Special, /**< it is not to be opened */
    };
    struct Target;

    bool copyTree(const CopyJob &job);
    void makeDirectories(const CopyJob &job, DestinationTree &destination);
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
