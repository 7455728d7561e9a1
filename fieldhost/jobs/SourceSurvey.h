// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/SurveyedFiles.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace Tavro::FieldHost {

/** Something in a source that makes a whole copy impossible. */
struct SourceProblem
{
    QString path; // in quotes, as it can be shown
    QString cause; // a clause: "the name is not valid UTF-8"
};

/** What a copy of a source takes along, what it leaves out and what stands in its way. */
struct SourceSurvey
{
    QStringList directories; // relative, parents first
    SurveyedFiles files;
    qint64 bytes = 0;
    int hiddenEntries = 0; // a hidden directory counts as one
    int brokenLinks = 0;
    int specialEntries = 0; // pipes, sockets, devices
    QVector<SourceProblem> problems;
    bool canceled = false;
};

/**
 * Walks the directory @p root, absolute and ending in "/", with the rules of
 * CFileCopyController::copyDirectory(): hidden entries are left out, links are followed.
 *
 * Where the copy would silently lack something, hang or never end, that is a problem here.
 * @p canceled is asked once for each directory.
 */
SourceSurvey surveyDirectory(const QString &root, const std::function<bool()> &canceled);

/** The same for a single file, absolute. */
SourceSurvey surveyFile(const QString &path);

} // namespace Tavro::FieldHost
