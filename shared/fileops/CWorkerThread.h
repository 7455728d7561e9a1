// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QThread>

#include <memory>

namespace Tavro::Shared {

/**
 * A thread that can be started with a call that returns when it runs.
 *
 * blockingStart() and isThreadStartPending() may be called from any thread but the new one. The
 * destructor neither quits nor waits: stop the thread before.
 */
class OVO_SHARED_EXPORT CWorkerThread : public QThread
{
    Q_OBJECT

public:
    explicit CWorkerThread(QObject *parent = nullptr);
    ~CWorkerThread() override;

    /** True until the first run has handled QThread::started, false ever after. */
    bool isThreadStartPending();

    /**
     * Starts the thread and busy-waits until QThread::started has been handled in it.
     *
     * The wait neither sleeps nor yields; it covers the short time between start() and the first
     * instructions of the thread. A later call on the same object returns as soon as the thread
     * runs again.
     *
     * Returns false if the thread ended before, or if the system could not create it.
     */
    bool blockingStart();

private Q_SLOTS:
    void onThreadStarted();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
