// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/system/SetBothClocks.h"

#include "tests/support/ShownCode.h"
#include "tests/support/TestClock.h"

#include <QTest>

/** The function that the documentation shows. */
class tst_SetBothClocks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePageShowsIt();
    void bothClocksCount_data();
    void bothClocksCount();
};

void tst_SetBothClocks::thePageShowsIt()
{
    QVERIFY(Test::showsCode(QStringLiteral(OVO_PAGE), QStringLiteral(OVO_FUNCTION)));
}

void tst_SetBothClocks::bothClocksCount_data()
{
    QTest::addColumn<int>("days"); // from now; the system clock stays as it is
    QTest::addColumn<QByteArray>("hwclock"); // null: sets the hardware clock to that of the system
    QTest::addColumn<bool>("areSet");

    QTest::newRow("both") << 0 << QByteArray() << true;
    QTest::newRow("date has no effect") << 1 << QByteArray() << false;
    QTest::newRow("hwclock has no effect") << 0 << QByteArray("exit 0") << false;
    QTest::newRow("hwclock fails after its work")
        << 0
        << QByteArray("/bin/date +%s > \"$UMOCKDEV_DIR/sys/class/rtc/rtc0/since_epoch\"; exit 1")
        << false;
}

void tst_SetBothClocks::bothClocksCount()
{
    QFETCH(int, days);
    QFETCH(QByteArray, hwclock);
    Test::TestClock clock;
    if (!hwclock.isNull()) {
        clock.commands.add(QStringLiteral("hwclock"), hwclock);
    }
    QTEST(setBothClocks(QDateTime::currentDateTimeUtc().addDays(days)), "areSet");
}

QTEST_GUILESS_MAIN(tst_SetBothClocks)

#include "tst_SetBothClocks.moc"
