// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/StagedCopy.h"

#include "fieldhost/jobs/Merge.h"
#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"

#include <QDir>
#include <QFile>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

// the controller takes blanks and tabs at the end of a file's path away
bool endsInBlank(const QString &path)
{
    return path.endsWith(QLatin1Char(' ')) || path.endsWith(QLatin1Char('\t'));
}

} // namespace

StagedCopy::StagedCopy(const ExportJob &job)
    : m_job(job)
    , m_landing(job.held->reach(job.landing))
    , m_place(job.isDirectory ? m_landing : job.held->reach(parentOf(job.landing)))
    , m_root(m_landing)
{
}

StagedCopy::~StagedCopy() = default;

bool StagedCopy::prepare()
{
    const bool blankFile = !m_job.isDirectory && endsInBlank(m_job.landing);
    if (!createDirectories(m_place)) {
        return false;
    }
    if (!m_job.landingExists && !blankFile) {
        return true;
    }
    int error = 0;
    m_staging = StagingDirectory::create(m_place, error);
    if (!m_staging) {
        return fail(JobText::tr("A directory for the copy cannot be created in %1: %2.")
                        .arg(quoted(m_job.held->shown(m_place)), systemText(error)));
    }
    m_root = m_staging->rootFor(m_job.landing.mid(m_job.landing.lastIndexOf(QLatin1Char('/')) + 1),
                                m_job.isDirectory);
    return createDirectories(m_job.isDirectory ? m_root : parentOf(m_root));
}

bool StagedCopy::createDirectories(const QString &path)
{
    QStringList missing;
    for (QString directory = path; !existsOrIsLink(directory); directory = parentOf(directory)) {
        missing.prepend(directory);
    }
    for (const QString &directory : qAsConst(missing)) {
        if (::mkdir(QFile::encodeName(directory).constData(), 0777) != 0) {
            return fail(JobText::tr("The directory %1 cannot be created: %2.")
                            .arg(quoted(m_job.held->shown(directory)), systemText(errno)));
        }
        m_created.append(directory);
    }
    return true;
}

bool StagedCopy::settle()
{
    if (m_staging) {
        // the last of the directories and empty files
        if (!m_staging->beginMerge() || flushVolume(m_place) != 0) {
            return fail(JobText::tr("The copy cannot be moved to its place: %1: %2.")
                            .arg(quoted(m_job.held->shown(m_place)), systemText(errno)));
        }
        Merge merge(m_job, m_root, m_landing, m_staging->backups());
        m_isMerged = true;
        if (!merge.run()) {
            return fail(merge.error());
        }
        if (!m_staging->removeEmpty()) {
            return fail(JobText::tr("All is in its place, but %1 cannot be removed.")
                            .arg(quoted(m_job.held->shown(m_staging->path()))));
        }
        m_staging.reset();
    }
    const int error = flushVolume(m_place);
    return error == 0
        || fail(JobText::tr("The copy in %1 could not be written to the device: %2.")
                    .arg(quoted(m_job.held->shown(m_place)), systemText(error)));
}

QStringList StagedCopy::discard()
{
    QStringList removed;
    m_error.clear();
    if (m_staging) {
        const QString path = m_job.held->shown(m_staging->path());
        if (m_staging->discard()) {
            removed.append(path);
        } else {
            fail(JobText::tr("%1 could not be removed. The next export to this place will try "
                             "again.")
                     .arg(quoted(path)));
        }
        m_staging.reset();
    } else if (!m_job.landingExists && !m_isMerged) {
        removed.append(m_job.landing);
        if (m_job.isDirectory) {
            QDir(m_landing).removeRecursively();
        } else {
            QFile::remove(m_landing);
        }
        if (existsOrIsLink(m_landing)) {
            removed.clear();
            fail(JobText::tr("%1 could not be removed.").arg(quoted(m_job.landing)));
        }
    }
    // those below a directory just removed are gone; what holds another job's files stays
    while (!m_created.isEmpty()) {
        ::rmdir(QFile::encodeName(m_created.takeLast()).constData());
    }
    return removed;
}

bool StagedCopy::fail(const QString &sentence)
{
    m_error = sentence;
    return false;
}

} // namespace Tavro::FieldHost
