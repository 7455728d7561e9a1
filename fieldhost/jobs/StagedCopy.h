// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/StagingDirectory.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace Tavro::FieldHost {

/**
 * The place at the destination where the controller copies one job.
 *
 * Where the copy's landing is new, that is the place. Where something is there already, or the
 * controller would not write to exactly that name, the place is in a new hidden directory beside or
 * below it on the same file system: neither an abort nor a failure can then touch what was there.
 *
 * All of it is reached by way of the job's held directory.
 */
class StagedCopy
{
    Q_DISABLE_COPY(StagedCopy)

public:
    explicit StagedCopy(const ExportJob &job);
    ~StagedCopy();

    /** Creates the directories that the copy needs. False, with a sentence in error(), if it
     * cannot. */
    bool prepare();
    /** Path to hand to the controller; of a directory without "/" at its end. */
    QString root() const { return m_root; }
    /** Where the copy is to be found in the end. */
    QString landing() const { return m_landing; }
    /** True while root() is not where the copy stays. */
    bool isStaged() const { return m_staging != nullptr; }

    /**
     * Moves a whole copy to its landing and waits until it is on the device. False, with
     * sentences in error(), if it cannot.
     */
    bool settle();
    /**
     * Removes the copy and every directory created for it, but not what has been moved to its
     * landing. Returns what was removed, if anything; a sentence in error() if something stays.
     */
    QStringList discard();

    QString error() const { return m_error; }

private:
    bool createDirectories(const QString &path);
    bool fail(const QString &sentence);

    const ExportJob &m_job;
    const QString m_landing;
    const QString m_place; // the directory that the landing is, or lies in
    QString m_root;
    std::unique_ptr<StagingDirectory> m_staging;
    bool m_isMerged = false;
    QStringList m_created; // parents first
    QString m_error;
};

} // namespace Tavro::FieldHost
