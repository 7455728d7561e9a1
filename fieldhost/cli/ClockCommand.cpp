#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandParsing.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/NearestWord.h"
#include "fieldhost/jobs/Text.h"
#include "shared/system/OsSettings.h"

#include <QCommandLineParser>
#include <QLocale>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] = R"(Usage: ovo-fieldhost clock [show]
       ovo-fieldhost clock set-date DATE
       ovo-fieldhost clock set-time TIME

Shows the device's date and time, or sets the system's clock and then the hardware's. Setting
needs the commands "date" and "hwclock" and the rights of root.

  DATE  As in 2026-11-21. The time of day stays what this command shows.
  TIME  As in 13:05 or 13:05:30. The date stays that of today in UTC.

What is shown is local time. What is set is sent as it stands and taken as UTC: where the two
differ, the clock moves by the difference.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  shown, or set
  1  failed: a command could not set its clock; the message says which
  2  the command line was not understood)";

QString clockText()
{
    const OsSettings &settings = *OsSettings::instance();
    const QLocale plain = QLocale::c();
    return QStringLiteral("date  %1\ntime  %2")
        .arg(plain.toString(settings.date(), QStringLiteral("yyyy-MM-dd")),
             plain.toString(settings.time(), QStringLiteral("hh:mm:ss")));
}

// sets the clock; it has worked when the announcement comes
template<typename Value>
int set(Console &console, const Value &value, void (OsSettings::*setter)(Value),
        void (OsSettings::*announcement)())
{
    OsSettings &settings = *OsSettings::instance();
    bool done = false;
    const QObject context;
    QObject::connect(&settings, announcement, &context, [&done] { done = true; });
    (settings.*setter)(value);
    if (!done) {
        console.printError(QStringLiteral("The clock is not set, or not both clocks are."));
        return ExitFailed;
    }
    console.print(QStringLiteral("The clock is set.\n") + clockText());
    return ExitDone;
}

int setDate(Console &console, const QString &text)
{
    const QDate date = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (!date.isValid()) {
        return usageError(
            console, "clock",
            QStringLiteral("%1 is no date. One reads as 2026-11-21 does.").arg(quoted(text)));
    }
    return set(console, date, &OsSettings::setDate, &OsSettings::dateChanged);
}

int setTime(Console &console, const QString &text)
{
    QTime time = QTime::fromString(text, QStringLiteral("hh:mm:ss"));
    if (!time.isValid()) {
        time = QTime::fromString(text, QStringLiteral("hh:mm"));
    }
    if (!time.isValid()) {
        return usageError(console, "clock",
                          QStringLiteral("%1 is no time of day. One reads as 13:05 or 13:05:30 do.")
                              .arg(quoted(text)));
    }
    return set(console, time, &OsSettings::setTime, &OsSettings::timeChanged);
}

struct Action
{
    const char *name;
    const char *value; // what it is called in the help; null when there is none
    int (*run)(Console &console, const QString &value);
};

int show(Console &console, const QString & /*value*/)
{
    console.print(clockText());
    return ExitDone;
}

const Action s_actions[] = {
    {"show", nullptr, show},
    {"set-date", "DATE", setDate},
    {"set-time", "TIME", setTime},
};

int runAction(Console &console, const QStringList &words)
{
    const QString name = words.value(0, QStringLiteral("show"));
    QStringList names;
    for (const Action &action : s_actions) {
        names += QLatin1String(action.name);
        if (name != names.constLast()) {
            continue;
        }
        const int wanted = action.value ? 2 : 1;
        if (words.size() > wanted) {
            return usageError(console, "clock",
                              QStringLiteral("%1 is too much.").arg(quoted(words.at(wanted))));
        }
        if (action.value && words.size() < wanted) {
            return usageError(
                console, "clock",
                QStringLiteral("The %1 is missing.").arg(QLatin1String(action.value)));
        }
        return action.run(console, words.value(1));
    }
    return usageError(console, "clock",
                      QStringLiteral("The clock cannot %1. The nearest it can is \"%2\".")
                          .arg(quoted(name), nearest(name, names)));
}

int runClock(const QStringList &arguments)
{
    Console console;
    QCommandLineParser parser;
    if (const auto answered = parseCommandLine(parser, console, "clock", s_helpText, arguments)) {
        return *answered;
    }
    return runAction(console, parser.positionalArguments());
}

} // namespace

const Command clockCommand = {
    "clock",
    "Shows and sets the device's date and time.",
    runClock,
};

} // namespace Tavro::FieldHost
