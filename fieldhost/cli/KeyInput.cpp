// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/KeyInput.h"

#include <array>

#include <unistd.h>

namespace Tavro::FieldHost {

KeyInput::KeyInput(QObject *parent)
    : QObject(parent)
{
}

KeyInput::~KeyInput()
{
    close();
}

bool KeyInput::open()
{
    if (m_before) {
        return true;
    }
    // a background job that touches the terminal's settings is stopped by the system
    if (!::isatty(STDIN_FILENO) || ::tcgetpgrp(STDIN_FILENO) != ::getpgrp()) {
        return false;
    }
    termios before{};
    if (::tcgetattr(STDIN_FILENO, &before) != 0) {
        return false;
    }
    termios raw = before;
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    if (::tcsetattr(STDIN_FILENO, TCSAFLUSH, &raw) != 0) {
        return false;
    }
    m_before = before;
    m_notifier = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &KeyInput::readKeys);
    return true;
}

void KeyInput::close()
{
    m_notifier.reset();
    if (!m_before) {
        return;
    }
    // in the background by now, or the terminal gone: its settings are somebody else's then
    if (::tcgetpgrp(STDIN_FILENO) == ::getpgrp()) {
        ::tcsetattr(STDIN_FILENO, TCSANOW, &*m_before);
    }
    m_before.reset();
}

void KeyInput::readKeys()
{
    std::array<char, 64> keys{};
    const ssize_t n = ::read(STDIN_FILENO, keys.data(), keys.size());
    if (n <= 0) {
        m_notifier->setEnabled(false); // the terminal is gone and would be announced for ever
        return;
    }
    for (ssize_t i = 0; i < n; ++i) {
        Q_EMIT keyPressed(keys.at(static_cast<size_t>(i)));
    }
}

} // namespace Tavro::FieldHost
