#pragma once

#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileCopyData.h"
#include "shared/fileops/detail/RunRequest.h"

namespace Tavro::Shared::detail {

/** What one run copies. */
struct CopyRequest : RunRequest
{
    QList<CFileCopyData> jobs;
    std::atomic<int> error{CFileCopyController::ErrorNone};
};

} // namespace Tavro::Shared::detail
