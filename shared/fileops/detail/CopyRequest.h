#pragma once

#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileCopyData.h"

#include <QSet>

#include <atomic>

namespace Tavro::Shared::detail {

/**
 * What one run works on, from loading to its end.
 *
 * Each run has its own, so that loading the next request, or a reset, changes nothing for a run
 * in progress. The jobs are filled in before the request is published and belong to the run
 * from then on; the rest may be touched by any thread.
 */
struct CopyRequest
{
    QList<CFileCopyData> jobs;
    QSet<QString> specialFiles; // those of the jobs' files that are not to be opened
    std::atomic<int> step{CFileCopyController::StateIdle};
    std::atomic<int> error{CFileCopyController::ErrorNone};
    std::atomic<qint64> processedBytes{0};
    std::atomic<qint64> totalBytes{0};
    std::atomic<bool> canceled{false}; // polled before every chunk
    std::atomic<bool> abandoned{false}; // canceled, and nobody is left to remove what was cut off
};

} // namespace Tavro::Shared::detail
