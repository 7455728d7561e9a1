// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <libudev.h>

namespace Tavro::Shared::detail {

/** Releases a libudev object. */
struct UdevUnref
{
    void operator()(udev *context) const { udev_unref(context); }
    void operator()(udev_enumerate *enumeration) const { udev_enumerate_unref(enumeration); }
    void operator()(udev_device *device) const { udev_device_unref(device); }
};

// each of them may be null: every udev_..._new() can fail, and a device can be gone
using UdevContext = std::unique_ptr<udev, UdevUnref>;
using UdevEnumeration = std::unique_ptr<udev_enumerate, UdevUnref>;
using UdevDevice = std::unique_ptr<udev_device, UdevUnref>;

} // namespace Tavro::Shared::detail
