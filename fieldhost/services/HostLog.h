// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CLogger.h"

#include <functional>

namespace Tavro::FieldHost {

/**
 * Where the entries of CLogger go.
 *
 * Entries are written one after the other, never one inside another, whatever threads they come
 * from. Every function may be called from any thread.
 */
class HostLog
{
public:
    /** Gets one complete entry, without a line feed at its end. Must not log itself. */
    using Sink = std::function<void(const QString &line)>;

    HostLog() = delete;

    /** The least important level that is still written. Info until it is set. */
    static Logging::LogLevel threshold();
    /** Leaves out what matters less than @p level. */
    static void setThreshold(Logging::LogLevel level);

    /**
     * Has @p sink write the entries, one call at a time, on the thread that logs. An empty one
     * stands for standard error. Returns the sink in use before.
     */
    static Sink setSink(Sink sink);

    /**
     * The line for an entry: level, category, message. Further lines of a message are indented,
     * so that none of them reads as an entry of its own. Control characters are spelled out.
     */
    static QString format(Logging::LogLevel level, const QString &category, const QString &message);

    /** Formats an entry and writes it when it passes the threshold. */
    static void write(Logging::LogLevel level, const QString &category, const QString &message);
};

} // namespace Tavro::FieldHost
