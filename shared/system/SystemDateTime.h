#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

namespace Tavro {

/**
 * Sets the system's clock and then the hardware's, with the commands "date" and "hwclock", which
 * are found through PATH and need the rights of root.
 *
 * Holds nothing; made on the stack for each change. GUI thread only. Failures are logged at level
 * Error under "SystemDateTime".
 *
 * **Dates and times are sent as they are given, and the system takes them as UTC.** A local time
 * moves the clock by the offset of its zone: on a device in central Europe in summer, 12:00 makes
 * it 14:00. A device whose zone is UTC does not notice; elsewhere, pass what QDateTime::toUTC()
 * answers.
 */
class OVO_SHARED_EXPORT SystemDateTime
{
public:
    /**
     * Runs one command line and blocks until it ends, for at most 5 seconds. Blanks separate the
     * arguments, double quotes keep them together; no shell sees the line.
     *
     * True when the command has exited with 0. False, with a log entry, when it exited with
     * another code, could not be started, or died by a signal. The entry carries the text of
     * QProcess::errorString(), not what the command printed.
     *
     * **One that still runs after 5 seconds counts as done**: it has neither failed nor crashed so
     * far. It is killed before the call returns, so whether it took effect is not known. One that
     * cannot be killed, as the kernel waits for a device, is waited for 30 seconds longer.
     */
    bool sendSystemCommand(const QString &command);

    /**
     * Sets the date, at midnight UTC: the time of day goes to 00:00. Blocks for up to 10 seconds.
     * False when either command fails, or when the date is invalid and nothing was run. When the
     * second one failed, the system's clock is set all the same.
     */
    bool setDate(QDate date);
    /** As setDate(), with the time of the present day in UTC. Milliseconds are cut off. */
    bool setTime(QTime time);
    /**
     * As setDate(), with both. What the clock on the wall of @p dateTime's zone shows is sent,
     * without its zone. A local time that daylight saving skips is invalid.
     */
    bool setDateTime(QDateTime dateTime);
};

} // namespace Tavro
