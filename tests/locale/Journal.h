// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/services/HostLog.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <utility>

namespace Test {

/** Log entries, signals and whatever a test adds, in the one order in which they happen. */
class Journal
{
public:
    using HostLog = Tavro::FieldHost::HostLog;

    Journal()
        : m_threshold(HostLog::threshold())
    {
        HostLog::setThreshold(Tavro::Logging::LogLevel::Debug);
        m_sink = HostLog::setSink([this](const QString &line) { m_entries.append(line); });
    }

    ~Journal()
    {
        HostLog::setSink(m_sink);
        HostLog::setThreshold(m_threshold);
    }

    Journal(const Journal &) = delete;
    Journal &operator=(const Journal &) = delete;

    /** Has each emission of @p signal added as "signal " and @p name. */
    template<typename Sender, typename Signal>
    void follow(Sender *sender, Signal signal, const char *name)
    {
        follow(sender, signal, [name] { return QLatin1String("signal ") + QLatin1String(name); });
    }

    /** Has what @p describe answers at each emission of @p signal added. */
    template<typename Sender, typename Signal>
    void follow(Sender *sender, Signal signal, std::function<QString()> describe)
    {
        QObject::connect(sender, signal, &m_context,
                         [this, describe = std::move(describe)] { add(describe()); });
    }

    /** Adds an entry of the test's own. */
    void add(const QString &entry) { m_entries.append(entry); }

    /** The entries since the last call. */
    QStringList take() { return std::exchange(m_entries, {}); }

private:
    QStringList m_entries;
    HostLog::Sink m_sink;
    Tavro::Logging::LogLevel m_threshold;
    QObject m_context; // ends the connections
};

/** The entry that logging @p message at @p level under "Locale" leaves. */
inline QString localeEntry(Tavro::Logging::LogLevel level, const QString &message)
{
    return Tavro::FieldHost::HostLog::format(level, QStringLiteral("Locale"), message);
}

} // namespace Test
