// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/TestDrive.h"

#include "tests/support/FileTree.h"

#include <QDir>

#include <sys/stat.h>
#include <unistd.h>

namespace Test {

namespace {

constexpr int s_size = 64 * 1024;

const char s_node[] = "/dev/sda1";
const QString s_mountPoint = QStringLiteral("/media/usbdrive");

QByteArray bootSectorOf(const QByteArray &type)
{
    QByteArray sector(512, '\0');
    if (type == "fat32") {
        sector[16] = 2; // file allocation tables; none would be no FAT
        sector.replace(82, 8, "FAT32   ");
    } else if (type.startsWith("fat16")) {
        sector[16] = 2;
        sector[23] = type == "fat16" ? 1 : 3; // times 256 sectors
        sector.replace(54, 8, "FAT16   ");
    }
    sector[510] = 0x55;
    sector[511] = char(0xaa);
    return sector;
}

} // namespace

DriveProgram::DriveProgram()
{
    setProgram(QStringLiteral(OVO_FIELDHOST_ON_TEST_BED));
}

Outcome DriveProgram::run(const QStringList &arguments)
{
    DriveProgram program;
    program.begin(arguments);
    return program.end();
}

TestDrive::TestDrive(const QByteArray &type)
    : m_type(type)
    , m_dirtyByte(type.startsWith("fat16") ? 37 : 65)
{
    makeFile(image(), bootSectorOf(type) + QByteArray(s_size - 512, '\0'));
    m_loop = std::make_unique<LoopDevice>(image());
    PrivateMounts::makeBlockNode(QString::fromLatin1(s_node), m_loop->number());
    PrivateMounts::setMountTable({});
    if (!QDir().mkpath(s_mountPoint)) {
        qFatal("cannot make the mount point");
    }
    commands.mountingSets(tableLine());
    m_bed = std::make_unique<UdevTestBed>();
    m_bed->addStick("sda", {{"sda1", type.startsWith("fat") ? QByteArray("vfat") : type}});
}

TestDrive::~TestDrive()
{
    QDir(s_mountPoint).removeRecursively();
    QFile::remove(QString::fromLatin1(s_node));
}

void TestDrive::mount()
{
    PrivateMounts::setMountTable(tableLine());
}

void TestDrive::pull()
{
    QFile::remove(QString::fromLatin1(s_node));
    m_bed.reset();
    m_bed = std::make_unique<UdevTestBed>();
}

QByteArray TestDrive::tableLine() const
{
    return mounted(s_node, "/media/usbdrive",
                   m_type.startsWith("fat") ? QByteArray("vfat") : m_type);
}

char TestDrive::dirtyByte() const
{
    return contentOf(image()).at(m_dirtyByte);
}

void TestDrive::setDirtyByte(char value)
{
    QFile device(QString::fromLatin1(s_node));
    if (!device.open(QIODevice::ReadWrite | QIODevice::Unbuffered) || !device.seek(m_dirtyByte)
        || device.write(&value, 1) != 1 || ::fsync(device.handle()) != 0) {
        qFatal("cannot write to the drive");
    }
}

void TestDrive::giveAway()
{
    if (::chown(s_node, 1, 1) != 0 || ::chmod(s_node, 0600) != 0) {
        qFatal("cannot give the drive away");
    }
}

} // namespace Test
