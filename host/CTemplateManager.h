#pragma once

#include <QSharedPointer>
#include <QString>

namespace Tavro::Templates {
class CCatalogTemplate;
}

namespace Tavro::CATManagement {

/** The host's store of catalog templates. */
class Q_DECL_EXPORT CTemplateManager
{
public:
    virtual ~CTemplateManager() = default;

    /** Template of that id, loaded when needed; null when there is none. */
    virtual QSharedPointer<Tavro::Templates::CCatalogTemplate> getTemplateFromCache(
        const QString &templateId) = 0;
};

} // namespace Tavro::CATManagement
