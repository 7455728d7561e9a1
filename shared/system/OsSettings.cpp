// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/OsSettings.h"

#include "shared/system/SystemDateTime.h"

#include <QDateTime>
#include <QQmlEngine>

namespace Tavro {

OsSettings *OsSettings::instance()
{
    static OsSettings theOne;
    // otherwise an engine owns and deletes what an invoked function has returned
    QQmlEngine::setObjectOwnership(&theOne, QQmlEngine::CppOwnership);
    return &theOne;
}

QTime OsSettings::time() const
{
    return QTime::currentTime();
}

QDate OsSettings::date() const
{
    return QDate::currentDate();
}

void OsSettings::setTime(QTime time)
{
    if (SystemDateTime().setTime(time)) {
        Q_EMIT timeChanged();
    }
}

void OsSettings::setDate(QDate date)
{
    if (SystemDateTime().setDateTime(QDateTime(date, time()))) {
        Q_EMIT dateChanged();
        Q_EMIT timeChanged();
    }
}

} // namespace Tavro
