// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/CFileDeleteWorker.h"
#include "shared/fileops/detail/FileList.h"
#include "shared/fileops/detail/RequestPaths.h"
#include "shared/fileops/detail/WorkerCore.h"

namespace Tavro::Shared {

namespace detail {

/** One directory to delete: a CFileDeleteData that has room for a million files. */
struct DeleteJob
{
    ResolvedDirectory root; // what its path meant when it was loaded
    FileList files;
    QStringList unreadable; // directories that could not be listed
};

/** What one run deletes. */
struct DeleteRequest : RunRequest
{
    QList<DeleteJob> jobs;
};

using DeleteCore = WorkerCore<CFileDeleteWorker, DeleteRequest>;

} // namespace detail

/** The requests and the steps of a CFileDeleteWorker; its controller loads them here as well. */
class Q_DECL_HIDDEN CFileDeleteWorker::Private : public detail::DeleteCore
{
public:
    using WorkerCore::WorkerCore;

    static RequestPointer requestFor(const QStringList &paths);

    static void enumerateFiles(detail::DeleteRequest &request);

protected:
    bool takeStep(detail::DeleteRequest &request) override;
    void close(const RequestPointer &request) override;

private:
    void deleteTrees(detail::DeleteRequest &request);
    bool deleteFiles(detail::DeleteRequest &request, const detail::DeleteJob &job);
    bool deleteRest(detail::DeleteRequest &request, detail::DeleteJob &job);
    void fail(detail::DeleteRequest &request, CFileDeleteController::Error error, int systemError,
              const QString &path);
};

} // namespace Tavro::Shared
