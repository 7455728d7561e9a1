#include "fieldhost/cli/export/StagedCopy.h"

#include "fieldhost/cli/Paths.h"
#include "fieldhost/cli/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

bool isFolder(const QString &path)
{
    struct stat status
    {
    };
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

QString nameOf(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

// the controller takes blanks and tabs at the end of a file's path away
bool endsInBlank(const QString &path)
{
    return path.endsWith(QLatin1Char(' ')) || path.endsWith(QLatin1Char('\t'));
}

int flushFileSystem(const QString &path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return errno;
    }
    const int error = ::syncfs(fd) == 0 ? 0 : errno;
    ::close(fd);
    return error;
}

} // namespace

StagedCopy::StagedCopy(const ExportJob &job)
    : m_job(job)
    , m_root(job.landing)
{
}

StagedCopy::~StagedCopy() = default;

bool StagedCopy::prepare()
{
    const bool blankFile = !m_job.isFolder && endsInBlank(m_job.landing);
    if (!m_job.landingExists && !blankFile) {
        return createFolders(m_job.isFolder ? m_job.landing : parentOf(m_job.landing));
    }

    const QString place = m_job.isFolder ? m_job.landing : parentOf(m_job.landing);
    if (!createFolders(place)) {
        return false;
    }
    m_folder = std::make_unique<QTemporaryDir>(place + QLatin1String("/.ovo-export-XXXXXX"));
    if (!m_folder->isValid()) {
        return fail(QStringLiteral("A folder for the copy cannot be created in %1: %2.")
                        .arg(quoted(place), m_folder->errorString()));
    }
    m_folder->setAutoRemove(false); // by discard() or keep(), which look at what they do
    // a folder keeps its name, because the controller shows it
    m_root = m_folder->path() + QLatin1Char('/')
        + (m_job.isFolder ? nameOf(m_job.landing) : QStringLiteral("file"));
    return !m_job.isFolder || createFolders(m_root);
}

bool StagedCopy::createFolders(const QString &path)
{
    QStringList missing;
    for (QString folder = path; !existsOrIsLink(folder); folder = parentOf(folder)) {
        missing.prepend(folder);
    }
    for (const QString &folder : qAsConst(missing)) {
        if (::mkdir(QFile::encodeName(folder).constData(), 0777) != 0) {
            return fail(QStringLiteral("The folder %1 cannot be created: %2.")
                            .arg(quoted(folder), systemText(errno)));
        }
        m_created.append(folder);
    }
    return true;
}

bool StagedCopy::settle()
{
    if (m_folder) {
        if (!merge(m_root, m_job.landing)) {
            return false;
        }
        keep();
    }
    const QString place = m_job.isFolder ? m_job.landing : parentOf(m_job.landing);
    // the last of the folders and empty files, and what was moved
    const int error = flushFileSystem(place);
    return error == 0
        || fail(QStringLiteral("The copy in %1 could not be written to the device: %2.")
                    .arg(quoted(place), systemText(error)));
}

bool StagedCopy::merge(const QString &from, const QString &to)
{
    if (!isFolder(from) || !existsOrIsLink(to)) {
        if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData())
            == 0) {
            return true;
        }
        return fail(QStringLiteral("%1 cannot be moved to its place: %2. It lies whole at %3.")
                        .arg(quoted(to), systemText(errno), quoted(from)));
    }
    const QStringList names = QDir(from).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString &name : names) {
        if (!merge(from + QLatin1Char('/') + name, to + QLatin1Char('/') + name)) {
            return false;
        }
    }
    return true;
}

QStringList StagedCopy::discard()
{
    QStringList removed;
    if (m_folder) {
        removed.append(m_folder->path());
        m_folder->remove();
        m_folder.reset();
    } else if (!m_job.landingExists) {
        removed.append(m_job.landing);
        if (m_job.isFolder) {
            QDir(m_job.landing).removeRecursively();
        } else {
            QFile::remove(m_job.landing);
        }
    }
    // those below a folder just removed are gone; another job's files keep theirs
    while (!m_created.isEmpty()) {
        ::rmdir(QFile::encodeName(m_created.takeLast()).constData());
    }
    return removed;
}

void StagedCopy::keep()
{
    if (m_folder) {
        m_folder->remove();
    }
    m_folder.reset();
    m_created.clear();
}

bool StagedCopy::fail(const QString &sentence)
{
    m_error = sentence;
    return false;
}

} // namespace Tavro::FieldHost
