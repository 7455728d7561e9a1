// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/device/DeviceTypes.h"

#include "fieldhost/qml/device/DeviceClock.h"
#include "fieldhost/qml/device/DriveList.h"
#include "fieldhost/qml/device/LogEntries.h"

#include <QQmlEngine>

namespace Tavro::FieldHost {

void registerDeviceTypes()
{
    qmlRegisterType<DriveList>("OvoFieldHost", 1, 0, "DriveList");
    qmlRegisterSingletonType<DeviceClock>(
        "OvoFieldHost", 1, 0, "DeviceClock",
        [](QQmlEngine *, QJSEngine *) -> QObject * { return new DeviceClock; });
    qmlRegisterSingletonInstance("OvoFieldHost", 1, 0, "LogEntries", LogEntries::instance());
}

} // namespace Tavro::FieldHost
