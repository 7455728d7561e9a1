#pragma once

#include "shared/fileops/CFileOperationResult.h"

#include <functional>

namespace Tavro::Shared::detail {

/** What a controller does to the runs of its worker besides loading. From any thread. */
class RunControl
{
public:
    virtual ~RunControl() = default;

    /** Has @p receive called on the working thread for each run, before its end shows. */
    virtual void onResult(std::function<void(const CFileOperationResult &)> receive) = 0;
    /** The first step of what is loaded. */
    virtual int loadedStep() const = 0;
    /**
     * Has the next request that is loaded set aside for a run of its own, whatever is loaded
     * before that begins. On the owner's thread.
     */
    virtual void claimNextRequest() = 0;
    /** Whether there is a run that has not begun. */
    virtual bool hasClaimedRequest() const = 0;
    /** Gives up the runs that have not begun. */
    virtual void dropClaimedRequests() = 0;
    /** Cancels all runs, because nobody is left to hear of them. */
    virtual void abandonWork() = 0;
};

} // namespace Tavro::Shared::detail
