// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/export/DeleteTask.h"

#include "fieldhost/jobs/Text.h"

#include <QThread>

namespace Tavro::FieldHost {

using namespace DeleteStates;

namespace {

constexpr int s_pulse = 100; // ms; an eye follows no more

} // namespace

DeleteTask::DeleteTask()
    : m_pulse(this) // moves along to the thread
{
    // a connection to a lambda does not register what it queues
    qRegisterMetaType<DeleteStates::State>();
    m_pulse.setInterval(s_pulse);
    connect(&m_pulse, &QTimer::timeout, this, &DeleteTask::reportBytes);
}

DeleteTask::~DeleteTask() = default;

void DeleteTask::begin(const QStringList &paths)
{
    m_run = std::make_unique<DeleteRun>(paths);
    connect(m_run.get(), &DeleteRun::deleted, this, [this](const QString &path) {
        Q_EMIT said(QStringLiteral("good"), tr("Deleted: %1").arg(quoted(path)));
        Q_EMIT deleted(path);
    });
    connect(m_run.get(), &DeleteRun::failed, this,
            [this](const QString &reason) { Q_EMIT said(QStringLiteral("bad"), reason); });
    // not while it emits: it goes then
    connect(m_run.get(), &DeleteRun::finished, this, &DeleteTask::onRunFinished,
            Qt::QueuedConnection);
    m_pulse.start();
    m_run->start();
}

void DeleteTask::abort()
{
    if (m_run) {
        m_run->abort();
    }
}

void DeleteTask::close()
{
    m_isClosing = true;
    abort();
    if (!m_run) {
        thread()->quit();
    }
}

void DeleteTask::reportBytes()
{
    if (m_run->hasProgress()) {
        const Progress &progress = m_run->progress();
        Q_EMIT bytesChanged(progress.bytes(), progress.totalBytes());
    }
}

void DeleteTask::onRunFinished()
{
    m_pulse.stop();
    const DeleteResult result = m_run->result();
    m_run.reset();
    Q_EMIT ended(result.left == 0 ? Done : result.isAborted ? Aborted : Failed, result.left);
    if (m_isClosing) {
        thread()->quit();
    }
}

} // namespace Tavro::FieldHost
