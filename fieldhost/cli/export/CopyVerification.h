#pragma once

#include "fieldhost/cli/export/CopyFault.h"
#include "fieldhost/cli/export/ExportPlan.h"

#include <QFutureWatcher>
#include <QObject>

#include <atomic>
#include <mutex>
#include <optional>
#include <vector>

namespace Tavro::FieldHost {

/** A file that was copied, and its copy. */
struct CopiedFile
{
    QString source;
    QString target;
    qint64 size = 0;
};

/** The files of @p job, whose copy is at @p root. */
std::vector<CopiedFile> copiedFiles(const ExportJob &job, const QString &root);

/**
 * Compares copies with their sources, in a thread of its own. The copies are taken out of the
 * system's memory first, so that they are read from the device.
 */
class CopyVerification : public QObject
{
    Q_OBJECT

public:
    explicit CopyVerification(QObject *parent = nullptr);
    /** Waits for the file being compared. */
    ~CopyVerification() override;

    /** Begins; finished() follows through the event loop. */
    void start(std::vector<CopiedFile> files);
    /** Ends it behind the file being compared. */
    void cancel();

    /** Bytes compared so far. */
    qint64 comparedBytes() const { return m_comparedBytes; }
    /** The first copy that is not its source's equal, once it is found. */
    std::optional<CopyFault> fault() const;

Q_SIGNALS:
    /** All is compared, or the first fault found, or it was canceled. */
    void finished();

private:
    void compareAll();

    std::vector<CopiedFile> m_files;
    mutable std::mutex m_faultMutex;
    std::optional<CopyFault> m_fault;
    std::atomic<qint64> m_comparedBytes{0};
    std::atomic<bool> m_canceled{false};
    QFutureWatcher<void> m_watcher;
};

} // namespace Tavro::FieldHost
