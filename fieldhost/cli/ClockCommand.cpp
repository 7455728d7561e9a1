// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/DeviceClock.h"
#include "fieldhost/jobs/Text.h"
#include "shared/system/OsSettings.h"

#include <QLocale>
#include <QRegularExpression>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText", R"(Usage: ovo-fieldhost clock [show]
       ovo-fieldhost clock set-date DATE
       ovo-fieldhost clock set-time TIME

Shows the device's date and time, or sets the system clock and then the hardware clock. Setting
needs the commands "date" and "hwclock" and the rights of root. Both clocks are read afterwards,
and the message says which of them is set. A date that one of them cannot hold is refused: on many
32-bit systems time ends on 2038-01-19.

  DATE  As in 2026-11-21. The time of day stays what this command shows.
  TIME  As in 13:05 or 13:05:30. The date stays that of today in UTC.

The time shown is local time. A time that is set counts as UTC: where the two differ, the clock
moves by the difference.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  shown, or both clocks are set
  1  a clock is not set, or cannot hold the date; the message says which
  2  the command line was not understood)");

QString clockText()
{
    const OsSettings &settings = *OsSettings::instance();
    const QLocale plain = QLocale::c();
    return CommandText::tr("date  %1\ntime  %2")
        .arg(plain.toString(settings.date(), QStringLiteral("yyyy-MM-dd")),
             plain.toString(settings.time(), QStringLiteral("hh:mm:ss")));
}

int set(Console &console, QDate date, QTime time)
{
    const ClockResult result = setClocks(date, time);
    if (!result.isSet) {
        console.printError(result.sentences);
        return ExitFailed;
    }
    console.print(result.sentences + QLatin1Char('\n') + clockText());
    return ExitDone;
}

int setDate(const CommandLine &line, Console &console, const QString &text)
{
    const QDate date = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (!date.isValid()) {
        static const QRegularExpression form(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d$"));
        return line.refuse((form.match(text).hasMatch()
                                ? CommandText::tr("The calendar has no %1.")
                                : CommandText::tr("%1 is not a date such as 2026-11-21."))
                               .arg(quoted(text)));
    }
    return set(console, date, QTime());
}

int setTime(const CommandLine &line, Console &console, const QString &text)
{
    QTime time = QTime::fromString(text, QStringLiteral("hh:mm:ss"));
    if (!time.isValid()) {
        time = QTime::fromString(text, QStringLiteral("hh:mm"));
    }
    if (!time.isValid()) {
        return line.refuse(CommandText::tr("%1 is not a time of day such as 13:05:30, "
                                           "from 00:00 to 23:59:59.")
                               .arg(quoted(text)));
    }
    return set(console, QDate(), time);
}

int show(const CommandLine & /*line*/, Console &console, const QString & /*argument*/)
{
    console.print(clockText());
    return ExitDone;
}

int runClock(const CommandLine &line, Console & /*console*/)
{
    return line.runAction({
        {"show", nullptr, show},
        {"set-date", "DATE", setDate},
        {"set-time", "TIME", setTime},
    });
}

} // namespace

const Command clockCommand = {
    "clock",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Shows and sets the device's date and time."),
    s_helpText,
    "",
    "[ACTION]...",
    runClock,
};

} // namespace Tavro::FieldHost
