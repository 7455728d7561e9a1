// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

namespace Test {

/**
 * Commands that stand first on PATH, for as long as the object lives.
 *
 * Each call of a fake appends its name and arguments as one line to the journal.
 */
class FakeCommands
{
public:
    FakeCommands();
    ~FakeCommands();

    FakeCommands(const FakeCommands &) = delete;
    FakeCommands &operator=(const FakeCommands &) = delete;

    /** Puts a command on PATH; @p body is what its shell does after the call was recorded. */
    void add(const QString &name, const QByteArray &body = QByteArray());
    /** The same for one that waits until there is the file @p gate, and does @p body then. */
    void addHeld(const QString &name, const QString &gate, const QByteArray &body = QByteArray());
    /** Puts an existing program on PATH under that name; its calls are not recorded. */
    void addProgram(const QString &name, const QString &program);
    /** Hides every command but the fakes. */
    void hideOthers();

    /** File that the calls are recorded in; others may append their own lines. */
    QString journalPath() const;
    /** What was recorded so far, a line each. */
    QStringList journal() const;

private:
    QTemporaryDir m_folder;
    QByteArray m_path;
};

} // namespace Test
