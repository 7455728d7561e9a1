#pragma once

#include <QString>

namespace Tavro::Templates {

class CColumnDefinition;

/** One view (a form or table) of a catalog template. */
class Q_DECL_EXPORT CProgramView
{
public:
    virtual ~CProgramView() = default;

    /** Key by which the catalog names the view. */
    virtual QString key() const = 0;
    /** Number of columns. */
    virtual int columnCount() const = 0;
    /** Column at @p index, 0 to columnCount() - 1; owned by the view. */
    virtual const CColumnDefinition *column(int index) const = 0;
};

} // namespace Tavro::Templates
