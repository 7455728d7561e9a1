// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCommandLineParser>
#include <QStringList>

#include <optional>
#include <vector>

namespace Tavro::FieldHost {

class CommandLine;
class Console;
struct Command;

/** What can follow the name of a command that does several things. */
struct Action
{
    const char *name;
    const char *argument; // its name; null when there is none
    /** Gets the argument, or an empty text; returns an ExitCode. */
    int (*run)(const CommandLine &line, Console &console, const QString &argument);
};

/** What was typed behind the name of a command. */
class CommandLine
{
    Q_DISABLE_COPY(CommandLine)

public:
    CommandLine(const Command &command, Console &console);

    /**
     * Takes @p typed apart. Returns the exit code when there is nothing left to do: the help was
     * shown, or what is wrong with it.
     */
    std::optional<int> parse(const QStringList &typed);

    QStringList arguments() const { return m_parser.positionalArguments(); }
    bool isSet(const char *option) const { return m_parser.isSet(QLatin1String(option)); }
    /** Empty when the option is not set. */
    QString value(const char *option) const { return m_parser.value(QLatin1String(option)); }
    QStringList values(const char *option) const { return m_parser.values(QLatin1String(option)); }

    /** Runs the one of @p actions that is asked for, without arguments the first. */
    int runAction(const std::vector<Action> &actions) const;

    /** Says what is wrong with the command line, and where to read on; returns the exit code. */
    int refuse(const QString &reason) const;

private:
    QString objection() const;

    const Command &m_command;
    Console &m_console;
    QCommandLineParser m_parser;
};

} // namespace Tavro::FieldHost
