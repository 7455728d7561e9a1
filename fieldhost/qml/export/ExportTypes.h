// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::FieldHost {

/** Registers what ExportPage and DeletePage use in the QML module OvoFieldHost 1.0. */
void registerExportTypes();

} // namespace Tavro::FieldHost
