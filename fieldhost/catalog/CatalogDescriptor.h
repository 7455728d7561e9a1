// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

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

/** Why a catalog file cannot be used. */
struct CatalogError
{
    /** The file, as it was named. */
    QString file;
    /** Line of the first mistake, from 1; 0 when no place of the file is to blame. */
    int line = 0;
    /** Column in that line, in characters, from 1; 0 together with the line. */
    int column = 0;
    /** What is wrong, without a period at its end. May quote the file, control characters too. */
    QString cause;
};

} // namespace Tavro::FieldHost
