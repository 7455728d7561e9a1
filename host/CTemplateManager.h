// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSharedPointer>
#include <QString>

namespace Tavro::Templates {
class CCatalogTemplate;
}

namespace Tavro::CATManagement {

/** Loads and keeps the catalog templates. The host implements it. Used on the GUI thread. */
class Q_DECL_EXPORT CTemplateManager
{
public:
    virtual ~CTemplateManager() = default;

    /** Template @p templateId, which is loaded if needed. Null when there is none. */
    virtual QSharedPointer<Tavro::Templates::CCatalogTemplate> getTemplateFromCache(
        const QString &templateId) = 0;
};

} // namespace Tavro::CATManagement
