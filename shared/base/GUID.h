#pragma once

#include <QString>

namespace Tavro::Base {

/** Identifier of a stored object or a catalog, as text; empty when there is none. */
using GUID = QString;

} // namespace Tavro::Base
