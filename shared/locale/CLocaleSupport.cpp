// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CLocaleSupport.h"

#include "shared/locale/GlobalLocaleData.h"
#include "shared/locale/detail/DecimalPointOf.h"

#include <QDate>
#include <QDateTime>
#include <QStringBuilder>
#include <QTime>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <optional>

using Tavro::Base::DistanceUnit;

namespace Tavro::Shared {

namespace {

// The integer as which @p value is shown, if any. Casting a value outside the range of int is
// undefined, so the range is checked first; NaN fails both comparisons.
std::optional<int> shownAsInteger(double value)
{
    if (!(value > -2147483649.0 && value < 2147483648.0)) {
        return std::nullopt;
    }
    const int truncated = static_cast<int>(value);
    if (std::abs(truncated - value) > 1e-12) {
        return std::nullopt;
    }
    return truncated;
}

// The number in a variant of exactly that type: value() would check the type again.
template<typename Number> Number numberIn(const QVariant &variant)
{
    return *static_cast<const Number *>(variant.constData());
}

// No copy: counting it takes a tenth of the time of a distance's text.
const QString &distanceUnitText()
{
    return CLocaleSupport::getDistanceUnit() == DistanceUnit::Feet
        ? CLocaleSupport::distanceUnits_ft
        : CLocaleSupport::distanceUnits_m;
}

// date, time, or both
template<typename Moment>
QString momentToString(const QLocale &locale, const Moment &moment, const QString &format)
{
    return format.isEmpty() ? locale.toString(moment, QLocale::ShortFormat)
                            : locale.toString(moment, format);
}

} // namespace

// The only objects that are made when the library is loaded, because hosts read them by name. As
// literals they take nothing from the heap.
const QString CLocaleSupport::speedUnits_m_per_sec = QStringLiteral("m/s");
const QString CLocaleSupport::speedUnits_ft_per_sec = QStringLiteral("ft/s");
const QString CLocaleSupport::speedUnits_inch_per_sec = QStringLiteral("inch/s");
const QString CLocaleSupport::speedUnits_m_per_min = QStringLiteral("m/min");
const QString CLocaleSupport::speedUnits_ft_per_min = QStringLiteral("ft/min");
const QString CLocaleSupport::speedUnits_inch_per_min = QStringLiteral("inch/min");
const QString CLocaleSupport::speedUnits_cm_per_sec = QStringLiteral("cm/s");
const QString CLocaleSupport::angleUnits_hour = QStringLiteral("hour");
const QString CLocaleSupport::angleUnits_degree = QStringLiteral("°");
const QString CLocaleSupport::angleUnits_percent = QStringLiteral("%");
const QString CLocaleSupport::pressureUnits_mbar = QStringLiteral("mbar");
const QString CLocaleSupport::pressureUnits_atm = QStringLiteral("atm");
const QString CLocaleSupport::pressureUnits_pa = QStringLiteral("Pa");
const QString CLocaleSupport::distanceUnits_m = QStringLiteral("m");
const QString CLocaleSupport::distanceUnits_ft = QStringLiteral("ft");
const QString CLocaleSupport::distanceUnits_inch = QStringLiteral("inch");
const QString CLocaleSupport::tempUnits_C = QStringLiteral("°C");
const QString CLocaleSupport::tempUnits_F = QStringLiteral("°F");

const bool CLocaleSupport::decimalRegardlessOfLocale; // a symbol for the host to link with

// No copy: it would take half as long as formatting an integer.
const QLocale &CLocaleSupport::currentLocale()
{
    return GlobalLocaleData::instance()->currentLocale();
}

QLocale CLocaleSupport::getCurrentLocale()
{
    return currentLocale();
}

DistanceUnit CLocaleSupport::getDistanceUnit()
{
    return GlobalLocaleData::instance()->distanceUnitType();
}

QString CLocaleSupport::getDistanceUnitString()
{
    return distanceUnitText();
}

QString CLocaleSupport::getSpeedUnitString()
{
    return getDistanceUnit() == DistanceUnit::Feet ? speedUnits_ft_per_min : speedUnits_m_per_min;
}

QString CLocaleSupport::getTemperatureUnitString()
{
    switch (currentLocale().measurementSystem()) {
    case QLocale::ImperialUSSystem:
    case QLocale::ImperialUKSystem:
        return tempUnits_F;
    case QLocale::MetricSystem:
        break;
    }
    return tempUnits_C;
}

QString CLocaleSupport::getAngleUnitString()
{
    return angleUnits_degree;
}

QString CLocaleSupport::getPressureUnitString()
{
    return pressureUnits_mbar;
}

QString CLocaleSupport::catalogTemplateColumnUnit(const QString &columnKey)
{
    const QString unit = GlobalLocaleData::instance()->catalogTemplateColumnUnit(columnKey);
    return unit.isEmpty() ? getDistanceUnitString() : unit;
}

QString CLocaleSupport::getDateFormat()
{
    QString format = currentLocale().dateFormat(QLocale::ShortFormat);
    const QStringView twoDigits(u"yy");
    if (format.indexOf(QStringView(u"yyyy")) < 0) {
        for (int i = format.indexOf(twoDigits); i >= 0; i = format.indexOf(twoDigits, i + 4)) {
            format.insert(i, QLatin1String("yy")); // QString::replace() takes twice as long
        }
    }
    return format;
}

QString CLocaleSupport::getTimeFormat()
{
    return currentLocale().timeFormat(QLocale::LongFormat);
}

QString CLocaleSupport::getDateTimeFormat()
{
    return currentLocale().dateTimeFormat(QLocale::ShortFormat);
}

bool CLocaleSupport::APStyle()
{
    // true without AM and PM: screens rely on this sense
    return getTimeFormat().indexOf(QStringView(u"AP")) < 0;
}

QString CLocaleSupport::distanceValueToLocalizedString(double value, bool withUnit,
                                                       bool twoDecimals)
{
    QString text = currentLocale().toString(value, 'f', twoDecimals ? 2 : 1);
    if (withUnit) {
        text += QLatin1Char(' ') % distanceUnitText();
    }
    return text;
}

double CLocaleSupport::distanceValueFromLocalizedString(const QString &text)
{
    const QLocale &locale = currentLocale();
    const QChar decimalPoint = detail::decimalPointOf(locale);
    const auto isDecimalMark = [](QChar c) {
        return c == QLatin1Char('.') || c == QLatin1Char(',');
    };

    QVarLengthArray<QChar, 64> number(text.size()); // on the stack for any text of a field
    std::replace_copy_if(text.begin(), text.end(), number.begin(), isDecimalMark, decimalPoint);

    bool ok = false;
    const double value = locale.toDouble(QStringView(number.constData(), number.size()), &ok);
    return ok ? value : 0; // toDouble() returns infinity when out of range
}

QString CLocaleSupport::variantToLocalizedString(const QVariant &value, const QString &format)
{
    const QLocale &locale = currentLocale();
    switch (value.userType()) {
    case QMetaType::Int:
        return locale.toString(numberIn<int>(value));
    case QMetaType::UInt:
        return locale.toString(numberIn<unsigned>(value));
    case QMetaType::LongLong:
        return locale.toString(numberIn<qlonglong>(value));
    case QMetaType::ULongLong:
        return locale.toString(numberIn<qulonglong>(value));
    case QMetaType::Double: {
        const auto number = numberIn<double>(value);
        const std::optional<int> integer = shownAsInteger(number);
        return integer ? locale.toString(*integer) : locale.toString(number, 'f', 2);
    }
    case QMetaType::QDate:
        return momentToString(locale, value.toDate(), format);
    case QMetaType::QTime:
        return momentToString(locale, value.toTime(), format);
    case QMetaType::QDateTime:
        return momentToString(locale, value.toDateTime(), format);
    default:
        return value.toString();
    }
}

} // namespace Tavro::Shared
