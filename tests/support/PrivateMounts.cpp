// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/support/PrivateMounts.h"

#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace Test::PrivateMounts {

namespace {

bool s_entered = false;

const char s_mountTable[] = "/etc/mtab";
const char s_fstab[] = "/etc/fstab";
// below /media, which is the first to become private
const char s_ownDev[] = "/media/.dev";
const char s_ownEtc[] = "/media/.etc";
const char s_systemEtc[] = "/media/.system-etc";
const char s_temporary[] = "/media/.tmp";

bool makeFolder(const QByteArray &path)
{
    return ::mkdir(path.constData(), 0755) == 0;
}

bool bindMount(const QByteArray &from, const QByteArray &to)
{
    return ::mount(from.constData(), to.constData(), nullptr, MS_BIND | MS_REC, nullptr) == 0;
}

bool makeNode(const QByteArray &path, mode_t type, dev_t device)
{
    // the umask must not take the rights of others
    return ::mknod(path.constData(), type | 0666, device) == 0
        && ::chmod(path.constData(), 0666) == 0;
}

// the nodes that any program needs; what the test adds stands beside them
bool replaceDev()
{
    static constexpr struct
    {
        const char *name;
        unsigned major;
        unsigned minor;
    } nodes[] = {
        {"null", 1, 3},    {"zero", 1, 5}, {"random", 1, 8},
        {"urandom", 1, 9}, {"tty", 5, 0},  {"loop-control", 10, 237},
    };
    static constexpr struct
    {
        const char *name;
        const char *target;
    } links[] = {
        {"fd", "/proc/self/fd"},       {"stdin", "/proc/self/fd/0"}, {"stdout", "/proc/self/fd/1"},
        {"stderr", "/proc/self/fd/2"}, {"ptmx", "pts/ptmx"},
    };
    const QByteArray own = QByteArray(s_ownDev) + '/';
    if (!makeFolder(s_ownDev)) {
        return false;
    }
    for (const auto &node : nodes) {
        if (!makeNode(own + node.name, S_IFCHR, ::makedev(node.major, node.minor))) {
            return false;
        }
    }
    for (const auto &link : links) {
        if (::symlink(link.target, (own + link.name).constData()) != 0) {
            return false;
        }
    }
    for (const char *folder : {"shm", "pts"}) { // temporary files may lie in the first one
        if (!makeFolder(own + folder) || !bindMount(QByteArray("/dev/") + folder, own + folder)) {
            return false;
        }
    }
    return bindMount(s_ownDev, "/dev");
}

// /etc/mtab is a link into /proc, where nothing can be put in its place
bool replaceEtc()
{
    if (!makeFolder(s_ownEtc) || !makeFolder(s_systemEtc) || !bindMount("/etc", s_systemEtc)) {
        return false;
    }
    const auto entries =
        QDir(QString::fromLatin1(s_systemEtc))
            .entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        const QByteArray name = QFile::encodeName(entry.fileName());
        if (name == "mtab") {
            continue;
        }
        // a relative link leads to the same place from /etc as before
        const QByteArray original = QByteArray(s_systemEtc) + '/' + name;
        char text[PATH_MAX] = {};
        const ssize_t length = ::readlink(original.constData(), text, sizeof text - 1);
        const QByteArray target = length > 0 ? QByteArray(text, int(length)) : original;
        const QByteArray own = QByteArray(s_ownEtc) + '/' + name;
        if (::symlink(target.constData(), own.constData()) != 0) {
            return false;
        }
    }
    return bindMount(s_ownEtc, "/etc");
}

// the root of a user namespace may mount, but not do this
bool mayMakeNodes()
{
    const QTemporaryDir directory;
    return makeNode(QFile::encodeName(directory.filePath(QStringLiteral("null"))), S_IFCHR,
                    ::makedev(1, 3));
}

} // namespace

bool enter()
{
    if (!mayMakeNodes() || ::unshare(CLONE_NEWNS) != 0
        || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
        return false;
    }
    if (::mount("tmpfs", "/media", "tmpfs", 0, "mode=755") != 0 || !replaceDev() || !replaceEtc()) {
        qFatal("cannot make a machine of the test's own: %s", ::strerror(errno));
    }
    // Never below /dev/shm: what is below /dev counts as a device, to the library and to whoever
    // stands between libudev and /sys.
    if (!makeFolder(s_temporary) || !qputenv("TMPDIR", s_temporary)) {
        qFatal("cannot make a folder for temporary files: %s", ::strerror(errno));
    }
    s_entered = true;
    setMountTable({});
    return true;
}

bool entered()
{
    return s_entered;
}

void setMountTable(const QByteArray &content)
{
    removeMountTable();
    makeFile(QString::fromLatin1(s_mountTable), content);
}

QByteArray mountTable()
{
    return contentOf(QString::fromLatin1(s_mountTable));
}

void removeMountTable()
{
    if (!s_entered) {
        qFatal("this would be the machine's own mount table");
    }
    ::unlink(s_mountTable);
}

void useSystemMountTable()
{
    removeMountTable();
    if (::symlink("/proc/self/mounts", s_mountTable) != 0) {
        qFatal("cannot create /etc/mtab");
    }
}

void setFstab(const QByteArray &content)
{
    if (!s_entered) {
        qFatal("this would be the machine's own fstab");
    }
    ::unlink(s_fstab); // a link to the machine's own until then
    makeFile(QString::fromLatin1(s_fstab), content);
}

void makeBlockNode(const QString &path, dev_t device)
{
    const QByteArray name = QFile::encodeName(path);
    if (!s_entered || (::unlink(name.constData()) != 0 && errno != ENOENT)
        || !makeNode(name, S_IFBLK, device)) {
        qFatal("cannot create the node %s", name.constData());
    }
}

} // namespace Test::PrivateMounts
