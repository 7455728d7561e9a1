// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::FieldHost {

/**
 * Registers what the screens import, and their files: `qrc:/screens/Main.qml` is the window.
 * To be called once, before the first engine loads one of them.
 */
void registerScreens();

} // namespace Tavro::FieldHost
