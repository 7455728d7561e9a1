// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/Text.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <vector>

#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost gui [options]

Shows the screens: export and deletion, an inspection, a recording, units and language, the device.
They are a program of their own, ovo-fieldhost-gui, which needs Qt Quick and a display. Without a
window system, set QT_QPA_PLATFORM, to "eglfs" or "linuxfb" for example.

Options:
  --page NAME          The screen to begin with: export, delete, form, recording, locale or device.
  --dark               Begins with dark colours.
  --language LOCALE    The device's language, such as de or de_CH; without it, the environment's.
  --font-scale FACTOR  Makes fonts larger, and what is touched with them: 1 to 2.
  --size WIDTHxHEIGHT  Size of the window in pixels; without it, 1280x800.
  -h, --help           Shows this text.

Exit codes:
  0  the window was closed
  1  failed: the screens are not installed, or there is no display; the message says which
  2  the command line was not understood)");

const char *const s_options[] = {"page", "language", "font-scale", "size"};

// where it is built, and where it is installed
QString findProgram()
{
    const QDir directory(QCoreApplication::applicationDirPath());
    for (const char *path :
         {"../qml/ovo-fieldhost-gui", OVO_LIBEXECDIR_FROM_BINDIR "/ovo-fieldhost-gui"}) {
        const QFileInfo program(directory.filePath(QLatin1String(path)));
        if (program.isExecutable() && program.isFile()) {
            return program.canonicalFilePath();
        }
    }
    return {};
}

bool hasDisplay()
{
    static const char *const variables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(std::begin(variables), std::end(variables),
                       [](const char *variable) { return !qEnvironmentVariableIsEmpty(variable); });
}

int runGui(const CommandLine &line, Console &console)
{
    const QString program = findProgram();
    if (program.isEmpty()) {
        console.printError(CommandText::tr(
            "The screens are not installed: there is no program ovo-fieldhost-gui. They are built "
            "with the option OVO_BUILD_SCREENS of CMake."));
        return ExitFailed;
    }
    if (!hasDisplay()) {
        console.printError(CommandText::tr(
            "There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set. Without a window "
            "system, set QT_QPA_PLATFORM, to \"eglfs\" or \"linuxfb\" for example."));
        return ExitFailed;
    }
    std::vector<QByteArray> words = {QFile::encodeName(program)};
    if (line.isSet("dark")) {
        words.emplace_back("--dark");
    }
    for (const char *option : s_options) {
        if (line.isSet(option)) {
            words.push_back("--" + QByteArray(option) + '=' + line.value(option).toLocal8Bit());
        }
    }
    std::vector<char *> arguments;
    arguments.reserve(words.size() + 1);
    for (QByteArray &word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    ::execv(arguments.front(), arguments.data());
    const int error = errno;
    console.printError(
        CommandText::tr("%1 cannot be started (%2).").arg(quoted(program), systemText(error)));
    return ExitFailed;
}

} // namespace

const Command guiCommand = {
    "gui",      QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", "Shows the screens."),
    s_helpText, "dark page= language= font-scale= size=",
    "",         runGui,
};

} // namespace Tavro::FieldHost
