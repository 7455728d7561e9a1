// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/UiMessageTypes.h"

// the class only carries enumerations; moc's output for it is compiled with this file
