// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/OvoSharedBaseTypes.h"

#include "qml/Dates.h"
#include "qml/FieldValidator.h"
#include "qml/Formats.h"
#include "qml/OperationResult.h"
#include "qml/PathMeasure.h"
#include "qml/Paths.h"
#include "shared/base/CErrorCode.h"
#include "shared/base/UiMessageTypes.h"
#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileDeleteController.h"
#include "shared/input/CInputType.h"
#include "shared/input/QmlStringListModel.h"
#include "shared/input/TextValidator.h"
#include "shared/system/OsSettings.h"
#include "shared/usb/MountedUSBDeviceList.h"
#include "shared/usb/USBDriveCleanAccessManager.h"
#include "shared/view3d/ProjectTypeGlobal.h"

#include <QQmlEngine>

using namespace Tavro;

namespace {

constexpr char s_module[] = "OvoSharedBase";

template<typename Type> void registerType(const char *name)
{
    qmlRegisterType<Type>(s_module, 1, 0, name);
}

template<typename Type> void registerUncreatable(const char *name, const char *reason)
{
    qmlRegisterUncreatableType<Type>(s_module, 1, 0, name, QLatin1String(reason));
}

// enumerations, and a value that properties have
template<typename Gadget> void registerGadget(const char *name, const char *reason)
{
    qmlRegisterUncreatableMetaObject(Gadget::staticMetaObject, s_module, 1, 0, name,
                                     QLatin1String(reason));
}

// one for each engine, which owns it
template<typename Type> void registerSingleton(const char *name)
{
    qmlRegisterSingletonType<Type>(s_module, 1, 0, name,
                                   [](QQmlEngine *, QJSEngine *) -> QObject * { return new Type; });
}

// that of the process, which no engine may delete
template<typename Type> void registerInstance(const char *name, Type &(*instance)())
{
    qmlRegisterSingletonType<Type>(
        s_module, 1, 0, name, [instance](QQmlEngine *, QJSEngine *) -> QObject * {
            QObject *object = &instance();
            QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
            return object;
        });
}

} // namespace

// The same list is in LibraryTypes.h and in the module's own headers, for editors and qmllint.
void registerOvoSharedBaseTypes()
{
    if (qmlTypeId(s_module, 1, 0, "CFileCopyController") != -1) {
        return;
    }

    registerType<Shared::CFileCopyController>("CFileCopyController");
    registerType<Shared::CFileDeleteController>("CFileDeleteController");
    registerType<Shared::MountedUSBDeviceList>("MountedUSBDeviceList");
    registerType<Shared::USBDriveCleanAccessManager>("USBDriveCleanAccessManager");
    registerType<Shared::TextValidator>("TextValidator");
    registerType<Shared::QmlStringListModel>("QmlStringListModel");
    registerUncreatable<Shared::CInputType>("CInputType", "The host makes it from a column.");
    registerGadget<Base::UiMessageTypes>("UiMessageTypes", "It only carries enumerations.");
    registerGadget<Base::CErrorCode>("CErrorCode", "It is the value of a property.");
    registerInstance<OsSettings>(
        "OsSettings", +[]() -> OsSettings & { return *OsSettings::instance(); });
    registerInstance<ProjectTypeGlobal>("ProjectTypeGlobal", &ProjectTypeGlobal::instance);

    registerSingleton<Qml::Formats>("Formats");
    registerUncreatable<Qml::LocaleFormats>("LocaleFormats", "Read Formats.current.");
    registerSingleton<Qml::Dates>("Dates");
    registerSingleton<Qml::Paths>("Paths");
    registerType<Qml::DirectorySize>("DirectorySize");
    registerType<Qml::FreeSpace>("FreeSpace");
    registerType<Qml::CopyResult>("CopyResult");
    registerType<Qml::DeleteResult>("DeleteResult");
    registerType<Qml::FieldValidator>("FieldValidator");
}
