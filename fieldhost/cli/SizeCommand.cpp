// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/DirectoryListing.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/Text.h"
#include "shared/fileops/CDirectorySizeFinder.h"
#include "shared/filesystem/CFileSystemHelper.h"

#include <QFileInfo>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost size PATH...

Adds up the sizes of the files in each PATH. Hidden files count; links below it do not.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  done
  1  failed: not all that is in a PATH could be counted; the message names the directories
  2  the command line was not understood
  3  a PATH is neither directory nor file; the others are shown all the same)");

// false when @p bytes is not the size of all that the directory holds
bool tellUncounted(const QString &directory, qint64 bytes, Console &console)
{
    const DirectoryListing listing = listDirectory(directory, Depth::Tree);
    for (const UnreadableDirectory &unreadable : listing.unreadable) {
        console.printError(CommandText::tr("What %1 holds is not counted, or only in part (%2).")
                               .arg(quoted(unreadable.path), systemText(unreadable.error)));
    }
    // the library does not tell what it could not read
    const bool isOther = listing.unreadable.isEmpty() && listing.bytes != bytes;
    if (isOther) {
        console.printError(CommandText::tr("%1 could not be counted as a whole, or has changed "
                                           "meanwhile: a second look finds %2 bytes.")
                               .arg(quoted(directory))
                               .arg(listing.bytes));
    }
    return listing.unreadable.isEmpty() && !isOther;
}

int runSize(const CommandLine &line, Console &console)
{
    bool isRefused = false;
    bool isComplete = true;
    const QStringList paths = line.arguments();
    for (const QString &path : paths) {
        const QFileInfo info(path);
        if (!info.isDir() && !info.isFile()) {
            console.printError(
                CommandText::tr("%1 is neither directory nor file.").arg(quoted(path)));
            isRefused = true;
            continue;
        }
        // on this thread: one that cannot be made would be waited for
        Shared::CDirectorySizeFinder finder;
        const qint64 bytes = info.isDir() ? static_cast<qint64>(finder.dirSize(path).first)
                                          : Shared::CFileSystemHelper::getFileSize(path);
        console.print(CommandText::tr("%1 (%2 bytes): %3")
                          .arg(formatBytes(bytes))
                          .arg(bytes)
                          .arg(quoted(path)));
        isComplete = (!info.isDir() || tellUncounted(path, bytes, console)) && isComplete;
    }
    return isRefused ? ExitSourceRefused : isComplete ? ExitDone : ExitFailed;
}

} // namespace

const Command sizeCommand = {
    "size",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Adds up the sizes of the files in directories."),
    s_helpText,
    "",
    "PATH...",
    runSize,
};

} // namespace Tavro::FieldHost
