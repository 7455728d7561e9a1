// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/fieldhost/Program.h"
#include "tests/support/LoopDevice.h"
#include "tests/support/UdevTestBed.h"
#include "tests/usb/UsbTest.h"

#include <QTemporaryDir>

#include <memory>

namespace Test {

/** The program under test where libudev sees the test bed. */
class DriveProgram : public Program
{
public:
    DriveProgram();

    /** Runs it with @p arguments to its end. */
    static Outcome run(const QStringList &arguments);
};

/**
 * A stick with one partition, /dev/sda1: a block device of 64 KiB that holds nothing but a boot
 * sector. The fake "mount" mounts it on /media/usbdrive as far as the mount table goes; what is
 * copied there lands in that directory.
 */
class TestDrive
{
public:
    /**
     * @p type is "fat32", "fat16", which is one of a size that the library takes for "fat12",
     * "fat16 of another size", which is one of no type for the library, or another one of the mount
     * table, "exfat" say.
     */
    explicit TestDrive(const QByteArray &type = "fat32");
    ~TestDrive();

    TestDrive(const TestDrive &) = delete;
    TestDrive &operator=(const TestDrive &) = delete;

    /** Mounts it before the program starts. */
    void mount();
    /** Pulls it out; the line of the mount table stays, as it does when that happens. */
    void pull();
    /** The line of the mount table. */
    QByteArray tableLine() const;
    /** The dirty byte of FAT16, or else that of FAT32. */
    char dirtyByte() const;
    /** Writes it. */
    void setDirtyByte(char value);
    /** Takes the rights to the block device from everybody but its owner, who is not root. */
    void giveAway();

    /** The fake commands, with their journal. */
    UsbCommands commands;
    /** File behind the device. */
    QString image() const { return m_folder.filePath(QStringLiteral("image")); }

private:
    QTemporaryDir m_folder;
    const QByteArray m_type;
    const int m_dirtyByte; // its offset
    std::unique_ptr<LoopDevice> m_loop;
    std::unique_ptr<UdevTestBed> m_bed;
};

} // namespace Test
