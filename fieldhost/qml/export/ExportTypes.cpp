// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/export/ExportTypes.h"

#include "fieldhost/qml/export/DeleteModel.h"
#include "fieldhost/qml/export/ExportModel.h"
#include "fieldhost/qml/export/Places.h"

#include <QtQml>

namespace Tavro::FieldHost {

void registerExportTypes()
{
    const char uri[] = "OvoFieldHost";
    const QString values = QStringLiteral("holds values only");
    qmlRegisterType<ExportModel>(uri, 1, 0, "ExportModel");
    qmlRegisterType<DeleteModel>(uri, 1, 0, "DeleteModel");
    qmlRegisterSingletonType<Places>(
        uri, 1, 0, "Places", [](QQmlEngine *, QJSEngine *) -> QObject * { return new Places; });
    qmlRegisterUncreatableMetaObject(ExportStates::staticMetaObject, uri, 1, 0, "ExportState",
                                     values);
    qmlRegisterUncreatableMetaObject(DeleteStates::staticMetaObject, uri, 1, 0, "DeleteState",
                                     values);
}

} // namespace Tavro::FieldHost
