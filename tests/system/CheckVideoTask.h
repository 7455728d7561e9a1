// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/system/Async.h"

#include <QFile>
#include <QRunnable>

/** Checks whether a video can be read to its end. */
class CheckVideoTask : public QRunnable
{
public:
    CheckVideoTask(Tavro::Shared::Async &async, const QString &path)
        : m_async(async)
        , m_path(path)
    {
    }

    void run() override
    {
        const bool readable = isReadable();
        Q_EMIT m_async.taskDone(readable); // delivered to the owner's thread
        m_async.startNext(); // also after a failure, exactly once
        m_async.asyncDeleteLater(); // no effect unless setDeleteLater() was called
    }

private:
    bool isReadable() const
    {
        QFile file(m_path);
        if (!file.open(QIODevice::ReadOnly)) {
            return false;
        }
        constexpr qint64 chunk = 1 << 20; // bytes
        QByteArray bytes;
        do {
            bytes = file.read(chunk);
        } while (!bytes.isEmpty());
        return file.error() == QFile::NoError;
    }

    Tavro::Shared::Async &m_async; // whose destructor waits for this task
    const QString m_path;
};
