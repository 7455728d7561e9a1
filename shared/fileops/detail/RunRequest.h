#pragma once

#include "shared/fileops/CFileOperationResult.h"

#include <atomic>

namespace Tavro::Shared::detail {

/**
 * What a run works on, from loading to its end.
 *
 * Each run has its own, so that loading the next request, or a reset, changes nothing for a run
 * in progress. The jobs that a derived request adds are filled in before it is published and
 * belong to the run from then on; the atomic rest may be touched by any thread.
 */
struct RunRequest
{
    std::atomic<int> step{0}; // a State of the controller; idle is 0 for all of them
    std::atomic<qint64> processedBytes{0};
    std::atomic<qint64> totalBytes{0};
    std::atomic<bool> canceled{false}; // polled all the time
    std::atomic<bool> abandoned{false}; // canceled, and nobody is left to hear of it
    CFileOperationResult result; // the run's own until its end
};

} // namespace Tavro::Shared::detail
