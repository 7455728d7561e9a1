// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/Text.h"
#include "shared/filesystem/CFileSystemHelper.h"

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost free PATH

Prints how much the user can still write on the volume that holds PATH.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  done
  2  the command line was not understood
  3  there is no such PATH)");

int runFree(const CommandLine &line, Console &console)
{
    const QString path = line.arguments().constFirst();
    const qint64 bytes = Shared::CFileSystemHelper::getDiskFreeSpace(path);
    if (bytes < 0) {
        console.printError(CommandText::tr("There is no volume that holds %1.").arg(quoted(path)));
        return ExitSourceRefused;
    }
    console.print(CommandText::tr("%1 (%2 bytes) free: %3")
                      .arg(formatBytes(bytes))
                      .arg(bytes)
                      .arg(quoted(path)));
    return ExitDone;
}

} // namespace

const Command freeCommand = {
    "free",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", "Says how much space is left on a volume."),
    s_helpText,
    "",
    "PATH",
    runFree,
};

} // namespace Tavro::FieldHost
