#pragma once

#include "fieldhost/jobs/RecordPlan.h"
#include "fieldhost/services/SimulatedDrive.h"
#include "shared/clipinfo/ClipInfoHandler.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace Tavro::FieldHost {

class Console;
class FieldApplication;

/**
 * Records one clip with the simulated crawler, as a host does it: the crawler drives, the clip
 * information handler listens and writes the file when the recorder has stopped.
 */
class RecordRun : public QObject
{
    Q_OBJECT

public:
    /** @p host and @p console must outlive the run. */
    RecordRun(const RecordPlan &plan, FieldApplication &host, Console &console);
    ~RecordRun() override;

    /** Begins, and goes on in the event loop. */
    void start();
    /** Ends the recording now; what was recorded up to here is written. */
    void end();

Q_SIGNALS:
    /** The file is written, or could not be; @p exitCode is an ExitCode. */
    void finished(int exitCode);

private:
    void followRealTime();
    void passFrame();
    void rest();
    void finish();
    void showProgress();
    QString problemOfFile() const;

    const RecordPlan m_plan;
    FieldApplication &m_host;
    Console &m_console;
    SimulatedDrive m_drive;
    Shared::ClipInfoHandler *const m_handler; // belongs to the host's creation handler
    QString m_infoPath;
    int m_samplesBefore = 0; // in the file that is continued
    int m_pausesDone = 0;
    int m_observationsDone = 0;
    qint64 m_restLeft = 0; // of a pause, in ms
    qint64 m_passed = 0; // ms since the start, pauses included
    bool m_isEndedByUser = false;
    QTimer m_timer;
    QElapsedTimer m_sinceStart;
};

} // namespace Tavro::FieldHost
