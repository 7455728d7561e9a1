#pragma once

#include "shared/fileops/CFileDeleteData.h"
#include "shared/fileops/detail/RunRequest.h"
#include "shared/fileops/detail/TreeRemoval.h"

namespace Tavro::Shared::detail {

/** What one run deletes. */
struct DeleteRequest : RunRequest
{
    QList<CFileDeleteData> jobs;
    QList<RemovalRoot> roots; // what each job's path meant when it was loaded
    QList<QStringList> unreadable; // of each job: directories that could not be listed
};

} // namespace Tavro::Shared::detail
