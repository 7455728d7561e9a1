// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/CopyVerification.h"

#include <QMetaObject>

#include <fcntl.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

constexpr int s_chunk = 4 << 20;

// what is in memory would be compared with itself; what is not written yet cannot leave it
void evict(const QFile &file)
{
    ::fdatasync(file.handle());
    ::posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED);
}

} // namespace

CopyVerification::CopyVerification(std::vector<FinishedCopy> copies, QObject *parent)
    : QObject(parent)
    , m_copies(std::move(copies))
    , m_copy(m_copies.begin())
    , m_next(m_copy->job.survey.files.begin())
{
}

void CopyVerification::start()
{
    QMetaObject::invokeMethod(this, &CopyVerification::step, Qt::QueuedConnection);
}

void CopyVerification::cancel()
{
    m_isCanceled = true;
}

void CopyVerification::step()
{
    const bool isOver = !m_source.isOpen() && !hasNext();
    if (m_isCanceled || isOver || !(m_source.isOpen() ? compareChunk() : openNext())) {
        Q_EMIT finished();
        return;
    }
    start();
}

// goes on to the copy that the next file is of
bool CopyVerification::hasNext()
{
    while (m_next == m_copy->job.survey.files.end()) {
        if (++m_copy == m_copies.end()) {
            return false;
        }
        m_next = m_copy->job.survey.files.begin();
    }
    return true;
}

bool CopyVerification::openNext()
{
    const SurveyedFile file = *m_next;
    ++m_next;
    m_source.setFileName(m_copy->job.source + file.path);
    m_target.setFileName(targetPath(m_copy->job, file, m_copy->root));
    if (!m_source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
        || !m_target.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        fail(tr("it or its copy cannot be read any more"));
        return false;
    }
    evict(m_target);
    return true;
}

bool CopyVerification::compareChunk()
{
    const QByteArray original = m_source.read(s_chunk);
    const QByteArray copy = m_target.read(s_chunk);
    if (m_source.error() != QFileDevice::NoError || m_target.error() != QFileDevice::NoError) {
        fail(tr("it or its copy cannot be read any more"));
        return false;
    }
    if (original != copy) {
        fail(tr("its copy differs from it"));
        return false;
    }
    m_comparedBytes += original.size();
    Q_EMIT progressChanged();
    if (original.size() < s_chunk) {
        m_source.close();
        m_target.close();
    }
    return true;
}

void CopyVerification::fail(const QString &cause)
{
    m_fault = CopyFault{m_source.fileName(), cause};
}

} // namespace Tavro::FieldHost
