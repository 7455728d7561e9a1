// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/Text.h"
#include "shared/view3d/GeoProjectorSettings.h"

namespace Tavro::FieldHost {

namespace {

using View3d::GeoProjectorSettings;

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost projection [1|2|3]

Shows the well-known texts of the map's projection, WGS 84 Web Mercator (EPSG:3857). With a
number, that text alone, as other programs read it:

  1  the default of the map layers, in ESRI's spelling behind the prefix "WKT:"
  2  ESRI's WGS 1984 Web Mercator (Auxiliary Sphere)
  3  the EPSG registry's, in lines

Options:
  -h, --help  Shows this text.

Exit codes:
  0  shown
  2  the command line was not understood)");

struct Projection
{
    const char *name;
    QString (*text)();
};

const Projection s_projections[] = {
    {"1", &GeoProjectorSettings::getDefaultPseudoMercatorWKT},
    {"2", &GeoProjectorSettings::getValidPseudoMercatorWKT},
    {"3", &GeoProjectorSettings::getValidPseudoMercatorWKT_2},
};

void showAll(Console &console)
{
    for (const Projection &projection : s_projections) {
        const QString text = projection.text();
        console.print(QStringLiteral("%1: %2\n%3")
                          .arg(QLatin1String(projection.name),
                               counted(text.size(), CommandText::tr("1 character"),
                                       CommandText::tr("%1 characters")),
                               text));
    }
}

int runProjection(const CommandLine &line, Console &console)
{
    const QStringList words = line.arguments();
    if (words.isEmpty()) {
        showAll(console);
        return ExitDone;
    }
    for (const Projection &projection : s_projections) {
        if (words.constFirst() == QLatin1String(projection.name)) {
            console.print(projection.text());
            return ExitDone;
        }
    }
    return line.refuse(CommandText::tr("There is no projection %1, only 1, 2 and 3.")
                           .arg(quoted(words.constFirst())));
}

} // namespace

const Command projectionCommand = {
    "projection",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Shows the well-known texts of the map's projection."),
    s_helpText,
    "",
    "[NUMBER]",
    runProjection,
};

} // namespace Tavro::FieldHost
