// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::FieldHost {

/** Registers what LocalePage uses in the QML module OvoFieldHost 1.0. */
void registerLocaleTypes();

} // namespace Tavro::FieldHost
