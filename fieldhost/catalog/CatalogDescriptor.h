#pragma once

#include "host/CCatalogTemplateRegistry.h"

#include <QString>

namespace Tavro::FieldHost {

/** What the registry knows of a catalog; none of the texts is empty. */
class CatalogDescriptor : public CATManagement::CCatalogDescriptor
{
public:
    /** The id by which the registry finds it. */
    QString id;
    /** What people call it. */
    QString name;
    /** Vehicle registration code of its country, such as "CH"; not checked. */
    QString countryCode;
    /** ISO 639-2 code of its language, such as "DEU"; not checked. */
    QString languageCode;
    /** The id by which the template manager finds its template. */
    QString templateId;
    /** The file that it was read from, as it was named. */
    QString file;
};

} // namespace Tavro::FieldHost
