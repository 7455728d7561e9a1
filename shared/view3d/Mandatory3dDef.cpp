// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/Mandatory3dDef.h"

#include "shared/view3d/ProjectTypeGlobal.h"

#include <QSet>

namespace Tavro {

namespace {

bool placesObjects(const QString &viewKey)
{
    static const QSet<QString> views = {
        QStringLiteral("detail_s_inspection"),
        QStringLiteral("detail_s"),
        QStringLiteral("detail_p"),
    };
    return views.contains(viewKey);
}

bool isNeededToPlace(const QString &fieldKey)
{
    static const QSet<QString> fields = {
        QStringLiteral("OBJ_Key"),
        QStringLiteral("OBJ_FromNode_REF"),
        QStringLiteral("OBJ_ToNode_REF"),
        QStringLiteral("OBJ_FromNode_REF.OBJ_Type"),
        QStringLiteral("OBJ_ToNode_REF.OBJ_Type"),
        QStringLiteral("OBJ_Size"),
        QStringLiteral("OBJ_Offset"),
        QStringLiteral("INS_InspectionDir"),
        QStringLiteral("PRJ_Key"),
    };
    return fields.contains(fieldKey);
}

} // namespace

class Q_DECL_HIDDEN Mandatory3dDef::Private
{
};

Mandatory3dDef::Mandatory3dDef(QObject *parent)
    : QObject(parent)
{
}

Mandatory3dDef::~Mandatory3dDef() = default;

bool Mandatory3dDef::isMandatory(bool defaultMandatory, const QString &fieldKey,
                                 const QString &viewKey)
{
    if (!ProjectTypeGlobal::instance().is3d() || !placesObjects(viewKey)) {
        return defaultMandatory;
    }
    return isNeededToPlace(fieldKey);
}

} // namespace Tavro
