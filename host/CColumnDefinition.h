// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Templates {

/** One column of a view of a catalog template. The host implements it. */
class Q_DECL_EXPORT CColumnDefinition
{
public:
    virtual ~CColumnDefinition() = default;

    /** Key of the column in the catalog and in the database. */
    virtual QString key() const = 0;
    /** Unit of the values, such as "mm". Empty when they have none. */
    virtual QString unit() const = 0;
};

} // namespace Tavro::Templates
