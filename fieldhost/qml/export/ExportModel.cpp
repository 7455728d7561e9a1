// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/export/ExportModel.h"

#include "fieldhost/jobs/Text.h"
#include "fieldhost/qml/export/LocalPath.h"

#include <QMetaObject>
#include <QVariantMap>

namespace Tavro::FieldHost {

using namespace ExportStates;

ExportModel::ExportModel(QObject *parent)
    : QObject(parent)
    , m_task(new ExportTask)
    , m_thread(m_task)
{
    connect(m_task, &ExportTask::stateChanged, this, &ExportModel::setState);
    connect(m_task, &ExportTask::planned, this, [this](const ExportSummary &summary) {
        m_summary = summary;
        Q_EMIT planChanged();
    });
    connect(m_task, &ExportTask::figuresChanged, this, [this](const ExportFigures &figures) {
        m_figures = figures;
        Q_EMIT figuresChanged();
    });
    connect(m_task, &ExportTask::said, this, [this](const QString &kind, const QString &sentence) {
        m_messages.append(
            QVariantMap{{QStringLiteral("kind"), kind}, {QStringLiteral("text"), sentence}});
        Q_EMIT messagesChanged();
    });
    connect(m_task, &ExportTask::ended, this, [this](State outcome, bool isUnmounted) {
        m_canPull = isUnmounted;
        setState(outcome);
    });
}

ExportModel::~ExportModel()
{
    m_task->interrupt(true);
    QMetaObject::invokeMethod(m_task, &ExportTask::close);
}

void ExportModel::setSource(const QString &source)
{
    const QString path = localPath(source);
    if (path != m_source && !isBusy()) {
        m_source = path;
        Q_EMIT sourceChanged();
    }
}

void ExportModel::setDestination(const QString &destination)
{
    const QString path = localPath(destination);
    if (path != m_destination && !isBusy()) {
        m_destination = path;
        Q_EMIT destinationChanged();
    }
}

void ExportModel::setVerify(bool verify)
{
    if (verify != m_verify && !isBusy()) {
        m_verify = verify;
        Q_EMIT verifyChanged();
    }
}

bool ExportModel::isBusy() const
{
    return m_state > Choosing && m_state < Done;
}

QString ExportModel::timeLeft() const
{
    return m_figures.timeLeft < 0 ? QString() : formatClock(m_figures.timeLeft);
}

void ExportModel::start()
{
    if (isBusy() || m_source.isEmpty() || m_destination.isEmpty()) {
        return;
    }
    forget();
    setState(Locking);
    m_task->interrupt(false);
    QMetaObject::invokeMethod(m_task, "begin", Q_ARG(QString, m_source),
                              Q_ARG(QString, m_destination), Q_ARG(bool, m_verify));
}

void ExportModel::confirm(bool replace)
{
    QMetaObject::invokeMethod(m_task, "confirm", Q_ARG(bool, replace));
}

void ExportModel::pause()
{
    QMetaObject::invokeMethod(m_task, "setPaused", Q_ARG(bool, true));
}

void ExportModel::resume()
{
    QMetaObject::invokeMethod(m_task, "setPaused", Q_ARG(bool, false));
}

void ExportModel::abort()
{
    m_task->interrupt(true);
    QMetaObject::invokeMethod(m_task, &ExportTask::abort);
}

void ExportModel::clear()
{
    if (!isBusy()) {
        forget();
        setState(Choosing);
    }
}

void ExportModel::setState(State state)
{
    if (state != m_state) {
        m_state = state;
        Q_EMIT stateChanged();
    }
}

void ExportModel::forget()
{
    m_summary = {};
    m_figures = {};
    m_messages.clear();
    m_canPull = false;
    Q_EMIT planChanged();
    Q_EMIT figuresChanged();
    Q_EMIT messagesChanged();
}

} // namespace Tavro::FieldHost
