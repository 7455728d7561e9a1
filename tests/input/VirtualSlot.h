// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstring>

namespace Test {

/**
 * Where @p function stands among the virtual functions of its class, the first that QObject's
 * subclass adds counting as 1. Hosts were compiled against this order.
 */
template<typename Function> int virtualSlot(Function function)
{
    // the common C++ ABI: an offset into the table, plus 1 where the processor leaves that bit free
    std::ptrdiff_t words[2] = {};
    static_assert(sizeof(function) == sizeof(words), "an ABI of another kind");
    std::memcpy(words, &function, sizeof(words));
    constexpr int ofQObject = 12; // from metaObject() to disconnectNotify(), two for the destructor
    return static_cast<int>(words[0] / static_cast<std::ptrdiff_t>(sizeof(void *))) - ofQObject + 1;
}

} // namespace Test
