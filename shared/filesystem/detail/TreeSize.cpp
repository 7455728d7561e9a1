// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/detail/TreeSize.h"

#include "shared/filesystem/detail/DirectoryDescent.h"
#include "shared/filesystem/detail/NativeName.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

namespace Tavro::Shared::detail {

namespace {

class Sum : public DirectoryDescent
{
public:
    qint64 bytes() const { return m_bytes; }

protected:
    Next visit(int directory, const dirent64 &entry) override
    {
        struct stat info = {};
        if ((entry.d_type == DT_REG || entry.d_type == DT_UNKNOWN)
            && ::fstatat(directory, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISREG(info.st_mode)) {
            m_bytes += info.st_size;
        }
        return Next::GoOn;
    }
    void leave(int /*directory*/, const char * /*name*/) override { }

private:
    qint64 m_bytes = 0;
};

qint64 sizeOfResources(const QString &path)
{
    qint64 bytes = 0;
    QDirIterator entries(path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        bytes += entries.fileInfo().size();
    }
    return bytes;
}

} // namespace

qint64 treeSize(const QString &path)
{
    const QString resolved = resolvedPath(path);
    if (!isNameable(resolved)) {
        return 0;
    }
    if (isResource(resolved)) {
        return sizeOfResources(resolved);
    }
    DirectoryHandle root =
        DirectoryHandle::open(QFile::encodeName(resolved).constData(), Links::Follow);
    if (!root.isOpen()) {
        return 0;
    }
    Sum sum;
    sum.run(std::move(root));
    return sum.bytes();
}

} // namespace Tavro::Shared::detail
