#pragma once

#include <QString>

namespace Tavro::Templates {

/** One column of a catalog's view. */
class Q_DECL_EXPORT CColumnDefinition
{
public:
    virtual ~CColumnDefinition() = default;

    /** Key by which catalog and database name the column. */
    virtual QString key() const = 0;
    /** Unit text of the column's values; empty when they have none. */
    virtual QString unit() const = 0;
};

} // namespace Tavro::Templates
