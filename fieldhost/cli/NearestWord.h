#pragma once

#include <QStringList>

namespace Tavro::FieldHost {

/**
 * The one of @p words that takes the fewest letters added, removed or replaced to become
 * @p word; the first of several. Empty if there are no words.
 */
QString nearest(const QString &word, const QStringList &words);

} // namespace Tavro::FieldHost
