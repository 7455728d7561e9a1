#pragma once

#include <QStringList>

#include <optional>

class QCommandLineParser;

namespace Tavro::FieldHost {

class Console;

/**
 * Takes the program's @p arguments apart for the command @p command, with the options that
 * @p parser has and `--help`, which shows @p help. Returns the exit code when there is nothing
 * left to do: the help was shown, or an error.
 */
std::optional<int> parseCommandLine(QCommandLineParser &parser, Console &console,
                                    const char *command, const char *help,
                                    const QStringList &arguments);

/**
 * Says why the command line of the command @p command was not understood, and where to read on;
 * returns the exit code for that.
 */
int usageError(Console &console, const char *command, const QString &reason);

} // namespace Tavro::FieldHost
