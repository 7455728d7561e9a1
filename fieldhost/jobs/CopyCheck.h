// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/ExportPlan.h"

#include <optional>

namespace Tavro::FieldHost {

/** The first file or directory that a copy lacks. */
struct CopyFault
{
    QString source;
    QString cause; // a sentence without its full stop
};

/** What a look at the destination says of a copy. */
struct CopyCheck
{
    qint64 wholeFiles = 0;
    qint64 wholeBytes = 0;
    std::optional<CopyFault> fault;
};

/**
 * Looks for every directory and file of @p job's survey at @p root: directories must exist, files
 * have the size that their source has now. A file that is shorter or longer is removed, so that
 * nobody takes it for the source's equal.
 *
 * The controller's result tells what failed. This finds what did not fail and is missing all the
 * same: what the source lost or changed since it was looked through, and what has a name that the
 * destination's file system does not tell from another.
 */
CopyCheck checkCopy(const ExportJob &job, const QString &root);

} // namespace Tavro::FieldHost
