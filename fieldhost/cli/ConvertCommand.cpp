#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandParsing.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/NearestWord.h"
#include "fieldhost/jobs/Text.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/LengthUnitsConverter.h"

#include <QLocale>

#include <cmath>
#include <optional>

namespace Tavro::FieldHost {

using Shared::CLocaleSupport;
using Shared::LengthUnitsConverter;

namespace {

const char s_helpText[] = R"(Usage: ovo-fieldhost convert VALUE FROM TO

Converts a length, as "ovo-fieldhost convert 2.5 m ft" does.

  VALUE  A number. Its decimal mark is "." or ",", so it cannot have group separators.
  FROM   The unit of VALUE: m, ft, inch, mm or cm.
  TO     The unit of the result.

The result has all the digits that tell it from its neighbours.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  converted
  1  the result is out of range
  2  the command line was not understood)";

QStringList units()
{
    return {CLocaleSupport::distanceUnits_m, CLocaleSupport::distanceUnits_ft,
            CLocaleSupport::distanceUnits_inch, QStringLiteral("mm"), QStringLiteral("cm")};
}

std::optional<double> numberFrom(QString text)
{
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value)) {
        return {};
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

// the first argument that is an option; null when there is none. A negative number is none.
QString optionAmong(const QStringList &arguments)
{
    for (const QString &argument : arguments) {
        if (argument.startsWith(QLatin1Char('-')) && !numberFrom(argument)) {
            return argument;
        }
    }
    return {};
}

int runConvert(const QStringList &arguments)
{
    Console console;
    const QStringList typed = arguments.mid(2);
    const auto refuse = [&console](const QString &reason) {
        return usageError(console, "convert", reason);
    };
    const QString option = optionAmong(typed);
    if (option == QLatin1String("-h") || option == QLatin1String("--help")) {
        console.print(QString::fromUtf8(s_helpText));
        return ExitDone;
    }
    if (!option.isNull()) {
        return refuse(QStringLiteral("%1 is neither an option nor a number.").arg(quoted(option)));
    }
    if (typed.size() != 3) {
        return refuse(QStringLiteral("VALUE, FROM and TO are needed, and nothing else."));
    }
    const std::optional<double> value = numberFrom(typed.at(0));
    if (!value) {
        return refuse(
            QStringLiteral("%1 is not a number that can be converted.").arg(quoted(typed.at(0))));
    }
    // the library takes a unit that it does not know for 0, or leaves the value as it is
    const QStringList namedUnits = typed.mid(1);
    for (const QString &unit : namedUnits) {
        if (!units().contains(unit)) {
            return refuse(QStringLiteral("There is no unit %1. The nearest one is \"%2\", of %3.")
                              .arg(quoted(unit), nearest(unit.toLower(), units()),
                                   units().join(QLatin1String(", "))));
        }
    }
    const double result = LengthUnitsConverter::convert(typed.at(1), typed.at(2), *value);
    if (!std::isfinite(result)) {
        console.printError(QStringLiteral("The result is out of range."));
        return ExitFailed;
    }
    console.print(QStringLiteral("%1 %2 = %3 %4")
                      .arg(shortest(*value), typed.at(1), shortest(result), typed.at(2)));
    return ExitDone;
}

} // namespace

const Command convertCommand = {
    "convert",
    "Converts a length from one unit to another.",
    runConvert,
};

} // namespace Tavro::FieldHost
