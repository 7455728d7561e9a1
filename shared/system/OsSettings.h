#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QDate>
#include <QObject>
#include <QTime>

namespace Tavro {

/**
 * The device's clock, for QML. Lives on the GUI thread.
 *
 * Nothing announces that time passes: whoever shows a running clock reads the properties again
 * and again. Setting one runs commands and blocks for up to 10 seconds, see SystemDateTime, also
 * for what the system makes of the value: **it takes a local time as UTC**.
 */
class OVO_SHARED_EXPORT OsSettings : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QTime time READ time WRITE setTime NOTIFY timeChanged)
    Q_PROPERTY(QDate date READ date WRITE setDate NOTIFY dateChanged)

public:
    /**
     * The one of the process, made at the first call and destroyed at the process's exit. A QML
     * engine that gets hold of it does not delete it.
     */
    static OsSettings *instance();

    /** The local time at this moment. */
    QTime time() const;
    /**
     * The local date at this moment. JavaScript has it as the midnight of UTC with which it
     * begins: west of Greenwich getDate() there answers the day before, getUTCDate() the day.
     */
    QDate date() const;

    /** Sets the time of the present day; announces it only if both clocks were set. */
    void setTime(QTime time);
    /**
     * Sets the date and the local time that it is at this moment, and announces both, the date
     * first, only if both clocks were set. Does nothing but log when daylight saving skips this
     * time on that date.
     */
    void setDate(QDate date);

Q_SIGNALS:
    /** The time was set. */
    void timeChanged();
    /** The date was set; timeChanged() follows. */
    void dateChanged();

private:
    OsSettings() = default;
};

} // namespace Tavro
