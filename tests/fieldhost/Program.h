// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace Test {

/** Path of the program under test. */
QString programPath();

/**
 * Lets the signals that tests send to the program do what they do: a shell that starts a test in
 * the background has it ignore some of them, and so would the program. To be called in a child
 * process before the program is executed.
 */
void restoreSignals();

/** How a run of the program ended. */
struct Outcome
{
    int exitCode = -1; // -1 when it crashed or did not end
    QString output; // standard output
    QString errors; // standard error
};

/** Starts the program without a terminal. */
class Program : public QProcess
{
public:
    Program();

    /**
     * Root's rights to read everything and to set clocks are taken from the program. Where the
     * system refuses that, the program ends with exit code cannotDropRights.
     */
    void dropRights();
    static constexpr int cannotDropRights = 125;

    /**
     * No thread and no process can be made by the program, which has a process namespace of its
     * own: a library that kills what it could not start may not reach anybody else. Needs root.
     */
    void refuseClones();

    /** Starts it and does not wait. */
    void begin(const QStringList &arguments);
    /** Waits until @p text is in its standard output; false when it does not come. */
    bool waitForOutput(const QByteArray &text);
    /** Waits for its end. */
    Outcome end();

    /** Runs `ovo-fieldhost` with @p arguments to its end. */
    static Outcome run(const QStringList &arguments);

protected:
    void setupChildProcess() override;

private:
    bool m_dropRights = false;
    bool m_refuseClones = false;
};

} // namespace Test
