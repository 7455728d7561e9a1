#pragma once

namespace Tavro::Database {

/** Result of a database query; the library only passes it on. */
class SqlResult;

} // namespace Tavro::Database
