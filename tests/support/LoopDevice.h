// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <sys/types.h>

namespace Test {

/**
 * A block device on a file, in the private /dev of PrivateMounts.
 *
 * The system lets go of it as soon as nobody has it open or mounted: with the object, or with the
 * process. To be created before a UdevTestBed, which answers every ioctl on a device itself.
 */
class LoopDevice
{
public:
    enum Access { ReadWrite, ReadOnly };

    /** Aborts the test when there is no loop device to be had. */
    explicit LoopDevice(const QString &file, Access access = ReadWrite);
    ~LoopDevice();

    LoopDevice(const LoopDevice &) = delete;
    LoopDevice &operator=(const LoopDevice &) = delete;

    /** From now on everything that is read or written fails, as when a drive is pulled out. */
    void breakDown();
    /** Its number, for a node of any name. */
    dev_t number() const;

private:
    const QString m_file;
    int m_minor = -1;
    int m_device = -1; // keeps it attached
};

} // namespace Test
