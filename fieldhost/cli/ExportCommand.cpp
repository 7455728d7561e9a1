#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandParsing.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/KeyInput.h"
#include "fieldhost/cli/SignalWatcher.h"
#include "fieldhost/jobs/DriveAccess.h"
#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/ExportRun.h"
#include "fieldhost/jobs/Text.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] = R"(Usage: ovo-fieldhost export [options] SOURCE... DESTINATION

Copies every SOURCE into the folder DESTINATION, chunk by chunk, each flushed to the device
before the next one. A drive pulled out keeps the files that were whole by then; the one in flight
may stay there, cut off, under its name.

  SOURCE       A folder or file is copied to DESTINATION/<its name>. A folder that is written
               with "/" at the end, or as "." or "..", stands for its contents, which are copied
               into DESTINATION itself.
  DESTINATION  A folder. It is created when it does not exist, and otherwise must be empty.

A DESTINATION at or below /media/usbdrive is on the USB drive. The drive is mounted and marked as
in use before the copy, unmounted and marked clean after it, however the copy ends.

Links are followed. Hidden entries, links that lead nowhere, pipes, sockets and devices are left
out, and counted. Names are taken as UTF-8.

Options:
  --into-existing  Allows a DESTINATION that holds something. Where a copy would land on what is
                   there, it is made in a hidden folder beside it first, and takes its place,
                   replacing files of the same name, when all of it is whole. Until then an
                   abort or a failure leaves everything there as it was. A power cut leaves each
                   file old or new. The folder of an export that was killed is removed by the
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
  6  aborted; the copy was removed)";

int carryOut(const ExportPlan &plan, bool verify, Console &console, SignalWatcher &signalWatcher)
{
    KeyInput keys;
    ExportRun run(plan, console, verify);
    QObject::connect(&run, &ExportRun::finished, qApp, &QCoreApplication::exit);
    QObject::connect(&signalWatcher, &SignalWatcher::endSignal, &run, &ExportRun::abort);
    QObject::connect(&signalWatcher, &SignalWatcher::aboutToSuspend, &keys, [&] {
        console.clearLiveLine();
        keys.close();
    });
    const auto openKeys = [&] { return console.isLive() && keys.open(); };
    QObject::connect(&signalWatcher, &SignalWatcher::continued, &keys, openKeys);
    QObject::connect(&keys, &KeyInput::keyPressed, &run, [&run](char key) {
        if (key == 'p') {
            run.togglePause();
        } else if (key == 'q') {
            run.abort();
        }
    });
    if (openKeys()) {
        console.print(QStringLiteral("Keys: p pauses and resumes, q aborts"));
    }
    run.start();
    // a signal that came before the event loop runs is delivered by it
    return QCoreApplication::exec();
}

int runExport(const QStringList &arguments)
{
    Console console;
    QCommandLineParser parser;
    const QCommandLineOption intoExisting(QStringLiteral("into-existing"));
    parser.addOption(intoExisting);
    const QCommandLineOption verify(QStringLiteral("verify"));
    parser.addOption(verify);

    if (const auto answered = parseCommandLine(parser, console, "export", s_helpText, arguments)) {
        return *answered;
    }
    QStringList sources = parser.positionalArguments();
    if (sources.size() < 2) {
        return usageError(console, "export",
                          sources.isEmpty()
                              ? QStringLiteral("A SOURCE and a DESTINATION are missing.")
                              : QStringLiteral("A DESTINATION is missing."));
    }
    if (sources.contains(QString())) {
        return usageError(console, "export", QStringLiteral("A SOURCE or DESTINATION is empty."));
    }
    const QString destination = sources.takeLast();

    DriveAccess drive(destination, console);
    // it goes before the drive: a signal ends the wait for one that stays in use
    SignalWatcher signalWatcher;
    if (!drive.begin()) {
        return ExitDestinationRefused;
    }
    const ExportPlan plan =
        planExport(sources, destination, parser.isSet(intoExisting), SignalWatcher::endRequested);
    if (plan.refusal == ExitDone && SignalWatcher::endRequested()) {
        console.print(QStringLiteral("Aborted before anything was copied."));
        return ExitAborted;
    }
    if (plan.refusal == ExitDone) {
        drive.warnOfLargeFiles(plan);
        return carryOut(plan, parser.isSet(verify), console, signalWatcher);
    }
    for (const QString &reason : plan.reasons) {
        if (plan.refusal == ExitAborted) {
            console.print(reason);
        } else {
            console.printError(reason);
        }
    }
    return plan.refusal;
}

} // namespace

const Command exportCommand = {
    "export",
    "Copies folders and files durably, with progress, pause and abort.",
    runExport,
};

} // namespace Tavro::FieldHost
