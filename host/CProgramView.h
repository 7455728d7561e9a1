// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Templates {

class CColumnDefinition;

/** One view, a form or a table, of a catalog template. The host implements it. */
class Q_DECL_EXPORT CProgramView
{
public:
    virtual ~CProgramView() = default;

    /** Key of the view in the catalog. */
    virtual QString key() const = 0;
    /** Number of columns. */
    virtual int columnCount() const = 0;
    /** Column at @p index, 0 to columnCount() - 1. Owned by the view. May be null. */
    virtual const CColumnDefinition *column(int index) const = 0;
};

} // namespace Tavro::Templates
