// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/CopyCheck.h"

#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/RepeatedTexts.h"
#include "fieldhost/jobs/Text.h"

#include <QFile>
#include <QHash>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

struct Copy
{
    QString source;
    FileStatus status;
};

// what differs between names that some file systems take for one: case and composition
QString foldedName(const QString &path)
{
    return path.normalized(QString::NormalizationForm_C).toCaseFolded();
}

} // namespace

CopyCheck checkCopy(const ExportJob &job, const QString &root)
{
    CopyCheck check;
    const auto fail = [&check](const QString &source, const QString &cause) {
        if (!check.fault) {
            check.fault = CopyFault{source, cause};
        }
    };
    RepeatedTexts names(job.survey.files.size()); // folded
    for (const SurveyedFile &file : job.survey.files) {
        names.add(foldedName(file.path));
    }
    names.find();
    QHash<QString, Copy> copies; // the last of each repeated name
    // files first: where both lack, a file's cause says more
    for (const SurveyedFile &file : job.survey.files) {
        const QString source = job.source + file.path;
        const QString target = targetPath(job, file, root);
        const FileStatus original = targetStatusOf(source);
        const bool hasSource = original.st_mode != 0;
        const Copy copy{source, statusOf(target)};
        if (!S_ISREG(copy.status.st_mode)) {
            fail(source,
                 hasSource ? JobText::tr("it is not in the destination")
                           : JobText::tr("it is no longer in the source"));
            continue;
        }
        if (hasSource && original.st_size != copy.status.st_size) {
            ::unlink(QFile::encodeName(target).constData());
            fail(source,
                 JobText::tr("reading it gave %1 where its size says %2; it may have changed "
                             "while it was copied")
                     .arg(formatBytes(copy.status.st_size), formatBytes(original.st_size)));
            continue;
        }
        const QString name = names.isEmpty() ? QString() : foldedName(file.path);
        if (names.mayHold(name)) {
            Copy &other = copies[name];
            if (!other.source.isEmpty() && isSameFile(other.status, copy.status)) {
                fail(source,
                     JobText::tr("its name and that of %1 are one and the same on the "
                                 "destination's file system, so that one of them has replaced the "
                                 "other")
                         .arg(quoted(other.source)));
                continue;
            }
            other = copy;
        }
        ++check.wholeFiles;
        check.wholeBytes += copy.status.st_size;
    }
    for (const QString &directory : job.survey.directories) {
        // the controller goes on without a directory that it could not create, if no file needs it
        const QString target = root + QLatin1Char('/') + directory;
        if (!check.fault && !S_ISDIR(statusOf(target).st_mode)
            && ::mkdir(QFile::encodeName(target).constData(), 0777) != 0) {
            fail(job.source + directory,
                 JobText::tr("the directory cannot be created in the destination (%1)")
                     .arg(systemText(errno)));
        }
    }
    return check;
}

} // namespace Tavro::FieldHost
