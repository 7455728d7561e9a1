// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace Tavro::Shared::detail {

/** How a program ended, or why nothing is known of its end. */
struct ChildEnd
{
    enum Kind {
        NotStarted, /**< the code is the error of the system */
        Exited, /**< the code is that of the program */
        Died, /**< by a signal, which is the code */
        OutOfTime, /**< it ran for too long and was killed */
        Unknown, /**< the host took the end for itself; the code is the error of the system */
    };
    Kind kind = NotStarted;
    int code = 0;
};

/**
 * Runs @p program, which is looked for on PATH if it has no slash, and blocks until it has ended. A
 * script without a "#!" line is run by the shell. Its input is empty, and its output is dropped.
 *
 * With a @p patience of 0 or more, a program that runs for longer, in ms, is killed.
 *
 * While it runs, SIGCHLD is not ignored: otherwise its exit status would be lost.
 */
ChildEnd runProgram(const QString &program, const QStringList &arguments, int patience = -1);

/**
 * Runs it without a limit of time, and returns its exit code; -2 when it could not be started, and
 * -1 when it died or its end is not known.
 */
int exitCodeOf(const QString &program, const QStringList &arguments = QStringList());

} // namespace Tavro::Shared::detail
