// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace Tavro::FieldHost {

/**
 * The one of @p words that takes the fewest letters added, removed, replaced or swapped with the
 * next to become @p word; the first of several. Empty when none takes @p most or fewer: without
 * it, a third of the letters of @p word, and at least one.
 */
QString nearest(const QString &word, const QStringList &words, int most = -1);

/** " The nearest one is ...", to be put behind a sentence; empty when none is near. */
QString suggestion(const QString &word, const QStringList &words);

} // namespace Tavro::FieldHost
