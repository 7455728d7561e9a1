#include "fieldhost/catalog/CatalogFiles.h"

#include "fieldhost/catalog/CatalogReader.h"

#include <optional>

namespace Tavro::FieldHost {

CatalogFiles::CatalogFiles() = default;
CatalogFiles::~CatalogFiles() = default;

const CatalogDescriptor *CatalogFiles::load(const QString &path, CatalogError &error)
{
    const TakenIds taken = {
        [this](const QString &id) {
            const CatalogDescriptor *other = catalogByUniqueId(id);
            return other ? other->file : QString();
        },
        [this](const QString &id) {
            for (const auto &[catalogId, descriptor] : m_catalogs) {
                if (descriptor.templateId == id) {
                    return descriptor.file;
                }
            }
            return QString();
        },
    };
    const std::optional<Catalog> catalog = readCatalog(path, taken, error);
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
