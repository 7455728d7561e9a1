// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/usb/MountedUSBDeviceList.h"

#include <QList>

namespace Tavro::Shared::detail {

/** Whether the table has a device below /dev mounted on exactly "/media/usbdrive". */
bool isUsbDriveInMountTable();

/** Every entry of the mount table, in its order; none when it cannot be read. */
QList<mountItem> readMountTable();

} // namespace Tavro::Shared::detail
