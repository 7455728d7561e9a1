// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <optional>

#include <termios.h>

namespace Tavro::FieldHost {

/**
 * Single keys from the terminal on standard input, without echo.
 *
 * The terminal is as it was found before open(), after close() and after the destructor. Keys
 * that make signals, such as Ctrl-C, keep doing so.
 */
class KeyInput : public QObject
{
    Q_OBJECT

public:
    explicit KeyInput(QObject *parent = nullptr);
    ~KeyInput() override;

    /**
     * False when there are no keys to be had: standard input is no terminal, or the program runs
     * in the background. What was typed before is dropped, as it was not meant for this program.
     */
    bool open();
    /** Gives the terminal back. */
    void close();

Q_SIGNALS:
    /** A key was pressed; keys beyond ASCII arrive byte by byte. */
    void keyPressed(char key);

private:
    void readKeys();

    std::optional<termios> m_before; // set while the terminal is ours
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Tavro::FieldHost
