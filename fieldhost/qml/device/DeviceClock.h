// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/DeviceClock.h"

#include <QObject>
#include <QVariantMap>

namespace Tavro::FieldHost {

/** Sets the clocks of the device, for a screen. GUI thread only. */
class DeviceClock : public QObject
{
    Q_OBJECT

public:
    explicit DeviceClock(QObject *parent = nullptr)
        : QObject(parent)
    {
    }

    /**
     * Calls setClocks() with the local day of @p date and the local time of day of @p time; an
     * invalid Date stands for the present. Returns its result, with the members `isSet` and
     * `sentences`.
     */
    Q_INVOKABLE static QVariantMap set(const QDateTime &date, const QDateTime &time)
    {
        const ClockResult result = setClocks(date.toLocalTime().date(), time.toLocalTime().time());
        return {{QStringLiteral("isSet"), result.isSet},
                {QStringLiteral("sentences"), result.sentences}};
    }
};

} // namespace Tavro::FieldHost
