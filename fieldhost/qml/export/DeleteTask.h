// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/DeleteRun.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace Tavro::FieldHost {

/** What a deletion is doing, as a screen shows it, and how it has ended. */
namespace DeleteStates {
Q_NAMESPACE

enum State {
    Choosing, // nothing yet
    Deleting,
    Aborting,
    Done, // everything is deleted, and that is on the device
    Failed,
    Aborted,
};
Q_ENUM_NS(State)

} // namespace DeleteStates

/** A deletion on the thread of its own that it is moved to. */
class DeleteTask : public QObject
{
    Q_OBJECT

public:
    DeleteTask();
    ~DeleteTask() override;

    /** Deletes @p paths; ended() follows. */
    Q_INVOKABLE void begin(const QStringList &paths);
    /** Ends it behind the directory that is being deleted, which goes whole. */
    void abort();
    /** Aborts, and ends the thread behind that. */
    void close();

Q_SIGNALS:
    /** Of the directory that is being deleted; at most ten times a second. */
    void bytesChanged(qlonglong bytes, qlonglong totalBytes);
    /** A sentence for the user; @p kind is "good" or "bad". */
    void said(const QString &kind, const QString &sentence);
    /** @p path is deleted. */
    void deleted(const QString &path);
    /** It is over: Done, Failed or Aborted. @p left of the paths are still there. */
    void ended(Tavro::FieldHost::DeleteStates::State outcome, int left);

private:
    void reportBytes();
    void onRunFinished();

    std::unique_ptr<DeleteRun> m_run; // while one is under way
    QTimer m_pulse; // between two reports of bytes
    bool m_isClosing = false;
};

} // namespace Tavro::FieldHost
