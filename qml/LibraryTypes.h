// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

// What editors and qmllint are told about the library's own classes, under which names. No program
// uses these structs: moc reads them, and the type list is made from what it writes. What programs
// register is in OvoSharedBaseTypes.cpp.

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

#include <QtQml/qqml.h>

namespace Tavro::Qml {

struct CopyControllerType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Shared::CFileCopyController)
    QML_NAMED_ELEMENT(CFileCopyController)
};

struct DeleteControllerType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Shared::CFileDeleteController)
    QML_NAMED_ELEMENT(CFileDeleteController)
};

struct UsbDeviceListType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Shared::MountedUSBDeviceList)
    QML_NAMED_ELEMENT(MountedUSBDeviceList)
};

struct CleanAccessType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Shared::USBDriveCleanAccessManager)
    QML_NAMED_ELEMENT(USBDriveCleanAccessManager)
};

struct TextValidatorType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Shared::TextValidator)
    QML_NAMED_ELEMENT(TextValidator)
};

struct StringListModelType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Shared::QmlStringListModel)
    QML_NAMED_ELEMENT(QmlStringListModel)
};

struct InputTypeType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Shared::CInputType)
    QML_NAMED_ELEMENT(CInputType)
    QML_UNCREATABLE("The host makes it from a column.")
};

struct MessageTypesType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Base::UiMessageTypes)
    QML_NAMED_ELEMENT(UiMessageTypes)
    QML_UNCREATABLE("It only carries enumerations.")
};

struct ErrorCodeType
{
    Q_GADGET
    QML_FOREIGN(Tavro::Base::CErrorCode)
    QML_NAMED_ELEMENT(CErrorCode)
    QML_UNCREATABLE("It is the value of a property.")
};

struct OsSettingsType
{
    Q_GADGET
    QML_FOREIGN(Tavro::OsSettings)
    QML_NAMED_ELEMENT(OsSettings)
    QML_SINGLETON
};

struct ProjectTypeType
{
    Q_GADGET
    QML_FOREIGN(Tavro::ProjectTypeGlobal)
    QML_NAMED_ELEMENT(ProjectTypeGlobal)
    QML_SINGLETON
};

} // namespace Tavro::Qml
