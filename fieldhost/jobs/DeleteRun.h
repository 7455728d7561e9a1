// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/Progress.h"
#include "shared/fileops/CFileDeleteController.h"

#include <QObject>
#include <QStringList>

namespace Tavro::FieldHost {

/** Why @p path must not be deleted, as a sentence; empty when it may. */
QString whyNotDeleted(const QString &path);

/** How a deletion ended. */
struct DeleteResult
{
    int deleted = 0; // of the paths
    int left = 0; // that are still there, at least in part
    bool isAborted = false; // the user ended it before all were deleted
};

/** Deletes directories, files and links one after the other. */
class DeleteRun : public QObject
{
    Q_OBJECT

public:
    explicit DeleteRun(QStringList paths, QObject *parent = nullptr);

    /** Begins; finished() follows through the event loop. */
    void start();
    /** Ends it behind the directory that is being deleted, which goes whole. */
    void abort();

    /** True while the files of a directory are being deleted, whose progress() is known. */
    bool hasProgress() const;
    /** Of the directory that is being deleted, as of now. */
    const Progress &progress();
    /** Complete with finished(). */
    const DeleteResult &result() const { return m_result; }

Q_SIGNALS:
    /** Emitted when there are more bytes. */
    void progressChanged();
    /** One of the paths is deleted, and that is on the device. */
    void deleted(const QString &path);
    /** One of the paths is not, or not whole; @p reason is for the user, sentences in lines. */
    void failed(const QString &reason);
    /** It is over, and result() complete. Exactly once. */
    void finished();

private:
    void next();
    void onStateChanged();
    void settle(const QString &failure);
    void finish();

    const QStringList m_paths;
    Shared::CFileDeleteController m_controller;
    Progress m_progress;
    DeleteResult m_result;
    int m_current = -1;
    bool m_isAborting = false;
    bool m_isAtWork = false;
};

} // namespace Tavro::FieldHost
