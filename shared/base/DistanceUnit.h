// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>

namespace Tavro::Base {

/**
 * Unit in which a project measures distance.
 *
 * The values are those of the catalogs and of the project database. They never change.
 */
enum class DistanceUnit : qint32 {
    Undefined = 0, /**< not set: the locale decides */
    Meter = 1, /**< "m" */
    Feet = 2, /**< "ft" */
    Inch = 3, /**< "inch" */
};

} // namespace Tavro::Base

Q_DECLARE_METATYPE(Tavro::Base::DistanceUnit)
