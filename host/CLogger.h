#pragma once

#include <QString>

namespace Tavro::Logging {

/** How much a log entry matters; the numbers are those of the host's log files. */
enum class LogLevel {
    Error = 1, /**< something the user asked for did not happen */
    Warning = 2, /**< it happened, but not as expected */
    Info = 3, /**< worth knowing later */
    Debug = 4, /**< for developers */
};

/** The host's log. Every message of the library goes through it. */
class Q_DECL_EXPORT CLogger
{
public:
    /**
     * Writes one entry; defined by the host.
     *
     * Called from whatever thread has something to say, so it must be thread-safe.
     * @p category is a fixed text for each class or area, such as "CFileCopyController".
     */
    static void logMessage(LogLevel level, const QString &category, const QString &message);
};

} // namespace Tavro::Logging
