// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Templates {

class CProgramView;

/** The catalog template of a project. The host implements it. Used on the GUI thread. */
class Q_DECL_EXPORT CCatalogTemplate
{
public:
    virtual ~CCatalogTemplate() = default;

    /** Unit of distances: "m", "ft" or "inch". With any other text the locale decides. */
    virtual QString unit() const = 0;
    /** Number of views. */
    virtual int programViewCount() const = 0;
    /** View at @p index, 0 to programViewCount() - 1. Owned by the template. May be null. */
    virtual const CProgramView *programView(int index) const = 0;
};

} // namespace Tavro::Templates
