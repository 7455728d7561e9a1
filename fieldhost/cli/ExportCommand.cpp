// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/ProgressLine.h"
#include "fieldhost/cli/RunControls.h"
#include "fieldhost/jobs/DriveAccess.h"
#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/ExportRun.h"
#include "fieldhost/jobs/Text.h"

#include <QCoreApplication>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] = QT_TRANSLATE_NOOP(
    "Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost export [options] SOURCE... DESTINATION

Copies every SOURCE into the directory DESTINATION, chunk by chunk, each flushed to the device
before the next one. A drive pulled out keeps the files that were whole by then; the one in flight
may stay there, cut off, under its name.

  SOURCE       A directory or file is copied to DESTINATION/<its name>. A directory that is written
               with "/" at the end, or as "." or "..", stands for its contents, which are copied
               into DESTINATION itself.
  DESTINATION  A directory. It is created when it does not exist, and otherwise must be empty.

A DESTINATION at or below /media/usbdrive is on the USB drive. The drive is mounted and marked as
in use before the copy, unmounted and marked clean after it, however the copy ends.

Links are followed. Hidden entries, links that lead nowhere, pipes, sockets and devices are left
out, and counted. Names are taken as UTF-8.

Options:
  --into-existing  Allows a DESTINATION that holds something. Where a copy would land on what is
                   there, it is made in a hidden directory beside it first, and takes its place,
                   replacing files of the same name, when all of it is whole. Until then an
                   abort or a failure leaves everything there as it was. A power cut leaves each
                   file old or new. The directory of an export that was killed is removed by the
                   next one.
  --verify         Reads every copy back from the device, in its place, and compares it with its
                   source. One that differs fails the export; what was copied is removed, except
                   for copies that have replaced files.
  -h, --help       Shows this text.

On a terminal, p pauses and resumes, q or Ctrl-C aborts. An abort removes the copy whole.

Exit codes:
  0  everything is copied, and on the device
  1  failed: a file was not copied, or its copy differs, or the drive was taken away; the message
     names it and the cause
  2  the command line was not understood
  3  nothing copied: a SOURCE is missing, or no whole copy of it is possible
  4  nothing copied: DESTINATION is refused
  5  nothing copied: DESTINATION has not enough free space
  6  aborted; the copy was removed)");

void announce(const ExportPlan &plan, Console &console)
{
    for (const ExportJob &job : plan.jobs) {
        const bool hasSlash = job.source.size() > 1 && job.source.endsWith(QLatin1Char('/'));
        console.print(CommandText::tr("Copying %1 (%2) from %3 to %4")
                          .arg(counted(job.survey.files.size(), CommandText::tr("1 file"),
                                       CommandText::tr("%1 files")),
                               formatBytes(job.survey.bytes),
                               quoted(hasSlash ? job.source.chopped(1) : job.source),
                               quoted(job.landing)));
        if (job.replacedFiles > 0) {
            console.print(CommandText::tr("  replaces %1 there, once all of the copy is whole")
                              .arg(counted(job.replacedFiles, CommandText::tr("1 file"),
                                           CommandText::tr("%1 files"))));
        }
    }
    const QString omitted = leftOut(plan);
    if (!omitted.isEmpty()) {
        console.print(CommandText::tr("Left out: %1").arg(omitted));
    }
}

QString lineOf(ExportRun &run, int columns)
{
    switch (run.state()) {
    case ExportRun::State::Aborting:
        return CommandText::tr("Aborting, once the data on its way is written");
    case ExportRun::State::Paused:
        return progressLine(run.progress(), run.directory(), CommandText::tr("paused, p resumes"),
                            columns);
    case ExportRun::State::Verifying:
        return progressLine(run.progress(), CommandText::tr("verifying"), QString(), columns);
    case ExportRun::State::Copying:
        break;
    }
    return progressLine(run.progress(), run.directory(), QString(), columns);
}

ExitCode exitCodeOf(ExportResult::End end)
{
    switch (end) {
    case ExportResult::End::Done:
        return ExitDone;
    case ExportResult::End::Aborted:
        return ExitAborted;
    case ExportResult::End::NotBegun:
        return ExitDestinationRefused;
    case ExportResult::End::Failed:
        break;
    }
    return ExitFailed;
}

ExitCode exitCodeOf(Refusal refusal)
{
    switch (refusal) {
    case Refusal::None:
        return ExitDone;
    case Refusal::Canceled:
        return ExitAborted;
    case Refusal::Source:
        return ExitSourceRefused;
    case Refusal::NoSpace:
        return ExitNoSpace;
    case Refusal::Destination:
        break;
    }
    return ExitDestinationRefused;
}

int carryOut(ExportPlan plan, bool verify, Console &console, RunControls &controls)
{
    if (controls.openKeys()) {
        console.print(CommandText::tr("Keys: p pauses and resumes, q aborts"));
    }
    announce(plan, console);
    ExportRun run(std::move(plan), verify);
    QObject::connect(&run, &ExportRun::warned, qApp,
                     [&](const QString &sentence) { console.printError(sentence); });
    QObject::connect(&run, &ExportRun::stateChanged, &controls, &RunControls::refresh);
    QObject::connect(&run, &ExportRun::finished, &controls, [&] {
        controls.endProgress();
        for (const QString &sentence : run.result().problems) {
            console.printError(sentence);
        }
        for (const QString &sentence : run.result().report) {
            console.print(sentence);
        }
        QCoreApplication::exit(exitCodeOf(run.result().end));
    });
    QObject::connect(&controls, &RunControls::endRequested, &run, &ExportRun::abort);
    QObject::connect(&controls, &RunControls::keyPressed, &run, [&run](char key) {
        if (key == 'p') {
            run.setPaused(run.state() != ExportRun::State::Paused);
        } else if (key == 'q') {
            run.abort();
        }
    });
    controls.showProgress([&run](int columns) { return lineOf(run, columns); });
    run.start();
    // a signal that came before the event loop runs is delivered by it
    return QCoreApplication::exec();
}

int runExport(const CommandLine &line, Console &console)
{
    QStringList sources = line.arguments();
    const QString destination = sources.takeLast();

    DriveAccess drive(destination);
    QObject::connect(&drive, &DriveAccess::reported, qApp,
                     [&](const QString &sentence) { console.print(sentence); });
    QObject::connect(&drive, &DriveAccess::warned, qApp,
                     [&](const QString &sentence) { console.printError(sentence); });
    QObject::connect(&drive, &DriveAccess::unmounting, qApp, [&] {
        console.print(CommandText::tr("Unmounting the USB drive, as soon as nobody uses it; "
                                      "Ctrl-C leaves it mounted."));
    });
    // they go before the drive: a signal ends the wait for one that stays in use
    RunControls controls(console);
    if (!drive.begin()) {
        return ExitDestinationRefused;
    }
    ExportPlan plan =
        planExport(sources, destination, line.isSet("into-existing"), SignalWatcher::endRequested);
    if (plan.refusal == Refusal::None && SignalWatcher::endRequested()) {
        plan.refusal = Refusal::Canceled;
    }
    if (plan.refusal == Refusal::Canceled) {
        console.print(CommandText::tr("Aborted before anything was copied."));
    } else if (plan.refusal == Refusal::None) {
        const QString warning = drive.largeFileWarning(plan);
        if (!warning.isEmpty()) {
            console.printError(warning);
        }
        return carryOut(std::move(plan), line.isSet("verify"), console, controls);
    }
    for (const QString &reason : qAsConst(plan.reasons)) {
        console.printError(reason);
    }
    return exitCodeOf(plan.refusal);
}

} // namespace

const Command exportCommand = {
    "export",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Copies directories and files durably, with progress, pause and abort."),
    s_helpText,
    "into-existing verify",
    "SOURCE... DESTINATION",
    runExport,
};

} // namespace Tavro::FieldHost
