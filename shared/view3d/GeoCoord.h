#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QVector3D>

namespace Tavro::View3d {

/**
 * A place on the earth. Nothing checks whether its angles are in range.
 *
 * A value: any thread may use its own.
 */
class OVO_SHARED_EXPORT GeoCoord
{
public:
    /** Longitude in degrees east, latitude in degrees north, height. */
    GeoCoord(double lon, double lat, double alt);
    /** The same at height 0. */
    GeoCoord(double lon, double lat);

    /** Degrees east. */
    double lon() const;
    /** Degrees north. */
    double lat() const;
    /** Height, in the unit in which it was given. */
    double alt() const;

    /**
     * Longitude, latitude and height in this order, each rounded to the nearest float, which moves
     * a place by up to a metre. These are not the axes of a Vector3D.
     */
    QVector3D toQVector3D() const;

private:
    double m_lon;
    double m_lat;
    double m_alt;
};

} // namespace Tavro::View3d
