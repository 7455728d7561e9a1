// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QVector3D>

namespace Tavro::View3d {

/**
 * A place on the earth: longitude, latitude and height. Ranges are not checked.
 *
 * A plain value: each thread may use its own copy.
 */
class OVO_SHARED_EXPORT GeoCoord
{
public:
    /** Creates a place from degrees east, degrees north and a height in any unit. */
    GeoCoord(double lon, double lat, double alt);
    /** Creates a place from degrees east and degrees north, at height 0. */
    GeoCoord(double lon, double lat);

    /** Longitude in degrees east. */
    double lon() const;
    /** Latitude in degrees north. */
    double lat() const;
    /** Height, in the unit of the constructor's argument. */
    double alt() const;

    /**
     * Returns longitude, latitude and height in this order, each rounded to the nearest float. The
     * rounding moves a place by up to one metre. The axes are not those of Vector3D.
     */
    QVector3D toQVector3D() const;

private:
    double m_lon;
    double m_lat;
    double m_alt;
};

} // namespace Tavro::View3d
