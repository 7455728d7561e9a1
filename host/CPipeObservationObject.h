#pragma once

#include "host/CDomainObject.h"

namespace Tavro::Database {

/** An observation made in a pipe; the library only asks whether an object is one. */
class Q_DECL_EXPORT CPipeObservationObject : public CDomainObject
{
};

} // namespace Tavro::Database
