#pragma once

#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileCopyData.h"
#include "shared/fileops/detail/RunRequest.h"

#include <QSet>

namespace Tavro::Shared::detail {

/** What one run copies. */
struct CopyRequest : RunRequest
{
    QList<CFileCopyData> jobs;
    QStringList directoryNames; // what the directory that each job fills is called in the request
    QSet<QString> specialFiles; // those of the jobs' files that are not to be opened
    std::atomic<int> error{CFileCopyController::ErrorNone};
};

} // namespace Tavro::Shared::detail
