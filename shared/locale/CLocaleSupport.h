// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/base/DistanceUnit.h"

#include <QLocale>
#include <QString>
#include <QVariant>

namespace Tavro::Shared {

/**
 * Shows and reads numbers, dates and units in the current locale. Screens, validators and file
 * writers use this class.
 *
 * The current locale and unit are those of GlobalLocaleData at the time of the call: the open
 * project's, or else the device's.
 *
 * Static functions. GUI thread only; the constants may be read from any thread. Nothing blocks and
 * nothing is logged.
 */
class OVO_SHARED_EXPORT CLocaleSupport
{
public:
    CLocaleSupport() = delete;

    static const QString speedUnits_m_per_sec; /**< "m/s" */
    static const QString speedUnits_ft_per_sec; /**< "ft/s" */
    static const QString speedUnits_inch_per_sec; /**< "inch/s" */
    static const QString speedUnits_m_per_min; /**< "m/min" */
    static const QString speedUnits_ft_per_min; /**< "ft/min" */
    static const QString speedUnits_inch_per_min; /**< "inch/min" */
    static const QString speedUnits_cm_per_sec; /**< "cm/s" */
    static const QString angleUnits_hour; /**< "hour" */
    static const QString angleUnits_degree; /**< "°" */
    static const QString angleUnits_percent; /**< "%" */
    static const QString pressureUnits_mbar; /**< "mbar" */
    static const QString pressureUnits_atm; /**< "atm" */
    static const QString pressureUnits_pa; /**< "Pa" */
    static const QString distanceUnits_m; /**< "m"; as in templates and LengthUnitsConverter */
    static const QString distanceUnits_ft; /**< "ft"; as in templates and LengthUnitsConverter */
    static const QString distanceUnits_inch; /**< "inch"; as in templates, LengthUnitsConverter */
    static const QString tempUnits_C; /**< "°C" */
    static const QString tempUnits_F; /**< "°F" */

    /** Always true. For the host; this library does not read it. */
    static const bool decimalRegardlessOfLocale = true;

    /** The project's locale while it is valid, else the device's. */
    static QLocale getCurrentLocale();
    /** Unit in which distances are measured; never DistanceUnit::Undefined. */
    static Tavro::Base::DistanceUnit getDistanceUnit();
    /** "ft" for feet, else "m". A project in inches has "m". */
    static QString getDistanceUnitString();
    /** "ft/min" for feet, else "m/min". A project in inches has "m/min". */
    static QString getSpeedUnitString();
    /**
     * "°F" when QLocale::measurementSystem() of the current locale is that of the United States or
     * of the United Kingdom, else "°C".
     */
    static QString getTemperatureUnitString();
    /** "°" in every locale. */
    static QString getAngleUnitString();
    /** "mbar" in every locale. */
    static QString getPressureUnitString();
    /** Unit of a column in the project's template, or getDistanceUnitString() if it has none. */
    static QString catalogTemplateColumnUnit(const QString &columnKey);

    /** Short date format with a year of four digits, in the notation of QDate::toString(). */
    static QString getDateFormat();
    /** Long time format, in the notation of QTime::toString(). */
    static QString getTimeFormat();
    /** Short format of date and time, in the notation of QDateTime::toString(). */
    static QString getDateTimeFormat();
    /**
     * **Returns false when getTimeFormat() contains "AP"**, that is when times are shown with AM
     * and PM, and true when it does not. Screens rely on this sense, although the name suggests the
     * opposite.
     */
    static bool APStyle();

    /**
     * Returns @p value with two decimals if @p twoDecimals is true, else with one, and without
     * group separators (GlobalLocaleData names the exception). @p withUnit appends a blank and
     * getDistanceUnitString(). @p value is in the unit of getDistanceUnit() and is not converted.
     */
    static QString distanceValueToLocalizedString(double value, bool withUnit, bool twoDecimals);
    /**
     * Returns the number in @p text. Both "." and "," are decimal points in every locale, so
     * neither can group digits. Returns 0 when @p text is not a number, has two decimal points, or
     * is out of the range of double.
     *
     * **"nan" and "inf" are numbers**, in upper or lower case, also with blanks around them, and
     * "inf" also with a sign: the result is NaN or infinity. Check it with std::isfinite() before
     * you store it, or let a DoubleValidator refuse such texts.
     */
    static double distanceValueFromLocalizedString(const QString &text);
    /**
     * Returns @p value as text, depending on its type:
     * - int, unsigned int, long long and their unsigned kinds: an integer.
     * - double: an integer if it is within 1e-12 of one of 32 bits, else two decimals.
     * - QDate, QTime, QDateTime: by @p format, in the notation of QDate::toString(); the locale's
     *   short form if @p format is empty.
     * - any other type: QVariant::toString(), which does not depend on the locale; empty for a type
     *   that has no text.
     */
    static QString variantToLocalizedString(const QVariant &value, const QString &format);

private:
    Q_DECL_HIDDEN static const QLocale &currentLocale();
};

} // namespace Tavro::Shared
