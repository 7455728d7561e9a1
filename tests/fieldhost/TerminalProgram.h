// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringList>

#include <sys/types.h>

namespace Test {

/**
 * The program under test in a terminal, started by a shell with job control as a user would.
 *
 * The shell prints the terminal's settings, in a line "settings: ...", before and after the
 * program and while it is suspended; it brings a suspended program back when a line is typed.
 */
class TerminalProgram
{
public:
    explicit TerminalProgram(const QStringList &arguments, int columns = 100);
    /** Closes the terminal, and waits until nothing runs in it. */
    ~TerminalProgram();

    TerminalProgram(const TerminalProgram &) = delete;
    TerminalProgram &operator=(const TerminalProgram &) = delete;

    /** Reads until @p text has been shown since the last wait; false when it does not come. */
    bool waitFor(const QByteArray &text);
    /**
     * Waits until the program waits for something itself. The thread sanitizer keeps a signal that
     * comes right before that until something else happens.
     */
    bool waitUntilAsleep();
    /** Types @p keys. */
    void type(const QByteArray &keys);
    /** Waits for the end and returns the program's exit code, -1 when it does not end. */
    int exitCode();
    /** Everything shown so far. */
    QByteArray shown() const { return m_shown; }
    /** The terminal's settings at the times described above, in order. */
    QList<QByteArray> settings() const;
    /** The process id of the shell, which leads the terminal's session. */
    pid_t shell() const { return m_shell; }

private:
    bool readSome(int timeout);

    int m_terminal = -1;
    pid_t m_shell = -1;
    QByteArray m_shown;
    int m_seen = 0;
};

} // namespace Test
