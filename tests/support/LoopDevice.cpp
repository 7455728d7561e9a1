// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/support/LoopDevice.h"

#include "tests/support/PrivateMounts.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <linux/loop.h>
#include <linux/major.h>
#include <sys/ioctl.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace Test {

namespace {
constexpr int s_attempts = 100; // others on this machine may take the same free device first
}

LoopDevice::LoopDevice(const QString &file, Access access)
    : m_file(file)
{
    const int mode = (access == ReadOnly ? O_RDONLY : O_RDWR) | O_CLOEXEC;
    const int backing = ::open(QFile::encodeName(file).constData(), mode);
    const int control = ::open("/dev/loop-control", O_RDWR | O_CLOEXEC);
    for (int i = 0; i < s_attempts && m_device < 0 && backing >= 0 && control >= 0; ++i) {
        m_minor = ::ioctl(control, LOOP_CTL_GET_FREE);
        if (m_minor < 0) {
            break;
        }
        const QString node = QStringLiteral("/dev/loop%1").arg(m_minor);
        PrivateMounts::makeBlockNode(node, number());
        m_device = ::open(QFile::encodeName(node).constData(), mode);
        loop_config config = {};
        config.fd = static_cast<__u32>(backing);
        config.info.lo_flags = LO_FLAGS_AUTOCLEAR | (access == ReadOnly ? LO_FLAGS_READ_ONLY : 0);
        if (m_device >= 0 && ::ioctl(m_device, LOOP_CONFIGURE, &config) != 0) {
            ::close(m_device);
            m_device = -1;
        }
    }
    if (m_device < 0) {
        qFatal("no loop device for %s: %s", qPrintable(file), ::strerror(errno));
    }
    ::close(backing);
    ::close(control);
}

LoopDevice::~LoopDevice()
{
    ::close(m_device);
}

void LoopDevice::breakDown()
{
    // not to nothing: Linux 6.1 looks for no end of a device that has no size
    if (!QFile::resize(m_file, 512) || ::ioctl(m_device, LOOP_SET_CAPACITY) != 0) {
        qFatal("cannot break the loop device: %s", ::strerror(errno));
    }
}

dev_t LoopDevice::number() const
{
    return ::makedev(LOOP_MAJOR, static_cast<unsigned>(m_minor));
}

} // namespace Test
