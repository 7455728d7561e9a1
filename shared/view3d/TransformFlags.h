// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QtGlobal>

namespace Tavro::View3d {

/**
 * A set of bits that tell which parts of the transform of an object are given.
 *
 * The host defines the meaning of each bit. The library relies on two facts: there are seven bits,
 * and bit 0 alone does not bind a position. A plain value: each thread may use its own copy.
 */
class OVO_SHARED_EXPORT TransformFlags
{
public:
    /** Stores @p flags unchanged, including bits above bit 6. */
    TransformFlags(int flags);
    virtual ~TransformFlags();

    /** Returns 127: bits 0 to 6. */
    static int allTransformFlags();

    /** Returns the bits unchanged. */
    int getFlags() const;
    /** True when any bit is set, including bits above bit 6. */
    bool hasPosition() const;
    /** True when any of the bits 1 to 6 is set. Bit 0 and bits above bit 6 do not count. */
    bool positionBound() const;

private:
    qint32 m_flags;
};

} // namespace Tavro::View3d
