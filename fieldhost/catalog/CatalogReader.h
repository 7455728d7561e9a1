// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/catalog/CatalogDescriptor.h"
#include "fieldhost/catalog/CatalogTemplate.h"

#include <QSharedPointer>
#include <QString>

#include <map>
#include <optional>

namespace Tavro::FieldHost {

/** What a catalog file holds. */
struct Catalog
{
    CatalogDescriptor descriptor;
    QSharedPointer<CatalogTemplate> catalogTemplate; // null until the whole file is read
};

/** The catalogs that are there, by their ids. */
using Catalogs = std::map<QString, CatalogDescriptor>;

/**
 * Reads the catalog file @p path, whose ids none of @p others may have; nothing when it cannot be
 * used, and then @p error says why.
 */
std::optional<Catalog> readCatalog(const QString &path, const Catalogs &others,
                                   CatalogError &error);

} // namespace Tavro::FieldHost
