// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/RunControls.h"
#include "fieldhost/jobs/RecordPlan.h"
#include "fieldhost/jobs/RecordRun.h"
#include "fieldhost/jobs/Text.h"
#include "fieldhost/services/FieldApplication.h"
#include "shared/locale/CConversionServices.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/CProjectLocaleData.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      R"(Usage: ovo-fieldhost record [options] CLIP --duration SECONDS

Lets the simulated crawler drive through a pipe, look around every ten seconds and record CLIP.
Writes the clip information file that belongs to the video: when and with what it was made, and
distance, pan and tilt over time. The video itself is not made.

  CLIP  Path of the video. Its clip information file is in the same directory. It has the name of
        the video up to the first dot, and ".txt". An existing one is continued.

Options:
  --duration SECONDS    Length of the video.
  --speed FACTOR        Lets the time pass that many times faster; 1 without it.
  --pause-at SECONDS    Pauses the recording there for two seconds. May be given several times.
  --observe-at SECONDS  Enters an observation there. May be given several times.
  --unit UNIT           Unit of the project: m (without it) or ft.
  -h, --help            Shows this text.

Ctrl-C ends the recording early; what was recorded up to then is written.

Exit codes:
  0  recorded, and the file is written
  1  failed: the file was not written
  2  the command line was not understood
  4  nothing recorded: the file cannot lie where it should
  6  ended early; what was recorded is written)");

// as many milliseconds as fit into any file of this format, and far more than a day
constexpr int s_most = 1'000'000; // s

/** Reads the options one by one and keeps the first complaint. */
class OptionReader
{
public:
    explicit OptionReader(const CommandLine &line)
        : m_line(line)
    {
    }

    const QString &complaint() const { return m_complaint; }

    /** A number above 0; @p fallback when the option is not set. */
    double positive(const char *option, double fallback)
    {
        if (!m_line.isSet(option)) {
            return fallback;
        }
        bool isNumber = false;
        const double value = m_line.value(option).toDouble(&isNumber);
        if (value > s_most) {
            complain(CommandText::tr("--%1 %2 is above %3, the most that is possible.")
                         .arg(QLatin1String(option), quoted(m_line.value(option)),
                              QString::number(s_most)));
            return fallback;
        }
        if (!isNumber || !(value > 0)) {
            complain(CommandText::tr("--%1 %2 is not a number above 0.")
                         .arg(QLatin1String(option), quoted(m_line.value(option))));
            return fallback;
        }
        return value;
    }

    /** The times given, in milliseconds and in order; each must lie within @p duration. */
    QVector<qint64> times(const char *option, qint64 duration)
    {
        QVector<qint64> times;
        const QStringList texts = m_line.values(option);
        for (const QString &text : texts) {
            bool isNumber = false;
            const double seconds = text.toDouble(&isNumber);
            if (!isNumber || !(seconds >= 0) || seconds * 1000 >= static_cast<double>(duration)) {
                complain(CommandText::tr("--%1 %2 is not a time within the video.")
                             .arg(QLatin1String(option), quoted(text)));
                return {};
            }
            times.append(std::llround(seconds * 1000));
        }
        std::sort(times.begin(), times.end());
        return times;
    }

    /** The unit that is named; metres when none is. */
    Base::DistanceUnit unit(const char *option)
    {
        const QString name = m_line.value(option);
        if (name == QLatin1String("ft")) {
            return Base::DistanceUnit::Feet;
        }
        if (m_line.isSet(option) && name != QLatin1String("m")) {
            complain(CommandText::tr("--%1 %2 is neither m nor ft.")
                         .arg(QLatin1String(option), quoted(name)));
        }
        return Base::DistanceUnit::Meter;
    }

private:
    void complain(const QString &sentence)
    {
        if (m_complaint.isEmpty()) {
            m_complaint = sentence;
        }
    }

    const CommandLine &m_line;
    QString m_complaint;
};

QString lineOf(const RecordRun &run, qint64 duration, const SimulatedCrawler &crawler)
{
    double distance = crawler.distanceCounter()->distanceValue();
    if (Shared::CLocaleSupport::getDistanceUnit() == Base::DistanceUnit::Feet) {
        distance = Shared::CConversionServices::convertMetersToFeet(distance);
    }
    return CommandText::tr("%1  %2 of %3  %4 %  %5  pan %6°  tilt %7°")
        .arg(run.isPaused() ? CommandText::tr("paused   ") : CommandText::tr("recording"),
             formatClock(run.recorded()), formatClock(duration))
        .arg(run.recorded() * 100 / duration)
        .arg(Shared::CLocaleSupport::distanceValueToLocalizedString(distance, true, true))
        .arg(crawler.panTilt()->getPan(), 0, 'f', 1)
        .arg(crawler.panTilt()->getTilt(), 0, 'f', 1);
}

ExitCode sum(const RecordRun &run, Console &console)
{
    const RecordResult &result = run.result();
    if (!result.problem.isEmpty()) {
        console.printError(CommandText::tr("%1 was not written as it should be: %2")
                               .arg(quoted(run.infoPath()), result.problem));
        return ExitFailed;
    }
    console.print((result.isEndedByUser ? CommandText::tr("Ended after %1 of video, %2 in %3")
                                        : CommandText::tr("Recorded %1 of video, %2 in %3"))
                      .arg(formatDuration(result.duration),
                           counted(result.samples, CommandText::tr("1 sample"),
                                   CommandText::tr("%1 samples")),
                           quoted(run.infoPath())));
    return result.isEndedByUser ? ExitAborted : ExitDone;
}

int carryOut(const RecordPlan &plan, Console &console)
{
    RunControls controls(console);
    FieldApplication &host = *FieldApplication::instance();
    RecordRun run(plan, host);
    QObject::connect(&run, &RecordRun::progressChanged, &controls,
                     [&] { console.setLiveLine(lineOf(run, plan.duration, host.crawler())); });
    QObject::connect(&run, &RecordRun::finished, &controls, [&] {
        console.clearLiveLine();
        QCoreApplication::exit(sum(run, console));
    });
    QObject::connect(&controls, &RunControls::endRequested, &run, &RecordRun::end);
    run.start();
    if (run.samplesBefore() >= 0) {
        console.print(CommandText::tr("Continues %1 after %2")
                          .arg(quoted(run.infoPath()),
                               counted(run.samplesBefore(), CommandText::tr("1 sample"),
                                       CommandText::tr("%1 samples"))));
    }
    return QCoreApplication::exec();
}

int runRecord(const CommandLine &line, Console &console)
{
    if (!line.isSet("duration")) {
        return line.refuse(CommandText::tr("--duration is missing."));
    }
    OptionReader reader(line);
    RecordPlan plan;
    plan.clip = line.arguments().constFirst();
    plan.duration = qMax<qint64>(std::llround(reader.positive("duration", 1) * 1000), 1);
    plan.speed = reader.positive("speed", 1);
    plan.pauses = reader.times("pause-at", plan.duration);
    plan.observations = reader.times("observe-at", plan.duration);
    const Base::DistanceUnit unit = reader.unit("unit");
    if (!reader.complaint().isEmpty()) {
        return line.refuse(reader.complaint());
    }
    const QString objection = objectionToPlace(plan);
    if (!objection.isEmpty()) {
        console.printError(objection);
        return ExitDestinationRefused;
    }
    Shared::CProjectLocaleData::instance()->setUnitType(unit);
    return carryOut(plan, console);
}

} // namespace

const Command recordCommand = {
    "record",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Records the clip information of a simulated drive through a pipe."),
    s_helpText,
    "duration= speed= pause-at= observe-at= unit=",
    "CLIP",
    runRecord,
};

} // namespace Tavro::FieldHost
