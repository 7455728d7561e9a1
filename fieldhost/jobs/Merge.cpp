// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/Merge.h"

#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

constexpr int s_batch = 64; // files of one directory that share the flushes; each is kept open

using FileSystem = struct statfs;

constexpr long s_xfsMagic = 0x58465342;

class Descriptor
{
    Q_DISABLE_COPY(Descriptor)

public:
    Descriptor(const QString &path, int flags)
        : m_fd(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC))
    {
    }
    Descriptor(Descriptor &&other) noexcept
        : m_fd(std::exchange(other.m_fd, -1))
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
    int m_fd;
};

int flushDirectory(const QString &path)
{
    const Descriptor directory(path, O_RDONLY | O_DIRECTORY);
    return directory.get() >= 0 && ::fsync(directory.get()) == 0 ? 0 : errno;
}

int rename(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0
        ? 0
        : errno;
}

} // namespace

int flushVolume(const QString &directory)
{
    const Descriptor descriptor(directory, O_RDONLY | O_DIRECTORY);
    // FAT writes all with syncfs(), and has the drive empty its cache with fsync() only
    return descriptor.get() >= 0 && ::syncfs(descriptor.get()) == 0
            && ::fsync(descriptor.get()) == 0
        ? 0
        : errno;
}

Merge::Merge(const ExportJob &job, QString copy, QString place, QString backups)
    : m_job(job)
    , m_copy(std::move(copy))
    , m_place(std::move(place))
    , m_backups(std::move(backups))
{
}

bool Merge::run()
{
    FileSystem system = {};
    const QString directory = m_job.isDirectory ? m_place : parentOf(m_place);
    if (::statfs(QFile::encodeName(directory).constData(), &system) != 0) {
        return fail(directory, errno);
    }
    switch (static_cast<quint32>(system.f_type)) { // signed where a long has 32 bits
    case EXT4_SUPER_MAGIC: // and ext2, ext3
    case BTRFS_SUPER_MAGIC:
    case F2FS_SUPER_MAGIC:
    case TMPFS_MAGIC:
    case OVERLAYFS_SUPER_MAGIC:
    case s_xfsMagic:
        m_renaming = Renaming::Atomic;
        break;
    case MSDOS_SUPER_MAGIC:
        m_renaming = Renaming::InPlace;
        break;
    default:
        m_renaming = Renaming::ByAnotherName;
    }

    if (!createDirectories()) {
        return false;
    }
    QStringList batch;
    for (const SurveyedFile &file : m_job.survey.files) {
        const bool isFull = batch.size() == s_batch
            || (!batch.isEmpty() && parentOf(batch.constFirst()) != parentOf(file.path));
        if (isFull && !placeFiles(std::exchange(batch, {}))) {
            return false;
        }
        batch.append(file.path);
    }
    return batch.isEmpty() || placeFiles(batch);
}

bool Merge::createDirectories()
{
    for (const QString &directory : qAsConst(m_job.survey.directories)) {
        const QString path = below(m_place, directory);
        if (::mkdir(QFile::encodeName(path).constData(), 0777) != 0 && errno != EEXIST) {
            return fail(path, errno);
        }
    }
    return flush();
}

bool Merge::placeFiles(const QStringList &files)
{
    if (m_renaming == Renaming::ByAnotherName) {
        for (const QString &file : files) {
            if (!setAside(file)) {
                return false;
            }
        }
        if (!flush()) {
            return false;
        }
    }
    std::vector<Descriptor> before;
    for (const QString &file : files) {
        const QString place = at(m_place, file);
        before.emplace_back(place, O_PATH | O_NOFOLLOW);
        if (before.back().get() < 0 && errno != ENOENT) {
            return fail(place, errno);
        }
        if (const int error = rename(at(m_copy, file), place)) {
            return fail(place, error);
        }
        ++m_moved;
    }
    // Where both entries can be on the device for a time, a check of the volume would cut one of
    // them off; where the old file can be gone before its name is, it would remove the name.
    const QString directory =
        parentOf(at(m_renaming == Renaming::InPlace ? m_copy : m_place, files.constFirst()));
    if (const int error = flushDirectory(directory)) {
        return fail(directory, error);
    }
    if (!flush()) {
        return false;
    }
    m_placed = m_moved;
    if (m_renaming == Renaming::ByAnotherName) {
        for (const QString &file : files) {
            ::unlink(QFile::encodeName(at(m_backups, file)).constData());
        }
    }
    return true;
}

bool Merge::setAside(const QString &file)
{
    const QString place = at(m_place, file);
    const FileStatus status = statusOf(place);
    if (status.st_mode == 0) {
        return errno == ENOENT || fail(place, errno);
    }
    if (S_ISDIR(status.st_mode)) {
        return fail(place, EISDIR);
    }
    const QString backup = at(m_backups, file);
    QDir().mkpath(parentOf(backup));
    const int error = rename(place, backup);
    return error == 0 || fail(place, error);
}

bool Merge::flush()
{
    const QString directory = m_job.isDirectory ? m_place : parentOf(m_place);
    const int error = flushVolume(directory);
    return error == 0 || fail(directory, error);
}

bool Merge::fail(const QString &path, int error)
{
    m_error = JobText::tr("The copy cannot be moved to its place: %1: %2.")
                  .arg(quoted(m_job.held->shown(path)), systemText(error));
    return false;
}

QString Merge::error() const
{
    const int files = m_job.survey.files.size();
    QString text = m_error;
    if (m_placed > 0) {
        text += QLatin1Char('\n') + JobText::tr("New: %1.").arg(range(0, m_placed));
    }
    if (m_moved > m_placed) {
        text += QLatin1Char('\n')
            + JobText::tr("New, but perhaps not yet on the device: %1.")
                  .arg(range(m_placed, m_moved));
    }
    if (m_moved < files) {
        text += QLatin1Char('\n') + JobText::tr("As before: %1.").arg(range(m_moved, files));
    }
    return text;
}

// all files have the same root, but for a single one
QString Merge::at(const QString &root, const QString &file) const
{
    if (m_job.isDirectory) {
        return below(root, file);
    }
    return root == m_backups ? below(root, m_place.mid(m_place.lastIndexOf(QLatin1Char('/')) + 1))
                             : root;
}

QString Merge::range(int first, int end) const
{
    const auto name = [this](int i) {
        return quoted(m_job.held->shown(at(m_place, m_job.survey.files.at(i).path)));
    };
    return end - first == 1 ? name(first)
                            : JobText::tr("%1 files, from %2 to %3 in the order of the copy")
                                  .arg(QString::number(end - first), name(first), name(end - 1));
}

} // namespace Tavro::FieldHost
