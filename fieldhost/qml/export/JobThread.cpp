// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/export/JobThread.h"

#include <QThread>

namespace Tavro::FieldHost {

namespace {

constexpr unsigned long s_patience = 30'000; // ms; an abort removes what it has copied

} // namespace

JobThread::JobThread(QObject *job)
    : m_thread(new QThread)
{
    job->moveToThread(m_thread);
    QObject::connect(m_thread, &QThread::finished, job, &QObject::deleteLater);
    m_thread->start();
}

JobThread::~JobThread()
{
    if (m_thread->wait(s_patience)) {
        delete m_thread;
    }
}

} // namespace Tavro::FieldHost
