// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/cli/KeyInput.h"
#include "fieldhost/cli/SignalWatcher.h"

#include <QTimer>

#include <functional>

namespace Tavro::FieldHost {

class Console;

/**
 * What the user of a run has in the terminal: keys, the signals that end or suspend the program,
 * and a line of progress.
 *
 * A suspended program gives the terminal back, without the line.
 */
class RunControls : public QObject
{
    Q_OBJECT

public:
    /**
     * Puts the line of progress together for that many columns, 0 where no terminal limits it;
     * empty when there is none.
     */
    using Line = std::function<QString(int columns)>;

    explicit RunControls(Console &console);

    /** Takes over the keyboard; false when there are no keys to be had, as without a terminal. */
    bool openKeys();

    /**
     * Shows @p line from now on: in place on a terminal that can rewrite a line, else as one line
     * each second.
     */
    void showProgress(Line line);
    /** Shows the line as it is now. */
    void refresh();
    /** Takes the line away. */
    void endProgress();

Q_SIGNALS:
    /** A signal asks the program to end. */
    void endRequested();
    /** A key was pressed. */
    void keyPressed(char key);

private:
    Console &m_console;
    SignalWatcher m_signals;
    KeyInput m_keys;
    bool m_wantsKeys = false;
    Line m_line;
    QTimer m_timer;
};

} // namespace Tavro::FieldHost
