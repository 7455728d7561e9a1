// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/RecordPlan.h"
#include "fieldhost/services/SimulatedDrive.h"
#include "shared/clipinfo/ClipInfoHandler.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace Tavro::FieldHost {

class FieldApplication;

/** How a recording ended. */
struct RecordResult
{
    qint64 duration = 0; // of the video, in ms
    int samples = 0; // that this recording has added to the file
    bool isEndedByUser = false;
    QString problem; // why the file is not as it should be, a clause; empty when it is
};

/**
 * Records one clip with the simulated crawler, as a host does it: the crawler drives, the clip
 * information handler listens and writes the file when the recorder has stopped. Distances are
 * written in the unit of the project.
 *
 * What the user asks for does nothing before start() and after the end.
 */
class RecordRun : public QObject
{
    Q_OBJECT

public:
    /** @p host must outlive the run. */
    RecordRun(const RecordPlan &plan, FieldApplication &host);
    ~RecordRun() override;

    /** Begins, and goes on in the event loop. */
    void start();
    /** Pauses the recording until resume(), also where a pause of the plan would end. */
    void pause();
    /** Goes on at once after a pause, of the plan or not. */
    void resume();
    /** Enters an observation at the present distance. */
    void observe();
    /** Ends the recording now; what was recorded up to here is written. Blocks meanwhile. */
    void end();

    /** The clip information file. */
    QString infoPath() const { return m_infoPath; }
    /** Samples that were in it when the run was started; -1 without a file. */
    int samplesBefore() const { return m_samplesBefore; }
    /** Length of the video so far, in milliseconds. */
    qint64 recorded() const;
    /** True while the recording is paused. */
    bool isPaused() const { return m_restLeft > 0; }
    /** Complete with finished(). */
    const RecordResult &result() const { return m_result; }

Q_SIGNALS:
    /** Time has passed. */
    void progressChanged();
    /** The file is written, or could not be; result() is complete. Exactly once. */
    void finished();

private:
    void followRealTime();
    void passFrame();
    void rest();
    void finish();

    const RecordPlan m_plan;
    FieldApplication &m_host;
    SimulatedDrive m_drive;
    Shared::ClipInfoHandler *const m_handler; // belongs to the host's creation handler
    const QString m_infoPath;
    RecordResult m_result;
    int m_samplesBefore = -1;
    int m_pausesDone = 0;
    int m_observationsDone = 0;
    qint64 m_restLeft = 0; // of a pause, in ms
    qint64 m_passed = 0; // ms since the start, pauses included
    QTimer m_timer;
    QElapsedTimer m_sinceStart;
};

} // namespace Tavro::FieldHost
