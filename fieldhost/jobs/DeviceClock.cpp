// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/DeviceClock.h"

#include "fieldhost/jobs/Text.h"
#include "shared/system/SystemDateTime.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>

#include <cerrno>
#include <climits>
#include <limits>

#include <sys/syscall.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

// the clock that "hwclock" sets; what the kernel says of it is UTC
const char s_hardwareClock[] = "/sys/class/rtc/rtc0/";

constexpr qint64 s_tolerance = 2; // seconds: clocks tell whole ones

// the kernel counts nanoseconds in 63 bits, and keeps 30 years of them for its own running time
constexpr qint64 s_lastSecondOfKernel = 9'223'372'036 - 30LL * 365 * 24 * 3600 - 1;

QString attributeOfHardwareClock(const char *name)
{
    QFile file(QLatin1String(s_hardwareClock) + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).trimmed()
                                          : QString();
}

// invalid where there is none, and where nobody has set it
QDateTime readHardwareClock()
{
    bool isNumber = false;
    const qint64 seconds = attributeOfHardwareClock("since_epoch").toLongLong(&isNumber);
    return isNumber ? QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC) : QDateTime();
}

QString inWords(const QDateTime &moment)
{
    return QLocale::c().toString(moment, QStringLiteral("yyyy-MM-dd hh:mm:ss 'UTC'"));
}

QString tooEarly(const QDateTime &moment, const QString &clock, const QDateTime &first)
{
    return JobText::tr("%1 is before %2, with which the time of %3 begins. No clock was changed.")
        .arg(inWords(moment), inWords(first), clock);
}

QString tooLate(const QDateTime &moment, const QString &clock, const QDateTime &last)
{
    return JobText::tr("%1 is after %2, with which the time of %3 ends. No clock was changed.")
        .arg(inWords(moment), inWords(last), clock);
}

// why a clock cannot hold the moment; empty when both can
QString refusal(const QDateTime &moment)
{
    const QString system = JobText::tr("the system clock");
    const QDateTime epoch = QDateTime::fromSecsSinceEpoch(0, Qt::UTC);
    // of a 32-bit system the programs have a time_t of 32 bits, "hwclock" among them
    const QDateTime last = lastMomentOfSystem(CHAR_BIT * sizeof(long));
    if (moment < epoch) {
        return tooEarly(moment, system, epoch);
    }
    if (moment > last) {
        return tooLate(moment, system, last);
    }
    static const QRegularExpression range(QStringLiteral("^\\[(-?\\d+),(\\d+)\\]$"));
    const QRegularExpressionMatch match = range.match(attributeOfHardwareClock("range"));
    const QString hardware = JobText::tr("the hardware clock");
    const qint64 seconds = moment.toSecsSinceEpoch();
    if (match.hasMatch() && seconds < match.captured(1).toLongLong()) {
        return tooEarly(moment, hardware,
                        QDateTime::fromSecsSinceEpoch(match.captured(1).toLongLong(), Qt::UTC));
    }
    // that of some clocks ends beyond what a QDateTime holds
    if (match.hasMatch() && quint64(seconds) > match.captured(2).toULongLong()) {
        return tooLate(moment, hardware,
                       QDateTime::fromSecsSinceEpoch(match.captured(2).toLongLong(), Qt::UTC));
    }
    return {};
}

// asks the system to set nothing, which it refuses in the same way as anything else
bool maySetClocks()
{
    return ::syscall(SYS_settimeofday, nullptr, nullptr) == 0 || errno != EPERM;
}

QString shownBy(const QDateTime &clock)
{
    return clock.isValid() ? JobText::tr("it shows %1").arg(inWords(clock))
                           : JobText::tr("it cannot be read");
}

// a command that was killed counts as done for the library, so that only the clocks know
ClockResult judge(bool isDone, bool isSystemSet, const QDateTime &system, bool isHardwareSet,
                  const QDateTime &hardware)
{
    if (isSystemSet && isHardwareSet) {
        return isDone
            ? ClockResult{true, JobText::tr("The clock is set.")}
            : ClockResult{false,
                          JobText::tr("A command has failed, although the system clock and the "
                                      "hardware clock show the time that was to be set.")};
    }
    if (isSystemSet) {
        return {false,
                JobText::tr("The system clock is set, the hardware clock is not: %1. The time "
                            "may be wrong after the next start.")
                    .arg(shownBy(hardware))};
    }
    QString sentences = isHardwareSet
        ? JobText::tr("The hardware clock is set, the system clock is not: %1.")
              .arg(shownBy(system))
        : JobText::tr("The clock is not set: %1.").arg(shownBy(system));
    if (!maySetClocks()) {
        sentences += QLatin1Char(' ')
            + JobText::tr("Setting a clock needs the rights of root, or the capability "
                          "CAP_SYS_TIME.");
    }
    return {false, sentences};
}

} // namespace

QDateTime lastMomentOfSystem(int bits)
{
    const qint64 seconds = bits == 32 ? std::numeric_limits<qint32>::max() : s_lastSecondOfKernel;
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
}

ClockResult setClocks(QDate date, QTime time)
{
    const QDateTime wanted(date.isValid() ? date : QDateTime::currentDateTimeUtc().date(),
                           time.isValid() ? time : QTime::currentTime(), Qt::UTC);
    const QString refused = refusal(wanted);
    if (!refused.isEmpty()) {
        return {false, refused};
    }
    QElapsedTimer elapsed;
    elapsed.start();
    const bool isDone = SystemDateTime().setDateTime(wanted);
    const QDateTime system = QDateTime::currentDateTimeUtc();
    const QDateTime hardware = readHardwareClock();
    const QDateTime latest = wanted.addMSecs(elapsed.elapsed()).addSecs(s_tolerance);
    const auto isSet = [&](const QDateTime &clock) {
        return clock.isValid() && wanted.addSecs(-s_tolerance) <= clock && clock <= latest;
    };
    return judge(isDone, isSet(system), system, isSet(hardware), hardware);
}

} // namespace Tavro::FieldHost
