#pragma once

#include <QString>

namespace Tavro::CATManagement {

/** What the registry knows of one catalog; the host's subclass says more. */
class Q_DECL_EXPORT CCatalogDescriptor
{
public:
    virtual ~CCatalogDescriptor() = default;
};

/** The host's list of known catalogs. */
class Q_DECL_EXPORT CCatalogTemplateRegistry
{
public:
    virtual ~CCatalogTemplateRegistry() = default;

    /** Descriptor of the catalog of that id, owned by the registry; null when unknown. */
    virtual const CCatalogDescriptor *catalogByUniqueId(const QString &catalogId) const = 0;
};

} // namespace Tavro::CATManagement
