// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/services/HostLog.h"

#include <QStringList>

namespace Test {

/** Takes every log entry of the host, Debug included, for as long as the object lives. */
class LogRecorder
{
public:
    LogRecorder();
    ~LogRecorder();

    LogRecorder(const LogRecorder &) = delete;
    LogRecorder &operator=(const LogRecorder &) = delete;

    /** The entries so far, each as HostLog::format() writes it. */
    const QStringList &entries() const { return m_entries; }
    /** Forgets them. */
    void clear() { m_entries.clear(); }

private:
    QStringList m_entries;
    Tavro::FieldHost::HostLog::Sink m_previousSink;
    Tavro::Logging::LogLevel m_previousThreshold;
};

} // namespace Test
