#pragma once

#include <QString>

namespace Tavro::Database {

/** A point as the project database stores it: each coordinate a decimal text, empty when unknown.
 */
struct WktPoint
{
    QString x; /**< easting */
    QString y; /**< northing */
    QString z; /**< height */
    QString m; /**< measure along the line */
};

} // namespace Tavro::Database
