// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/detail/DecimalPoint.h"

#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/detail/DecimalPointOf.h"

#include <QString>

namespace Tavro::Shared::detail {

void useCurrentDecimalPoint(QString &number)
{
    const QChar point = decimalPointOf(CLocaleSupport::getCurrentLocale());
    for (const QChar separator : {QLatin1Char('.'), QLatin1Char(',')}) {
        // putting a sign in its own place would copy the text
        if (separator != point) {
            number.replace(separator, point);
        }
    }
}

} // namespace Tavro::Shared::detail
