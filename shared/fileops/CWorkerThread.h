#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QThread>

#include <memory>

namespace Tavro::Shared {

/**
 * A thread whose start can be awaited until it has really begun to run.
 *
 * blockingStart() and isThreadStartPending() may be called from any thread but the new one.
 * The destructor neither quits nor waits: the owner has stopped the thread before.
 */
class OVO_SHARED_EXPORT CWorkerThread : public QThread
{
    Q_OBJECT

public:
    explicit CWorkerThread(QObject *parent = nullptr);
    ~CWorkerThread() override;

    /** True until the first run has handled QThread::started; false for good from then on. */
    bool isThreadStartPending();

    /**
     * Starts the thread and spins on the processor until it handles QThread::started.
     *
     * Meant for the short moment between start() and the thread's first instructions: it
     * neither sleeps nor yields. A later call on the same object returns as soon as the thread
     * runs again.
     *
     * Returns false when the thread ended before, or when the system refused to create it.
     */
    bool blockingStart();

private Q_SLOTS:
    void onThreadStarted();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
