// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QDate>
#include <QObject>
#include <QTime>

namespace Tavro {

/**
 * The device's clock, for QML.
 *
 * No signal is emitted as time passes. To show a running clock, read the properties with a timer.
 * Setting a property runs commands and blocks for up to 10 seconds. **The system takes the local
 * time that is set as UTC.** See SystemDateTime for both, for the rights needed and for the log.
 *
 * A process-wide instance on the GUI thread. GUI thread only.
 */
class OVO_SHARED_EXPORT OsSettings : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QTime time READ time WRITE setTime NOTIFY timeChanged)
    Q_PROPERTY(QDate date READ date WRITE setDate NOTIFY dateChanged)

public:
    /**
     * The process-wide instance. Never null. The first call creates it; it is destroyed when the
     * process exits. Its QML ownership is QQmlEngine::CppOwnership, so an engine does not delete
     * it.
     */
    static OsSettings *instance();

    /** The present local time. */
    QTime time() const;
    /**
     * The present local date. JavaScript converts it to a Date of midnight UTC: west of Greenwich
     * getDate() returns the day before. getUTCDate() returns the right day.
     */
    QDate date() const;

    /**
     * Sets the time of day, to whole seconds; the date stays that of the present day in UTC. Emits
     * timeChanged() if both clocks were set. An invalid time is logged and not set.
     */
    void setTime(QTime time);
    /**
     * Sets the date, together with the present local time. Emits dateChanged() and then
     * timeChanged() if both clocks were set. An invalid date is logged and not set, and so is a
     * date on which daylight saving time skips the present local time.
     */
    void setDate(QDate date);

Q_SIGNALS:
    /** Emitted when the time or the date was set. */
    void timeChanged();
    /** Emitted when the date was set, before timeChanged(). */
    void dateChanged();

private:
    OsSettings() = default;
};

} // namespace Tavro
