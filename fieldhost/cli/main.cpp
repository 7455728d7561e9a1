// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/NearestWord.h"
#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"
#include "fieldhost/services/FieldApplication.h"
#include "fieldhost/translations/Translators.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTextCodec>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <memory>

#include <fcntl.h>
#include <langinfo.h>
#include <sys/resource.h>

namespace Tavro::FieldHost {

namespace {

// clang-format off
const Command *const s_commands[] = {
    &exportCommand,
    &deleteCommand,
    &sizeCommand,
    &compareCommand,
    &nameCommand,
    &safeNameCommand,
    &freeCommand,
    &usbCommand,
    &recordCommand,
    &traceCommand,
    &localeCommand,
    &convertCommand,
    &countriesCommand,
    &validateCommand,
    &clockCommand,
    &projectionCommand,
    &guiCommand,
};
// clang-format on

const Command *findCommand(const QString &name)
{
    for (const Command *command : s_commands) {
        if (name == QLatin1String(command->name)) {
            return command;
        }
    }
    return nullptr;
}

QString helpText()
{
    int width = 0;
    for (const Command *command : s_commands) {
        width = qMax(width, static_cast<int>(qstrlen(command->name)));
    }
    QString text = CommandText::tr("Usage: ovo-fieldhost COMMAND ...\n\nCommands:");
    for (const Command *command : s_commands) {
        text += QStringLiteral("\n  %1  %2")
                    .arg(QLatin1String(command->name), -width)
                    .arg(CommandText::tr(command->summary));
    }
    return text + QLatin1String("\n\n")
        + CommandText::tr("Options:\n"
                          "  -h, --help     Shows this text; after a COMMAND, that of the "
                          "command with its exit codes.\n"
                          "  -v, --version  Shows the version.\n\n"
                          "\"ovo-fieldhost help COMMAND\" shows the text of a command, too.\n\n"
                          "A command that has done its work ends with 1 when what it says cannot "
                          "be written.");
}

int refuseCommand(const QString &name, Console &console)
{
    QStringList names;
    for (const Command *command : s_commands) {
        names += QLatin1String(command->name);
    }
    console.printError(CommandText::tr("There is no command %1.%2\nTry: ovo-fieldhost --help")
                           .arg(quoted(name), suggestion(name, names)));
    return ExitUsage;
}

int help(const QString &name, Console &console)
{
    const Command *command = findCommand(name);
    if (!command && !name.isEmpty()) {
        return refuseCommand(name, console);
    }
    console.print(command ? CommandText::tr(command->help) : helpText());
    return ExitDone;
}

int run(const QStringList &arguments)
{
    Console console;
    const QString first = arguments.value(1);
    if (const Command *command = findCommand(first)) {
        CommandLine line(*command, console);
        const auto over = line.parse(arguments.mid(2));
        return over ? *over : command->run(line, console);
    }
    if (first == QLatin1String("help")) {
        return help(arguments.value(2), console);
    }
    if (first == QLatin1String("-h") || first == QLatin1String("--help")) {
        return help(QString(), console);
    }
    if (first == QLatin1String("-v") || first == QLatin1String("--version")) {
        console.print(
            QStringLiteral("ovo-fieldhost %1").arg(QCoreApplication::applicationVersion()));
        return ExitDone;
    }
    if (first.isEmpty()) {
        console.printError(CommandText::tr("A COMMAND is missing.") + QLatin1String("\n\n")
                           + helpText());
        return ExitUsage;
    }
    return refuseCommand(first, console);
}

bool drawsPictures(int argc, char **argv)
{
    const Command *command = argc > 1 ? findCommand(QString::fromLocal8Bit(argv[1])) : nullptr;
    return command && command->pictureOption
        && std::any_of(argv + 2, argv + argc, [command](const char *argument) {
               return QByteArray(argument).startsWith(command->pictureOption);
           });
}

std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    if (!drawsPictures(argc, argv)) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    // it loads the fonts; the platform that has nothing else needs no display
    qputenv("QT_QPA_PLATFORM", "minimal:enable_fonts");
    // it also looks for settings among what belongs to a login; without one it would complain, and
    // leave a directory in /tmp
    const QTemporaryDir instead;
    const bool isLoggedIn = qEnvironmentVariableIsSet("XDG_RUNTIME_DIR");
    if (!isLoggedIn) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(instead.path()));
    }
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    if (!isLoggedIn) {
        qunsetenv("XDG_RUNTIME_DIR");
    }
    return application;
}

// A standard stream that was closed would be the next file that is opened, and get its lines.
void occupyStandardStreams()
{
    for (int fd = 0; fd <= 2; ++fd) {
        // in the wrong direction: what is written is not lost without an error
        if (::fcntl(fd, F_GETFD) < 0) {
            ::open("/dev/null", fd == 0 ? O_WRONLY : O_RDONLY);
        }
    }
}

// an export holds a file open for each source that is copied into what exists
void allowManyOpenFiles()
{
    constexpr rlim_t plenty = 65'536;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur < plenty) {
        limit.rlim_cur = qMin(limit.rlim_max, plenty);
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
}

// an output that is full must not pass for work that was done and told
int withOutputError(int code)
{
    const int error = Console::outputError();
    if (error == 0) {
        return code;
    }
    Console().printError(
        CommandText::tr("The output could not be written (%1).").arg(systemText(error)));
    return code == ExitDone ? ExitFailed : code;
}

// names that no text stands for would reach the file system changed
int firstUnusableArgument(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (*argv[i] != '\0' && nameFromBytes(argv[i]).isNull()) {
            return i;
        }
    }
    return 0;
}

} // namespace

} // namespace Tavro::FieldHost

int main(int argc, char *argv[])
{
    using namespace Tavro::FieldHost;

    occupyStandardStreams();
    allowManyOpenFiles();
    // A reader that went away, as in "| head", must not end a copy half way.
    std::signal(SIGPIPE, SIG_IGN);

    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ovo-fieldhost"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OVO_VERSION));
    // Names on disks are UTF-8. Debian's Qt takes them so; one that was built without ICU goes by
    // the locale, which on a bare device knows ASCII only.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    if (qstrcmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        // how wide a letter is on a terminal; nothing else runs yet
        std::setlocale(LC_CTYPE, "C.UTF-8"); // NOLINT(concurrency-mt-unsafe)
    }

    Translators translators;
    translators.loadFromEnvironment();

    if (const int i = firstUnusableArgument(argc, argv)) {
        Console console;
        console.printError(
            CommandText::tr("%1 is not valid UTF-8. A file or directory of this name "
                            "can be used once it is renamed.")
                .arg(quoted(QByteArray(argv[i]))));
        return ExitUsage;
    }
    const FieldApplication host;
    return withOutputError(run(QCoreApplication::arguments()));
}
