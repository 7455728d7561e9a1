#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/jobs/Text.h"
#include "shared/system/OsSettings.h"

#include <QLocale>
#include <QRegularExpression>

#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

const char s_helpText[] = R"(Usage: ovo-fieldhost clock [show]
       ovo-fieldhost clock set-date DATE
       ovo-fieldhost clock set-time TIME

Shows the device's date and time, or sets the system's clock and then the hardware's. Setting
needs the commands "date" and "hwclock" and the rights of root.

  DATE  As in 2026-11-21. The time of day stays what this command shows.
  TIME  As in 13:05 or 13:05:30. The date stays that of today in UTC.

The time shown is local time. A time that is set counts as UTC: where the two differ, the clock
moves by the difference.

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

// asks the system to set nothing, which it refuses in the same way as anything else
bool maySetClocks()
{
    return ::syscall(SYS_settimeofday, nullptr, nullptr) == 0 || errno != EPERM;
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
        if (!maySetClocks()) {
            console.printError(QStringLiteral("Setting a clock needs the rights of root, or the "
                                              "capability CAP_SYS_TIME."));
        }
        console.printError(QStringLiteral("The clock is not set, or not both clocks are."));
        return ExitFailed;
    }
    console.print(QStringLiteral("The clock is set.\n") + clockText());
    return ExitDone;
}

int setDate(const CommandLine &line, Console &console, const QString &text)
{
    const QDate date = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (!date.isValid()) {
        static const QRegularExpression form(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d$"));
        return line.refuse((form.match(text).hasMatch()
                                ? QStringLiteral("The calendar has no %1.")
                                : QStringLiteral("%1 is not a date such as 2026-11-21."))
                               .arg(quoted(text)));
    }
    if (date.year() < 1970) {
        return line.refuse(
            QStringLiteral("%1 is before 1970, when the system's time begins.").arg(quoted(text)));
    }
    return set(console, date, &OsSettings::setDate, &OsSettings::dateChanged);
}

int setTime(const CommandLine &line, Console &console, const QString &text)
{
    QTime time = QTime::fromString(text, QStringLiteral("hh:mm:ss"));
    if (!time.isValid()) {
        time = QTime::fromString(text, QStringLiteral("hh:mm"));
    }
    if (!time.isValid()) {
        return line.refuse(QStringLiteral("%1 is not a time of day such as 13:05:30, "
                                          "from 00:00 to 23:59:59.")
                               .arg(quoted(text)));
    }
    return set(console, time, &OsSettings::setTime, &OsSettings::timeChanged);
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
    "clock", "Shows and sets the device's date and time.", s_helpText, "", "[ACTION]...", runClock,
};

} // namespace Tavro::FieldHost
