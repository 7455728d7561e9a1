// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CDirectorySizeFinder.h"

#include "shared/filesystem/CFileSystemHelper.h"

#include <QFutureInterface>
#include <QFutureWatcher>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <QtConcurrentRun>

#include <pthread.h>

#include <atomic>
#include <memory>

namespace Tavro::Shared {

namespace {

using Result = QPair<quint64, QString>;
using Watcher = QFutureWatcher<Result>;

constexpr int s_patience = 3000; // ms that a request waits for the pool
constexpr int s_turn = 50; // ms to the next try when another request has the thread of its own

Result sizeOf(const QString &path)
{
    return {static_cast<quint64>(CFileSystemHelper::getDirectorySize(path)), path};
}

/** One request, carried out by whoever comes first. Knows nothing of its finder. */
class Task
{
    Q_DISABLE_COPY(Task)

public:
    explicit Task(const QString &path)
        : m_path(path)
    {
        m_answer.reportStarted();
        m_isTaken = false; // publishes what stands above
    }

    QFuture<Result> future() { return m_answer.future(); }
    bool isTaken() const { return m_isTaken; }

    void run()
    {
        if (!m_isTaken.exchange(true)) {
            const Result result = sizeOf(m_path);
            m_answer.reportFinished(&result);
        }
    }

private:
    const QString m_path;
    QFutureInterface<Result> m_answer;
    std::atomic<bool> m_isTaken;
};
using TaskPointer = std::shared_ptr<Task>;

/** The one thread that there is besides the pool's. */
std::atomic<bool> s_hasOwnThread{false};

// A pool that cannot create a thread loses the task, and waits for it at the end of the program.
bool canCreateThread()
{
    pthread_t thread = {};
    const auto nothing = [](void * /*unused*/) -> void * { return nullptr; };
    return ::pthread_create(&thread, nullptr, nothing, nullptr) == 0
        && ::pthread_join(thread, nullptr) == 0;
}

bool runOnOwnThread(const TaskPointer &task)
{
    QThread *thread = QThread::create([task] {
        task->run();
        s_hasOwnThread = false;
    });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
    if (thread->isRunning() || thread->isFinished()) {
        return true;
    }
    delete thread;
    return false;
}

void runWithoutPool(const TaskPointer &task, Watcher *watcher)
{
    if (task->isTaken()) {
        return;
    }
    if (s_hasOwnThread.exchange(true)) {
        QTimer::singleShot(s_turn, watcher, [task, watcher] { runWithoutPool(task, watcher); });
        return;
    }
    if (!runOnOwnThread(task)) {
        s_hasOwnThread = false;
        task->run();
    }
}

} // namespace

class Q_DECL_HIDDEN CDirectorySizeFinder::Private
{
};

CDirectorySizeFinder::CDirectorySizeFinder(QObject *parent)
    : QObject(parent)
{
}

CDirectorySizeFinder::~CDirectorySizeFinder() = default;

void CDirectorySizeFinder::startDirectorySizeCalculation(const QString &path)
{
    auto *watcher = new Watcher; // goes with its result, or with the finder
    connect(watcher, SIGNAL(finished()), this, SLOT(handleFinshed()));
    connect(this, &QObject::destroyed, watcher, &QObject::deleteLater);
    // the task knows nothing of the finder, which may be gone before it ends
    const auto task = std::make_shared<Task>(path);
    watcher->setFuture(task->future());
    const bool isForPool = canCreateThread();
    if (isForPool) {
        // the task has a future of its own
        static_cast<void>(QtConcurrent::run([task] { task->run(); }));
    }
    QTimer::singleShot(isForPool ? s_patience : 0, watcher,
                       [task, watcher] { runWithoutPool(task, watcher); });
}

QPair<quint64, QString> CDirectorySizeFinder::dirSize(const QString &path)
{
    return sizeOf(path);
}

void CDirectorySizeFinder::handleFinshed()
{
    const QPointer<Watcher> watcher = static_cast<Watcher *>(sender());
    if (!watcher) {
        return; // called by name, for no request
    }
    const Result result = watcher->result();
    Q_EMIT gotSizeOfPath(result.second, result.first);
    // a slot may have been the end of this finder, and its event loop that of the watcher
    if (watcher) {
        watcher->deleteLater();
    }
}

} // namespace Tavro::Shared
