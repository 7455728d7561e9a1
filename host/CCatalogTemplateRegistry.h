// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::CATManagement {

/** Describes a catalog. The library only tests whether there is one; the host subclasses it. */
class Q_DECL_EXPORT CCatalogDescriptor
{
public:
    virtual ~CCatalogDescriptor() = default;
};

/** The catalogs that the host knows. The host implements it. Used on the GUI thread. */
class Q_DECL_EXPORT CCatalogTemplateRegistry
{
public:
    virtual ~CCatalogTemplateRegistry() = default;

    /** Descriptor of the catalog @p catalogId. Owned by the registry. Null when it is unknown. */
    virtual const CCatalogDescriptor *catalogByUniqueId(const QString &catalogId) const = 0;
};

} // namespace Tavro::CATManagement
