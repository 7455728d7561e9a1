#include "shared/system/SystemDateTime.h"

#include "host/CLogger.h"

#include <QLocale>
#include <QProcess>

namespace Tavro {

namespace {

constexpr int s_patience = 5000; // ms

void logError(const QString &message)
{
    Logging::CLogger::logMessage(Logging::LogLevel::Error, QStringLiteral("SystemDateTime"),
                                 message);
}

// a value formatted for "date", empty when it is invalid; "date" knows no digits but these,
// whatever the locale
template<typename T> QString inPlainDigits(const T &value, const QString &format)
{
    return value.isValid() ? QLocale::c().toString(value, format) : QString();
}

bool setClocks(SystemDateTime &clock, const QString &value, const QString &quote)
{
    // "date" would take an empty text for midnight
    if (value.isEmpty()) {
        logError(QStringLiteral("The clock is not set: the date or time is invalid"));
        return false;
    }
    return clock.sendSystemCommand(QStringLiteral("date -u -s ") + quote + value + quote)
        && clock.sendSystemCommand(QStringLiteral("hwclock --systohc --utc"));
}

} // namespace

bool SystemDateTime::sendSystemCommand(const QString &command)
{
    QStringList arguments = QProcess::splitCommand(command);
    const QString program = arguments.isEmpty() ? QString() : arguments.takeFirst();

    QProcess process;
    process.start(program, arguments, QIODevice::ReadWrite);
    process.waitForFinished(s_patience);

    if (process.exitStatus() != QProcess::NormalExit) {
        logError(QStringLiteral("System command process crash!"));
        return false;
    }
    // one that never ran has left no exit code
    const bool started = process.error() != QProcess::FailedToStart;
    if (started && process.exitCode() == 0) {
        return true;
    }
    logError(QStringLiteral("System command <") + command + QStringLiteral("> - ")
             + process.errorString());
    return false;
}

bool SystemDateTime::setDate(QDate date)
{
    return setClocks(*this, inPlainDigits(date, QStringLiteral("yyyy-MM-dd")),
                     QStringLiteral("\""));
}

bool SystemDateTime::setTime(QTime time)
{
    // without quotes: the line that devices have always been sent
    return setClocks(*this, inPlainDigits(time, QStringLiteral("hh:mm:ss")), QString());
}

// by value, as the hosts call it
// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool SystemDateTime::setDateTime(QDateTime dateTime)
{
    return setClocks(*this, inPlainDigits(dateTime, QStringLiteral("yyyy-MM-dd hh:mm:ss")),
                     QStringLiteral("\""));
}

} // namespace Tavro
