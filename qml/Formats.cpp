// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/Formats.h"

#include "shared/base/DistanceUnit.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/GlobalLocaleData.h"
#include "shared/locale/LengthUnitsConverter.h"
#include "shared/locale/SizeFormater.h"

#include <QLocale>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QStringBuilder>

namespace Tavro::Qml {

using Base::DistanceUnit;
using Shared::CLocaleSupport;
using Shared::CProjectLocaleData;
using Shared::GlobalLocaleData;
using Shared::LengthUnitsConverter;
using Shared::SizeFormater;

LocaleFormats::LocaleFormats(QObject *parent)
    : QObject(parent)
{
    // a value of a property without a parent would be the engine's to delete
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
}

QString LocaleFormats::length(double meters)
{
    return distance(LengthUnitsConverter::convert(CLocaleSupport::distanceUnits_m,
                                                  CLocaleSupport::getDistanceUnitString(), meters));
}

QString LocaleFormats::distance(double value)
{
    return CLocaleSupport::distanceValueToLocalizedString(value, true, true);
}

double LocaleFormats::distanceFrom(const QString &text)
{
    return CLocaleSupport::distanceValueFromLocalizedString(text);
}

QString LocaleFormats::size(double millimeters)
{
    const QString unit = sizeUnit();
    const double value = LengthUnitsConverter::convert(QStringLiteral("mm"), unit, millimeters);
    return CLocaleSupport::variantToLocalizedString(value, QString()) % QLatin1Char(' ') % unit;
}

QString LocaleFormats::number(double value, int decimals)
{
    QLocale locale = CLocaleSupport::getCurrentLocale();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, 'f', decimals);
}

QString LocaleFormats::bytes(qlonglong count)
{
    return SizeFormater::toString(count).replace(QLatin1Char('.'),
                                                 CLocaleSupport::getCurrentLocale().decimalPoint());
}

QString LocaleFormats::text(const QVariant &value, const QString &format)
{
    return CLocaleSupport::variantToLocalizedString(value, format);
}

QString LocaleFormats::date(const QDateTime &day)
{
    return CLocaleSupport::variantToLocalizedString(day.toUTC().date(),
                                                    CLocaleSupport::getDateFormat());
}

QString LocaleFormats::dateOf(const QDateTime &moment)
{
    return CLocaleSupport::variantToLocalizedString(moment.toLocalTime().date(),
                                                    CLocaleSupport::getDateFormat());
}

QString LocaleFormats::time(const QDateTime &time)
{
    // most locales name the time zone, which a time of day does not have
    static const QRegularExpression zone(QStringLiteral("[ ,]*[(\\[]?t[)\\]]?[ ,]*"));
    QString format = CLocaleSupport::getTimeFormat();
    format.remove(zone);
    return CLocaleSupport::variantToLocalizedString(time.toLocalTime().time(), format);
}

QString LocaleFormats::dateTime(const QDateTime &moment)
{
    return CLocaleSupport::variantToLocalizedString(moment.toLocalTime(),
                                                    CLocaleSupport::getDateTimeFormat());
}

QString LocaleFormats::distanceUnit()
{
    return CLocaleSupport::getDistanceUnitString();
}

QString LocaleFormats::sizeUnit()
{
    return CLocaleSupport::getDistanceUnit() == DistanceUnit::Meter
        ? QStringLiteral("mm")
        : CLocaleSupport::distanceUnits_inch;
}

QString LocaleFormats::speedUnit()
{
    return CLocaleSupport::getSpeedUnitString();
}

QString LocaleFormats::temperatureUnit()
{
    return CLocaleSupport::getTemperatureUnitString();
}

QString LocaleFormats::angleUnit()
{
    return CLocaleSupport::getAngleUnitString();
}

QString LocaleFormats::pressureUnit()
{
    return CLocaleSupport::getPressureUnitString();
}

QString LocaleFormats::columnUnit(const QString &columnKey)
{
    return CLocaleSupport::catalogTemplateColumnUnit(columnKey);
}

QString LocaleFormats::localeName()
{
    return CLocaleSupport::getCurrentLocale().name();
}

bool LocaleFormats::isRightToLeft()
{
    return CLocaleSupport::getCurrentLocale().textDirection() == Qt::RightToLeft;
}

Formats::Formats(QObject *parent)
    : QObject(parent)
{
    connect(GlobalLocaleData::instance(), &GlobalLocaleData::localeChanged, this, &Formats::renew);
    connect(CProjectLocaleData::instance(), &CProjectLocaleData::projectDistanceUnitChanged, this,
            &Formats::renew);
}

void Formats::renew()
{
    m_current = 1 - m_current;
    Q_EMIT currentChanged();
}

} // namespace Tavro::Qml
