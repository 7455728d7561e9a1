// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/support/LogRecorder.h"

using Tavro::FieldHost::HostLog;

namespace Test {

LogRecorder::LogRecorder()
    : m_previousThreshold(HostLog::threshold())
{
    HostLog::setThreshold(Tavro::Logging::LogLevel::Debug);
    m_previousSink = HostLog::setSink([this](const QString &line) { m_entries.append(line); });
}

LogRecorder::~LogRecorder()
{
    HostLog::setSink(m_previousSink);
    HostLog::setThreshold(m_previousThreshold);
}

} // namespace Test
