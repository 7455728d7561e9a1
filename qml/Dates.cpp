#include "qml/Dates.h"

namespace Tavro::Qml {

Dates::Dates(QObject *parent)
    : QObject(parent)
{
}

QString Dates::isoDate(const QDateTime &date)
{
    return date.toUTC().date().toString(Qt::ISODate);
}

QString Dates::isoTime(const QDateTime &time)
{
    return time.toLocalTime().time().toString(Qt::ISODate);
}

QDateTime Dates::date(int year, int month, int day)
{
    const QDate date(year, month, day);
    // noon: where clocks change at midnight, that day's midnight may not exist
    return date.isValid() ? QDateTime(date, QTime(12, 0)) : QDateTime();
}

QDateTime Dates::time(int hour, int minute, int second)
{
    const QTime time(hour, minute, second);
    // a day on which no clock was changed
    return time.isValid() ? QDateTime(QDate(1970, 1, 1), time) : QDateTime();
}

} // namespace Tavro::Qml
