// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>
#include <memory>

namespace Tavro::Shared::detail {

struct SystemTextFreer
{
    void operator()(char *text) const { std::free(text); } // NOLINT(*-no-malloc)
};

/** What realpath() or getcwd() has answered; null when it has failed. */
using SystemText = std::unique_ptr<char, SystemTextFreer>;

} // namespace Tavro::Shared::detail
