// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/FakeCommands.h"

#include <QTemporaryDir>

namespace Test {

/**
 * Holds a copy at the "sync" that follows its last byte, until it is let go.
 *
 * The copies of programs that are started while the object lives meet it.
 */
class Handshake
{
public:
    Handshake();
    ~Handshake();

    Handshake(const Handshake &) = delete;
    Handshake &operator=(const Handshake &) = delete;

    /** Waits until a copy is held; false when none comes. */
    bool waitUntilHeld();
    /** How many copies are or were held. */
    int held() const;
    /** Lets it go, and all others. */
    void letGo();

private:
    QByteArray gatePath() const;

    QTemporaryDir m_folder;
    FakeCommands m_commands;
    int m_openGate = -1; // once they are let go
};

} // namespace Test
