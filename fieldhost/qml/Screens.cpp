// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/Screens.h"

#include "fieldhost/qml/device/DeviceTypes.h"
#include "fieldhost/qml/export/ExportTypes.h"
#include "fieldhost/qml/forms/FormsTypes.h"
#include "fieldhost/qml/locale/LocaleTypes.h"
#include "fieldhost/qml/recording/RecordingTypes.h"
#include "qml/OvoSharedBaseTypes.h"

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
    registerOvoSharedBaseTypes();
    registerDeviceTypes();
    registerExportTypes();
    registerFormsTypes();
    registerLocaleTypes();
    registerRecordingTypes();
}

} // namespace Tavro::FieldHost
