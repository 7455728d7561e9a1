// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/detail/RefusedText.h"

#include "host/CLogger.h"

#include <QString>

namespace Tavro::Shared::detail {

void logRefusedText(const QString &category, const QString &text)
{
    // two blanks before the full stop: readers of the log search for exactly this line
    Logging::CLogger::logMessage(Logging::LogLevel::Debug, category,
                                 QLatin1String("Cannot validate '") + text + QLatin1String("'  ."));
}

} // namespace Tavro::Shared::detail
