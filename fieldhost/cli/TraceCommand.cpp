// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/PictureChart.h"
#include "fieldhost/cli/TextChart.h"
#include "fieldhost/jobs/Text.h"
#include "shared/clipinfo/ClipInfoHandler.h"

#include <QImageWriter>

#include <cmath>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost trace [options] CLIP

Reads the clip information file of a video and draws distance, pan and tilt over time.

  CLIP  The video, which need not exist, or its clip information file.

Lines that cannot be read, such as a power cut leaves, are counted and left out. If a second
recording has continued the file, the recordings are drawn one after the other.

Options:
  --png FILE  Draws them as a picture, too.
  -h, --help  Shows this text.

Exit codes:
  0  drawn
  1  failed: there is no sample to draw, or the picture was not written
  2  the command line was not understood
  3  there is no clip information file, or it cannot be read)");

// what comes from a file may hold anything
QString headline(const QString &path, const ClipInfoFile &info, const Trace &trace)
{
    QString text = QStringLiteral("%1: %2, %3, %4")
                       .arg(quoted(path),
                            counted(info.samples.size(), CommandText::tr("1 sample"),
                                    CommandText::tr("%1 samples")),
                            formatDuration(std::llround(trace.duration() * 1000)),
                            counted(trace.recordings(), CommandText::tr("1 recording"),
                                    CommandText::tr("%1 recordings")));
    if (!info.clipName.isEmpty()) {
        text +=
            CommandText::tr("\nvideo %1 of %2, made by %3")
                .arg(quoted(info.clipName), quoted(info.creationDate), quoted(info.application));
    }
    return text;
}

void printDoubts(const ClipInfoFile &info, Console &console)
{
    if (info.badLines > 0) {
        console.printError(
            counted(info.badLines,
                    CommandText::tr("1 line could not be read, the first is line %2."),
                    CommandText::tr("%1 lines could not be read, the first is line %2."))
                .arg(info.firstBadLine));
    }
    if (info.replacedSamples > 0) {
        console.printError(counted(
            info.replacedSamples,
            CommandText::tr("1 sample has the number of a later one, which was taken."),
            CommandText::tr("%1 samples have the number of a later one, which was taken.")));
    }
}

int runTrace(const CommandLine &line, Console &console)
{
    const QString picture = line.value("png");
    if (line.isSet("png") && picture.isEmpty()) {
        return line.refuse(CommandText::tr("The FILE of --png is empty."));
    }
    const QString path =
        Shared::ClipInfoHandler::videoPathToFilePath(line.arguments().constFirst());
    const ClipInfoFile info = ClipInfoFile::read(path);
    if (!info.error.isEmpty()) {
        console.printError(CommandText::tr("Cannot read %1: %2").arg(quoted(path), info.error));
        return ExitSourceRefused;
    }
    const Trace trace(info);
    console.print(headline(path, info, trace));
    printDoubts(info, console);
    if (info.samples.isEmpty()) {
        console.printError(CommandText::tr("There is no sample to draw."));
        return ExitFailed;
    }
    console.print(drawText(trace, console.columns()).join(QLatin1Char('\n')));
    if (!picture.isEmpty()) {
        QImageWriter writer(picture, "png");
        if (!writer.write(drawPicture(trace))) {
            console.printError(
                CommandText::tr("Cannot write %1: %2").arg(quoted(picture), writer.errorString()));
            return ExitFailed;
        }
    }
    return ExitDone;
}

} // namespace

const Command traceCommand = {
    "trace",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Draws the distance, pan and tilt of a recorded clip."),
    s_helpText,
    "png=",
    "CLIP",
    runTrace,
    "--png",
};

} // namespace Tavro::FieldHost
