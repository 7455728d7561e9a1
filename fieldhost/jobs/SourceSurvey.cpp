// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/SourceSurvey.h"

#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <deque>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

struct Directory
{
    QString path; // relative, ends in "/" unless it is the root, which is empty
    int parent; // index of the directory it was found in, -1 for the root
    FileStatus status = {};
};

struct Entry
{
    int begin; // of its name
    int length;
    int keyBegin; // of what it is sorted by
    int keyLength;
    qint64 size;
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
    void look(int directoryFd, const char *name, const QString &directory);
    void keep(std::deque<Entry> &entries, const QString &name, qint64 size);
    void sortIn(int index);
    void sort(std::deque<Entry> &entries) const;
    QString nameOf(const Entry &entry) const;
    bool leadsBack(int index, const FileStatus &status) const;
    void addProblem(const QString &path, const QString &cause);
    void addProblem(const QString &directory, const QByteArray &name, const QString &cause);

    const QString m_root;
    const std::function<bool()> &m_canceled;
    QVector<Directory> m_directories; // first in, first out: the order of the copy
    // of one directory
    QString m_names; // one behind the other
    std::deque<Entry> m_foundDirectories;
    std::deque<Entry> m_foundFiles;
    SourceSurvey m_survey;
};

SourceSurvey Walk::run()
{
    m_directories.append({QString(), -1});
    for (int i = 0; i < m_directories.size(); ++i) {
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
    const QString directory = m_directories.at(index).path;
    const int fd = openDirectory(m_root + directory);
    FileStatus status = {};
    if (fd < 0 || ::fstat(fd, &status) != 0) {
        addProblem(directory,
                   JobText::tr("the directory cannot be read (%1)").arg(systemText(errno)));
        ::close(fd);
        return;
    }
    m_directories[index].status = status;
    if (leadsBack(m_directories.at(index).parent, status)) {
        addProblem(directory,
                   JobText::tr("the link leads back to a directory that holds it, "
                               "so the copy would never end"));
        ::close(fd);
        return;
    }

    m_names.resize(0);
    m_foundDirectories.clear();
    m_foundFiles.clear();
    const int error = visitEntries(fd, [&](const dirent &entry) {
        if (entry.d_name[0] == '.') {
            ++m_survey.hiddenEntries;
        } else {
            look(fd, entry.d_name, directory);
        }
    });
    if (error != 0) {
        addProblem(directory,
                   JobText::tr("the directory cannot be read (%1)").arg(systemText(error)));
    }
    sortIn(index);
}

void Walk::look(int directoryFd, const char *name, const QString &directory)
{
    FileStatus own = {};
    if (::fstatat(directoryFd, name, &own, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno != ENOENT) { // else removed since it was listed
            addProblem(directory, name, systemText(errno));
        }
        return;
    }
    const bool isLink = S_ISLNK(own.st_mode);
    FileStatus status = own;
    if (isLink && ::fstatat(directoryFd, name, &status, 0) != 0) {
        ++m_survey.brokenLinks;
        return;
    }
    const bool isFile = S_ISREG(status.st_mode);
    const bool isDirectory = S_ISDIR(status.st_mode);
    if (!isFile && !isDirectory) {
        if (isLink) {
            addProblem(directory, name,
                       JobText::tr("the link leads to a pipe, a socket or a device"));
        } else {
            ++m_survey.specialEntries;
        }
        return;
    }
    const QString text = nameFromBytes(name);
    if (text.isNull()) {
        addProblem(directory, name,
                   JobText::tr("the name is not valid UTF-8; it can be copied once renamed"));
        return;
    }
    if (isDirectory) {
        keep(m_foundDirectories, text, status.st_size);
        return;
    }
    if (::faccessat(directoryFd, name, R_OK, AT_EACCESS) != 0) {
        addProblem(directory + text,
                   JobText::tr("the file cannot be read (%1)").arg(systemText(errno)));
        return;
    }
    keep(m_foundFiles, text, status.st_size);
}

void Walk::keep(std::deque<Entry> &entries, const QString &name, qint64 size)
{
    const QString key = name.toLower();
    Entry entry = {m_names.size(), name.size(), m_names.size(), key.size(), size};
    m_names += name;
    if (key != name) {
        entry.keyBegin = m_names.size();
        m_names += key;
    }
    entries.push_back(entry);
}

void Walk::sortIn(int index)
{
    sort(m_foundDirectories);
    sort(m_foundFiles);
    const QString directory = m_directories.at(index).path;
    // the copy forms names in the destination by removing the source's path from them, wherever it
    // occurs
    if (directory.contains(m_root)) {
        for (const auto *entries : {&m_foundDirectories, &m_foundFiles}) {
            for (const Entry &entry : *entries) {
                addProblem(directory + nameOf(entry),
                           JobText::tr("its path holds the path of the source a second time, so "
                                       "it would be copied to a wrong place"));
            }
        }
        return;
    }
    for (const Entry &entry : m_foundDirectories) {
        const QString path = directory + nameOf(entry);
        m_survey.directories.append(path);
        m_directories.append({path + QLatin1Char('/'), index});
    }
    for (const Entry &entry : m_foundFiles) {
        m_survey.files.append(directory, nameOf(entry), entry.size);
        m_survey.bytes += entry.size;
    }
}

// the order of the copy; it tells which of several missing files was the first
void Walk::sort(std::deque<Entry> &entries) const
{
    const auto keyOf = [this](const Entry &entry) {
        return QStringView(m_names).mid(entry.keyBegin, entry.keyLength);
    };
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const Entry &a, const Entry &b) { return keyOf(a) < keyOf(b); });
}

QString Walk::nameOf(const Entry &entry) const
{
    return m_names.mid(entry.begin, entry.length);
}

bool Walk::leadsBack(int index, const FileStatus &status) const
{
    for (int i = index; i >= 0; i = m_directories.at(i).parent) {
        if (isSameFile(m_directories.at(i).status, status)) {
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

void Walk::addProblem(const QString &directory, const QByteArray &name, const QString &cause)
{
    m_survey.problems.append({quoted((m_root + directory).toUtf8() + name), cause});
}

} // namespace

SourceSurvey surveyDirectory(const QString &root, const std::function<bool()> &canceled)
{
    return Walk(root, canceled).run();
}

SourceSurvey surveyFile(const QString &path)
{
    SourceSurvey survey;
    const FileStatus status = targetStatusOf(path);
    if (status.st_mode == 0) {
        survey.problems.append({quoted(path), systemText(errno)});
    } else if (!S_ISREG(status.st_mode)) {
        survey.problems.append(
            {quoted(path), JobText::tr("neither a directory nor a regular file")});
    } else if (::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), R_OK, AT_EACCESS) != 0) {
        survey.problems.append(
            {quoted(path), JobText::tr("the file cannot be read (%1)").arg(systemText(errno))});
    } else {
        survey.files.append(QString(), QString(), status.st_size);
    }
    survey.bytes = status.st_size;
    return survey;
}

} // namespace Tavro::FieldHost
