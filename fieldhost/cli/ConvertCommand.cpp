// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/NearestWord.h"
#include "fieldhost/jobs/Text.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/LengthUnitsConverter.h"

#include <QLocale>

#include <cmath>

namespace Tavro::FieldHost {

using Shared::CLocaleSupport;
using Shared::LengthUnitsConverter;

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost convert VALUE FROM TO

Converts a length, as "ovo-fieldhost convert 2.5 m ft" does.

  VALUE  A number. Its decimal mark is "." or ",", so it cannot have group separators.
         A negative one may stand behind "--".
  FROM   The unit of VALUE: m, ft, inch, mm or cm.
  TO     The unit of the result.

The result has all the digits that tell it from its neighbours.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  converted
  1  the result is out of range
  2  the command line was not understood)");

QStringList units()
{
    return {CLocaleSupport::distanceUnits_m, CLocaleSupport::distanceUnits_ft,
            CLocaleSupport::distanceUnits_inch, QStringLiteral("mm"), QStringLiteral("cm")};
}

// a number whose decimal mark may be a comma; otherwise what is wrong with it, as a sentence
double numberFrom(const QString &typed, QString &objection)
{
    QString text = typed;
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok && std::isinf(value)) {
        objection = CommandText::tr("%1 is too large.").arg(quoted(typed));
    } else if (!ok || !std::isfinite(value)) {
        objection = CommandText::tr("%1 is not a number that can be converted.").arg(quoted(typed));
    }
    return value;
}

QString shortest(double value)
{
    const double size = std::abs(value);
    // as many zeros as one can count
    const bool plain = size == 0 || (size >= 1e-6 && size < 1e15);
    return QString::number(value, plain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

int runConvert(const CommandLine &line, Console &console)
{
    const QStringList typed = line.arguments();
    QString objection;
    const double value = numberFrom(typed.at(0), objection);
    if (!objection.isEmpty()) {
        return line.refuse(objection);
    }
    // the library takes a unit that it does not know for 0, or leaves the value as it is
    const QStringList namedUnits = typed.mid(1);
    for (const QString &unit : namedUnits) {
        if (!units().contains(unit)) {
            const QString all = units().join(QLatin1String(", "));
            const QString near = nearest(unit.toLower(), units(), 2);
            return line.refuse(
                near.isEmpty()
                    ? CommandText::tr("There is no unit %1. The units are %2.")
                          .arg(quoted(unit), all)
                    : CommandText::tr("There is no unit %1. The nearest one is \"%2\", of %3.")
                          .arg(quoted(unit), near, all));
        }
    }
    const double result = LengthUnitsConverter::convert(typed.at(1), typed.at(2), value);
    if (!std::isfinite(result)) {
        console.printError(CommandText::tr("The result is out of range."));
        return ExitFailed;
    }
    console.print(QStringLiteral("%1 %2 = %3 %4")
                      .arg(shortest(value), typed.at(1), shortest(result), typed.at(2)));
    return ExitDone;
}

} // namespace

const Command convertCommand = {
    "convert",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Converts a length from one unit to another."),
    s_helpText,
    "",
    "VALUE FROM TO",
    runConvert,
};

} // namespace Tavro::FieldHost
