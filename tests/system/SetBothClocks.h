// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/system/SystemDateTime.h"

#include <QFile>

/** Sets both clocks to @p moment in UTC; false unless both show it afterwards. */
inline bool setBothClocks(const QDateTime &moment)
{
    const bool isDone = Tavro::SystemDateTime().setDateTime(moment);
    const auto shows = [wanted = moment.toSecsSinceEpoch()](qint64 seconds) {
        return seconds >= wanted - 1 && seconds <= wanted + 12; // the commands take up to 10 s
    };
    QFile hardware(QStringLiteral("/sys/class/rtc/rtc0/since_epoch")); // in UTC
    return isDone && shows(QDateTime::currentSecsSinceEpoch()) && hardware.open(QIODevice::ReadOnly)
        && shows(hardware.readAll().trimmed().toLongLong());
}
