// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CVersionComparer.h"

#include <QStringList>

namespace Tavro::Shared {

namespace {

constexpr int s_partCount = 4;

} // namespace

int CVersionComparer::compare(const QString &a, const QString &b, bool &ok)
{
    ok = false;
    const QStringList partsOfA = a.split(QLatin1Char('.')); // they may be empty
    const QStringList partsOfB = b.split(QLatin1Char('.'));
    if (partsOfA.size() != s_partCount || partsOfB.size() != s_partCount) {
        return 0;
    }
    for (int i = 0; i < s_partCount; ++i) {
        bool readA = false;
        bool readB = false;
        const int partOfA = partsOfA[i].toInt(&readA);
        const int partOfB = partsOfB[i].toInt(&readB);
        if (!readA || !readB) {
            return 0;
        }
        if (partOfA != partOfB) {
            ok = true;
            return partOfA > partOfB ? 1 : -1;
        }
    }
    ok = true;
    return 0;
}

} // namespace Tavro::Shared
