// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/CErrorCode.h"

namespace Tavro::Base {

namespace {

quint8 byteOf(quint32 word, int index)
{
    return static_cast<quint8>(word >> (8 * index));
}

} // namespace

CErrorCode::CErrorCode() = default;

CErrorCode::CErrorCode(unsigned int code)
    : m_code(code)
{
}

ErrorCode CErrorCode::errorCode() const
{
    return static_cast<ErrorCode>(m_code);
}

quint8 CErrorCode::moduleId() const
{
    return byteOf(m_code, 2);
}

quint8 CErrorCode::componentId() const
{
    return byteOf(m_code, 1);
}

quint8 CErrorCode::detailCode() const
{
    return byteOf(m_code, 0);
}

quint8 CErrorCode::domain() const
{
    return static_cast<quint8>(m_code >> 31);
}

bool CErrorCode::isNoError() const
{
    // only the low byte: a word made of a component's "none" still has module and component
    return detailCode() == 0;
}

} // namespace Tavro::Base
