// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Database {

/**
 * A point as the project database stores it. Each coordinate is a decimal number as text, empty
 * when it is unknown.
 */
struct WktPoint
{
    QString x; /**< easting */
    QString y; /**< northing */
    QString z; /**< height */
    QString m; /**< measure: the distance along the line */
};

} // namespace Tavro::Database
