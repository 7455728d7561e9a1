#pragma once

#include <QString>

namespace Tavro::View3d {

// Each source that includes this has texts of its own, made before its own globals that are made
// from them. Shared ones might be made later than those.
// clazy:excludeall=non-pod-global-static

/** The column that holds an object's shape as well-known text. */
const QString shapeColumn = QStringLiteral("OBJ_Shape_WKT");
/** With what the columns of the views begin. */
const QString shapeViewPrefix = QStringLiteral("V_");
/** The shape's column in a view. */
const QString shapeViewColumn = shapeViewPrefix + shapeColumn;
/** The easting of the shape, the text WktPoint::x, in a view. */
const QString shapeViewColumnX = shapeViewColumn + QStringLiteral("_X");
/** The northing of the shape, the text WktPoint::y, in a view. */
const QString shapeViewColumnY = shapeViewColumn + QStringLiteral("_Y");
/** The height of the shape, the text WktPoint::z, in a view. */
const QString shapeViewColumnZ = shapeViewColumn + QStringLiteral("_Z");
/** The measure of the shape, the text WktPoint::m, in a view. */
const QString shapeViewColumnM = shapeViewColumn + QStringLiteral("_M");

} // namespace Tavro::View3d
