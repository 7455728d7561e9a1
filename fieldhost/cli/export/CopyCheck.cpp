#include "fieldhost/cli/export/CopyCheck.h"

#include "fieldhost/cli/Text.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHash>

#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

constexpr qint64 s_rereadLimit = 5000; // ms: long enough to meet a bad spot near the beginning

class Descriptor
{
    Q_DISABLE_COPY(Descriptor)

public:
    explicit Descriptor(int fd)
        : m_fd(fd)
    {
    }
    ~Descriptor()
    {
        if (m_fd >= 0) {
            ::close(m_fd);
        }
    }
    int get() const { return m_fd; }

private:
    const int m_fd;
};

// why the source cannot be read through; empty when it can
QString readingFault(const QByteArray &source, qint64 claimedSize)
{
    const Descriptor file(::open(source.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.get() < 0) {
        return QStringLiteral("it cannot be read (%1)").arg(systemText(errno));
    }
    qint64 size = 0;
    std::vector<char> buffer(1U << 20U);
    QElapsedTimer elapsed;
    elapsed.start();
    while (!elapsed.hasExpired(s_rereadLimit)) {
        const ssize_t n = ::read(file.get(), buffer.data(), buffer.size());
        if (n < 0) {
            return QStringLiteral("reading it fails (%1)").arg(systemText(errno));
        }
        if (n > 0) {
            size += n;
            continue;
        }
        // the kernel's own files have sizes that mean nothing
        return size == claimedSize ? QString()
                                   : QStringLiteral("reading it gives %1 where its size says %2")
                                         .arg(formatBytes(size), formatBytes(claimedSize));
    }
    return {};
}

QString sourceFault(const QByteArray &source, qint64 surveyedSize)
{
    struct stat status
    {
    };
    if (::stat(source.constData(), &status) != 0) {
        return errno == ENOENT ? QStringLiteral("it is no longer in the source")
                               : QStringLiteral("it cannot be reached (%1)").arg(systemText(errno));
    }
    if (!S_ISREG(status.st_mode)) {
        return QStringLiteral("it is no longer a regular file");
    }
    if (status.st_size != surveyedSize) {
        return QStringLiteral("it changed while it was copied: %1 before, %2 now")
            .arg(formatBytes(surveyedSize), formatBytes(status.st_size));
    }
    return readingFault(source, surveyedSize);
}

// a new file in the place of the lost one; errno when that is refused
int creationError(const QByteArray &target)
{
    const Descriptor file(
        ::open(target.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (file.get() < 0) {
        return errno;
    }
    ::unlink(target.constData());
    return 0;
}

QString destinationFault(const QByteArray &target, const QByteArray &root, qint64 size)
{
    struct statvfs space
    {
    };
    if (::statvfs(root.constData(), &space) == 0) {
        const qint64 available =
            static_cast<qint64>(space.f_bavail) * static_cast<qint64>(space.f_frsize);
        if (available < size || available == 0) {
            return QStringLiteral("the destination is full: it needs %1, and %2 are free")
                .arg(formatBytes(size), formatBytes(available));
        }
        if (space.f_files > 0 && space.f_favail == 0) {
            return QStringLiteral(
                "the destination has room for no more files, whatever their size");
        }
    }
    const int error = creationError(target);
    if (error == ENAMETOOLONG) {
        return QStringLiteral("its name is too long for the destination");
    }
    if (error == EINVAL) {
        return QStringLiteral("the destination's file system does not take its name");
    }
    if (error != 0) {
        return QStringLiteral("it cannot be created in the destination (%1)")
            .arg(systemText(error));
    }
    return QStringLiteral("writing it failed, though there is room for it now; the drive may "
                          "have been unplugged, or be about to fail");
}

QByteArray parentOf(const QByteArray &path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

// Files whose names differ in case or composition only are one and the same on some file systems.
class Namesakes
{
public:
    // source of the other name of this very file; null when it is a file of its own
    QString other(const QString &source, const QString &target, const struct stat &status)
    {
        const QString key = target.normalized(QString::NormalizationForm_C).toCaseFolded();
        for (auto it = m_files.constFind(key); it != m_files.constEnd() && it.key() == key; ++it) {
            if (it->inode == status.st_ino && it->device == status.st_dev) {
                return it->source;
            }
        }
        m_files.insert(key, {source, status.st_dev, status.st_ino});
        return {};
    }

private:
    struct File
    {
        QString source;
        dev_t device;
        ino_t inode;
    };
    QMultiHash<QString, File> m_files;
};

class Checker
{
public:
    Checker(const ExportJob &job, QString root)
        : m_job(job)
        , m_root(std::move(root))
    {
    }

    CopyCheck run();

private:
    void checkFile(const SurveyedFile &file);
    void checkFolders();
    void fail(const QString &source, const QString &cause);

    const ExportJob &m_job;
    const QString m_root;
    Namesakes m_namesakes;
    CopyCheck m_result;
};

CopyCheck Checker::run()
{
    // files first: where both lack, a file's cause says more
    for (const SurveyedFile &file : qAsConst(m_job.survey.files)) {
        checkFile(file);
    }
    checkFolders();
    return std::move(m_result);
}

void Checker::checkFile(const SurveyedFile &file)
{
    const QString source = m_job.source + file.path;
    const QString target = targetPath(m_job, file, m_root);
    const QByteArray sourceName = QFile::encodeName(source);
    const QByteArray targetName = QFile::encodeName(target);
    struct stat original
    {
    };
    struct stat copy
    {
    };
    const bool copyExists = ::lstat(targetName.constData(), &copy) == 0;
    const bool whole = copyExists && S_ISREG(copy.st_mode)
        && ::stat(sourceName.constData(), &original) == 0 && original.st_size == copy.st_size;
    if (!whole) {
        if (copyExists) {
            ::unlink(targetName.constData());
        }
        if (!m_result.fault) {
            QString cause = sourceFault(sourceName, file.size);
            if (cause.isEmpty()) {
                cause = destinationFault(
                    targetName, m_job.isFolder ? QFile::encodeName(m_root) : parentOf(targetName),
                    file.size);
            }
            fail(source, cause);
        }
        return;
    }
    const QString other = m_namesakes.other(source, target, copy);
    if (!other.isEmpty()) {
        fail(source,
             QStringLiteral("its name and that of %1 are one and the same on the destination's "
                            "file system, so that one of them has replaced the other")
                 .arg(quoted(other)));
        return;
    }
    ++m_result.wholeFiles;
    m_result.wholeBytes += copy.st_size;
}

void Checker::checkFolders()
{
    if (m_result.fault) {
        return;
    }
    for (const QString &directory : qAsConst(m_job.survey.directories)) {
        const QByteArray target = QFile::encodeName(m_root + QLatin1Char('/') + directory);
        struct stat status
        {
        };
        if (::lstat(target.constData(), &status) == 0 && S_ISDIR(status.st_mode)) {
            continue;
        }
        // the controller goes on without a folder that it could not create, if no file needs it
        if (::mkdir(target.constData(), 0777) != 0) {
            fail(m_job.source + directory,
                 QStringLiteral("the folder cannot be created in the destination (%1)")
                     .arg(systemText(errno)));
        }
    }
}

void Checker::fail(const QString &source, const QString &cause)
{
    if (!m_result.fault) {
        m_result.fault = CopyFault{source, cause};
    }
}

} // namespace

CopyCheck checkCopy(const ExportJob &job, const QString &root)
{
    return Checker(job, root).run();
}

} // namespace Tavro::FieldHost
