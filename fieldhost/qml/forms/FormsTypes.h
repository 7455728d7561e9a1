// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::FieldHost {

/** Registers what FormPage.qml uses, in the module OvoFieldHost 1.0. */
void registerFormsTypes();

} // namespace Tavro::FieldHost
