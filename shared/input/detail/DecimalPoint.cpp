#include "shared/input/detail/DecimalPoint.h"

#include "shared/locale/CLocaleSupport.h"

#include <QLocale>
#include <QString>

namespace Tavro::Shared::detail {

void useCurrentDecimalPoint(QString &number)
{
    const QChar point = CLocaleSupport::getCurrentLocale().decimalPoint();
    number.replace(QLatin1Char('.'), point);
    number.replace(QLatin1Char(','), point);
}

} // namespace Tavro::Shared::detail
