// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::View3d {

// Each source file that includes this header has its own texts, which are initialised before its
// own globals. Texts of another source file might be initialised after them.
// clazy:excludeall=non-pod-global-static

/** Column with the shape of an object as well-known text (WKT). */
const QString shapeColumn = QStringLiteral("OBJ_Shape_WKT");
/** Prefix of the columns in a view. */
const QString shapeViewPrefix = QStringLiteral("V_");
/** Column with the shape, in a view. */
const QString shapeViewColumn = shapeViewPrefix + shapeColumn;
/** Column with the easting of the shape, WktPoint::x, in a view. */
const QString shapeViewColumnX = shapeViewColumn + QStringLiteral("_X");
/** Column with the northing of the shape, WktPoint::y, in a view. */
const QString shapeViewColumnY = shapeViewColumn + QStringLiteral("_Y");
/** Column with the height of the shape, WktPoint::z, in a view. */
const QString shapeViewColumnZ = shapeViewColumn + QStringLiteral("_Z");
/** Column with the measure of the shape, WktPoint::m, in a view. */
const QString shapeViewColumnM = shapeViewColumn + QStringLiteral("_M");

} // namespace Tavro::View3d
