// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

namespace Tavro::Qml {

/**
 * Reads and makes the Date of JavaScript that stands for a QDate or a QTime property.
 *
 * QML turns a QDate into midnight UTC, so west of Greenwich getDate() is the day before, but takes
 * the local day when a Date is written to the property. It turns a QTime into a moment of a day
 * long ago. OsSettings has such properties, and hosts do.
 *
 * Any thread. Nothing blocks.
 */
class Dates : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Dates)
    QML_SINGLETON

public:
    explicit Dates(QObject *parent = nullptr);

    /** The day of a QDate property, "2024-03-07"; empty if it has none. */
    Q_INVOKABLE static QString isoDate(const QDateTime &date);
    /** The time of a QTime property, "14:05:09"; empty if it has none. */
    Q_INVOKABLE static QString isoTime(const QDateTime &time);
    /** What to write to a QDate property, with a @p month from 1 to 12. No day: an invalid Date. */
    Q_INVOKABLE static QDateTime date(int year, int month, int day);
    /** What to write to a QDate property to give it the day of another one. */
    Q_INVOKABLE static QDateTime copyOf(const QDateTime &date);
    /** What to write to a QTime property, in local time. No time: an invalid Date. */
    Q_INVOKABLE static QDateTime time(int hour, int minute, int second = 0);
};

} // namespace Tavro::Qml
