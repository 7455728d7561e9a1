// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/CopyVerification.h"
#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/Progress.h"
#include "fieldhost/jobs/StagedCopy.h"
#include "shared/fileops/CFileCopyController.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

namespace Tavro::FieldHost {

/** How an export ended. */
struct ExportResult
{
    enum class End {
        Done, // everything is copied, and on the device
        Failed,
        Aborted,
        NotBegun, // the destination could not be prepared
    };

    End end = End::Failed;
    qint64 files = 0; // that are whole
    qint64 bytes = 0; // of these files
    qint64 time = 0; // of the copy, in ms, without pauses and verification
    QStringList problems; // for the user: what failed, and what that means for the destination
    QStringList report; // for the user: what was done, or undone
};

/**
 * Carries out a plan: copies through the controller, looks at the result, moves the copies to
 * their places and verifies them there.
 */
class ExportRun : public QObject
{
    Q_OBJECT

public:
    /** What it is doing. */
    enum class State { Copying, Paused, Verifying, Aborting };

    /** With @p verify, every copy is read back and compared once it is in its place. */
    ExportRun(ExportPlan plan, bool verify, QObject *parent = nullptr);
    ~ExportRun() override;

    /** Begins; finished() follows through the event loop, however it goes. */
    void start();
    /** Halts the copy, or lets it go on. A verification is not halted. */
    void setPaused(bool paused);
    /** Ends the copy and removes what it has made. */
    void abort();

    State state() const { return m_state; }
    /** Of the copy or the verification, as of now. */
    const Progress &progress();
    /** Name of the directory that is being filled. */
    QString directory() const { return m_controller.processingDirectory(); }
    /** Complete with finished(). */
    const ExportResult &result() const { return m_result; }

Q_SIGNALS:
    /** Emitted when state() changes. */
    void stateChanged();
    /** Emitted when there are more bytes. */
    void progressChanged();
    /** Something that the user should know and that does not end the run; a sentence. */
    void warned(const QString &sentence);
    /** It is over, and result() complete. Exactly once. */
    void finished();

private:
    struct Task
    {
        const ExportJob &job;
        StagedCopy copy;
    };
    using Step = std::vector<Task *>; // what one request to the controller copies

    bool prepare();
    void clearRemains();
    void beginStep();
    void onProcessedBytes();
    void onStepCompleted();
    void onStepCanceled();
    bool isInPlace() const;
    QString failure() const;
    bool isDriveFailing() const;
    void settle();
    void verify();
    void onVerified();
    void complete();
    void fail(const QString &reason);
    void failWithoutDrive();
    void finish(ExportResult::End end);
    QStringList discard(bool stagedOnly);
    bool anyStaged() const;
    QString shown(const QString &path) const;
    void setState(State state);

    const ExportPlan m_plan;
    const bool m_verify;
    Shared::CFileCopyController m_controller;
    std::vector<std::unique_ptr<Task>> m_tasks;
    std::vector<Step> m_steps;
    size_t m_step = 0;
    qint64 m_stepBytes = 0; // of the current step; those before are in the result
    Progress m_progress;
    std::unique_ptr<CopyVerification> m_verification; // once all is copied
    State m_state = State::Copying;
    ExportResult m_result;
    bool m_running = false;
    QElapsedTimer m_sinceLook; // whether the drive is in its place
    bool m_isGone = false; // it was taken away
};

} // namespace Tavro::FieldHost
