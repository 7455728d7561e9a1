// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/DeleteRun.h"

#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace Tavro::FieldHost {

using Shared::CFileDeleteController;

namespace {

// what is left of a directory, and why; empty when nothing is
QString failure(const Shared::CFileOperationResult &result)
{
    QStringList lines;
    if (!result.path.isEmpty()) {
        lines.append(withCause(DeleteRun::tr("%1 cannot be deleted").arg(quoted(result.path)),
                               result.systemError));
    }
    QStringList unreadable;
    for (const QString &directory : result.unreadableDirectories) {
        unreadable.append(withCause(
            DeleteRun::tr("The directory %1 cannot be read as a whole").arg(quoted(directory)),
            result.path.isEmpty() ? result.systemError : 0));
    }
    lines += listed(unreadable, DeleteRun::tr("The same goes for 1 more directory."),
                    DeleteRun::tr("The same goes for %1 more directories."));
    if (lines.isEmpty() && !result.isWhole()) {
        lines.append(DeleteRun::tr("The deletion did not come to its end."));
    }
    return lines.join(QLatin1Char('\n'));
}

// the same for a file or a link, which it deletes
QString deleteFile(const QString &path)
{
    if (::unlink(QFile::encodeName(path).constData()) != 0) {
        return withCause(DeleteRun::tr("%1 cannot be deleted").arg(quoted(path)), errno);
    }
    const QByteArray directory = QFile::encodeName(parentOf(absolutePath(path)));
    const int fd = ::open(directory.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) {
        ::sync(); // a directory that may be written to and not read
        return {};
    }
    const int error = ::fsync(fd) == 0 ? 0 : errno;
    ::close(fd);
    return error == 0
        ? QString()
        : withCause(DeleteRun::tr("That %1 is deleted could not be written to the device")
                        .arg(quoted(path)),
                    error);
}

} // namespace

QString whyNotDeleted(const QString &path)
{
    if (!existsOrIsLink(path)) {
        return JobText::tr("There is no %1.").arg(quoted(path));
    }
    const QString target = QFileInfo(path).canonicalFilePath();
    const QString here = QDir::current().canonicalPath();
    const bool isLink = QFileInfo(path).isSymLink();
    if (!isLink && (target == here || here.startsWith(below(target, QString())))) {
        return JobText::tr("%1 is, or holds, the current directory.").arg(quoted(path));
    }
    return {};
}

DeleteRun::DeleteRun(QStringList paths, QObject *parent)
    : QObject(parent)
    , m_paths(std::move(paths))
{
    connect(&m_controller, &CFileDeleteController::stateChanged, this, &DeleteRun::onStateChanged);
    connect(&m_controller, &CFileDeleteController::processedBytesChanged, this,
            &DeleteRun::progressChanged);
    connect(&m_controller, &CFileDeleteController::totalBytesChanged, this, [this] {
        if (m_controller.totalBytes() > 0) { // 0 is the end
            m_progress.start(m_controller.totalBytes());
        }
    });
}

void DeleteRun::start()
{
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
    const bool isThere = existsOrIsLink(path);
    if (failure.isEmpty() && !isThere) {
        ++m_result.deleted;
        Q_EMIT deleted(path);
    } else if (!m_isAborting) {
        QStringList lines;
        if (isThere) {
            lines.append(tr("%1, or part of it, is still there.").arg(quoted(path)));
        }
        if (!failure.isEmpty()) {
            lines.append(failure);
        }
        Q_EMIT failed(tr("Failed: %1").arg(lines.join(QLatin1Char('\n'))));
    }
    QMetaObject::invokeMethod(this, &DeleteRun::next, Qt::QueuedConnection);
}

bool DeleteRun::hasProgress() const
{
    return m_isAtWork && m_controller.state() == CFileDeleteController::StateDeleting;
}

const Progress &DeleteRun::progress()
{
    m_progress.update(m_controller.processedBytes());
    return m_progress;
}

void DeleteRun::finish()
{
    m_result.left = m_paths.size() - m_result.deleted;
    m_result.isAborted = m_isAborting && m_result.left > 0;
    Q_EMIT finished();
}

} // namespace Tavro::FieldHost
