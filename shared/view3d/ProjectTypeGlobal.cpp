// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/ProjectTypeGlobal.h"

namespace Tavro {

class Q_DECL_HIDDEN ProjectTypeGlobal::Private
{
public:
    QString projectType;
    bool isPlumberCatalog = false;
};

ProjectTypeGlobal::ProjectTypeGlobal()
    : d(std::make_unique<Private>())
{
}

ProjectTypeGlobal::~ProjectTypeGlobal() = default;

bool ProjectTypeGlobal::is3d() const
{
    return d->projectType == QLatin1String("PRO3D");
}

bool ProjectTypeGlobal::isPlumberCatalog() const
{
    return d->isPlumberCatalog;
}

QString ProjectTypeGlobal::projectType() const
{
    return d->projectType;
}

void ProjectTypeGlobal::storeProjectType(const QString &projectType)
{
    d->projectType = projectType;
}

void ProjectTypeGlobal::storeIsPlumberCatalog(bool isPlumberCatalog)
{
    d->isPlumberCatalog = isPlumberCatalog;
}

} // namespace Tavro
