#include "fieldhost/jobs/SourceSurvey.h"

#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"

#include <QFile>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

struct Folder
{
    QString path; // relative, ends in "/" unless it is the root, which is empty
    int parent; // index of the folder it was found in, -1 for the root
    dev_t device = 0;
    ino_t inode = 0;
};

struct Entry
{
    QString name;
    struct stat status;
};

class Walk
{
public:
    Walk(QString root, const std::function<bool()> &canceled)
        : m_root(std::move(root))
        , m_canceled(canceled)
    {
    }

    SourceSurvey run();

private:
    void visit(int index);
    void look(int directoryFd, const QByteArray &name, const QString &folder);
    void sortIn(int index);
    bool landsWhereItShould(const QString &path);
    bool leadsBack(int index, const struct stat &status) const;
    void addProblem(const QString &path, const QString &cause);
    void addProblem(const QString &folder, const QByteArray &name, const QString &cause);

    const QString m_root;
    const std::function<bool()> &m_canceled;
    QVector<Folder> m_folders; // first in, first out: the order of the copy
    std::vector<Entry> m_foundFolders;
    std::vector<Entry> m_foundFiles;
    SourceSurvey m_survey;
};

SourceSurvey Walk::run()
{
    m_folders.append({QString(), -1});
    for (int i = 0; i < m_folders.size(); ++i) {
        if (m_canceled()) {
            m_survey.canceled = true;
            break;
        }
        visit(i);
    }
    return std::move(m_survey);
}

void Walk::visit(int index)
{
    const QString folder = m_folders.at(index).path;
    const int fd = openFolder(m_root + folder);
    struct stat status
    {
    };
    if (fd < 0 || ::fstat(fd, &status) != 0) {
        addProblem(folder, QStringLiteral("the folder cannot be read (%1)").arg(systemText(errno)));
        ::close(fd);
        return;
    }
    m_folders[index].device = status.st_dev;
    m_folders[index].inode = status.st_ino;
    if (leadsBack(m_folders.at(index).parent, status)) {
        addProblem(folder,
                   QStringLiteral("the link leads back to a folder that holds it, "
                                  "so the copy would never end"));
        ::close(fd);
        return;
    }

    m_foundFolders.clear();
    m_foundFiles.clear();
    const int error = visitEntries(fd, [&](const dirent &entry) {
        if (entry.d_name[0] == '.') {
            ++m_survey.hiddenEntries;
        } else {
            look(fd, entry.d_name, folder);
        }
    });
    if (error != 0) {
        addProblem(folder, QStringLiteral("the folder cannot be read (%1)").arg(systemText(error)));
    }
    sortIn(index);
}

void Walk::look(int directoryFd, const QByteArray &name, const QString &folder)
{
    struct stat own
    {
    };
    if (::fstatat(directoryFd, name.constData(), &own, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno != ENOENT) { // else removed since it was listed
            addProblem(folder, name, systemText(errno));
        }
        return;
    }
    const bool isLink = S_ISLNK(own.st_mode);
    struct stat status = own;
    if (isLink && ::fstatat(directoryFd, name.constData(), &status, 0) != 0) {
        ++m_survey.brokenLinks;
        return;
    }
    const bool isFile = S_ISREG(status.st_mode);
    const bool isFolder = S_ISDIR(status.st_mode);
    if (!isFile && !isFolder) {
        if (isLink) {
            addProblem(folder, name,
                       QStringLiteral("the link leads to a pipe, a socket or a device"));
        } else {
            ++m_survey.specialEntries;
        }
        return;
    }
    const QString text = nameFromBytes(name);
    if (text.isNull()) {
        addProblem(folder, name,
                   QStringLiteral("the name is not valid UTF-8; it can be copied once renamed"));
        return;
    }
    if (isFolder) {
        m_foundFolders.push_back({text, status});
        return;
    }
    if (::faccessat(directoryFd, name.constData(), R_OK, AT_EACCESS) != 0) {
        addProblem(folder + text,
                   QStringLiteral("the file cannot be read (%1)").arg(systemText(errno)));
        return;
    }
    m_foundFiles.push_back({text, status});
}

void Walk::sortIn(int index)
{
    // the order of the copy; it tells which of several missing files was the first
    const auto byName = [](const Entry &a, const Entry &b) {
        return a.name.toLower() < b.name.toLower();
    };
    std::stable_sort(m_foundFolders.begin(), m_foundFolders.end(), byName);
    std::stable_sort(m_foundFiles.begin(), m_foundFiles.end(), byName);
    const QString folder = m_folders.at(index).path;
    for (const Entry &entry : m_foundFolders) {
        const QString path = folder + entry.name;
        if (landsWhereItShould(path)) {
            m_survey.directories.append(path);
            m_folders.append({path + QLatin1Char('/'), index});
        }
    }
    for (const Entry &entry : m_foundFiles) {
        const QString path = folder + entry.name;
        if (landsWhereItShould(path)) {
            m_survey.files.append({path, entry.status.st_size});
            m_survey.bytes += entry.status.st_size;
        }
    }
}

// the copy forms names in the destination by removing the source's path from them, wherever it
// occurs
bool Walk::landsWhereItShould(const QString &path)
{
    if (!path.contains(m_root)) {
        return true;
    }
    addProblem(path,
               QStringLiteral("its path holds the path of the source a second time, so it would be "
                              "copied to a wrong place"));
    return false;
}

bool Walk::leadsBack(int index, const struct stat &status) const
{
    for (int i = index; i >= 0; i = m_folders.at(i).parent) {
        if (m_folders.at(i).inode == status.st_ino && m_folders.at(i).device == status.st_dev) {
            return true;
        }
    }
    return false;
}

void Walk::addProblem(const QString &path, const QString &cause)
{
    QString shown = m_root + path;
    if (shown.endsWith(QLatin1Char('/')) && shown.size() > 1) {
        shown.chop(1);
    }
    m_survey.problems.append({quoted(shown), cause});
}

void Walk::addProblem(const QString &folder, const QByteArray &name, const QString &cause)
{
    m_survey.problems.append({quoted((m_root + folder).toUtf8() + name), cause});
}

} // namespace

SourceSurvey surveyDirectory(const QString &root, const std::function<bool()> &canceled)
{
    return Walk(root, canceled).run();
}

SourceSurvey surveyFile(const QString &path)
{
    SourceSurvey survey;
    const QByteArray name = QFile::encodeName(path);
    struct stat status
    {
    };
    if (::stat(name.constData(), &status) != 0) {
        survey.problems.append({quoted(path), systemText(errno)});
    } else if (!S_ISREG(status.st_mode)) {
        survey.problems.append(
            {quoted(path), QStringLiteral("neither a folder nor a regular file")});
    } else if (::faccessat(AT_FDCWD, name.constData(), R_OK, AT_EACCESS) != 0) {
        survey.problems.append(
            {quoted(path), QStringLiteral("the file cannot be read (%1)").arg(systemText(errno))});
    } else {
        survey.files.append({QString(), status.st_size});
    }
    survey.bytes = status.st_size;
    return survey;
}

} // namespace Tavro::FieldHost
