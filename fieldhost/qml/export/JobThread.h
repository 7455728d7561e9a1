// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QThread;

namespace Tavro::FieldHost {

/**
 * A thread with an event loop for one object that does a job: what the job has to wait for, no
 * screen waits for.
 */
class JobThread
{
    Q_DISABLE_COPY(JobThread)

public:
    /** Starts the thread and moves @p job to it, which it owns. */
    explicit JobThread(QObject *job);
    /**
     * Waits until the job has called quit() of its thread, and deletes it. A job that waits for
     * something without limit, as for a drive that stays in use, is left to itself after a while.
     */
    ~JobThread();

private:
    QThread *const m_thread;
};

} // namespace Tavro::FieldHost
