#include "fieldhost/jobs/CopyCheck.h"

#include "fieldhost/jobs/Text.h"

#include <QFile>
#include <QHash>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

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

bool isFolder(const QByteArray &path)
{
    struct stat status
    {
    };
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

class Checker
{
public:
    Checker(const ExportJob &job, const QString &root)
        : m_job(job)
        , m_root(root)
    {
    }

    CopyCheck run();

private:
    void checkFile(const SurveyedFile &file);
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
    for (const QString &directory : qAsConst(m_job.survey.directories)) {
        // the controller goes on without a folder that it could not create, if no file needs it
        const QByteArray target = QFile::encodeName(m_root + QLatin1Char('/') + directory);
        if (!m_result.fault && !isFolder(target) && ::mkdir(target.constData(), 0777) != 0) {
            fail(m_job.source + directory,
                 QStringLiteral("the folder cannot be created in the destination (%1)")
                     .arg(systemText(errno)));
        }
    }
    return std::move(m_result);
}

void Checker::checkFile(const SurveyedFile &file)
{
    const QString source = m_job.source + file.path;
    const QString target = targetPath(m_job, file, m_root);
    const QByteArray targetName = QFile::encodeName(target);
    struct stat original
    {
    };
    struct stat copy
    {
    };
    const bool hasSource = ::stat(QFile::encodeName(source).constData(), &original) == 0;
    if (::lstat(targetName.constData(), &copy) != 0 || !S_ISREG(copy.st_mode)) {
        fail(source,
             hasSource ? QStringLiteral("it is not in the destination")
                       : QStringLiteral("it is no longer in the source"));
        return;
    }
    if (hasSource && original.st_size != copy.st_size) {
        ::unlink(targetName.constData());
        fail(source,
             QStringLiteral("reading it gave %1 where its size says %2; it may have changed while "
                            "it was copied")
                 .arg(formatBytes(copy.st_size), formatBytes(original.st_size)));
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
