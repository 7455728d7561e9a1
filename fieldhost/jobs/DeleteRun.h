#pragma once

#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/Progress.h"
#include "shared/fileops/CFileDeleteController.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace Tavro::FieldHost {

class Console;

/** Deletes folders, files and links one after the other, and says how it ended. */
class DeleteRun : public QObject
{
    Q_OBJECT

public:
    DeleteRun(QStringList paths, Console &console, QObject *parent = nullptr);

    /** Begins; finished() follows through the event loop. */
    void start();
    /** Ends it behind the folder that is being deleted, which goes whole. */
    void abort();

Q_SIGNALS:
    /** It is over, and the user has been told how; @p exitCode is an ExitCode. */
    void finished(int exitCode);

private:
    void next();
    void onStateChanged();
    void settle(const QString &failure);
    void showProgress();
    void finish();

    const QStringList m_paths;
    Console &m_console;
    Shared::CFileDeleteController m_controller;
    Progress m_progress;
    QTimer m_display;
    int m_current = -1;
    int m_deleted = 0;
    bool m_isAborting = false;
    bool m_isAtWork = false;
};

} // namespace Tavro::FieldHost
