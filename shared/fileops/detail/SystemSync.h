// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::Shared::detail {

/**
 * Runs the command "sync", found on PATH, and blocks until it has ended: the caches of the whole
 * system are written then, names and directories among them. There is no limit of time, since a
 * slow stick takes minutes.
 *
 * Where the command cannot be started, the system call of that name is made instead.
 */
void syncSystem();

} // namespace Tavro::Shared::detail
