// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::FieldHost {

/** What the program's exit code says; a script may rely on the numbers. */
enum ExitCode {
    ExitDone = 0, /**< everything that was asked for is done */
    ExitFailed = 1, /**< not done, or not completed */
    ExitUsage = 2, /**< the command line was not understood */
    ExitSourceRefused = 3, /**< nothing begun: a source cannot be copied as it is */
    ExitDestinationRefused = 4, /**< nothing begun: the destination cannot take the copy */
    ExitNoSpace = 5, /**< nothing begun: not enough free space */
    ExitAborted = 6, /**< the user, or a signal, ended it */
};

} // namespace Tavro::FieldHost
