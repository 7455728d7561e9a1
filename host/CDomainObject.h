#pragma once

#include <QSharedPointer>

namespace Tavro::Database {

/** Something that the project database stores. */
class Q_DECL_EXPORT CDomainObject
{
public:
    virtual ~CDomainObject() = default;
};

/** Shared ownership of a stored object between the host and the library. */
using CDomainObjectPointer = QSharedPointer<CDomainObject>;

} // namespace Tavro::Database
