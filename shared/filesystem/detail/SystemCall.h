// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cerrno>

namespace Tavro::Shared::detail {

/** Makes a system call again for as long as a signal interrupts it; -1 when it has failed. */
template<typename Call> auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace Tavro::Shared::detail
