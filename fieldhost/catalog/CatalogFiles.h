// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/catalog/CatalogDescriptor.h"
#include "fieldhost/catalog/OvoCATManagementExport.h"
#include "host/CCatalogTemplate.h"
#include "host/CCatalogTemplateRegistry.h"
#include "host/CTemplateManager.h"

#include <QSharedPointer>
#include <QString>

#include <map>

namespace Tavro::FieldHost {

/**
 * The catalogs that were read from files, each with its template; docs/catalog.md describes
 * the files.
 *
 * Belongs to one thread. Descriptors live as long as this object, templates as long as somebody
 * holds them.
 */
class OVO_CATMANAGEMENT_EXPORT CatalogFiles :
    public CATManagement::CTemplateManager,
    public CATManagement::CCatalogTemplateRegistry
{
    Q_DISABLE_COPY(CatalogFiles)

public:
    CatalogFiles();
    ~CatalogFiles() override;

    /**
     * Reads the catalog of the file @p path, blocking, and returns its descriptor.
     *
     * Null when the file cannot be used, and then @p error says why, and the catalogs that are
     * there stay as they were. Catalogs and templates keep the ids that they came with: a second
     * one of the same id is refused, the same file once more included.
     */
    const CatalogDescriptor *load(const QString &path, CatalogError &error);

    QSharedPointer<Templates::CCatalogTemplate> getTemplateFromCache(
        const QString &templateId) override;
    const CatalogDescriptor *catalogByUniqueId(const QString &catalogId) const override;

private:
    // node by node, so that a descriptor stays where it is
    std::map<QString, CatalogDescriptor> m_catalogs;
    std::map<QString, QSharedPointer<Templates::CCatalogTemplate>> m_templates;
};

} // namespace Tavro::FieldHost
