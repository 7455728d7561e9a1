// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

/**
 * Registers all types of the QML module `OvoSharedBase 1.0`, for hosts that do not use the plugin.
 *
 * Call it on the GUI thread, before the first `import OvoSharedBase 1.0`. A second call does
 * nothing, and neither does the plugin after it.
 */
void registerOvoSharedBaseTypes();
