// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/locale/LocaleTypes.h"

#include "fieldhost/qml/locale/ProjectLocale.h"

#include <QQmlEngine>

namespace Tavro::FieldHost {

void registerLocaleTypes()
{
    // one for each engine, which owns it
    qmlRegisterSingletonType<ProjectLocale>(
        "OvoFieldHost", 1, 0, "ProjectLocale",
        [](QQmlEngine *, QJSEngine *) -> QObject * { return new ProjectLocale; });
}

} // namespace Tavro::FieldHost
