// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/GeoCoord.h"

namespace Tavro::View3d {

GeoCoord::GeoCoord(double lon, double lat, double alt)
    : m_lon(lon)
    , m_lat(lat)
    , m_alt(alt)
{
}

GeoCoord::GeoCoord(double lon, double lat)
    : GeoCoord(lon, lat, 0)
{
}

double GeoCoord::lon() const
{
    return m_lon;
}

double GeoCoord::lat() const
{
    return m_lat;
}

double GeoCoord::alt() const
{
    return m_alt;
}

QVector3D GeoCoord::toQVector3D() const
{
    return QVector3D(static_cast<float>(m_lon), static_cast<float>(m_lat),
                     static_cast<float>(m_alt));
}

} // namespace Tavro::View3d
