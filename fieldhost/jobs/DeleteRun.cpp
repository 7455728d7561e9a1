#include "fieldhost/jobs/DeleteRun.h"

#include "fieldhost/cli/Console.h"
#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace Tavro::FieldHost {

using Shared::CFileDeleteController;

namespace {

constexpr int s_liveInterval = 100; // ms
constexpr int s_plainInterval = 1000; // ms
constexpr int s_shownFolders = 5;

QString sentence(const char *what, const QString &path, int error)
{
    const QString text = QString::fromLatin1(what).replace(QLatin1String("%1"), quoted(path));
    return error == 0 ? text + QLatin1Char('.')
                      : text + QStringLiteral(": %1.").arg(systemText(error));
}

// what is left of a folder, and why; empty when nothing is
QString failure(const Shared::CFileOperationResult &result)
{
    QStringList lines;
    if (!result.path.isEmpty()) {
        lines.append(sentence("%1 cannot be deleted", result.path, result.systemError));
    }
    const QStringList &folders = result.unreadableDirectories;
    for (int i = 0; i < qMin(folders.size(), s_shownFolders); ++i) {
        lines.append(sentence("The folder %1 cannot be read as a whole", folders.at(i),
                              result.path.isEmpty() ? result.systemError : 0));
    }
    if (folders.size() > s_shownFolders) {
        lines.append(QStringLiteral("The same goes for %1.")
                         .arg(counted(folders.size() - s_shownFolders, "more folder")));
    }
    if (lines.isEmpty() && !result.isWhole()) {
        lines.append(QStringLiteral("The deletion did not come to its end."));
    }
    return lines.join(QLatin1Char('\n'));
}

// the same for a file or a link, which it deletes
QString deleteFile(const QString &path)
{
    if (::unlink(QFile::encodeName(path).constData()) != 0) {
        return sentence("%1 cannot be deleted", path, errno);
    }
    const QByteArray folder = QFile::encodeName(parentOf(absolutePath(path)));
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) {
        ::sync(); // a folder that may be written to and not read
        return {};
    }
    const int error = ::fsync(fd) == 0 ? 0 : errno;
    ::close(fd);
    return error == 0
        ? QString()
        : sentence("That %1 is deleted could not be written to the device", path, error);
}

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
    settle(deleteFile(path));
}

void DeleteRun::onStateChanged()
{
    if (m_isAtWork && m_controller.state() == CFileDeleteController::StateIdle) {
        m_isAtWork = false;
        settle(failure(m_controller.lastResult()));
    }
}

void DeleteRun::settle(const QString &failure)
{
    const QString path = m_paths.at(m_current);
    m_console.clearLiveLine();
    const bool isThere = existsOrIsLink(path);
    if (failure.isEmpty() && !isThere) {
        ++m_deleted;
        m_console.print(QStringLiteral("Deleted: %1").arg(quoted(path)));
    } else if (!m_isAborting) {
        QStringList lines;
        if (isThere) {
            lines.append(QStringLiteral("%1, or part of it, is still there.").arg(quoted(path)));
        }
        if (!failure.isEmpty()) {
            lines.append(failure);
        }
        m_console.printError(QStringLiteral("Failed: ") + lines.join(QLatin1Char('\n')));
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
