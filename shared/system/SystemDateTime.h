// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

namespace Tavro {

/**
 * Sets the system clock and then the hardware clock, by the commands "date" and "hwclock". The
 * commands are found through PATH and need the rights of root.
 *
 * Has no state: create it on the stack for each change. GUI thread only. Each function blocks for
 * up to 10 seconds. Failures are logged at level Error under "SystemDateTime".
 *
 * **Dates and times are passed on unchanged, and the system takes them as UTC.** So a local time
 * moves the clock by the offset of its time zone: in central Europe in summer, 12:00 sets the local
 * time to 14:00. There is no difference on a device whose time zone is UTC. For other time zones
 * pass the result of QDateTime::toUTC().
 */
class OVO_SHARED_EXPORT SystemDateTime
{
public:
    /**
     * Runs a command line and blocks until the command ends, for at most 5 seconds. Blanks separate
     * the arguments, double quotes group them. No shell is involved.
     *
     * Returns true when the command exits with 0. Returns false and logs when it exits with another
     * code, cannot be started, or is terminated by a signal. The log entry contains the text of
     * QProcess::errorString(), but not the output of the command.
     *
     * **Returns true for a command that still runs after 5 seconds**, because it has neither failed
     * nor crashed. The command is killed before the function returns, so it is not known whether it
     * had an effect. If it cannot be killed because the kernel waits for a device, the function
     * waits for one more second.
     */
    bool sendSystemCommand(const QString &command);

    /**
     * Sets the clocks to 00:00 UTC of @p date. Blocks for up to 10 seconds. Returns false when the
     * date is invalid, in which case no command runs, and when one of the commands fails. When only
     * "hwclock" has failed, the system clock is set nevertheless.
     */
    bool setDate(QDate date);
    /**
     * Sets the clocks to @p time of the present day in UTC. Milliseconds are dropped. See setDate()
     * for errors and blocking.
     */
    bool setTime(QTime time);
    /**
     * Sets the clocks to the date and the time of @p dateTime, as they read in its own time zone;
     * the time zone itself is not passed on. Milliseconds are dropped. A local time that daylight
     * saving time skips is invalid. See setDate() for errors and blocking.
     */
    bool setDateTime(QDateTime dateTime);
};

} // namespace Tavro
