// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/LocaleOverview.h"

#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Table.h"
#include "fieldhost/jobs/Text.h"
#include "host/CColumnDefinition.h"
#include "host/CProgramView.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/GlobalLocaleData.h"
#include "shared/locale/SizeFormater.h"

#include <QDateTime>
#include <QVariant>

namespace Tavro::FieldHost {

using Shared::CLocaleSupport;
using Shared::GlobalLocaleData;
using Shared::SizeFormater;

namespace {

QString withUnit(const QVariant &value, const QString &unit)
{
    return CLocaleSupport::variantToLocalizedString(value, QString()) + QLatin1Char(' ') + unit;
}

// day, month and hour that cannot be taken for each other
QDateTime sampleTime()
{
    return QDateTime(QDate(2026, 3, 31), QTime(17, 5, 8));
}

} // namespace

QString valueOverview()
{
    constexpr double distance = 1234.567;
    constexpr qint64 size = 1610612736; // 1.5 times 1024^3
    const QDateTime time = sampleTime();
    const auto show = CLocaleSupport::variantToLocalizedString;

    return formatTable({
        {CommandText::tr("What"), CommandText::tr("Value"), CommandText::tr("Shown as")},
        {CommandText::tr("Distance"), QStringLiteral("1234.567"),
         CLocaleSupport::distanceValueToLocalizedString(distance, true, true)},
        {CommandText::tr("Distance, short"), QStringLiteral("1234.567"),
         CLocaleSupport::distanceValueToLocalizedString(distance, false, false)},
        {CommandText::tr("Speed"), QStringLiteral("4.5"),
         withUnit(4.5, CLocaleSupport::getSpeedUnitString())},
        {CommandText::tr("Temperature"), QStringLiteral("21.5"),
         withUnit(21.5, CLocaleSupport::getTemperatureUnitString())},
        {CommandText::tr("Angle"), QStringLiteral("12.5"),
         withUnit(12.5, CLocaleSupport::getAngleUnitString())},
        {CommandText::tr("Pressure"), QStringLiteral("850"),
         withUnit(850, CLocaleSupport::getPressureUnitString())},
        {CommandText::tr("Whole number"), QStringLiteral("3.0"), show(3.0, QString())},
        {CommandText::tr("Date"), QStringLiteral("2026-03-31"),
         show(time.date(), CLocaleSupport::getDateFormat())},
        {CommandText::tr("Time"), QStringLiteral("17:05:08"),
         show(time.time(), CLocaleSupport::getTimeFormat())},
        {CommandText::tr("Date and time"), QStringLiteral("2026-03-31 17:05:08"),
         show(time, CLocaleSupport::getDateTimeFormat())},
        {CommandText::tr("Clock"), QString(),
         // true means that there is no AM and PM
         CLocaleSupport::APStyle() ? CommandText::tr("24 hours") : CommandText::tr("AM and PM")},
        {CommandText::tr("Size"), CommandText::tr("%1 bytes").arg(size),
         SizeFormater::toString(size)},
    });
}

QString columnOverview(const Templates::CCatalogTemplate &catalogTemplate)
{
    std::vector<QStringList> rows = {{CommandText::tr("Column"), CommandText::tr("View"),
                                      CommandText::tr("Unit"), CommandText::tr("From")}};
    for (int i = 0; i < catalogTemplate.programViewCount(); ++i) {
        const Templates::CProgramView *view = catalogTemplate.programView(i);
        for (int j = 0; j < view->columnCount(); ++j) {
            const QString key = view->column(j)->key();
            const bool ofCatalog =
                !GlobalLocaleData::instance()->catalogTemplateColumnUnit(key).isEmpty();
            rows.push_back(
                {printable(key), printable(view->key()),
                 printable(CLocaleSupport::catalogTemplateColumnUnit(key)),
                 ofCatalog ? CommandText::tr("the catalog") : CommandText::tr("distances")});
        }
    }
    return formatTable(rows);
}

} // namespace Tavro::FieldHost
