// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/ProgressLine.h"
#include "fieldhost/cli/RunControls.h"
#include "fieldhost/jobs/DeleteRun.h"
#include "fieldhost/jobs/Text.h"
#include "shared/fileops/CDirectorySizeFinder.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] = QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                                            R"(Usage: ovo-fieldhost delete [--yes] PATH...

Deletes each PATH: a directory with all that is in it, hidden entries too; a file; a link, but not
what it points to. Asks before it begins.

Options:
  --yes       Does not ask. Needed where no terminal is there to answer.
  -h, --help  Shows this text.

On a terminal, q or Ctrl-C aborts. The directory that is being deleted is still deleted as a whole;
the paths after it stay.

Exit codes:
  0  everything is deleted, and that is on the device
  1  failed: the message names what is still there, and the cause
  2  the command line was not understood, or --yes is missing
  3  nothing deleted: a PATH is missing, or must not be deleted
  6  aborted, or the answer was not yes)");

void announce(const QStringList &paths, Console &console)
{
    for (const QString &path : paths) {
        const QFileInfo info(path);
        QString what = CommandText::tr("file");
        if (info.isSymLink()) {
            what = CommandText::tr("link");
        } else if (info.isDir()) {
            const quint64 bytes = Shared::CDirectorySizeFinder().dirSize(path).first;
            what = CommandText::tr("directory of %1").arg(formatBytes(static_cast<qint64>(bytes)));
        }
        console.print(CommandText::tr("To delete: %1 (%2)").arg(quoted(path), what));
    }
}

int sum(const DeleteResult &result, Console &console)
{
    if (result.left > 0) {
        console.printError((result.isAborted ? CommandText::tr("Aborted: %1 of %2 not deleted.")
                                             : CommandText::tr("Failed: %1 of %2 not deleted."))
                               .arg(result.left)
                               .arg(result.left + result.deleted));
    }
    return result.left == 0 ? ExitDone : result.isAborted ? ExitAborted : ExitFailed;
}

int carryOut(const QStringList &paths, Console &console, bool ask)
{
    RunControls controls(console);
    DeleteRun run(paths);
    bool isAsking = ask;
    const auto refuse = [&] {
        console.print(CommandText::tr("Nothing was deleted."));
        QCoreApplication::exit(ExitAborted);
    };
    const auto begin = [&] {
        isAsking = false;
        controls.showProgress([&run](int columns) {
            return run.hasProgress() ? progressLine(run.progress(), QString(), QString(), columns)
                                     : QString();
        });
        run.start();
    };
    QObject::connect(&run, &DeleteRun::deleted, &controls, [&](const QString &path) {
        console.clearLiveLine();
        console.print(CommandText::tr("Deleted: %1").arg(quoted(path)));
    });
    QObject::connect(&run, &DeleteRun::failed, &controls, [&](const QString &reason) {
        console.clearLiveLine();
        console.printError(reason);
    });
    QObject::connect(&run, &DeleteRun::finished, &controls, [&] {
        controls.endProgress();
        QCoreApplication::exit(sum(run.result(), console));
    });
    QObject::connect(&controls, &RunControls::endRequested, &run, [&] {
        if (isAsking) {
            refuse();
        } else {
            run.abort();
        }
    });
    QObject::connect(&controls, &RunControls::keyPressed, &run, [&](char key) {
        if (isAsking && (key == 'y' || key == 'Y')) {
            begin();
        } else if (isAsking) {
            refuse();
        } else if (key == 'q') {
            run.abort();
        }
    });

    const bool hasKeys = controls.openKeys();
    if (!ask) {
        begin();
        return QCoreApplication::exec();
    }
    if (!hasKeys) {
        console.printError(CommandText::tr(
            "There is no terminal to ask on, and --yes is missing: nothing was deleted."));
        return ExitUsage;
    }
    announce(paths, console);
    console.print(CommandText::tr("Delete? y deletes, any other key does not"));
    return QCoreApplication::exec();
}

int runDelete(const CommandLine &line, Console &console)
{
    QStringList paths = line.arguments();
    paths.removeDuplicates();
    bool isRefused = false;
    for (QString &path : paths) {
        while (path.size() > 1 && path.endsWith(QLatin1Char('/'))) {
            path.chop(1); // or a link would be taken for what it points to
        }
        const QString reason = whyNotDeleted(path);
        if (!reason.isEmpty()) {
            console.printError(reason);
            isRefused = true;
        }
    }
    if (isRefused) {
        return ExitSourceRefused;
    }
    return carryOut(paths, console, !line.isSet("yes"));
}

} // namespace

const Command deleteCommand = {
    "delete",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Deletes directories and files, with progress."),
    s_helpText,
    "yes",
    "PATH...",
    runDelete,
};

} // namespace Tavro::FieldHost
