// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/WktPoint.h"
#include "shared/OvoSharedBaseExport.h"

#include <QVector3D>

#include <algorithm>
#include <cmath>

namespace Tavro::View3d {

/**
 * A point or a direction in the 3D view, in double precision.
 *
 * The x axis of the view points west: x is the negated easting of the map. y is the height, z is
 * the northing. A scale factor converts from the map to the view. It applies to the horizontal
 * components only; heights are equal in both.
 *
 * A plain value: each thread may use its own copy. Nothing blocks or fails. The library exports the
 * instance for double only.
 */
template<typename T> class Vector3D
{
public:
    T x = 0; /**< westward: the map's easting, negated and scaled */
    T y = 0; /**< upward: the map's height */
    T z = 0; /**< northward: the map's northing, scaled */

    /** Creates the origin. */
    Vector3D() = default;
    /** Creates a vector of the given components. */
    Vector3D(T xValue, T yValue, T zValue)
        : x(xValue)
        , y(yValue)
        , z(zValue)
    {
    }
    /** Converts each component; the values stay exactly those of the floats. */
    Vector3D(QVector3D v)
        : x(v.x())
        , y(v.y())
        , z(v.z())
    {
    }
    /**
     * Converts a point of the map; its horizontal coordinates are multiplied by @p scale. The
     * coordinates are read by the rules of the C locale. A text that is not a number counts as 0.
     * The measure is not used.
     */
    // by value: part of the interface
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    Vector3D(Database::WktPoint p, T scale)
        : x(-(p.x.toDouble() * scale))
        , y(p.z.toDouble())
        , z(scale * p.y.toDouble())
    {
    }
    /** Copies @p v with its horizontal components multiplied by @p scale. */
    Vector3D(const Vector3D &v, T scale)
        : x(v.x * scale)
        , y(v.y)
        , z(v.z * scale)
    {
    }

    /** Returns the sum, component by component. */
    Vector3D operator+(const Vector3D &other) const
    {
        return Vector3D(x + other.x, y + other.y, z + other.z);
    }
    /** Returns the difference, component by component. */
    Vector3D operator-(const Vector3D &other) const
    {
        return Vector3D(x - other.x, y - other.y, z - other.z);
    }
    /** Returns the vector with each component multiplied by @p factor. */
    Vector3D operator*(T factor) const { return Vector3D(x * factor, y * factor, z * factor); }
    /**
     * Returns the vector with each component divided by @p divisor. A @p divisor of 0 gives
     * infinities, and NaN for components that are 0.
     */
    Vector3D operator/(T divisor) const { return Vector3D(x / divisor, y / divisor, z / divisor); }

    /**
     * True when each two components differ by at most 10^-12 of the one that is nearer to 0. The
     * tolerance is relative: only 0 equals 0. Infinities and NaN do not equal themselves.
     */
    bool operator==(const Vector3D &other) const
    {
        return isNear(x, other.x) && isNear(y, other.y) && isNear(z, other.z);
    }

    /** Rounds each component to the nearest float; infinite beyond the range of float. */
    QVector3D toQVector3D() const
    {
        return QVector3D(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
    }

    /**
     * Returns the point of the map, with the horizontal components divided by @p scale and the
     * measure @p m. The coordinates have 13 significant digits and the decimal point "." in every
     * locale. On a map in metres that is exact to 0.01 mm. Infinities and NaN become "inf", "-inf"
     * and "nan". A negative 0 loses its sign.
     */
    Database::WktPoint toWKTPoint(T scale, int m) const
    {
        const auto text = [](T value) { return QString::number(value, 'g', 13); };
        return Database::WktPoint{text(-x / scale), text(z / scale), text(y), QString::number(m)};
    }

    /** Distance from the origin; infinite when the square of a component overflows. */
    T length() const { return std::sqrt(x * x + y * y + z * z); }

    /** Returns the scalar product of @p a and @p b. */
    static T dotProduct(const Vector3D &a, const Vector3D &b)
    {
        return a.x * b.x + a.y * b.y + a.z * b.z;
    }

private:
    // the rule of qFuzzyCompare(double, double), at half its price: qAbs() branches
    static bool isNear(T a, T b)
    {
        return std::abs(a - b) * 1e12 <= std::min(std::abs(a), std::abs(b));
    }
};

// the members are inline: an optimised host calls into the library for none of them
extern template class OVO_SHARED_EXPORT Vector3D<double>;

} // namespace Tavro::View3d
