// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::FieldHost {

/** Registers what DevicePage uses in the QML module OvoFieldHost 1.0, and begins to keep the log.
 */
void registerDeviceTypes();

} // namespace Tavro::FieldHost
