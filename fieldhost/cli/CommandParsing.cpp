#include "fieldhost/cli/CommandParsing.h"

#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"

#include <QCommandLineParser>

namespace Tavro::FieldHost {

std::optional<int> parseCommandLine(QCommandLineParser &parser, Console &console,
                                    const char *command, const char *help,
                                    const QStringList &arguments)
{
    const QCommandLineOption helpOption(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    parser.addOption(helpOption);

    QStringList typed = arguments;
    typed.removeAt(1); // the command's own name
    if (!parser.parse(typed)) {
        return usageError(console, command, parser.errorText());
    }
    if (parser.isSet(helpOption)) {
        console.print(QString::fromUtf8(help));
        return ExitDone;
    }
    return std::nullopt;
}

int usageError(Console &console, const char *command, const QString &reason)
{
    console.printError(reason);
    console.printError(QStringLiteral("Try: ovo-fieldhost %1 --help").arg(QLatin1String(command)));
    return ExitUsage;
}

} // namespace Tavro::FieldHost
