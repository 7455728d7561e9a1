// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Base {

/** Identifier of a stored object or of a catalog, as text. Empty when there is none. */
using GUID = QString;

} // namespace Tavro::Base
