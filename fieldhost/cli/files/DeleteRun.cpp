#include "fieldhost/cli/files/DeleteRun.h"

#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/Paths.h"
#include "fieldhost/cli/Text.h"
#include "shared/filesystem/CFileSystemHelper.h"

#include <QFileInfo>

namespace Tavro::FieldHost {

using Shared::CFileDeleteController;

namespace {

constexpr int s_liveInterval = 100; // ms
constexpr int s_plainInterval = 1000; // ms

} // namespace

DeleteRun::DeleteRun(QStringList paths, Console &console, QObject *parent)
    : QObject(parent)
    , m_paths(std::move(paths))
    , m_console(console)
{
    connect(&m_controller, &CFileDeleteController::stateChanged, this, &DeleteRun::onStateChanged);
    connect(&m_controller, &CFileDeleteController::totalBytesChanged, this, [this] {
        if (m_controller.totalBytes() > 0) { // 0 is the end
            m_progress.start(m_controller.totalBytes());
        }
    });
    m_display.setInterval(console.isLive() ? s_liveInterval : s_plainInterval);
    connect(&m_display, &QTimer::timeout, this, &DeleteRun::showProgress);
}

void DeleteRun::start()
{
    m_display.start();
    QMetaObject::invokeMethod(this, &DeleteRun::next, Qt::QueuedConnection);
}

void DeleteRun::abort()
{
    m_isAborting = true;
    m_controller.abort();
}

void DeleteRun::next()
{
    ++m_current;
    if (m_isAborting || m_current == m_paths.size()) {
        finish();
        return;
    }
    const QString path = m_paths.at(m_current);
    const QFileInfo info(path);
    if (info.isDir() && !info.isSymLink()) {
        m_isAtWork = true;
        m_controller.deleteDirectory(path); // onStateChanged() hears of its end
        return;
    }
    Shared::CFileSystemHelper::deleteFiles({path}, false);
    settle();
}

void DeleteRun::onStateChanged()
{
    if (m_isAtWork && m_controller.state() == CFileDeleteController::StateIdle) {
        m_isAtWork = false;
        settle();
    }
}

// the controller does not tell whether it succeeded
void DeleteRun::settle()
{
    const QString path = m_paths.at(m_current);
    m_console.clearLiveLine();
    if (!existsOrIsLink(path)) {
        ++m_deleted;
        m_console.print(QStringLiteral("Deleted: %1").arg(quoted(path)));
    } else if (!m_isAborting) {
        m_console.printError(
            QStringLiteral("Failed: %1, or part of it, is still there.").arg(quoted(path)));
    }
    QMetaObject::invokeMethod(this, &DeleteRun::next, Qt::QueuedConnection);
}

void DeleteRun::showProgress()
{
    if (!m_isAtWork || m_controller.state() != CFileDeleteController::StateDeleting) {
        return;
    }
    m_progress.update(m_controller.processedBytes());
    const QString text = m_progress.text();
    if (m_console.isLive()) {
        m_console.setLiveLine(text);
    } else {
        m_console.print(text);
    }
}

void DeleteRun::finish()
{
    m_display.stop();
    m_console.clearLiveLine();
    const int left = m_paths.size() - m_deleted;
    if (left > 0) {
        m_console.printError(
            QStringLiteral("%1: %2 of %3 not deleted.")
                .arg(m_isAborting ? QStringLiteral("Aborted") : QStringLiteral("Failed"))
                .arg(left)
                .arg(m_paths.size()));
    }
    Q_EMIT finished(left == 0 ? ExitDone : m_isAborting ? ExitAborted : ExitFailed);
}

} // namespace Tavro::FieldHost
