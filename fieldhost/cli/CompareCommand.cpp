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
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost compare FILE FILE

Says whether two files have the same MD5 sum. Links are followed.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  they are equal
  1  they are different
  2  the command line was not understood
  3  one of them is not a file or cannot be read, or the answer could not be written; the message
     says which)");

int runCompare(const CommandLine &line, Console &console)
{
    const QString a = line.arguments().at(0);
    const QString b = line.arguments().at(1);
    bool ok = false;
    const bool isEqual = Shared::CFileSystemHelper::compareFiles(a, b, ok);
    if (!ok) {
        return ExitSourceRefused; // the library has logged which one
    }
    console.print(isEqual ? CommandText::tr("Equal: %1 and %2").arg(quoted(a), quoted(b))
                          : CommandText::tr("Different: %1 and %2").arg(quoted(a), quoted(b)));
    if (Console::outputError() != 0) {
        return ExitSourceRefused; // a code of its own: the usual one says that they differ
    }
    return isEqual ? ExitDone : ExitFailed;
}

} // namespace

const Command compareCommand = {
    "compare",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Says whether two files have the same content."),
    s_helpText,
    "",
    "FILE FILE",
    runCompare,
};

} // namespace Tavro::FieldHost
