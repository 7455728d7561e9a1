#include "fieldhost/qml/locale/LocaleTypes.h"

#include "fieldhost/qml/locale/ProjectLocale.h"
#include "fieldhost/qml/locale/ScreenLanguage.h"

#include <QQmlEngine>

namespace Tavro::FieldHost {

void registerLocaleTypes()
{
    // one for each engine, which owns them
    qmlRegisterSingletonType<ProjectLocale>(
        "OvoFieldHost", 1, 0, "ProjectLocale",
        [](QQmlEngine *, QJSEngine *) -> QObject * { return new ProjectLocale; });
    qmlRegisterSingletonType<ScreenLanguage>(
        "OvoFieldHost", 1, 0, "ScreenLanguage",
        [](QQmlEngine *engine, QJSEngine *) -> QObject * { return new ScreenLanguage(engine); });
}

} // namespace Tavro::FieldHost
