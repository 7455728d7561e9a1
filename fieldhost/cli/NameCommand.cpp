// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/DirectoryListing.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/Text.h"
#include "shared/filesystem/CFileSystemHelper.h"

#include <QFileInfo>

namespace Tavro::FieldHost {

using Shared::CFileSystemHelper;

namespace {

const char s_nameHelpText[] = QT_TRANSLATE_NOOP(
    "Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost name --dir D --ext E [--prefix P]

Prints the path of a file that does not exist yet in the directory D. Its name is the date and time,
or P, and a number. Nothing is created.

Options:
  --dir D      The directory.
  --ext E      The extension, with or without its point; "" for none.
  --prefix P   Used instead of date and time. Characters that a drive does not accept become "_".
  -h, --help   Shows this text.

Exit codes:
  0  done
  2  the command line was not understood
  4  D is not a directory, or the names in it cannot be read)");

const char s_safeNameHelpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost safe-name TEXT

Prints TEXT as a file name that any removable drive accepts.

Options:
  -h, --help   Shows this text.

Exit codes:
  0  done
  2  the command line was not understood)");

int runName(const CommandLine &line, Console &console)
{
    for (const char *option : {"dir", "ext"}) {
        if (!line.isSet(option)) {
            return line.refuse(CommandText::tr("--%1 is missing.").arg(QLatin1String(option)));
        }
    }
    const QString directory = line.value("dir");
    if (!QFileInfo(directory).isDir()) {
        console.printError(CommandText::tr("%1 is not a directory.").arg(quoted(directory)));
        return ExitDestinationRefused;
    }
    const auto unreadable = listDirectory(directory, Depth::Directory).unreadable;
    if (!unreadable.isEmpty()) {
        console.printError(CommandText::tr("Which names are taken in %1 cannot be read (%2).")
                               .arg(quoted(directory), systemText(unreadable.first().error)));
        return ExitDestinationRefused;
    }
    const QString extension = line.value("ext");
    console.print(line.isSet("prefix")
                      ? CFileSystemHelper::createUniqueFileNameWithPrefix(
                          directory, line.value("prefix"), extension, true)
                      : CFileSystemHelper::createUniqueFileName(directory, extension, true));
    return ExitDone;
}

int runSafeName(const CommandLine &line, Console &console)
{
    if (line.arguments().constFirst().isEmpty()) {
        return line.refuse(CommandText::tr("A TEXT is empty."));
    }
    console.print(CFileSystemHelper::getValidFileSystemName(line.arguments().constFirst()));
    return ExitDone;
}

} // namespace

const Command nameCommand = {
    "name",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Finds a name that no file in a directory has."),
    s_nameHelpText,
    "dir= ext= prefix=",
    "",
    runName,
};

const Command safeNameCommand = {
    "safe-name",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", "Makes a text a name that any drive takes."),
    s_safeNameHelpText,
    "",
    "TEXT",
    runSafeName,
};

} // namespace Tavro::FieldHost
