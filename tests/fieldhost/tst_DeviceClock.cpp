// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/DeviceClock.h"
#include "tests/support/TestClock.h"

#include <QTest>

#include <climits>
#include <memory>

using namespace Tavro::FieldHost;
using Test::TestClock;

/** What setClocks() says of two clocks, neither of which is the machine's to set. */
class tst_DeviceClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_clock = std::make_unique<TestClock>(); }
    void cleanup() { m_clock.reset(); }

    void bothClocksAreSet_data();
    void bothClocksAreSet();
    void bothClocksAreReadBack_data();
    void bothClocksAreReadBack();
    void whatAClockCannotHoldIsRefused_data();
    void whatAClockCannotHoldIsRefused();
    void systemTimeEndsWithItsType();

private:
    std::unique_ptr<TestClock> m_clock;
};

void tst_DeviceClock::initTestCase()
{
    QCOMPARE(QDateTime::currentDateTime().offsetFromUtc(), 0);
}

void tst_DeviceClock::bothClocksAreSet_data()
{
    QTest::addColumn<bool>("setsDate");
    QTest::addColumn<bool>("setsTime");

    QTest::newRow("date") << true << false;
    QTest::newRow("time") << false << true;
    QTest::newRow("date and time") << true << true;
}

void tst_DeviceClock::bothClocksAreSet()
{
    QFETCH(bool, setsDate);
    QFETCH(bool, setsTime);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const ClockResult result =
        setClocks(setsDate ? now.date() : QDate(), setsTime ? now.time() : QTime());
    QCOMPARE(result.sentences, QStringLiteral("The clock is set."));
    QVERIFY(result.isSet);
    const QStringList journal = m_clock->commands.journal();
    QCOMPARE(journal.size(), 2);
    QVERIFY2(journal.first().startsWith(QStringLiteral("date -u -s ")
                                        + now.date().toString(Qt::ISODate) + QLatin1Char(' ')),
             qPrintable(journal.first()));
    QVERIFY(!setsTime || journal.first().endsWith(now.time().toString(QStringLiteral("hh:mm:ss"))));
    QCOMPARE(journal.last(), QStringLiteral("hwclock --systohc --utc"));
}

void tst_DeviceClock::bothClocksAreReadBack_data()
{
    QTest::addColumn<int>("daysAhead"); // of what the system clock goes on to show
    QTest::addColumn<QByteArray>("date");
    QTest::addColumn<QByteArray>("hwclock"); // null: sets the hardware clock to that of the system
    QTest::addColumn<bool>("hasHardwareClock");
    QTest::addColumn<QString>("sentences"); // %1: the time

    const QString beginning = QStringLiteral("it shows 1970-01-02 00:00:00 UTC");
    const QString systemOnly =
        QStringLiteral("The system clock is set, the hardware clock is not: %1. The time may be "
                       "wrong after the next start.");
    const QString notSet = QStringLiteral("The clock is not set: it shows %1.");
    const QByteArray works("");
    const QByteArray copies;
    QTest::newRow("hwclock has no effect")
        << 0 << works << works << true << systemOnly.arg(beginning);
    QTest::newRow("hwclock fails")
        << 0 << works << QByteArray("exit 1") << true << systemOnly.arg(beginning);
    QTest::newRow("no hardware clock") << 0 << works << QByteArray("exit 1") << false
                                       << systemOnly.arg(QStringLiteral("it cannot be read"));
    QTest::newRow("date has no effect") << 1 << works << copies << true << notSet;
    QTest::newRow("date fails") << 1 << QByteArray("exit 1") << copies << true << notSet;
    QTest::newRow("date fails at the time that it is")
        << 0 << QByteArray("exit 1") << copies << true << systemOnly.arg(beginning);
    QTest::newRow("hwclock fails after its work")
        << 0 << works
        << QByteArray("/bin/date +%s > \"$UMOCKDEV_DIR/sys/class/rtc/rtc0/since_epoch\"; exit 1")
        << true
        << QStringLiteral("A command has failed, although the system clock and the hardware clock "
                          "show the time that was to be set.");
    QTest::newRow("the hardware clock alone")
        << 1 << works
        << QByteArray("/bin/date -d tomorrow +%s > "
                      "\"$UMOCKDEV_DIR/sys/class/rtc/rtc0/since_epoch\"")
        << true
        << QStringLiteral("The hardware clock is set, the system clock is not: it shows %1.");
}

void tst_DeviceClock::bothClocksAreReadBack()
{
    QFETCH(int, daysAhead);
    QFETCH(QByteArray, date);
    QFETCH(QByteArray, hwclock);
    QFETCH(bool, hasHardwareClock);
    QFETCH(QString, sentences);

    m_clock->commands.add(QStringLiteral("date"), date);
    if (!hwclock.isNull()) {
        m_clock->commands.add(QStringLiteral("hwclock"), hwclock);
    }
    if (!hasHardwareClock) {
        m_clock->remove();
    }
    const auto inWords = [](const QDateTime &moment) {
        return moment.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss 'UTC'"));
    };
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const ClockResult result = setClocks(before.date().addDays(daysAhead), before.time());
    const QDateTime after = QDateTime::currentDateTimeUtc();
    QVERIFY(!result.isSet);
    // the rights are those of whoever runs the test
    const QString said = result.sentences.section(QStringLiteral(" Setting a clock needs "), 0, 0);
    bool isSaid = said == sentences;
    for (QDateTime now = before; now <= after.addSecs(1); now = now.addSecs(1)) {
        isSaid = isSaid || said == sentences.arg(inWords(now));
    }
    QVERIFY2(isSaid, qPrintable(result.sentences));
}

void tst_DeviceClock::whatAClockCannotHoldIsRefused_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<bool>("endsEarly");
    QTest::addColumn<QString>("sentence");

    const QString last =
        lastMomentOfSystem(CHAR_BIT * sizeof(long)).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    QTest::newRow("before the system clock's time")
        << QDate(1969, 12, 31) << false
        << QStringLiteral("1969-12-31 06:00:00 UTC is before 1970-01-01 00:00:00 UTC, with which "
                          "the time of the system clock begins. No clock was changed.");
    QTest::newRow("after it")
        << QDate(9999, 1, 1) << false
        << QStringLiteral("9999-01-01 06:00:00 UTC is after %1 UTC, with which the time of the "
                          "system clock ends. No clock was changed.")
               .arg(last);
    QTest::newRow("before the hardware clock's time")
        << QDate(1970, 1, 1) << true
        << QStringLiteral("1970-01-01 06:00:00 UTC is before 1970-01-01 12:00:00 UTC, with which "
                          "the time of the hardware clock begins. No clock was changed.");
    QTest::newRow("after that")
        << QDate(2036, 2, 8) << true
        << QStringLiteral("2036-02-08 06:00:00 UTC is after 2036-02-07 06:28:15 UTC, with which "
                          "the time of the hardware clock ends. No clock was changed.");
}

void tst_DeviceClock::whatAClockCannotHoldIsRefused()
{
    QFETCH(QDate, date);
    QFETCH(bool, endsEarly);
    QFETCH(QString, sentence);

    if (endsEarly) {
        m_clock->endEarly();
    }
    const ClockResult result = setClocks(date, QTime(6, 0));
    QVERIFY(!result.isSet);
    QCOMPARE(result.sentences, sentence);
    QCOMPARE(m_clock->commands.journal(), QStringList());
    // the last one that it can hold
    setClocks(QDate(2036, 2, 7), QTime(6, 0));
    QCOMPARE(m_clock->commands.journal().size(), 2);
}

void tst_DeviceClock::systemTimeEndsWithItsType()
{
    QCOMPARE(lastMomentOfSystem(32), QDateTime(QDate(2038, 1, 19), QTime(3, 14, 7), Qt::UTC));
    // as clock_settime() has it in Linux
    QCOMPARE(lastMomentOfSystem(64).toSecsSinceEpoch(), Q_INT64_C(8'277'292'035));
}

QTEST_GUILESS_MAIN(tst_DeviceClock)

#include "tst_DeviceClock.moc"
