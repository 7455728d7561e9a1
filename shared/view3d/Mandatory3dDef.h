// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>

#include <memory>

namespace Tavro {

/**
 * Tells which fields of a form are mandatory. In a 3D project, placing an object needs some fields
 * that are optional in the catalog.
 *
 * Has no state. Nothing blocks or fails.
 */
class OVO_SHARED_EXPORT Mandatory3dDef : public QObject
{
    Q_OBJECT

public:
    explicit Mandatory3dDef(QObject *parent = nullptr);
    ~Mandatory3dDef() override;

    /**
     * Returns whether the field @p fieldKey of the data view @p viewKey is mandatory.
     *
     * Returns @p defaultMandatory, the value of the catalog, unless ProjectTypeGlobal::is3d() is
     * true and the view is one of the three that place objects ("detail_s_inspection", "detail_s",
     * "detail_p"). There @p defaultMandatory is ignored: the nine fields that placing an object
     * needs are mandatory, and **all other fields are optional**.
     *
     * Keys are compared exactly. May be called from any thread while no other thread sets the type
     * of the project.
     */
    static bool isMandatory(bool defaultMandatory, const QString &fieldKey, const QString &viewKey);

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro
