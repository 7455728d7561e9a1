// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/catalog/CatalogFiles.h"

#include "fieldhost/catalog/CatalogReader.h"

#include <optional>

namespace Tavro::FieldHost {

CatalogFiles::CatalogFiles() = default;
CatalogFiles::~CatalogFiles() = default;

const CatalogDescriptor *CatalogFiles::load(const QString &path, CatalogError &error)
{
    const std::optional<Catalog> catalog = readCatalog(path, m_catalogs, error);
    if (!catalog) {
        return nullptr;
    }
    const CatalogDescriptor &descriptor = catalog->descriptor;
    m_templates.emplace(descriptor.templateId, catalog->catalogTemplate);
    return &m_catalogs.emplace(descriptor.id, descriptor).first->second;
}

QSharedPointer<Templates::CCatalogTemplate> CatalogFiles::getTemplateFromCache(
    const QString &templateId)
{
    const auto found = m_templates.find(templateId);
    return found == m_templates.end() ? QSharedPointer<Templates::CCatalogTemplate>()
                                      : found->second;
}

const CatalogDescriptor *CatalogFiles::catalogByUniqueId(const QString &catalogId) const
{
    const auto found = m_catalogs.find(catalogId);
    return found == m_catalogs.end() ? nullptr : &found->second;
}

} // namespace Tavro::FieldHost
