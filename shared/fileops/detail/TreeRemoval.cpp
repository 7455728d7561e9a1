#include "shared/fileops/detail/TreeRemoval.h"

#include "shared/filesystem/detail/FolderDescent.h"
#include "shared/filesystem/detail/NativeName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

/** Removes everything that it meets. */
class Removal : public FolderDescent
{
public:
    bool isWhole() const { return m_isWhole; }

protected:
    Next visit(int folder, const dirent64 &entry) override
    {
        return unlink(folder, entry.d_name, 0) ? Next::ReadAgain : Next::GoOn;
    }
    void leave(int folder, const char *name) override { unlink(folder, name, AT_REMOVEDIR); }

private:
    bool unlink(int folder, const char *name, int flags)
    {
        const bool isGone = ::unlinkat(folder, name, flags) == 0;
        // what somebody else has removed is gone, too
        m_isWhole = m_isWhole && (isGone || errno == ENOENT);
        return isGone;
    }

    bool m_isWhole = true;
};

bool isSameFile(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool isRootOfAll(const struct stat &info)
{
    struct stat root = {};
    return ::stat("/", &root) == 0 && isSameFile(info, root);
}

bool removeLinkToFolder(const QByteArray &link)
{
    struct stat target = {};
    if (::stat(link.constData(), &target) != 0 || !S_ISDIR(target.st_mode)) {
        return true; // no directory
    }
    return ::unlink(link.constData()) == 0 || errno == ENOENT;
}

QString withoutFinalSlashes(QString path)
{
    while (path.size() > 1 && path.endsWith(QLatin1Char('/'))) {
        path.chop(1);
    }
    return path;
}

} // namespace

QString removalRoot(const QString &path)
{
    if (!isNameable(path)) {
        return {};
    }
    QString absolute = path;
    if (!path.startsWith(QLatin1Char('/'))) {
        const QString current = QDir::currentPath();
        if (current.isEmpty()) { // it was removed; the path must not come to mean one of the root's
            return {};
        }
        absolute = current + QLatin1Char('/') + path;
    }
    absolute = withoutFinalSlashes(absolute);

    const QStringList names = absolute.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (!names.contains(QLatin1String(".."))) {
        return QDir::cleanPath(absolute);
    }
    // behind a link, ".." is not where the text says
    if (names.constLast() == QLatin1String("..") || names.constLast() == QLatin1String(".")) {
        return QFileInfo(absolute).canonicalFilePath();
    }
    const int end = absolute.lastIndexOf(QLatin1Char('/'));
    const QString folder = QFileInfo(absolute.left(end)).canonicalFilePath();
    return folder.isEmpty() ? QString() : withoutFinalSlashes(folder) + absolute.mid(end);
}

bool isRemovableTree(const QString &root)
{
    struct stat info = {};
    return isNameable(root) && ::lstat(QFile::encodeName(root).constData(), &info) == 0
        && S_ISDIR(info.st_mode) && !isRootOfAll(info);
}

bool removeTree(const QString &root)
{
    if (!isNameable(root)) {
        return true;
    }
    const QByteArray name = QFile::encodeName(root);
    struct stat info = {};
    if (::lstat(name.constData(), &info) != 0) {
        return true;
    }
    if (S_ISLNK(info.st_mode)) {
        return removeLinkToFolder(name);
    }
    if (!S_ISDIR(info.st_mode)) {
        return true;
    }
    if (isRootOfAll(info)) {
        return false;
    }
    bool isWhole = true;
    FolderHandle folder = FolderHandle::open(name.constData(), FolderHandle::Links::Refuse);
    if (folder.isOpen()) {
        Removal removal;
        isWhole = removal.run(std::move(folder)) && removal.isWhole();
    }
    return (::rmdir(name.constData()) == 0 || errno == ENOENT) && isWhole;
}

FileRemoval::FileRemoval(const QString &root)
    : m_prefix(root.endsWith(QLatin1Char('/')) ? root : root + QLatin1Char('/'))
    , m_root(FolderHandle::open(QFile::encodeName(root).constData(), FolderHandle::Links::Refuse))
{
}

bool FileRemoval::remove(const QString &path)
{
    const int begin = path.lastIndexOf(QLatin1Char('/')) + 1;
    if (!enterFolder(path, begin)) {
        return false;
    }
    const NativeName name(path, begin);
    return ::unlinkat(m_folder.get(), name.get(), 0) == 0;
}

// Name by name from the root: what stands in the place of a folder of the walk may be a link now.
bool FileRemoval::enterFolder(const QString &path, int length)
{
    if (m_folderPath.size() == length && path.startsWith(m_folderPath)) {
        return m_folder.isOpen();
    }
    m_folder.close();
    m_folderPath = path.left(length);
    if (!m_root.isOpen() || !m_folderPath.startsWith(m_prefix)) {
        return false;
    }
    m_folder = FolderHandle::openIn(m_root.get(), ".");
    for (int begin = m_prefix.size(); m_folder.isOpen() && begin < length;) {
        const int end = path.indexOf(QLatin1Char('/'), begin);
        const NativeName name(path.mid(begin, end - begin), 0);
        m_folder = FolderHandle::openIn(m_folder.get(), name.get());
        begin = end + 1;
    }
    return m_folder.isOpen();
}

} // namespace Tavro::Shared::detail
