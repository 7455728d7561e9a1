#pragma once

#include "fieldhost/cli/export/CopyFault.h"
#include "fieldhost/cli/export/ExportPlan.h"

#include <optional>

namespace Tavro::FieldHost {

/** What a look at the destination says of a copy. */
struct CopyCheck
{
    qint64 wholeFiles = 0;
    qint64 wholeBytes = 0;
    std::optional<CopyFault> fault;
};

/**
 * Looks for every folder and file of @p job's survey at @p root: folders must exist, files have
 * the size that their source has now. What is not whole is removed, so that nobody takes it for
 * the file; of the first one the cause is found out as far as that is possible afterwards.
 *
 * The controller does not tell how a background copy failed, and a lost file of no bytes does
 * not show in its counters, so this is what a claim of success rests on.
 */
CopyCheck checkCopy(const ExportJob &job, const QString &root);

} // namespace Tavro::FieldHost
