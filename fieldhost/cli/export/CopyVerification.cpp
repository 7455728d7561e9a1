#include "fieldhost/cli/export/CopyVerification.h"

#include "shared/filesystem/CFileSystemHelper.h"

#include <QFile>
#include <QtConcurrentRun>

#include <fcntl.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

// what is in memory would be compared with itself; what is not written yet cannot leave it
void evict(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file >= 0) {
        ::fdatasync(file);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    }
}

} // namespace

std::vector<CopiedFile> copiedFiles(const ExportJob &job, const QString &root)
{
    std::vector<CopiedFile> files;
    files.reserve(static_cast<size_t>(job.survey.files.size()));
    for (const SurveyedFile &file : job.survey.files) {
        files.push_back({job.source + file.path, targetPath(job, file, root), file.size});
    }
    return files;
}

CopyVerification::CopyVerification(QObject *parent)
    : QObject(parent)
{
    connect(&m_watcher, &QFutureWatcher<void>::finished, this, &CopyVerification::finished);
}

CopyVerification::~CopyVerification()
{
    cancel();
    m_watcher.waitForFinished();
}

void CopyVerification::start(std::vector<CopiedFile> files)
{
    m_files = std::move(files);
    m_watcher.setFuture(QtConcurrent::run([this] { compareAll(); }));
}

void CopyVerification::cancel()
{
    m_canceled = true;
}

std::optional<CopyFault> CopyVerification::fault() const
{
    const std::lock_guard<std::mutex> lock(m_faultMutex);
    return m_fault;
}

void CopyVerification::compareAll()
{
    for (const CopiedFile &file : m_files) {
        if (m_canceled) {
            return;
        }
        evict(file.target);
        bool ok = false;
        const bool isEqual = Shared::CFileSystemHelper::compareFiles(file.source, file.target, ok);
        if (!ok || !isEqual) {
            const std::lock_guard<std::mutex> lock(m_faultMutex);
            m_fault = CopyFault{file.source,
                                ok ? QStringLiteral("its copy differs from it")
                                   : QStringLiteral("it or its copy cannot be read any more")};
            return;
        }
        m_comparedBytes += file.size;
    }
}

} // namespace Tavro::FieldHost
