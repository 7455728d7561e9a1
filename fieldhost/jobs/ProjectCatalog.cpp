// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ProjectCatalog.h"

#include "fieldhost/catalog/CatalogDescriptor.h"
#include "fieldhost/jobs/Text.h"
#include "shared/locale/CLocaleSupport.h"

namespace Tavro::FieldHost {

using Shared::CLocaleSupport;

QString sentenceOf(const CatalogError &error)
{
    const QString file = quoted(error.file);
    const QString cause = printable(error.cause);
    return error.line == 0 ? JobText::tr("The catalog %1 cannot be read: %2.").arg(file, cause)
                           : JobText::tr("The catalog %1 cannot be used. Line %2, column %3: %4.")
                                 .arg(file)
                                 .arg(error.line)
                                 .arg(error.column)
                                 .arg(cause);
}

bool isDistanceUnit(const QString &unit)
{
    return unit == CLocaleSupport::distanceUnits_m || unit == CLocaleSupport::distanceUnits_ft
        || unit == CLocaleSupport::distanceUnits_inch;
}

QString unitText(Base::DistanceUnit unit)
{
    switch (unit) {
    case Base::DistanceUnit::Feet:
        return CLocaleSupport::distanceUnits_ft;
    case Base::DistanceUnit::Inch:
        return CLocaleSupport::distanceUnits_inch;
    default:
        return CLocaleSupport::distanceUnits_m;
    }
}

} // namespace Tavro::FieldHost
