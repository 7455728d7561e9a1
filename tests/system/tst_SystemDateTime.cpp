// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/SystemDateTime.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"
#include "tests/support/LogRecorder.h"

#include <QElapsedTimer>
#include <QScopedPointer>
#include <QTest>
#include <QTimeZone>

#include <cerrno>
#include <ctime>

#include <signal.h>

using Tavro::SystemDateTime;
using Tavro::FieldHost::HostLog;
using Tavro::Logging::LogLevel;

namespace {

QString entry(const QString &message)
{
    return HostLog::format(LogLevel::Error, QStringLiteral("SystemDateTime"), message);
}

// as QIODevice has it when nothing went wrong with the device itself
QString failure(const QString &command)
{
    return entry(QStringLiteral("System command <%1> - Unknown error").arg(command));
}

const QStringList &hwclockCall()
{
    static const QStringList lines = {
        QStringLiteral("hwclock --systohc --utc"),
        QStringLiteral("  <--systohc>"),
        QStringLiteral("  <--utc>"),
    };
    return lines;
}

QStringList dateCall(const QString &value)
{
    return {
        QStringLiteral("date -u -s ") + value,
        QStringLiteral("  <-u>"),
        QStringLiteral("  <-s>"),
        QStringLiteral("  <%1>").arg(value),
    };
}

} // namespace

/**
 * The whole program runs on an Arabic device in central Europe. The commands are fakes that write
 * down what they get, argument by argument; the real ones are out of reach.
 */
class tst_SystemDateTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void dateIsSent_data();
    void dateIsSent();
    void timeIsSent_data();
    void timeIsSent();
    void dateTimeIsSent_data();
    void dateTimeIsSent();
    void invalidIsNeverSent();

    void failingDateSkipsTheHardwareClock();
    void failingHardwareClockFailsTheWhole();

    void exitCodeDecides_data();
    void exitCodeDecides();
    void whatTheCommandPrintsIsNotLogged();
    void missingCommandFails();
    void emptyCommandFails();
    void crashIsLogged();
    void linesAreSplitWithoutAShell_data();
    void linesAreSplitWithoutAShell();
    void commandThatStillRunsCountsAsDone();

private:
    void add(const char *name, const QByteArray &body = QByteArray())
    {
        m_commands->add(QString::fromLatin1(name),
                        "for argument in \"$@\"; do echo \"  <$argument>\" >> '"
                            + m_commands->journalPath().toUtf8() + "'; done\n" + body);
    }

    QScopedPointer<Test::FakeCommands> m_commands;
    QScopedPointer<Test::LogRecorder> m_log;
};

void tst_SystemDateTime::initTestCase()
{
    // what a date in the system's own digits would look like
    QCOMPARE(QLocale::system().toString(12), QString::fromUtf8("\u0661\u0662"));
    QCOMPARE(QDateTime(QDate(2026, 7, 1), QTime(12, 0)).offsetFromUtc(), 7200);
}

void tst_SystemDateTime::init()
{
    m_commands.reset(new Test::FakeCommands);
    m_commands->hideOthers();
    m_log.reset(new Test::LogRecorder);
    add("date");
    add("hwclock");
}

void tst_SystemDateTime::cleanup()
{
    m_log.reset();
    m_commands.reset();
}

void tst_SystemDateTime::dateIsSent_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("sent");

    QTest::newRow("a day") << QDate(2026, 11, 21) << QStringLiteral("2026-11-21");
    QTest::newRow("one-digit month and day") << QDate(2026, 1, 2) << QStringLiteral("2026-01-02");
    QTest::newRow("a leap day") << QDate(2028, 2, 29) << QStringLiteral("2028-02-29");
    QTest::newRow("a year of three digits") << QDate(987, 6, 5) << QStringLiteral("0987-06-05");
    QTest::newRow("a day on which daylight saving begins")
        << QDate(2026, 3, 29) << QStringLiteral("2026-03-29");
}

void tst_SystemDateTime::dateIsSent()
{
    QFETCH(QDate, date);
    QFETCH(QString, sent);

    QVERIFY(SystemDateTime().setDate(date));
    QCOMPARE(m_commands->journal(), dateCall(sent) + hwclockCall());
    QCOMPARE(m_log->entries(), QStringList());
}

void tst_SystemDateTime::timeIsSent_data()
{
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QString>("sent");

    QTest::newRow("one-digit parts") << QTime(1, 2, 3) << QStringLiteral("01:02:03");
    QTest::newRow("afternoon") << QTime(13, 14, 15) << QStringLiteral("13:14:15");
    QTest::newRow("midnight") << QTime(0, 0) << QStringLiteral("00:00:00");
    QTest::newRow("the last second, without its milliseconds")
        << QTime(23, 59, 59, 999) << QStringLiteral("23:59:59");
    QTest::newRow("one that daylight saving skips on some day")
        << QTime(2, 30) << QStringLiteral("02:30:00");
}

void tst_SystemDateTime::timeIsSent()
{
    QFETCH(QTime, time);
    QFETCH(QString, sent);

    QVERIFY(SystemDateTime().setTime(time));
    QCOMPARE(m_commands->journal(), dateCall(sent) + hwclockCall());
    QCOMPARE(m_log->entries(), QStringList());
}

void tst_SystemDateTime::dateTimeIsSent_data()
{
    QTest::addColumn<QDateTime>("dateTime");
    QTest::addColumn<QString>("sent");

    const QDate day(2026, 7, 1);
    QTest::newRow("local, without conversion")
        << QDateTime(day, QTime(12, 0, 1)) << QStringLiteral("2026-07-01 12:00:01");
    QTest::newRow("local, in winter")
        << QDateTime(QDate(2026, 1, 1), QTime(0, 0)) << QStringLiteral("2026-01-01 00:00:00");
    QTest::newRow("in UTC") << QDateTime(day, QTime(23, 59, 59), Qt::UTC)
                            << QStringLiteral("2026-07-01 23:59:59");
    QTest::newRow("at an offset, without conversion")
        << QDateTime(day, QTime(1, 2, 3), Qt::OffsetFromUTC, -5 * 3600)
        << QStringLiteral("2026-07-01 01:02:03");
    QTest::newRow("in another zone, without conversion")
        << QDateTime(day, QTime(4, 5, 6), QTimeZone("Asia/Tokyo"))
        << QStringLiteral("2026-07-01 04:05:06");
    QTest::newRow("milliseconds are cut off")
        << QDateTime(day, QTime(12, 0, 0, 999)) << QStringLiteral("2026-07-01 12:00:00");
    QTest::newRow("just before the hour that daylight saving skips")
        << QDateTime(QDate(2026, 3, 29), QTime(1, 59, 59)) << QStringLiteral("2026-03-29 01:59:59");
    QTest::newRow("just after it")
        << QDateTime(QDate(2026, 3, 29), QTime(3, 0)) << QStringLiteral("2026-03-29 03:00:00");
    QTest::newRow("in the hour that comes twice")
        << QDateTime(QDate(2026, 10, 25), QTime(2, 30)) << QStringLiteral("2026-10-25 02:30:00");
}

void tst_SystemDateTime::dateTimeIsSent()
{
    QFETCH(QDateTime, dateTime);
    QFETCH(QString, sent);

    QVERIFY(SystemDateTime().setDateTime(dateTime));
    // the shell that records has taken the quotes off: one argument
    QCOMPARE(m_commands->journal(), dateCall(sent) + hwclockCall());
    QCOMPARE(m_log->entries(), QStringList());
}

void tst_SystemDateTime::invalidIsNeverSent()
{
    const QString reason =
        entry(QStringLiteral("The clock is not set: the date or time is invalid"));

    QVERIFY(!SystemDateTime().setDate(QDate()));
    QVERIFY(!SystemDateTime().setDate(QDate(2026, 2, 29)));
    QVERIFY(!SystemDateTime().setTime(QTime()));
    QVERIFY(!SystemDateTime().setTime(QTime(24, 0)));
    QVERIFY(!SystemDateTime().setDateTime(QDateTime()));
    // half an hour after 01:59:59 it is 03:29:59
    QVERIFY(!SystemDateTime().setDateTime(QDateTime(QDate(2026, 3, 29), QTime(2, 30))));

    QCOMPARE(m_commands->journal(), QStringList());
    QCOMPARE(m_log->entries(), (QStringList{reason, reason, reason, reason, reason, reason}));
}

void tst_SystemDateTime::failingDateSkipsTheHardwareClock()
{
    add("date", "exit 1");

    QVERIFY(!SystemDateTime().setDate(QDate(2026, 11, 21)));
    QVERIFY(!SystemDateTime().setTime(QTime(12, 0)));
    QVERIFY(!SystemDateTime().setDateTime(QDateTime(QDate(2026, 11, 21), QTime(12, 0))));
    QCOMPARE(m_commands->journal(),
             dateCall(QStringLiteral("2026-11-21")) + dateCall(QStringLiteral("12:00:00"))
                 + dateCall(QStringLiteral("2026-11-21 12:00:00")));
    // the command lines to the letter: the time alone has no quotes
    QCOMPARE(m_log->entries(),
             (QStringList{failure(QStringLiteral("date -u -s \"2026-11-21\"")),
                          failure(QStringLiteral("date -u -s 12:00:00")),
                          failure(QStringLiteral("date -u -s \"2026-11-21 12:00:00\""))}));
}

void tst_SystemDateTime::failingHardwareClockFailsTheWhole()
{
    add("hwclock", "exit 1");

    QVERIFY(!SystemDateTime().setTime(QTime(12, 0)));
    QCOMPARE(m_commands->journal(), dateCall(QStringLiteral("12:00:00")) + hwclockCall());
    QCOMPARE(m_log->entries(), QStringList(failure(QStringLiteral("hwclock --systohc --utc"))));
}

void tst_SystemDateTime::exitCodeDecides_data()
{
    QTest::addColumn<int>("code");

    QTest::newRow("done") << 0;
    QTest::newRow("failed") << 1;
    QTest::newRow("the largest") << 255;
}

void tst_SystemDateTime::exitCodeDecides()
{
    QFETCH(int, code);

    add("tool", "exit " + QByteArray::number(code));
    QCOMPARE(SystemDateTime().sendSystemCommand(QStringLiteral("tool one two")), code == 0);
    QCOMPARE(m_commands->journal().value(0), QStringLiteral("tool one two"));
    QCOMPARE(m_log->entries(),
             code == 0 ? QStringList() : QStringList(failure(QStringLiteral("tool one two"))));
}

void tst_SystemDateTime::whatTheCommandPrintsIsNotLogged()
{
    add("tool", "echo no such thing >&2\necho bye\nexit 3");
    QVERIFY(!SystemDateTime().sendSystemCommand(QStringLiteral("tool")));
    QCOMPARE(m_log->entries(), QStringList(failure(QStringLiteral("tool"))));
}

void tst_SystemDateTime::missingCommandFails()
{
    QVERIFY(!SystemDateTime().sendSystemCommand(QStringLiteral("no-such-command x")));
    QCOMPARE(m_log->entries(),
             QStringList(entry(QStringLiteral(
                 "System command <no-such-command x> - execvp: No such file or directory"))));
}

void tst_SystemDateTime::emptyCommandFails()
{
    QVERIFY(!SystemDateTime().sendSystemCommand(QString()));
    QCOMPARE(m_log->entries(),
             QStringList(entry(QStringLiteral("System command <> - No program defined"))));
}

void tst_SystemDateTime::crashIsLogged()
{
    add("date", "kill -KILL $$");
    QVERIFY(!SystemDateTime().setTime(QTime(12, 0)));
    QCOMPARE(m_commands->journal(), dateCall(QStringLiteral("12:00:00")));
    QCOMPARE(m_log->entries(), QStringList(entry(QStringLiteral("System command process crash!"))));
}

void tst_SystemDateTime::linesAreSplitWithoutAShell_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QStringList>("received");

    QTest::newRow("blanks separate")
        << QStringLiteral(" a  b ") << QStringList{QStringLiteral("a"), QStringLiteral("b")};
    QTest::newRow("quotes keep together")
        << QStringLiteral("\"a b\" c") << QStringList{QStringLiteral("a b"), QStringLiteral("c")};
    QTest::newRow("three quotes are one")
        << QStringLiteral("\"\"\"a\"\"\"") << QStringList{QStringLiteral("\"a\"")};
    QTest::newRow("nothing means anything to a shell")
        << QStringLiteral("$HOME;*>x") << QStringList{QStringLiteral("$HOME;*>x")};
}

void tst_SystemDateTime::linesAreSplitWithoutAShell()
{
    QFETCH(QString, arguments);
    QFETCH(QStringList, received);

    add("tool");
    QVERIFY(SystemDateTime().sendSystemCommand(QStringLiteral("tool ") + arguments));
    QStringList lines = m_commands->journal();
    lines.removeFirst();
    for (QString &argument : received) {
        argument = QStringLiteral("  <%1>").arg(argument);
    }
    QCOMPARE(lines, received);
}

void tst_SystemDateTime::commandThatStillRunsCountsAsDone()
{
    // hands its number over and becomes "sleep", so that nothing is left when it is killed
    add("date", "echo $$ >> '" + m_commands->journalPath().toUtf8() + "'\nexec /bin/sleep 600");
    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY(SystemDateTime().setTime(QTime(12, 0)));
    QVERIFY(elapsed.elapsed() >= 5000);
    QCOMPARE(m_log->entries(), QStringList());

    QStringList calls = m_commands->journal();
    const pid_t process = calls.takeAt(4).toInt();
    QCOMPARE(calls, dateCall(QStringLiteral("12:00:00")) + hwclockCall());
    QVERIFY(process > 0);
    QCOMPARE(::kill(process, 0), -1);
    QCOMPARE(errno, ESRCH);
}

int main(int argc, char *argv[])
{
    qputenv("LC_ALL", "ar_EG.UTF-8");
    qputenv("TZ", "Europe/Berlin");
    ::tzset();
    QCoreApplication application(argc, argv);
    tst_SystemDateTime test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_SystemDateTime.moc"
