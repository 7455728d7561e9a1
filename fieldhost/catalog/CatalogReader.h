#pragma once

#include "fieldhost/catalog/CatalogDescriptor.h"
#include "fieldhost/catalog/CatalogError.h"
#include "fieldhost/catalog/CatalogTemplate.h"

#include <QSharedPointer>
#include <QString>

#include <functional>
#include <optional>

namespace Tavro::FieldHost {

/** What a catalog file holds. */
struct Catalog
{
    CatalogDescriptor descriptor;
    QSharedPointer<CatalogTemplate> catalogTemplate; // null until the whole file is read
};

/** Ids that a catalog may not have; each function gives the file that has the id, or nothing. */
struct TakenIds
{
    std::function<QString(const QString &id)> catalog;
    std::function<QString(const QString &id)> catalogTemplate;
};

/** Reads the catalog file @p path; nothing when it cannot be used, and then @p error says why. */
std::optional<Catalog> readCatalog(const QString &path, const TakenIds &taken, CatalogError &error);

} // namespace Tavro::FieldHost
