#include "fieldhost/cli/files/CommandLine.h"

#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/UsageError.h"

namespace Tavro::FieldHost {

CommandLine::CommandLine(Console &console, const char *name, const char *help)
    : m_console(console)
    , m_name(name)
    , m_help(help)
{
    m_parser.addOption(
        QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")}));
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
    QStringList typed = arguments;
    typed.removeAt(1); // the command's own name
    const bool isUnderstood = m_parser.parse(typed);
    if (isUnderstood && m_parser.isSet(QStringLiteral("help"))) {
        m_console.print(QString::fromUtf8(m_help));
        return ExitDone;
    }
    if (!isUnderstood) {
        return refuse(m_parser.errorText());
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
