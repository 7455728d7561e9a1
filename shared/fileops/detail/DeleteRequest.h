#pragma once

#include "shared/fileops/CFileDeleteData.h"
#include "shared/fileops/detail/RunRequest.h"

namespace Tavro::Shared::detail {

/** What one run deletes. */
struct DeleteRequest : RunRequest
{
    QList<CFileDeleteData> jobs;
    QStringList roots; // the directory that each job's path meant when it was loaded
};

} // namespace Tavro::Shared::detail
