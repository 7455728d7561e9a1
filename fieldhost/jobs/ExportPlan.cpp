// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ExportPlan.h"

#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/RepeatedTexts.h"
#include "fieldhost/jobs/StagingDirectory.h"
#include "fieldhost/jobs/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStorageInfo>

#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

// what a directory for the copy inside an existing one adds to the length of a path at most
constexpr int s_stagingLength = 32;
constexpr int s_mostBytesOfUnit = 3; // of UTF-8 for one of UTF-16

// "dir/", "." and "..": the user means what is inside
bool meansContents(const QString &typed)
{
    return typed.endsWith(QLatin1Char('/')) || typed == QLatin1String(".")
        || typed == QLatin1String("..") || typed.endsWith(QLatin1String("/."))
        || typed.endsWith(QLatin1String("/.."));
}

bool onOneVolume(const QString &a, const QString &b)
{
    const FileStatus first = targetStatusOf(a);
    const FileStatus second = targetStatusOf(b);
    return first.st_mode != 0 && second.st_mode != 0 && first.st_dev == second.st_dev;
}

// where the directories of a job are going to be
QStringList targetDirectories(const ExportJob &job)
{
    QStringList directories;
    if (job.isDirectory) {
        directories.append(job.landing);
    }
    for (const QString &directory : job.survey.directories) {
        directories.append(below(job.landing, directory));
    }
    return directories;
}

class Planner
{
public:
    Planner(QString destination, bool intoExisting, const std::function<bool()> &canceled)
        : m_intoExisting(intoExisting)
        , m_canceled(canceled)
    {
        m_plan.destination = std::move(destination);
    }

    ExportPlan run(const QStringList &sources);

private:
    bool addSource(const QString &typed);
    bool checkDestination();
    bool checkOverlap(const ExportJob &job);
    bool surveySource(ExportJob &job);
    bool hold(const QString &directory, std::shared_ptr<const HeldDirectory> &held);
    bool checkLandings();
    bool checkMerge(ExportJob &job);
    bool checkPathLengths(const ExportJob &job);
    bool checkPathLength(const ExportJob &job, const QString &path, int extra);
    bool checkCollisions();
    bool checkSpace();
    bool refuse(Refusal refusal, const QString &reason);

    const bool m_intoExisting;
    const std::function<bool()> &m_canceled;
    ExportPlan m_plan;
};

ExportPlan Planner::run(const QStringList &sources)
{
    for (const QString &source : sources) {
        if (!addSource(source)) {
            return m_plan;
        }
    }
    for (const ExportJob &job : m_plan.jobs) {
        if (!checkOverlap(job)) {
            return m_plan;
        }
    }
    if (!checkDestination() || !checkLandings()) {
        return m_plan;
    }
    for (ExportJob &job : m_plan.jobs) {
        if (!surveySource(job)) {
            return m_plan;
        }
        m_plan.files += job.survey.files.size();
        m_plan.bytes += job.survey.bytes;
    }
    for (ExportJob &job : m_plan.jobs) {
        if (!checkPathLengths(job) || !checkMerge(job)) {
            return m_plan;
        }
    }
    if (checkCollisions()) {
        checkSpace();
    }
    return m_plan;
}

bool Planner::refuse(Refusal refusal, const QString &reason)
{
    m_plan.refusal = refusal;
    m_plan.reasons.append(reason);
    return false;
}

bool Planner::addSource(const QString &typed)
{
    ExportJob job;
    job.source = absolutePath(typed);
    const QFileInfo info(job.source);
    if (!info.exists()) {
        return refuse(
            Refusal::Source,
            info.isSymLink()
                ? JobText::tr("The source %1 is a link that leads nowhere.").arg(quoted(typed))
                : JobText::tr("The source %1 does not exist.").arg(quoted(typed)));
    }
    job.isDirectory = info.isDir();
    const bool contents = meansContents(typed);
    if (contents && !job.isDirectory) {
        return refuse(Refusal::Source,
                      JobText::tr("The source %1 is not a directory.").arg(quoted(typed)));
    }
    const QString name = job.source.mid(job.source.lastIndexOf(QLatin1Char('/')) + 1);
    job.landing = contents || name.isEmpty() ? m_plan.destination : below(m_plan.destination, name);
    if (job.isDirectory) {
        job.source = below(job.source, QString());
    }
    m_plan.jobs.push_back(std::move(job));
    return true;
}

bool Planner::checkOverlap(const ExportJob &job)
{
    const QString source = QFileInfo(job.source).canonicalFilePath();
    const QString landing = futureCanonicalPath(job.landing);
    const bool same =
        source == landing || isSameFile(targetStatusOf(job.source), targetStatusOf(job.landing));
    if (same) {
        return refuse(Refusal::Destination,
                      JobText::tr("%1 would be copied onto itself.").arg(quoted(source)));
    }
    if (job.isDirectory && isSameOrBelow(landing, source)) {
        return refuse(Refusal::Destination,
                      JobText::tr("The destination %1 lies inside the source %2, so the copy "
                                  "would hold itself.")
                          .arg(quoted(landing), quoted(source)));
    }
    if (isSameOrBelow(source, landing)) {
        return refuse(Refusal::Destination,
                      JobText::tr("The source %1 lies inside the destination %2, so the copy "
                                  "could replace parts of its own source.")
                          .arg(quoted(source), quoted(landing)));
    }
    return true;
}

bool Planner::checkDestination()
{
    const QString &destination = m_plan.destination;
    const QFileInfo info(destination);
    if (info.exists() && !info.isDir()) {
        return refuse(
            Refusal::Destination,
            JobText::tr("The destination %1 is not a directory.").arg(quoted(destination)));
    }
    const QString existing = nearestExisting(destination);
    const QFileInfo existingInfo(existing);
    if (!existingInfo.exists()) {
        return refuse(Refusal::Destination,
                      JobText::tr("The destination %1 cannot be created: %2 is a link that "
                                  "leads nowhere.")
                          .arg(quoted(destination), quoted(existing)));
    }
    if (!existingInfo.isDir()) {
        return refuse(Refusal::Destination,
                      JobText::tr("The destination %1 cannot be created: %2 is not a directory.")
                          .arg(quoted(destination), quoted(existing)));
    }
    if (::faccessat(AT_FDCWD, QFile::encodeName(existing).constData(), W_OK | X_OK, AT_EACCESS)
        != 0) {
        return refuse(Refusal::Destination,
                      JobText::tr("Nothing can be written to %1 (%2).")
                          .arg(quoted(existing), systemText(errno)));
    }
    if (info.exists() && StagingDirectory::isFilled(destination) && !m_intoExisting) {
        return refuse(
            Refusal::Destination,
            JobText::tr(
                "The destination %1 exists and is not empty.\n"
                "An abort removes the directories of a copy whole, with all that they held, so by "
                "default the copy goes to a new or empty directory. Name one, or give "
                "--into-existing: then what is there stays until all of the copy is whole, and "
                "only files of the same name are replaced.")
                .arg(quoted(destination)));
    }
    return hold(existing, m_plan.held);
}

bool Planner::hold(const QString &directory, std::shared_ptr<const HeldDirectory> &held)
{
    held = std::make_shared<HeldDirectory>(directory);
    return held->error() == 0
        || refuse(Refusal::Destination,
                  JobText::tr("The directory %1 cannot be opened (%2).")
                      .arg(quoted(directory), systemText(held->error())));
}

bool Planner::checkLandings()
{
    QHash<QString, QString> sources;
    for (ExportJob &job : m_plan.jobs) {
        const QString other = sources.value(job.landing);
        if (!other.isEmpty() && job.landing != m_plan.destination) {
            return refuse(Refusal::Destination,
                          JobText::tr("%1 and %2 would both be copied to %3.")
                              .arg(quoted(other), quoted(job.source), quoted(job.landing)));
        }
        sources.insert(job.landing, job.source);

        job.landingExists = existsOrIsLink(job.landing);
        const QFileInfo info(job.landing);
        job.held = m_plan.held;
        if (!job.landingExists) {
            continue;
        }
        if (info.exists() && info.isDir() == job.isDirectory) {
            // a drive may be mounted there, or a link lead to one
            if (job.isDirectory && !onOneVolume(job.landing, m_plan.destination)
                && !hold(job.landing, job.held)) {
                return false;
            }
            continue;
        }
        return refuse(Refusal::Destination,
                      (job.isDirectory
                           ? JobText::tr("The directory %1 cannot be copied to %2, which "
                                         "is not a directory.")
                           : JobText::tr("The file %1 cannot be copied to %2, which "
                                         "is not a file."))
                          .arg(quoted(job.source), quoted(job.landing)));
    }
    return true;
}

bool Planner::surveySource(ExportJob &job)
{
    job.survey = job.isDirectory ? surveyDirectory(job.source, m_canceled) : surveyFile(job.source);
    if (job.survey.canceled) {
        m_plan.refusal = Refusal::Canceled;
        return false;
    }
    if (job.survey.problems.isEmpty()) {
        return true;
    }
    QStringList sentences;
    for (const SourceProblem &problem : qAsConst(job.survey.problems)) {
        sentences.append(QStringLiteral("%1: %2.").arg(problem.path, problem.cause));
    }
    m_plan.reasons += listed(sentences, JobText::tr("The same goes for 1 more entry."),
                             JobText::tr("The same goes for %1 more entries."));
    return refuse(Refusal::Source,
                  JobText::tr("So a copy of %1 could not be whole; nothing was copied.")
                      .arg(quoted(job.source)));
}

bool Planner::checkMerge(ExportJob &job)
{
    if (!job.landingExists) {
        return true;
    }
    for (const QString &directory : qAsConst(job.survey.directories)) {
        const QString target = below(job.landing, directory);
        if (existsOrIsLink(target) && !QFileInfo(target).isDir()) {
            return refuse(Refusal::Destination,
                          JobText::tr("The directory %1 cannot take the place of %2, which is "
                                      "not a directory.")
                              .arg(quoted(job.source + directory), quoted(target)));
        }
        if (QFileInfo(target).isDir() && !onOneVolume(target, job.landing)) {
            return refuse(Refusal::Destination,
                          JobText::tr("The directory %1 is on another volume than %2, so a copy "
                                      "cannot be moved to it. Export to it alone.")
                              .arg(quoted(target), quoted(job.landing)));
        }
    }
    for (const SurveyedFile &file : job.survey.files) {
        const QString target = targetPath(job, file, job.landing);
        if (!existsOrIsLink(target)) {
            continue;
        }
        if (QFileInfo(target).isDir()) {
            return refuse(Refusal::Destination,
                          JobText::tr("The file %1 cannot take the place of %2, which is a "
                                      "directory.")
                              .arg(quoted(job.source + file.path), quoted(target)));
        }
        ++job.replacedFiles;
    }
    return true;
}

bool Planner::checkPathLengths(const ExportJob &job)
{
    const QString name = job.landing.mid(job.landing.lastIndexOf(QLatin1Char('/')) + 1);
    const int extra = s_stagingLength + QFile::encodeName(name).size();
    for (const QString &directory : job.survey.directories) {
        if (!checkPathLength(job, directory, extra)) {
            return false;
        }
    }
    for (const SurveyedFile &file : job.survey.files) {
        if (!checkPathLength(job, file.path, extra)) {
            return false;
        }
    }
    return true;
}

bool Planner::checkPathLength(const ExportJob &job, const QString &path, int extra)
{
    if ((job.landing.size() + 1 + path.size()) * s_mostBytesOfUnit + extra < PATH_MAX) {
        return true; // nearly always
    }
    const QString target = path.isEmpty() ? job.landing : below(job.landing, path);
    const int length = QFile::encodeName(target).size() + extra;
    return length < PATH_MAX
        || refuse(Refusal::Destination,
                  JobText::tr("The path of %1 would be too long in the destination: "
                              "%2, and %3 are possible. Choose a destination with a "
                              "shorter path.")
                      .arg(quoted(target),
                           counted(length, JobText::tr("1 byte"), JobText::tr("%1 bytes")),
                           QString::number(PATH_MAX - 1)));
}

bool Planner::checkCollisions()
{
    if (m_plan.jobs.size() < 2) {
        return true;
    }
    RepeatedTexts targets(static_cast<int>(m_plan.files));
    for (const ExportJob &job : m_plan.jobs) {
        for (const SurveyedFile &file : job.survey.files) {
            targets.add(targetPath(job, file, job.landing));
        }
        const QStringList directories = targetDirectories(job);
        for (const QString &directory : directories) {
            targets.add(directory);
        }
    }
    targets.find();
    QHash<QString, QString> fileSources; // of the repeated targets
    for (const ExportJob &job : m_plan.jobs) {
        for (const SurveyedFile &file : job.survey.files) {
            const QString target = targetPath(job, file, job.landing);
            if (!targets.mayHold(target)) {
                continue;
            }
            const QString other = fileSources.value(target);
            if (!other.isEmpty()) {
                return refuse(
                    Refusal::Destination,
                    JobText::tr("%1 and %2 would both be copied to %3.")
                        .arg(quoted(other), quoted(job.source + file.path), quoted(target)));
            }
            fileSources.insert(target, job.source + file.path);
        }
    }
    for (const ExportJob &job : m_plan.jobs) {
        const QStringList directories = targetDirectories(job);
        for (const QString &directory : directories) {
            if (fileSources.contains(directory)) {
                return refuse(Refusal::Destination,
                              JobText::tr("The file %1 and a directory of %2 would both be copied "
                                          "to %3.")
                                  .arg(quoted(fileSources.value(directory)), quoted(job.source),
                                       quoted(directory)));
            }
        }
    }
    return true;
}

bool Planner::checkSpace()
{
    const QStorageInfo storage(nearestExisting(m_plan.destination));
    if (!storage.isValid() || storage.bytesTotal() <= 0) {
        return true; // a file system that does not tell
    }
    const qint64 block = qMax(storage.blockSize(), 1);
    qint64 needed = 0;
    for (const ExportJob &job : m_plan.jobs) {
        // a stick with clusters of 32 KiB takes far more for small files than their bytes
        for (const SurveyedFile &file : job.survey.files) {
            needed += (file.size + block - 1) / block * block;
        }
    }
    const qint64 available = storage.bytesAvailable();
    if (needed <= available) {
        return true;
    }
    return refuse(Refusal::NoSpace,
                  JobText::tr("Not enough free space in %1: the copy needs %2, and %3 are free, "
                              "so %4 are missing.")
                      .arg(quoted(storage.rootPath()), formatBytes(needed), formatBytes(available),
                           formatBytes(needed - available)));
}

} // namespace

ExportPlan planExport(const QStringList &sources, const QString &destination, bool intoExisting,
                      const std::function<bool()> &canceled)
{
    return Planner(absolutePath(destination), intoExisting, canceled).run(sources);
}

QString targetPath(const ExportJob &job, const SurveyedFile &file, const QString &root)
{
    return job.isDirectory ? below(root, file.path) : root;
}

QString leftOut(const ExportPlan &plan)
{
    int hidden = 0;
    int broken = 0;
    int special = 0;
    for (const ExportJob &job : plan.jobs) {
        hidden += job.survey.hiddenEntries;
        broken += job.survey.brokenLinks;
        special += job.survey.specialEntries;
    }
    QStringList parts;
    if (hidden > 0) {
        parts.append(
            counted(hidden, JobText::tr("1 hidden entry"), JobText::tr("%1 hidden entries")));
    }
    if (broken > 0) {
        parts.append(counted(broken, JobText::tr("1 link that leads nowhere"),
                             JobText::tr("%1 links that lead nowhere")));
    }
    if (special > 0) {
        parts.append(counted(special, JobText::tr("1 pipe, socket or device"),
                             JobText::tr("%1 pipes, sockets or devices")));
    }
    return parts.join(QLatin1String(", "));
}

} // namespace Tavro::FieldHost
