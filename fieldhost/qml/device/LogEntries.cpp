// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/device/LogEntries.h"

#include "fieldhost/services/HostLog.h"

#include <cstdio>

namespace Tavro::FieldHost {

namespace {
constexpr int s_kept = 200;
}

LogEntries *LogEntries::instance()
{
    // never destroyed: a thread may still log while the process ends
    static auto *const instance = new LogEntries;
    return instance;
}

LogEntries::LogEntries()
{
    HostLog::setSink([this](const QString &line) {
        std::fputs((line.toUtf8() + '\n').constData(), stderr);
        QMetaObject::invokeMethod(
            this, [this, line] { add(line); }, Qt::QueuedConnection);
    });
}

int LogEntries::threshold() const
{
    return static_cast<int>(HostLog::threshold());
}

void LogEntries::setThreshold(int level)
{
    if (level != threshold()) {
        HostLog::setThreshold(static_cast<Logging::LogLevel>(level));
        Q_EMIT thresholdChanged();
    }
}

void LogEntries::clear()
{
    m_lines.clear();
    Q_EMIT linesChanged();
}

void LogEntries::add(const QString &line)
{
    m_lines.prepend(line);
    if (m_lines.size() > s_kept) {
        m_lines.removeLast();
    }
    Q_EMIT linesChanged();
}

} // namespace Tavro::FieldHost
