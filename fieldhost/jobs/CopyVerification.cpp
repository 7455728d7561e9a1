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

std::vector<CopiedFile> copiedFiles(const ExportJob &job, const QString &root)
{
    std::vector<CopiedFile> files;
    files.reserve(static_cast<size_t>(job.survey.files.size()));
    for (const SurveyedFile &file : job.survey.files) {
        files.push_back({job.source + file.path, targetPath(job, file, root)});
    }
    return files;
}

CopyVerification::CopyVerification(std::vector<CopiedFile> files, QObject *parent)
    : QObject(parent)
    , m_files(std::move(files))
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
    const bool isOver = m_next == m_files.size() && !m_source.isOpen();
    if (m_isCanceled || isOver || !(m_source.isOpen() ? compareChunk() : openNext())) {
        Q_EMIT finished();
        return;
    }
    start();
}

bool CopyVerification::openNext()
{
    const CopiedFile &file = m_files.at(m_next++);
    m_source.setFileName(file.source);
    m_target.setFileName(file.target);
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
