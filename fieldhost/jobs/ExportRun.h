#pragma once

#include "fieldhost/jobs/CopyVerification.h"
#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/Progress.h"
#include "fieldhost/jobs/StagedCopy.h"
#include "shared/fileops/CFileCopyController.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace Tavro::FieldHost {

class Console;

/**
 * Carries out a plan: copies through the controller, shows the progress, looks at the result,
 * moves the copies to their places and says how it ended.
 */
class ExportRun : public QObject
{
    Q_OBJECT

public:
    /** With @p verify, every copy is read back and compared once it is in its place. */
    ExportRun(ExportPlan plan, Console &console, bool verify, QObject *parent = nullptr);
    ~ExportRun() override;

    /** Begins; finished() follows through the event loop, however it goes. */
    void start();
    /** Halts the copy, or lets it go on. */
    void togglePause();
    /** Ends the copy and removes what it has made. */
    void abort();

Q_SIGNALS:
    /** It is over, and the user has been told how; @p exitCode is an ExitCode. */
    void finished(int exitCode);

private:
    struct Task
    {
        const ExportJob &job;
        StagedCopy copy;
    };
    using Step = std::vector<Task *>; // what one request to the controller copies

    void announce();
    bool prepare();
    void clearRemains();
    void beginStep();
    void onStepCompleted();
    void onStepCanceled();
    bool isInPlace() const;
    QString failure() const;
    void settle();
    void verify();
    void onVerified();
    void complete();
    void fail(const QString &reason);
    void failWithoutDrive();
    void finish(ExitCode code);
    QStringList discardAll();
    void discardStaged();
    bool anyStaged() const;
    QString shown(const QString &path) const;
    void showProgress();

    const ExportPlan m_plan;
    Console &m_console;
    const bool m_verify;
    Shared::CFileCopyController m_controller;
    std::vector<std::unique_ptr<Task>> m_tasks;
    std::vector<Step> m_steps;
    size_t m_step = 0;
    Progress m_progress;
    std::unique_ptr<CopyVerification> m_verification; // once all is copied
    qint64 m_copyTime = 0; // ms, without the verification
    QTimer m_display;
    qint64 m_wholeFiles = 0;
    qint64 m_wholeBytes = 0; // of the steps before the current one
    qint64 m_stepBytes = 0;
    bool m_running = false;
    bool m_paused = false;
    bool m_aborting = false;
    bool m_isGone = false; // the drive was taken away
};

} // namespace Tavro::FieldHost
