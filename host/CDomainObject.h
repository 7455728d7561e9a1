// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSharedPointer>

namespace Tavro::Database {

/** Base class of the objects in the project database. */
class Q_DECL_EXPORT CDomainObject
{
public:
    virtual ~CDomainObject() = default;
};

/** A stored object that host and library own together. */
using CDomainObjectPointer = QSharedPointer<CDomainObject>;

} // namespace Tavro::Database
