#pragma once

#include <QCommandLineParser>
#include <QStringList>

#include <optional>

namespace Tavro::FieldHost {

class Console;

/** What was typed behind the name of a command, or an answer to it when it cannot be carried out.
 */
class CommandLine
{
    Q_DISABLE_COPY(CommandLine)

public:
    /** For the command @p name, whose `--help` shows @p help. */
    CommandLine(Console &console, const char *name, const char *help);

    /** Adds an option that stands alone. */
    void addSwitch(const QString &name);
    /** Adds an option with a value. */
    void addOption(const QString &name);

    /**
     * Takes the program's arguments apart. Returns the exit code when there is nothing left to
     * do: the help was shown, or an error. Each argument must be there and not empty: at least
     * @p least of them and, unless that is -1, at most @p most. @p what names one in a message.
     */
    std::optional<int> parse(const QStringList &arguments, const char *what, int least, int most);

    QStringList arguments() const { return m_parser.positionalArguments(); }
    bool isSet(const QString &option) const { return m_parser.isSet(option); }
    QString value(const QString &option) const { return m_parser.value(option); }

    /** Says what is wrong with the command line; returns the exit code. */
    int refuse(const QString &reason);

private:
    Console &m_console;
    const char *const m_name;
    const char *const m_help;
    QCommandLineParser m_parser;
};

} // namespace Tavro::FieldHost
