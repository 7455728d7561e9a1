// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/input/Verdict.h"

#include "fieldhost/services/HostLog.h"

namespace Test {

QString refusal(const char *category, const QString &text)
{
    using Tavro::FieldHost::HostLog;
    using Tavro::Logging::LogLevel;
    return HostLog::format(LogLevel::Debug, QLatin1String(category),
                           QStringLiteral("Cannot validate '") + text + QStringLiteral("'  ."));
}

} // namespace Test
