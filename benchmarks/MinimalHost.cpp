// The one thing that the library asks of its host while it copies: where its messages go.

#include "host/CLogger.h"

#include <cstdio>

namespace Tavro::Logging {

void CLogger::logMessage(LogLevel level, const QString &category, const QString &message)
{
    std::fprintf(stderr, "%d %s: %s\n", static_cast<int>(level), qUtf8Printable(category),
                 qUtf8Printable(message));
}

} // namespace Tavro::Logging
