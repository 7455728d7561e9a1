#include "fieldhost/qml/Screens.h"

#include <QtGlobal>

// in no namespace: the name that it refers to is in none
static void initialiseResources()
{
    Q_INIT_RESOURCE(screens); // the linker leaves it out of an archive otherwise
}

namespace Tavro::FieldHost {

void registerScreens()
{
    initialiseResources();
}

} // namespace Tavro::FieldHost
