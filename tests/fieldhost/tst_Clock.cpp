// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/TestDrive.h"
#include "tests/support/TestClock.h"

#include <QDateTime>
#include <QTest>

#include <memory>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2 };

Outcome clock(const QStringList &arguments, bool hasRights = true)
{
    DriveProgram program;
    if (!hasRights) {
        program.dropRights();
    }
    program.begin(QStringList{QStringLiteral("clock")} + arguments);
    return program.end();
}

// five hours ahead of Greenwich, all year
void moveEast(Program &program)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TZ"), QStringLiteral("EAST-5"));
    program.setProcessEnvironment(environment);
}

// the clock that stands in Greenwich, moved by hand
QDateTime inTheEast()
{
    return QDateTime::currentDateTimeUtc().addSecs(qint64(5) * 3600);
}

} // namespace

/** `ovo-fieldhost clock`, with clocks that are not the machine's. */
class tst_Clock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_clock = std::make_unique<TestClock>(); }
    void cleanup() { m_clock.reset(); }

    void showsLocalDateAndTime_data();
    void showsLocalDateAndTime();
    void setsTheDate();
    void theTimeOfDayStaysAsShown();
    void theTimeIsSent_data();
    void theTimeIsSent();
    void failureIsSaid_data();
    void failureIsSaid();
    void aHardwareClockThatHangsIsNotBelieved();
    void aDateBeyondTheClocksIsRefused();
    void aMissingRightIsNamed();
    void wrongCommandLinesSetNothing_data();
    void wrongCommandLinesSetNothing();
    void helpNamesEveryExitCode();

private:
    std::unique_ptr<TestClock> m_clock;
};

void tst_Clock::showsLocalDateAndTime_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("asked to") << QStringList{QStringLiteral("clock"), QStringLiteral("show")};
    QTest::newRow("not asked for anything else") << QStringList{QStringLiteral("clock")};
}

void tst_Clock::showsLocalDateAndTime()
{
    QFETCH(QStringList, arguments);

    Program program;
    moveEast(program);
    const QDateTime before = inTheEast();
    program.begin(arguments);
    const Outcome outcome = program.end();
    const QDateTime after = inTheEast();

    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    const QDateTime shown = QDateTime::fromString(
        outcome.output, QStringLiteral("'date  'yyyy-MM-dd'\ntime  'hh:mm:ss'\n'"));
    QVERIFY2(shown.isValid(), qPrintable(outcome.output));
    const QDateTime shownInUtc(shown.date(), shown.time(), Qt::UTC);
    QVERIFY(before.addSecs(-1) <= shownInUtc);
    QVERIFY(shownInUtc <= after);
    QCOMPARE(m_clock->commands.journal(), QStringList());
}

void tst_Clock::setsTheDate()
{
    const QString today = QDateTime::currentDateTimeUtc().date().toString(Qt::ISODate);
    const Outcome outcome = clock({QStringLiteral("set-date"), today});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.startsWith(QLatin1String("The clock is set.\ndate  ")));
    QCOMPARE(m_clock->commands.journal().size(), 2);
    QVERIFY(
        m_clock->commands.journal().at(0).startsWith(QStringLiteral("date -u -s %1 ").arg(today)));
    QCOMPARE(m_clock->commands.journal().at(1), QStringLiteral("hwclock --systohc --utc"));
}

void tst_Clock::theTimeOfDayStaysAsShown()
{
    DriveProgram program;
    moveEast(program);
    const QTime before = inTheEast().time();
    program.begin(
        {QStringLiteral("clock"), QStringLiteral("set-date"), QStringLiteral("2031-02-03")});
    program.end();
    // the local time, although the clock is told UTC
    const QString command = m_clock->commands.journal().value(0);
    const QTime sent =
        QTime::fromString(command, QStringLiteral("'date -u -s 2031-02-03 'hh:mm:ss"));
    QVERIFY2(sent.isValid(), qPrintable(command));
    constexpr int day = 24 * 3600 * 1000;
    const int later = (before.msecsTo(sent) + 1000 + day) % day; // seconds are cut off
    QVERIFY2(later < 61'000, qPrintable(command));
}

void tst_Clock::theTimeIsSent_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("sent");

    QTest::newRow("with seconds") << QStringLiteral("13:05:30") << QStringLiteral(" 13:05:30");
    QTest::newRow("without") << QStringLiteral("07:05") << QStringLiteral(" 07:05:00");
    QTest::newRow("midnight") << QStringLiteral("00:00") << QStringLiteral(" 00:00:00");
}

void tst_Clock::theTimeIsSent()
{
    QFETCH(QString, typed);
    QFETCH(QString, sent);

    clock({QStringLiteral("set-time"), typed});
    const QString command = m_clock->commands.journal().value(0);
    QVERIFY2(command.startsWith(QLatin1String("date -u -s ")) && command.endsWith(sent),
             qPrintable(command));
}

void tst_Clock::failureIsSaid_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("sentence");

    QTest::newRow("of the system clock")
        << QStringLiteral("date") << QStringLiteral("2031-02-03")
        << QStringLiteral("System command <date -u -s \"2031-02-03 ")
        << QStringLiteral("\nThe clock is not set: it shows ");
    QTest::newRow("of the hardware clock")
        << QStringLiteral("hwclock") << QDateTime::currentDateTimeUtc().date().toString(Qt::ISODate)
        << QStringLiteral("System command <hwclock --systohc --utc> - ")
        << QStringLiteral("\nThe system clock is set, the hardware clock is not: it shows "
                          "1970-01-02 00:00:00 UTC. The time may be wrong after the next start.\n");
}

void tst_Clock::failureIsSaid()
{
    QFETCH(QString, failing);
    QFETCH(QString, date);
    QFETCH(QString, log);
    QFETCH(QString, sentence);

    m_clock->commands.add(failing, "echo heard; echo heard >&2; exit 1");
    const Outcome outcome = clock({QStringLiteral("set-date"), date});
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output, QString());
    QVERIFY2(outcome.errors.contains(log), qPrintable(outcome.errors));
    QVERIFY2(outcome.errors.contains(sentence), qPrintable(outcome.errors));
    QVERIFY(!outcome.errors.contains(QLatin1String("heard")));
}

void tst_Clock::aHardwareClockThatHangsIsNotBelieved()
{
    // it is killed after 5 seconds, which counts as done
    m_clock->commands.add(QStringLiteral("hwclock"), "exec /bin/sleep 600");
    const Outcome outcome = clock(
        {QStringLiteral("set-date"), QDateTime::currentDateTimeUtc().date().toString(Qt::ISODate)});
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors,
             QStringLiteral("The system clock is set, the hardware clock is not: it shows "
                            "1970-01-02 00:00:00 UTC. The time may be wrong after the next "
                            "start.\n"));
}

void tst_Clock::aDateBeyondTheClocksIsRefused()
{
    m_clock->endEarly();
    for (const char *date : {"1969-12-31", "2036-02-08", "9999-12-31"}) {
        const Outcome outcome = clock({QStringLiteral("set-date"), QLatin1String(date)});
        QCOMPARE(outcome.exitCode, int(Failed));
        QCOMPARE(outcome.output, QString());
        QVERIFY2(outcome.errors.startsWith(QLatin1String(date))
                     && outcome.errors.endsWith(QLatin1String(" No clock was changed.\n")),
                 qPrintable(outcome.errors));
    }
    QCOMPARE(m_clock->commands.journal(), QStringList());
}

void tst_Clock::aMissingRightIsNamed()
{
    m_clock->commands.add(QStringLiteral("date"), "exit 1");
    const Outcome outcome =
        clock({QStringLiteral("set-date"), QStringLiteral("2031-02-03")}, false);
    if (outcome.exitCode == Program::cannotDropRights) {
        QSKIP("the rights of root cannot be given up here");
    }
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(outcome.errors.endsWith(QLatin1String(
                 " Setting a clock needs the rights of root, or the capability CAP_SYS_TIME.\n")),
             qPrintable(outcome.errors));
}

void tst_Clock::wrongCommandLinesSetNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    const auto words = [](const char *line) {
        return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    QTest::newRow("no date") << words("set-date") << QStringLiteral("A DATE is missing.");
    QTest::newRow("no time") << words("set-time") << QStringLiteral("A TIME is missing.");
    QTest::newRow("a day that is none")
        << words("set-date 2026-02-29") << QStringLiteral("The calendar has no \"2026-02-29\".");
    QTest::newRow("a date in another order")
        << words("set-date 21.11.2026")
        << QStringLiteral("\"21.11.2026\" is not a date such as 2026-11-21.");
    QTest::newRow("an hour that is none")
        << words("set-time 24:00")
        << QStringLiteral("\"24:00\" is not a time of day such as 13:05:30, "
                          "from 00:00 to 23:59:59.");
    QTest::newRow("a word too many")
        << words("show me") << QStringLiteral("\"clock show\" takes no \"me\".");
    QTest::newRow("a value too many")
        << words("set-time 13:05 pm") << QStringLiteral("\"clock set-time\" takes no \"pm\".");
    QTest::newRow("an unknown action")
        << words("settime 13:05")
        << QStringLiteral("\"clock\" knows no \"settime\". The nearest one is \"set-time\".");
    QTest::newRow("an action that is near to none")
        << words("adjust") << QStringLiteral("\"clock\" knows no \"adjust\".");
    QTest::newRow("an unknown option") << words("--utc") << QStringLiteral("Unknown option 'utc'.");
}

void tst_Clock::wrongCommandLinesSetNothing()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    const Outcome outcome = Program::run(QStringList{QStringLiteral("clock")} + arguments);
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors, reason + QStringLiteral("\nTry: ovo-fieldhost clock --help\n"));
    QCOMPARE(m_clock->commands.journal(), QStringList());
}

void tst_Clock::helpNamesEveryExitCode()
{
    const Outcome outcome = Program::run({QStringLiteral("clock"), QStringLiteral("--help")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QVERIFY(outcome.output.startsWith(QLatin1String("Usage: ovo-fieldhost clock [show]\n")));
    const QString codes = outcome.output.mid(outcome.output.indexOf(QLatin1String("Exit codes:")));
    for (int code : {Done, Failed, Usage}) {
        QVERIFY(codes.contains(QStringLiteral("\n  %1  ").arg(code)));
    }
    QVERIFY(!codes.contains(QLatin1String("\n  3  ")));
}

QTEST_GUILESS_MAIN(tst_Clock)

#include "tst_Clock.moc"
