// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/Dates.h"

namespace Tavro::Qml {

namespace {

QDateTime noonOf(QDate date)
{
    // where clocks change at midnight, a day's midnight may not exist
    return date.isValid() ? QDateTime(date, QTime(12, 0)) : QDateTime();
}

} // namespace

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
    return noonOf(QDate(year, month, day));
}

QDateTime Dates::copyOf(const QDateTime &date)
{
    return noonOf(date.toUTC().date());
}

QDateTime Dates::time(int hour, int minute, int second)
{
    const QTime time(hour, minute, second);
    // the day that QML takes for a QTime
    return time.isValid() ? QDateTime(QDate(1971, 4, 1), time) : QDateTime();
}

} // namespace Tavro::Qml
