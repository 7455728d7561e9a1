#pragma once

#include "fieldhost/cli/export/ExportPlan.h"

#include <QString>
#include <QStringList>

#include <memory>

class QTemporaryDir;

namespace Tavro::FieldHost {

/**
 * The place at the destination where the controller copies one job.
 *
 * Where the copy's landing is new, that is the place. Where something is there already, or the
 * controller would not write to exactly that name, the place is in a new hidden folder beside or
 * below it on the same file system: neither an abort nor a failure can then touch what was there.
 *
 * What was created and not kept by settle() is removed by discard().
 */
class StagedCopy
{
    Q_DISABLE_COPY(StagedCopy)

public:
    explicit StagedCopy(const ExportJob &job);
    ~StagedCopy();

    /** Creates the folders that the copy needs. False, with a sentence in error(), if it cannot. */
    bool prepare();
    /** Path to hand to the controller; of a folder without "/" at its end. */
    QString root() const { return m_root; }
    /** True when root() is not where the copy stays. */
    bool isStaged() const { return m_folder != nullptr; }

    /**
     * Moves a whole copy to its landing and waits until it is on the device. False, with a
     * sentence in error(), if it cannot.
     */
    bool settle();
    /** Removes the copy and every folder created for it. Returns what was removed, if anything. */
    QStringList discard();
    /** Removes the hidden folder, and keeps a copy that lies at its landing. */
    void keep();

    QString error() const { return m_error; }

private:
    bool createFolders(const QString &path);
    bool merge(const QString &from, const QString &to);
    bool fail(const QString &sentence);

    const ExportJob &m_job;
    QString m_root;
    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_created; // parents first
    QString m_error;
};

} // namespace Tavro::FieldHost
