// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/services/HostLog.h"

#include <QString>

#include <mutex>

namespace Tavro::FieldHost {

/**
 * Standard output and standard error of the program, and the live line at the bottom of a
 * terminal, which gives way to every line that is printed. May be used from any thread.
 */
class Console
{
    Q_DISABLE_COPY(Console)

public:
    /** Takes over the log's entries for as long as it lives. */
    Console();
    ~Console();

    /** True when standard output is a terminal that can rewrite a line. */
    bool isLive() const { return m_live; }
    /** Characters that a line of the terminal holds; 80 without one. */
    static int columns();

    /**
     * The errno of the first write to standard output or standard error that failed in this
     * process; 0 when none did. A reader that has gone away is no failure.
     */
    static int outputError();

    /**
     * One line, or several, for the user; to standard output. Control characters are spelled out,
     * here and below.
     */
    void print(const QString &text);
    /** One line, or several, about what went wrong; to standard error. */
    void printError(const QString &text);

    /** Shows @p line in place of the live line, cut to the terminal's width. */
    void setLiveLine(const QString &line);
    /** Takes the live line away. */
    void clearLiveLine();

private:
    void erase();
    void redraw();

    const bool m_live;
    HostLog::Sink m_sinkBefore;
    std::mutex m_mutex; // guards the line and the order in which the two streams are written
    QString m_line;
};

} // namespace Tavro::FieldHost
