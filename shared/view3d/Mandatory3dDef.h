#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>

#include <memory>

namespace Tavro {

/**
 * Says which fields have to be filled in: in a 3D project an object cannot be placed without some
 * that the catalog leaves optional.
 */
class OVO_SHARED_EXPORT Mandatory3dDef : public QObject
{
    Q_OBJECT

public:
    explicit Mandatory3dDef(QObject *parent = nullptr);
    ~Mandatory3dDef() override;

    /**
     * Whether the field @p fieldKey of the data view @p viewKey has to be filled in.
     *
     * That is what the catalog says, @p defaultMandatory, unless ProjectTypeGlobal knows a 3D
     * project and the view is one of the three that place objects. There the catalog does not
     * count: the nine fields that placing needs are mandatory and **every other one is optional**.
     *
     * Keys are compared as whole texts, upper and lower case apart. May be called from any thread
     * while nobody sets the project's type.
     */
    static bool isMandatory(bool defaultMandatory, const QString &fieldKey, const QString &viewKey);

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro
