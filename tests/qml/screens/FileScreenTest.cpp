// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/qml/screens/FileScreenTest.h"

#include "tests/support/PrivateMounts.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <unistd.h>

namespace Tavro::Test {

namespace {

[[noreturn]] void fail(const char *what, const QString &path)
{
    qFatal("%s: %s", what, qPrintable(path));
}

} // namespace

FileScreenTest::~FileScreenTest()
{
    end();
}

bool FileScreenTest::mayMount() const
{
    return ::Test::PrivateMounts::entered();
}

void FileScreenTest::begin()
{
    m_home = std::make_unique<::Test::TemporaryFolder>();
    qputenv("HOME", QFile::encodeName(home()));
    makeFile(path("project/data.bin"), 100'000);
    makeFile(path("project/later.txt"), 0);
    makeDirectory(path("target"));
    Q_EMIT homeChanged();
}

void FileScreenTest::end()
{
    m_handshake.reset();
    m_drive.reset();
    if (m_isFrozen) {
        thawVolume();
    }
    if (m_home) {
        while (::umount2(QFile::encodeName(path("target")).constData(), MNT_DETACH) == 0) { }
        m_loop.reset();
        m_home.reset();
    }
}

void FileScreenTest::makeFile(const QString &path, int size)
{
    ::Test::makeFile(path, ::Test::someBytes(size));
}

void FileScreenTest::makeDirectory(const QString &path)
{
    if (!QDir().mkpath(path)) {
        fail("cannot make", path);
    }
}

bool FileScreenTest::exists(const QString &path) const
{
    return QFile::exists(path);
}

bool FileScreenTest::areSame(const QString &directory, const QString &other) const
{
    const QMap<QString, QByteArray> tree = ::Test::treeOf(directory);
    return !tree.isEmpty() && tree == ::Test::treeOf(other);
}

void FileScreenTest::remove(const QString &path)
{
    if (!QFile::remove(path)) {
        fail("cannot remove", path);
    }
}

void FileScreenTest::spoil(const QString &path)
{
    QFile file(path);
    char byte = 0;
    if (!file.open(QIODevice::ReadWrite) || !file.getChar(&byte) || !file.seek(0)
        || !file.putChar(static_cast<char>(~byte))) {
        fail("cannot spoil", path);
    }
}

void FileScreenTest::holdCopies()
{
    m_handshake = std::make_unique<::Test::Handshake>();
}

bool FileScreenTest::waitUntilHeld()
{
    return m_handshake->waitUntilHeld();
}

void FileScreenTest::letGo()
{
    m_handshake->letGo();
}

void FileScreenTest::mountDisk()
{
    const QString target = path("target");
    if (::mount("tmpfs", QFile::encodeName(target).constData(), "tmpfs", 0, "size=1m") != 0) {
        fail("cannot mount", target);
    }
}

void FileScreenTest::fillDisk()
{
    QFile file(path("target/filler"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        fail("cannot create", file.fileName());
    }
    const QByteArray page(4096, 'x');
    while (file.write(page) == page.size()) { }
}

void FileScreenTest::pullDisk()
{
    if (::umount2(QFile::encodeName(path("target")).constData(), MNT_DETACH) != 0) {
        fail("cannot unmount", path("target"));
    }
}

void FileScreenTest::mountVolume()
{
    const QString image = path("image");
    const QString node = QStringLiteral("/dev/volume");
    ::Test::makeFile(image);
    if (!QFile::resize(image, 4 << 20)
        || QProcess::execute(QStringLiteral("/usr/sbin/mkfs.ext4"), {QStringLiteral("-q"), image})
            != 0) {
        fail("cannot make a file system in", image);
    }
    m_loop = std::make_unique<::Test::LoopDevice>(image);
    ::Test::PrivateMounts::makeBlockNode(node, m_loop->number());
    if (::mount(qPrintable(node), QFile::encodeName(path("target")).constData(), "ext4", 0, nullptr)
        != 0) {
        fail("cannot mount", node);
    }
}

void FileScreenTest::freezeVolume()
{
    freeze(FIFREEZE);
    m_isFrozen = true;
}

void FileScreenTest::thawVolume()
{
    freeze(FITHAW);
    m_isFrozen = false;
}

void FileScreenTest::freeze(unsigned long request) const
{
    const int directory = ::open(QFile::encodeName(path("target")).constData(), O_RDONLY);
    if (::ioctl(directory, request, 0) != 0) {
        fail("cannot freeze or thaw", path("target"));
    }
    ::close(directory);
}

void FileScreenTest::plugDrive()
{
    m_drive = std::make_unique<::Test::TestDrive>();
}

bool FileScreenTest::isDriveClean() const
{
    return ::Test::PrivateMounts::mountTable().isEmpty() && m_drive->dirtyByte() == 0;
}

} // namespace Tavro::Test
