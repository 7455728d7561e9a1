// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/DriveAccess.h"
#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/ExportRun.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>

namespace Tavro::FieldHost {

/** What an export is doing, as a screen shows it, and how it has ended. */
namespace ExportStates {
Q_NAMESPACE

enum State {
    Choosing, // nothing yet
    Locking, // mounts the drive and marks it
    Planning, // looks through source and destination
    Confirming, // waits to be told whether files may be replaced
    Copying,
    Paused,
    Verifying,
    Aborting,
    Unmounting, // waits until nobody uses the drive
    Done, // everything is copied, and on the device
    Failed,
    Aborted,
    Refused, // nothing was copied
};
Q_ENUM_NS(State)

} // namespace ExportStates

/** How far an export is. */
struct ExportFigures
{
    qint64 bytes = 0;
    qint64 totalBytes = 0;
    double rate = 0; // bytes a second; 0 while it is not known
    qint64 timeLeft = -1; // ms; -1 while there is no forecast
    QString directory; // that is being filled
};

/** What an export is going to do. */
struct ExportSummary
{
    QString landing; // where the copy is to be found
    bool landingExists = false;
    qint64 files = 0;
    qint64 bytes = 0;
    int replacedFiles = 0;
};

/**
 * An export from the lock of the drive to its unmounting, on the thread of its own that it is moved
 * to. Signals come at most ten times a second, however many files there are.
 */
class ExportTask : public QObject
{
    Q_OBJECT

public:
    ExportTask();
    ~ExportTask() override;

    /** Copies the directory @p source into @p destination; ended() follows. */
    Q_INVOKABLE void begin(const QString &source, const QString &destination, bool verify);
    /** The answer to the state Confirming. */
    Q_INVOKABLE void confirm(bool replace);
    Q_INVOKABLE void setPaused(bool paused);
    /** Ends it before anything is copied, or removes what was copied; does nothing after that. */
    void abort();
    /** Aborts, and ends the thread behind that. */
    void close();

    /** Any thread: lets a survey of the source end that holds the task's own. */
    void interrupt(bool isWanted) { m_isInterrupted = isWanted; }

Q_SIGNALS:
    void stateChanged(Tavro::FieldHost::ExportStates::State state);
    void planned(const Tavro::FieldHost::ExportSummary &summary);
    void figuresChanged(const Tavro::FieldHost::ExportFigures &figures);
    /** A sentence for the user; @p kind is "info", "good", "warning" or "bad". */
    void said(const QString &kind, const QString &sentence);
    /** It is over: Done, Failed, Aborted or Refused. @p isUnmounted: the drive can be pulled. */
    void ended(Tavro::FieldHost::ExportStates::State outcome, bool isUnmounted);

private:
    void plan();
    void copy();
    void reportFigures();
    void onRunStateChanged();
    void onRunFinished();
    void say(const QString &kind, const QStringList &sentences);
    void release(ExportStates::State outcome);

    QString m_source;
    QString m_destination;
    bool m_verify = false;
    std::unique_ptr<DriveAccess> m_drive; // while an export is under way
    std::unique_ptr<ExportPlan> m_plan; // until it is carried out
    std::unique_ptr<ExportRun> m_run; // which carries it out; holds the drive in use
    QTimer m_pulse; // between two reports of figures
    std::atomic<bool> m_isInterrupted{false};
    bool m_isClosing = false;
};

} // namespace Tavro::FieldHost

Q_DECLARE_METATYPE(Tavro::FieldHost::ExportFigures)
Q_DECLARE_METATYPE(Tavro::FieldHost::ExportSummary)
