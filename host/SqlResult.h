// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::Database {

/** Result of a database query. The host defines it; the library only passes it on. */
class SqlResult;

} // namespace Tavro::Database
