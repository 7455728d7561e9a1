// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/TransformFlags.h"

namespace Tavro::View3d {

namespace {
constexpr int s_allFlags = 0x7F;
}

TransformFlags::TransformFlags(int flags)
    : m_flags(flags)
{
}

TransformFlags::~TransformFlags() = default;

int TransformFlags::allTransformFlags()
{
    return s_allFlags;
}

int TransformFlags::getFlags() const
{
    return m_flags;
}

bool TransformFlags::hasPosition() const
{
    // without the mask: a bit that only the host knows also means that something is given
    return m_flags != 0;
}

bool TransformFlags::positionBound() const
{
    return (m_flags & s_allFlags) > 1;
}

} // namespace Tavro::View3d
