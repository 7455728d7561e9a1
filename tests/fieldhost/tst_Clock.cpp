#include "tests/fieldhost/Program.h"
#include "tests/support/FakeCommands.h"

#include <QDateTime>
#include <QScopedPointer>
#include <QTest>

using namespace Test;

namespace {
enum Exit { Done = 0, Failed = 1, Usage = 2 };
}

/** `ovo-fieldhost clock`, with a "date" and a "hwclock" that touch no clock. */
class tst_Clock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_commands.reset(); }

    void showsLocalDateAndTime_data();
    void showsLocalDateAndTime();
    void setsTheDate();
    void setsTheTime_data();
    void setsTheTime();
    void failureIsSaid_data();
    void failureIsSaid();
    void aMissingRightIsNamed();
    void wrongCommandLinesSetNothing_data();
    void wrongCommandLinesSetNothing();
    void helpNamesEveryExitCode();

private:
    QScopedPointer<FakeCommands> m_commands;
};

void tst_Clock::init()
{
    m_commands.reset(new FakeCommands);
    m_commands->hideOthers();
    m_commands->add(QStringLiteral("date"));
    m_commands->add(QStringLiteral("hwclock"));
}

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
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TZ"), QStringLiteral("EAST-5"));
    program.setProcessEnvironment(environment);
    // the clock that stands in Greenwich, moved by hand
    const auto inTheEast = [] { return QDateTime::currentDateTimeUtc().addSecs(qint64(5) * 3600); };
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
    QCOMPARE(m_commands->journal(), QStringList());
}

void tst_Clock::setsTheDate()
{
    const Outcome outcome = Program::run(
        {QStringLiteral("clock"), QStringLiteral("set-date"), QStringLiteral("2031-02-03")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QVERIFY(outcome.output.startsWith(QLatin1String("The clock is set.\ndate  ")));
    QCOMPARE(m_commands->journal().size(), 2);
    QVERIFY(m_commands->journal().at(0).startsWith(QLatin1String("date -u -s 2031-02-03 ")));
    QCOMPARE(m_commands->journal().at(1), QStringLiteral("hwclock --systohc --utc"));
}

void tst_Clock::setsTheTime_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("sent");

    QTest::newRow("with seconds") << QStringLiteral("13:05:30") << QStringLiteral("13:05:30");
    QTest::newRow("without") << QStringLiteral("07:05") << QStringLiteral("07:05:00");
    QTest::newRow("midnight") << QStringLiteral("00:00") << QStringLiteral("00:00:00");
}

void tst_Clock::setsTheTime()
{
    QFETCH(QString, typed);
    QFETCH(QString, sent);

    const Outcome outcome =
        Program::run({QStringLiteral("clock"), QStringLiteral("set-time"), typed});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(m_commands->journal(),
             (QStringList{QStringLiteral("date -u -s ") + sent,
                          QStringLiteral("hwclock --systohc --utc")}));
}

void tst_Clock::failureIsSaid_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("line");

    QTest::newRow("of the system's clock")
        << QStringLiteral("date") << QStringLiteral("date -u -s 13:05:00");
    QTest::newRow("of the hardware's clock")
        << QStringLiteral("hwclock") << QStringLiteral("hwclock --systohc --utc");
}

void tst_Clock::failureIsSaid()
{
    QFETCH(QString, failing);
    QFETCH(QString, line);

    m_commands->add(failing, "exit 1");
    const Outcome outcome = Program::run(
        {QStringLiteral("clock"), QStringLiteral("set-time"), QStringLiteral("13:05")});
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output, QString());
    QVERIFY(outcome.errors.contains(QStringLiteral("System command <%1> - ").arg(line)));
    QVERIFY(outcome.errors.endsWith(
        QLatin1String("\nThe clock is not set, or not both clocks are.\n")));
}

void tst_Clock::aMissingRightIsNamed()
{
    m_commands->add(QStringLiteral("date"), "exit 1");
    Program program;
    program.dropRights();
    program.begin({QStringLiteral("clock"), QStringLiteral("set-time"), QStringLiteral("13:05")});
    const Outcome outcome = program.end();
    if (outcome.exitCode == Program::cannotDropRights) {
        QSKIP("the rights of root cannot be given up here");
    }
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(outcome.errors.contains(QLatin1String(
                 "\nSetting a clock needs the rights of root, or the capability CAP_SYS_TIME.\n")),
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
    QTest::newRow("a day before all time")
        << words("set-date 1969-12-31")
        << QStringLiteral("\"1969-12-31\" is before 1970, when the system's time begins.");
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
    QCOMPARE(m_commands->journal(), QStringList());
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
