// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/SystemDateTime.h"

#include "host/CLogger.h"
#include "shared/base/detail/ChildProcess.h"

#include <QLocale>
#include <QProcess>

#include <cerrno>

namespace Tavro {

using Shared::detail::ChildEnd;

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

// what the errorString() of a QProcess would say
QString errorStringOf(const ChildEnd &end)
{
    if (end.kind == ChildEnd::Exited) {
        return QProcess().errorString();
    }
    const QString reason = qt_error_string(end.code);
    const bool isRefused =
        end.kind == ChildEnd::NotStarted && (end.code == EAGAIN || end.code == ENOMEM);
    return isRefused ? QProcess::tr("Resource error (fork failure): %1").arg(reason)
                     : QStringLiteral("execvp: ") + reason;
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
    const ChildEnd end = Shared::detail::runProgram(program, arguments, s_patience);

    if (end.kind == ChildEnd::Died) {
        logError(QStringLiteral("System command process crash!"));
        return false;
    }
    // a command that still runs has no exit code, so none that means a failure
    if (end.kind == ChildEnd::OutOfTime || (end.kind == ChildEnd::Exited && end.code == 0)) {
        return true;
    }
    const QString reason =
        program.isEmpty() ? QProcess::tr("No program defined") : errorStringOf(end);
    logError(QStringLiteral("System command <") + command + QStringLiteral("> - ") + reason);
    return false;
}

bool SystemDateTime::setDate(QDate date)
{
    return setClocks(*this, inPlainDigits(date, QStringLiteral("yyyy-MM-dd")),
                     QStringLiteral("\""));
}

bool SystemDateTime::setTime(QTime time)
{
    // without quotes: this is the command line that devices know
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
