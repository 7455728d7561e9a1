#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/Text.h"
#include "fieldhost/cli/files/CommandLine.h"
#include "shared/fileops/CDirectorySizeFinder.h"
#include "shared/filesystem/CFileSystemHelper.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] = R"(Usage: ovo-fieldhost size PATH...

Adds up the sizes of the files in each PATH. Hidden files count; links below it do not.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  done
  2  the command line was not understood
  3  a PATH is neither folder nor file; the others are shown all the same)";

// all folders at a time; returns when the last one is done
QHash<QString, qint64> sizesOfFolders(const QStringList &paths)
{
    QHash<QString, qint64> sizes;
    Shared::CDirectorySizeFinder finder;
    int pending = 0;
    QObject::connect(&finder, &Shared::CDirectorySizeFinder::gotSizeOfPath, &finder,
                     [&](const QString &path, qulonglong size) {
                         sizes.insert(path, static_cast<qint64>(size));
                         if (--pending == 0) {
                             QCoreApplication::quit();
                         }
                     });
    for (const QString &path : paths) {
        if (QFileInfo(path).isDir()) {
            finder.startDirectorySizeCalculation(path);
            ++pending;
        }
    }
    if (pending > 0) {
        QCoreApplication::exec();
    }
    return sizes;
}

int runSize(const QStringList &arguments)
{
    Console console;
    CommandLine line(console, "size", s_helpText);
    if (const auto over = line.parse(arguments, "PATH", 1, -1)) {
        return *over;
    }
    const QStringList paths = line.arguments();
    const QHash<QString, qint64> folders = sizesOfFolders(paths);
    bool isComplete = true;
    for (const QString &path : paths) {
        if (!folders.contains(path) && !QFileInfo(path).isFile()) {
            console.printError(QStringLiteral("%1 is neither folder nor file.").arg(quoted(path)));
            isComplete = false;
            continue;
        }
        const qint64 bytes = folders.value(path, Shared::CFileSystemHelper::getFileSize(path));
        console.print(QStringLiteral("%1 (%2 bytes): %3")
                          .arg(formatBytes(bytes))
                          .arg(bytes)
                          .arg(quoted(path)));
    }
    return isComplete ? ExitDone : ExitSourceRefused;
}

} // namespace

const Command sizeCommand = {
    "size",
    "Adds up the sizes of the files in folders.",
    runSize,
};

} // namespace Tavro::FieldHost
