// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

// What qmllint and editors are told about the screens' own types, under which names. No program
// uses this header: moc reads it, and the type list is made from what it writes. What the program
// registers is in the …Types.cpp of each directory.

#include <QObject>

namespace Tavro::FieldHost {

// one struct for each name: only the class information counts
#define SCREEN_TYPE(Name, Class, Kind) \
    struct Name##Type \
    { \
        Q_GADGET \
        Q_CLASSINFO("QML.Element", #Name) \
        Q_CLASSINFO("QML.Foreign", "Tavro::FieldHost::" #Class) \
        Q_CLASSINFO(Kind, "true") \
    };

SCREEN_TYPE(DeviceClock, DeviceClock, "QML.Singleton")
SCREEN_TYPE(DriveList, DriveList, "QML.Creatable")
SCREEN_TYPE(LogEntries, LogEntries, "QML.Singleton")
SCREEN_TYPE(ExportModel, ExportModel, "QML.Creatable")
SCREEN_TYPE(ExportState, ExportStates, "QML.Creatable")
SCREEN_TYPE(DeleteModel, DeleteModel, "QML.Creatable")
SCREEN_TYPE(DeleteState, DeleteStates, "QML.Creatable")
SCREEN_TYPE(Places, Places, "QML.Singleton")
SCREEN_TYPE(FormField, FormField, "QML.Creatable")
SCREEN_TYPE(InspectionForm, InspectionForm, "QML.Creatable")
SCREEN_TYPE(ProjectLocale, ProjectLocale, "QML.Singleton")
SCREEN_TYPE(ClipTrace, ClipTrace, "QML.Creatable")
SCREEN_TYPE(PlotCurve, PlotCurve, "QML.Creatable")
SCREEN_TYPE(Recording, Recording, "QML.Creatable")

} // namespace Tavro::FieldHost
