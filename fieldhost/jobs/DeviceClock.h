// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QString>

namespace Tavro::FieldHost {

/** What became of the clocks that were to be set. */
struct ClockResult
{
    bool isSet = false; // both, and no command has failed
    QString sentences; // for the user
};

/**
 * Sets the system clock and then the hardware clock to @p date and @p time in UTC, and reads both
 * back. An invalid date stands for the present day in UTC, an invalid time for the present local
 * time. A moment that one of the clocks cannot hold is refused: then no command is run. Blocks for
 * up to 10 seconds.
 */
ClockResult setClocks(QDate date, QTime time);

/** The last moment that the system clock can hold where a long, and so time_t, has @p bits. */
QDateTime lastMomentOfSystem(int bits);

} // namespace Tavro::FieldHost
