// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <link.h>

namespace Tavro::Benchmarks {

/**
 * Stands in place of DT_INIT_ARRAY in a library. A dynamic linker skips a tag that it does not
 * know, and so calls no initialiser.
 */
constexpr decltype(ElfW(Dyn)::d_tag) s_hiddenInitialisersTag = 0x6fff0000;

} // namespace Tavro::Benchmarks
