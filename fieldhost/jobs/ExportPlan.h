// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/HeldDirectory.h"
#include "fieldhost/jobs/SourceSurvey.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace Tavro::FieldHost {

/** One SOURCE of the command line and where it goes. */
struct ExportJob
{
    QString source; // absolute; a directory's ends in "/"
    bool isDirectory = false;
    QString landing; // absolute, without "/" at its end: where the copy is to be found
    bool landingExists = false;
    std::shared_ptr<const HeldDirectory> held; // the landing, or what it is or will be below
    SourceSurvey survey;
    int replacedFiles = 0; // files at the destination that the copy replaces
};

/** What stands in the way of a plan. */
enum class Refusal {
    None, // nothing
    Canceled, // whoever asked for it
    Source, // one cannot be copied as it is
    Destination, // it cannot take the copy
    NoSpace, // it has not enough free space
};

/** Everything that an export is going to do, checked as far as it can be beforehand. */
struct ExportPlan
{
    QString destination; // absolute
    std::shared_ptr<const HeldDirectory> held; // it, or as much of it as exists
    std::vector<ExportJob> jobs;
    qint64 files = 0;
    qint64 bytes = 0;

    /** None when the plan can be carried out. */
    Refusal refusal = Refusal::None;
    /** Why it cannot, for the user, a sentence each; none when it was canceled. */
    QStringList reasons;
};

/**
 * Plans the copy of @p sources into the directory @p destination, all as the user typed them.
 * Changes nothing anywhere. @p canceled is asked now and then while the sources are walked; a
 * plan that it ends is refused as Canceled.
 */
ExportPlan planExport(const QStringList &sources, const QString &destination, bool intoExisting,
                      const std::function<bool()> &canceled);

/** What the copy leaves out of the sources, counted, in words; empty when that is nothing. */
QString leftOut(const ExportPlan &plan);

/** Where @p file of @p job is when the job's files are below (or, for a single file, at) @p root.
 */
QString targetPath(const ExportJob &job, const SurveyedFile &file, const QString &root);

} // namespace Tavro::FieldHost
