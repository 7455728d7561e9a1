#include "shared/view3d/ProjectTypeGlobal.h"

namespace Tavro {

bool ProjectTypeGlobal::is3d() const
{
    return m_projectType == QLatin1String("PRO3D");
}

bool ProjectTypeGlobal::isPlumberCatalog() const
{
    return m_isPlumberCatalog;
}

QString ProjectTypeGlobal::projectType() const
{
    return m_projectType;
}

} // namespace Tavro
