#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/FolderListing.h"
#include "fieldhost/jobs/Text.h"
#include "shared/filesystem/CFileSystemHelper.h"

#include <QFileInfo>

namespace Tavro::FieldHost {

using Shared::CFileSystemHelper;

namespace {

const char s_nameHelpText[] = R"(Usage: ovo-fieldhost name --dir D --ext E [--prefix P]

Prints a path in the folder D whose name no file there has: date and time, or P, and a number.
Nothing is created.

Options:
  --dir D      The folder.
  --ext E      The extension, with or without its point; "" for none.
  --prefix P   Stands in place of date and time. What a drive does not take is replaced by "_".
  -h, --help   Shows this text.

Exit codes:
  0  done
  2  the command line was not understood
  4  D is no folder, or which names it holds cannot be read)";

const char s_safeNameHelpText[] = R"(Usage: ovo-fieldhost safe-name TEXT

Prints TEXT as the name of a file that any removable drive takes.

Options:
  -h, --help   Shows this text.

Exit codes:
  0  done
  2  the command line was not understood)";

int runName(const QStringList &arguments)
{
    const QString directoryOption = QStringLiteral("dir");
    const QString extensionOption = QStringLiteral("ext");
    const QString prefixOption = QStringLiteral("prefix");
    Console console;
    CommandLine line(console, "name", s_nameHelpText);
    for (const QString &option : {directoryOption, extensionOption, prefixOption}) {
        line.addOption(option);
    }
    if (const auto over = line.parse(arguments, "argument", 0, 0)) {
        return *over;
    }
    for (const QString &option : {directoryOption, extensionOption}) {
        if (!line.isSet(option)) {
            return line.refuse(QStringLiteral("--%1 is missing.").arg(option));
        }
    }
    const QString directory = line.value(directoryOption);
    if (!QFileInfo(directory).isDir()) {
        console.printError(QStringLiteral("%1 is no folder.").arg(quoted(directory)));
        return ExitDestinationRefused;
    }
    const auto unreadable = listFolder(directory, Depth::Folder).unreadable;
    if (!unreadable.isEmpty()) {
        console.printError(QStringLiteral("Which names are taken in %1 cannot be read (%2).")
                               .arg(quoted(directory), systemText(unreadable.first().error)));
        return ExitDestinationRefused;
    }
    const QString extension = line.value(extensionOption);
    console.print(line.isSet(prefixOption)
                      ? CFileSystemHelper::createUniqueFileNameWithPrefix(
                          directory, line.value(prefixOption), extension, true)
                      : CFileSystemHelper::createUniqueFileName(directory, extension, true));
    return ExitDone;
}

int runSafeName(const QStringList &arguments)
{
    Console console;
    CommandLine line(console, "safe-name", s_safeNameHelpText);
    if (const auto over = line.parse(arguments, "TEXT", 1, 1)) {
        return *over;
    }
    console.print(CFileSystemHelper::getValidFileSystemName(line.arguments().constFirst()));
    return ExitDone;
}

} // namespace

const Command nameCommand = {
    "name",
    "Finds a name that no file in a folder has.",
    runName,
};

const Command safeNameCommand = {
    "safe-name",
    "Makes a text a name that any drive takes.",
    runSafeName,
};

} // namespace Tavro::FieldHost
