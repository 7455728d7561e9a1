#include "shared/filesystem/detail/TreeSize.h"

#include "shared/filesystem/detail/FolderDescent.h"
#include "shared/filesystem/detail/NativeName.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace Tavro::Shared::detail {

namespace {

class Sum : public FolderDescent
{
public:
    qint64 bytes() const { return m_bytes; }

protected:
    Next visit(int folder, const dirent64 &entry) override
    {
        struct stat info = {};
        if ((entry.d_type == DT_REG || entry.d_type == DT_UNKNOWN)
            && ::fstatat(folder, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISREG(info.st_mode)) {
            m_bytes += info.st_size;
        }
        return Next::GoOn;
    }
    void leave(int /*folder*/, const char * /*name*/) override { }

private:
    qint64 m_bytes = 0;
};

} // namespace

qint64 treeSize(const QString &path)
{
    if (!isNameable(path)) {
        return 0;
    }
    FolderHandle root =
        FolderHandle::open(QFile::encodeName(path).constData(), FolderHandle::Links::Follow);
    if (!root.isOpen()) {
        return 0;
    }
    Sum sum;
    sum.run(std::move(root));
    return sum.bytes();
}

} // namespace Tavro::Shared::detail
