#include "fieldhost/jobs/CopyCheck.h"

#include "fieldhost/jobs/Text.h"

#include <QFile>
#include <QHash>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

struct Copy
{
    QString source;
    struct stat status;
};

bool isSameFile(const struct stat &a, const struct stat &b)
{
    return a.st_ino == b.st_ino && a.st_dev == b.st_dev;
}

// what differs between names that some file systems take for one: case and composition
QString foldedName(const QString &path)
{
    return path.normalized(QString::NormalizationForm_C).toCaseFolded();
}

bool isDirectory(const QByteArray &path)
{
    struct stat status
    {
    };
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

CopyCheck checkCopy(const ExportJob &job, const QString &root)
{
    CopyCheck check;
    const auto fail = [&check](const QString &source, const QString &cause) {
        if (!check.fault) {
            check.fault = CopyFault{source, cause};
        }
    };
    QHash<QString, Copy> copies; // the last of each folded name
    // files first: where both lack, a file's cause says more
    for (const SurveyedFile &file : job.survey.files) {
        const QString source = job.source + file.path;
        const QString target = targetPath(job, file, root);
        const QByteArray targetName = QFile::encodeName(target);
        struct stat original
        {
        };
        Copy copy{source, {}};
        const bool hasSource = ::stat(QFile::encodeName(source).constData(), &original) == 0;
        if (::lstat(targetName.constData(), &copy.status) != 0 || !S_ISREG(copy.status.st_mode)) {
            fail(source,
                 hasSource ? QStringLiteral("it is not in the destination")
                           : QStringLiteral("it is no longer in the source"));
            continue;
        }
        if (hasSource && original.st_size != copy.status.st_size) {
            ::unlink(targetName.constData());
            fail(source,
                 QStringLiteral("reading it gave %1 where its size says %2; it may have changed "
                                "while it was copied")
                     .arg(formatBytes(copy.status.st_size), formatBytes(original.st_size)));
            continue;
        }
        Copy &other = copies[foldedName(target)];
        if (!other.source.isEmpty() && isSameFile(other.status, copy.status)) {
            fail(source,
                 QStringLiteral("its name and that of %1 are one and the same on the "
                                "destination's file system, so that one of them has replaced the "
                                "other")
                     .arg(quoted(other.source)));
            continue;
        }
        other = copy;
        ++check.wholeFiles;
        check.wholeBytes += copy.status.st_size;
    }
    for (const QString &directory : job.survey.directories) {
        // the controller goes on without a directory that it could not create, if no file needs it
        const QByteArray target = QFile::encodeName(root + QLatin1Char('/') + directory);
        if (!check.fault && !isDirectory(target) && ::mkdir(target.constData(), 0777) != 0) {
            fail(job.source + directory,
                 QStringLiteral("the directory cannot be created in the destination (%1)")
                     .arg(systemText(errno)));
        }
    }
    return check;
}

} // namespace Tavro::FieldHost
