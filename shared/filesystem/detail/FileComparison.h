// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::Shared::detail {

/** What comes of comparing two files. */
enum class Comparison { SameDigest, OtherDigest, FirstUnreadable, SecondUnreadable };

/**
 * Compares the MD5 sums of two regular files. Where not a byte differs, they need not be
 * computed. When neither can be read, it is the first that counts.
 */
Comparison compareByDigest(const QString &pathA, const QString &pathB);

} // namespace Tavro::Shared::detail
