// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CDomainObject.h"

namespace Tavro::Database {

/** An observation in a pipe. The library only tests, by dynamic_cast, whether an object is one. */
class Q_DECL_EXPORT CPipeObservationObject : public CDomainObject
{
};

} // namespace Tavro::Database
