#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QtGlobal>

namespace Tavro::View3d {

/**
 * A set of bits that says which parts of an object's transform are given.
 *
 * What each bit stands for is the host's; the library knows that there are seven, and that the
 * lowest does not bind a position. A value: any thread may use its own.
 */
class OVO_SHARED_EXPORT TransformFlags
{
public:
    /** Takes the bits as they are, also those above the seventh. */
    TransformFlags(int flags);
    virtual ~TransformFlags();

    /** All seven bits: 127. */
    static int allTransformFlags();

    /** The bits as they were given. */
    int getFlags() const;
    /** True when any bit is set, one above the seventh included. */
    bool hasPosition() const;
    /** True when any of the bits 1 to 6 is set; bit 0 and those above bit 6 do not count. */
    bool positionBound() const;

private:
    qint32 m_flags;
};

} // namespace Tavro::View3d
