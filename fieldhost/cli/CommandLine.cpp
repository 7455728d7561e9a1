#include "fieldhost/cli/CommandLine.h"

#include "fieldhost/cli/CommandParsing.h"

namespace Tavro::FieldHost {

CommandLine::CommandLine(Console &console, const char *name, const char *help)
    : m_console(console)
    , m_name(name)
    , m_help(help)
{
}

void CommandLine::addSwitch(const QString &name)
{
    m_parser.addOption(QCommandLineOption(name));
}

void CommandLine::addOption(const QString &name)
{
    m_parser.addOption(QCommandLineOption(name, QString(), QStringLiteral("value")));
}

std::optional<int> CommandLine::parse(const QStringList &arguments, const char *what, int least,
                                      int most)
{
    if (const auto answered = parseCommandLine(m_parser, m_console, m_name, m_help, arguments)) {
        return answered;
    }
    const QStringList given = this->arguments();
    if (given.size() < least) {
        return refuse(QStringLiteral("A %1 is missing.").arg(QLatin1String(what)));
    }
    if (most >= 0 && given.size() > most) {
        return refuse(QStringLiteral("There is one %1 too many.").arg(QLatin1String(what)));
    }
    if (given.contains(QString())) {
        return refuse(QStringLiteral("A %1 is empty.").arg(QLatin1String(what)));
    }
    return {};
}

int CommandLine::refuse(const QString &reason)
{
    return usageError(m_console, m_name, reason);
}

} // namespace Tavro::FieldHost
