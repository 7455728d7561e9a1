#include "fieldhost/cli/UsageError.h"

#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"

namespace Tavro::FieldHost {

int usageError(Console &console, const char *command, const QString &reason)
{
    console.printError(reason);
    console.printError(QStringLiteral("Try: ovo-fieldhost %1 --help").arg(QLatin1String(command)));
    return ExitUsage;
}

} // namespace Tavro::FieldHost
