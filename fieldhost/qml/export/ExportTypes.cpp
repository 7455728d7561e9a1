#include "fieldhost/qml/export/ExportTypes.h"

#include "fieldhost/qml/export/DeleteModel.h"
#include "fieldhost/qml/export/ExportModel.h"

#include <QtQml>

namespace Tavro::FieldHost {

void registerExportTypes()
{
    const char uri[] = "OvoFieldHost";
    const QString values = QStringLiteral("holds values only");
    qmlRegisterType<ExportModel>(uri, 1, 0, "ExportModel");
    qmlRegisterType<DeleteModel>(uri, 1, 0, "DeleteModel");
    qmlRegisterUncreatableMetaObject(ExportStates::staticMetaObject, uri, 1, 0, "ExportState",
                                     values);
    qmlRegisterUncreatableMetaObject(DeleteStates::staticMetaObject, uri, 1, 0, "DeleteState",
                                     values);
}

} // namespace Tavro::FieldHost
