#include "fieldhost/qml/Screens.h"

#include "fieldhost/qml/device/DeviceTypes.h"
#include "fieldhost/qml/locale/LocaleTypes.h"
#include "qml/OvoSharedBaseTypes.h"

#include <QtGlobal>

// in no namespace: the name that it refers to is in none
static void initialiseResources()
{
    // the linker leaves them out of an archive otherwise
    Q_INIT_RESOURCE(screens);
    Q_INIT_RESOURCE(translations);
}

namespace Tavro::FieldHost {

void registerScreens()
{
    initialiseResources();
    registerOvoSharedBaseTypes();
    registerLocaleTypes();
    registerDeviceTypes();
}

} // namespace Tavro::FieldHost
