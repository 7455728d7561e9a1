// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/SystemSync.h"

#include "shared/base/detail/ChildProcess.h"

#include <unistd.h>

namespace Tavro::Shared::detail {

void syncSystem()
{
    if (runProgram(QStringLiteral("sync"), {}).kind == ChildEnd::NotStarted) {
        ::sync(); // the new files' names must reach the device all the same
    }
}

} // namespace Tavro::Shared::detail
