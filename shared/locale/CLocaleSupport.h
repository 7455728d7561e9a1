#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/base/DistanceUnit.h"

#include <QLocale>
#include <QString>
#include <QVariant>

namespace Tavro::Shared {

/**
 * The one place where screens, validators and file writers ask how numbers, dates and units are
 * shown and read.
 *
 * Every answer follows GlobalLocaleData at the time of the call: the open project's locale and
 * unit, or else the device's. Static functions, on the GUI thread; nothing blocks. The constants
 * may be read from any thread.
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
    static const QString distanceUnits_m; /**< "m": also a template's unit and the converter's */
    static const QString distanceUnits_ft; /**< "ft": also a template's unit and the converter's */
    static const QString distanceUnits_inch; /**< "inch": likewise */
    static const QString tempUnits_C; /**< "°C" */
    static const QString tempUnits_F; /**< "°F" */

    /** For the host; the library does not read it. */
    static const bool decimalRegardlessOfLocale = true;

    /** The project's locale while one is set, else the device's. */
    static QLocale getCurrentLocale();
    /** Unit in which distances are measured; never DistanceUnit::Undefined. */
    static Tavro::Base::DistanceUnit getDistanceUnit();
    /** "ft" for feet, else "m": projects in inches show metres, too. */
    static QString getDistanceUnitString();
    /** "ft/min" for feet, else "m/min": projects in inches show metres, too. */
    static QString getSpeedUnitString();
    /** "°F" for locales of the United States and the United Kingdom, else "°C". */
    static QString getTemperatureUnitString();
    /** "°" in every locale. */
    static QString getAngleUnitString();
    /** "mbar" in every locale. */
    static QString getPressureUnitString();
    /** Unit text of a column in the project's template; where it has none, that of distances. */
    static QString catalogTemplateColumnUnit(const QString &columnKey);

    /** The short date format with the year in four digits, in the notation of QDate::toString(). */
    static QString getDateFormat();
    /** The long time format, in the notation of QTime::toString(). */
    static QString getTimeFormat();
    /** The short format of date and time, in the notation of QDateTime::toString(). */
    static QString getDateTimeFormat();
    /**
     * **False** where times are shown with AM and PM, true where they have 24 hours. Screens rely
     * on this sense, whatever the name says.
     */
    static bool APStyle();

    /**
     * @p value, which is in the unit of getDistanceUnit(), with one or two decimals and without
     * group separators; @p withUnit appends a blank and getDistanceUnitString(). The value is not
     * converted.
     */
    static QString distanceValueToLocalizedString(double value, bool withUnit, bool twoDecimals);
    /**
     * The number in @p text, where "." and "," both are decimal marks in every locale, so that
     * neither can group digits. 0 when @p text is no number, has two marks, or is out of range.
     *
     * **"nan" and "inf" are numbers**, in any case and with blanks around them, "inf" with a sign,
     * too: the result is NaN or infinity. Ask std::isfinite() before it is stored, or let a
     * DoubleValidator refuse such texts.
     */
    static double distanceValueFromLocalizedString(const QString &text);
    /**
     * @p value as its type demands: integers as such; doubles as integers when they are, else
     * with two decimals; date and time by @p format, in the notation of QDate::toString(), or in
     * the locale's short form when @p format is empty. Everything else by QVariant::toString(),
     * without regard to the locale, empty for what has no text.
     */
    static QString variantToLocalizedString(const QVariant &value, const QString &format);

private:
    Q_DECL_HIDDEN static const QLocale &currentLocale();
};

} // namespace Tavro::Shared
