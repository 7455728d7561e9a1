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
 * The view's x points west: it is the negated easting of the map. Its y is the height, and its z
 * the northing. A scale factor leads from the map to the view and applies to the horizontal
 * components alone, heights are the same in both.
 *
 * A value: any thread may use its own. The library carries it for double only.
 */
template<typename T> class Vector3D
{
public:
    T x = 0; /**< westward: the map's easting, negated and scaled */
    T y = 0; /**< upward: the map's height */
    T z = 0; /**< northward: the map's northing, scaled */

    /** The origin. */
    Vector3D() = default;
    /** The given components. */
    Vector3D(T xValue, T yValue, T zValue)
        : x(xValue)
        , y(yValue)
        , z(zValue)
    {
    }
    /** Each component widened, so its value is exactly that of the float. */
    Vector3D(QVector3D v)
        : x(v.x())
        , y(v.y())
        , z(v.z())
    {
    }
    /**
     * A point of the map, its horizontal coordinates multiplied by @p scale. Its texts are numbers
     * with a decimal point, whatever the locale; one that is no number counts as 0. The measure
     * does not matter.
     */
    // by value, as the hosts call it
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    Vector3D(Database::WktPoint p, T scale)
        : x(-(p.x.toDouble() * scale))
        , y(p.z.toDouble())
        , z(scale * p.y.toDouble())
    {
    }
    /** Multiplies the horizontal components of @p v by @p scale and leaves its height. */
    Vector3D(const Vector3D &v, T scale)
        : x(v.x * scale)
        , y(v.y)
        , z(v.z * scale)
    {
    }

    /** Sum, component by component. */
    Vector3D operator+(const Vector3D &other) const
    {
        return Vector3D(x + other.x, y + other.y, z + other.z);
    }
    /** Difference, component by component. */
    Vector3D operator-(const Vector3D &other) const
    {
        return Vector3D(x - other.x, y - other.y, z - other.z);
    }
    /** Every component times @p factor. */
    Vector3D operator*(T factor) const { return Vector3D(x * factor, y * factor, z * factor); }
    /** Every component divided by @p divisor; by 0 that makes infinities, and NaN of a 0. */
    Vector3D operator/(T divisor) const { return Vector3D(x / divisor, y / divisor, z / divisor); }

    /**
     * True when each component differs from its counterpart by at most a part in 10^12 of the one
     * that is nearer to 0. Relative throughout: 0 equals nothing but 0, and neither infinities
     * nor NaN equal themselves.
     */
    bool operator==(const Vector3D &other) const
    {
        return isNear(x, other.x) && isNear(y, other.y) && isNear(z, other.z);
    }

    /** Each component rounded to the nearest float; infinite beyond a float's range. */
    QVector3D toQVector3D() const
    {
        return QVector3D(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
    }

    /**
     * The point of the map that this vector stands for, its horizontal components divided by
     * @p scale, with @p m as its measure. The coordinates are written with 13 significant digits
     * and a decimal point, whatever the locale: to a hundredth of a millimetre anywhere on a map
     * in metres. Infinities and NaN read "inf", "-inf" and "nan"; a 0 loses its sign.
     */
    Database::WktPoint toWKTPoint(T scale, int m) const
    {
        const auto text = [](T value) { return QString::number(value, 'g', 13); };
        return Database::WktPoint{text(-x / scale), text(z / scale), text(y), QString::number(m)};
    }

    /** Distance from the origin; infinite when a square is beyond the range of the type. */
    T length() const { return std::sqrt(x * x + y * y + z * z); }

    /** The scalar product of @p a and @p b. */
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
