// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/HeldDirectory.h"

#include "fieldhost/jobs/Paths.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

QString throughDescriptor(int directory)
{
    return QStringLiteral("/proc/self/fd/%1").arg(directory);
}

} // namespace

HeldDirectory::HeldDirectory(const QString &path)
    : m_path(path)
    , m_descriptor(::open(QFile::encodeName(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC))
{
    if (m_descriptor < 0
        || ::access(QFile::encodeName(throughDescriptor(m_descriptor)).constData(), F_OK) != 0) {
        m_error = errno;
    }
}

HeldDirectory::~HeldDirectory()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

QString HeldDirectory::reach(const QString &path) const
{
    const bool isRoot = m_path.size() == 1; // of the file system: "/" is part of what follows it
    return throughDescriptor(m_descriptor) + path.mid(isRoot ? 0 : m_path.size());
}

QString HeldDirectory::shown(const QString &path) const
{
    const QString hold = throughDescriptor(m_descriptor);
    return isSameOrBelow(path, hold) ? below(m_path, path.mid(hold.size() + 1)) : path;
}

bool HeldDirectory::isInPlace() const
{
    FileStatus held = {};
    return ::fstat(m_descriptor, &held) == 0 && isSameFile(held, targetStatusOf(m_path));
}

} // namespace Tavro::FieldHost
