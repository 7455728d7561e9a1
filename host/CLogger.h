// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Logging {

/** Severity of a log entry. The numbers are those of the host's log files. */
enum class LogLevel {
    Error = 1, /**< an operation that the user has requested has failed */
    Warning = 2, /**< an operation has succeeded, but not as expected */
    Info = 3, /**< information */
    Debug = 4, /**< for developers */
};

/** The log of the host. Every message of the library goes through it. */
class Q_DECL_EXPORT CLogger
{
public:
    /**
     * Writes one entry. The host defines this function.
     *
     * The library calls it from any thread, so the definition must be thread-safe. @p category is a
     * fixed text for each class or area, such as "CFileCopyController".
     */
    static void logMessage(LogLevel level, const QString &category, const QString &message);
};

} // namespace Tavro::Logging
