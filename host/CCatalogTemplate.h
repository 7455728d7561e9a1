#pragma once

#include <QString>

namespace Tavro::Templates {

class CProgramView;

/** The catalog template of an open project. */
class Q_DECL_EXPORT CCatalogTemplate
{
public:
    virtual ~CCatalogTemplate() = default;

    /** Unit text in which the catalog measures distance. */
    virtual QString unit() const = 0;
    /** Number of views. */
    virtual int programViewCount() const = 0;
    /** View at @p index, 0 to programViewCount() - 1; owned by the template. */
    virtual const CProgramView *programView(int index) const = 0;
};

} // namespace Tavro::Templates
