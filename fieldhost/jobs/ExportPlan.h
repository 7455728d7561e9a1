#pragma once

#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/HeldFolder.h"
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
    QString source; // absolute; a folder's ends in "/"
    bool isFolder = false;
    QString landing; // absolute, without "/" at its end: where the copy is to be found
    bool landingExists = false;
    std::shared_ptr<const HeldFolder> held; // the landing, or what it is or will be below
    SourceSurvey survey;
    int replacedFiles = 0; // files at the destination that the copy replaces
};

/** Everything that an export is going to do, checked as far as it can be beforehand. */
struct ExportPlan
{
    QString destination; // absolute
    std::shared_ptr<const HeldFolder> held; // it, or as much of it as exists
    std::vector<ExportJob> jobs;
    qint64 files = 0;
    qint64 bytes = 0;

    /** ExitDone when the plan can be carried out. */
    ExitCode refusal = ExitDone;
    /** Why it cannot, a sentence each. */
    QStringList reasons;
};

/**
 * Plans the copy of @p sources into the directory @p destination, all as the user typed them.
 * Changes nothing anywhere. @p canceled is asked now and then while the sources are walked; a
 * plan that it ends is refused with ExitAborted.
 */
ExportPlan planExport(const QStringList &sources, const QString &destination, bool intoExisting,
                      const std::function<bool()> &canceled);

/** Where @p file of @p job is when the job's files are below (or, for a single file, at) @p root.
 */
QString targetPath(const ExportJob &job, const SurveyedFile &file, const QString &root);

} // namespace Tavro::FieldHost
