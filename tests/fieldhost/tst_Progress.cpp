// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/ProgressLine.h"
#include "fieldhost/jobs/Progress.h"

#include <QTest>

using Tavro::FieldHost::Progress;

namespace {
constexpr qint64 s_mebi = 1 << 20;
}

/** The progress of a copy in words, by a clock of the test's own. */
class tst_Progress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void beginsWithoutARate();
    void aForecastNeedsBytes_data();
    void aForecastNeedsBytes();
    void rateAndTimeLeftFollowTheLastSeconds();
    void aStandstillHasNoTimeLeft();
    void pausesAreNoTimeOfTheCopy();
    void aGrowingSourceStaysAtHundredPercent();
    void nothingToCopyIsAllCopied();
    void aRestartForgetsTheCopyBefore();
    void percentAndTimeStayInANarrowLine_data();
    void percentAndTimeStayInANarrowLine();

private:
    QString text() const
    {
        return Tavro::FieldHost::progressLine(m_progress, QStringLiteral("directory"), {}, 0);
    }

    qint64 m_now = 0;
    Progress m_progress{[this] { return m_now; }};
};

void tst_Progress::init()
{
    m_now = 1'000'000;
    m_progress.start(100 * s_mebi);
}

void tst_Progress::beginsWithoutARate()
{
    m_now += 400;
    m_progress.update(4 * s_mebi);
    QCOMPARE(text(), QStringLiteral("4.0 MiB of 100.0 MiB  4 %"));
}

void tst_Progress::aForecastNeedsBytes_data()
{
    QTest::addColumn<qint64>("total");
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("line");

    QTest::newRow("small files first")
        << 375 * s_mebi << qint64(5000) << QStringLiteral("4.9 KiB of 375.0 MiB  0 %");
    QTest::newRow("nearly a hundredth")
        << 100 * s_mebi << s_mebi - 1 << QStringLiteral("1.0 MiB of 100.0 MiB  0 %");
    QTest::newRow("a hundredth") << 100 * s_mebi << s_mebi
                                 << QStringLiteral(
                                        "1.0 MiB of 100.0 MiB  1 %  1.00 MiB/s  1:39 left");
    QTest::newRow("nearly a chunk of a large copy")
        << 2000 * s_mebi << 4 * s_mebi - 1 << QStringLiteral("4.0 MiB of 2.0 GiB  0 %");
    QTest::newRow("a chunk of a large copy")
        << 2000 * s_mebi << 4 * s_mebi
        << QStringLiteral("4.0 MiB of 2.0 GiB  0 %  4.00 MiB/s  8:19 left");
}

void tst_Progress::aForecastNeedsBytes()
{
    QFETCH(qint64, total);
    QFETCH(qint64, bytes);
    m_progress.start(total);
    m_now += 1000;
    m_progress.update(bytes);
    QTEST(text(), "line");
}

void tst_Progress::rateAndTimeLeftFollowTheLastSeconds()
{
    m_now += 1000;
    m_progress.update(20 * s_mebi);
    QCOMPARE(text(), QStringLiteral("20.0 MiB of 100.0 MiB  20 %  20.0 MiB/s  0:04 left"));
    // slower from now on, and after more than five seconds the beginning does not count
    for (int second = 1; second <= 7; ++second) {
        m_now += 1000;
        m_progress.update((20 + second) * s_mebi);
    }
    QCOMPARE(text(), QStringLiteral("27.0 MiB of 100.0 MiB  27 %  1.00 MiB/s  1:13 left"));
}

void tst_Progress::aStandstillHasNoTimeLeft()
{
    m_now += 2000;
    m_progress.update(0);
    QCOMPARE(text(), QStringLiteral("0 B of 100.0 MiB  0 %"));
}

void tst_Progress::pausesAreNoTimeOfTheCopy()
{
    m_now += 1000;
    m_progress.update(10 * s_mebi);
    m_progress.pause();
    m_now += 60'000;
    QCOMPARE(m_progress.elapsed(), qint64(1000));
    QCOMPARE(text(), QStringLiteral("10.0 MiB of 100.0 MiB  10 %"));
    m_progress.resume();
    m_now += 1000;
    m_progress.update(20 * s_mebi);
    QCOMPARE(m_progress.elapsed(), qint64(2000));
    QCOMPARE(text(), QStringLiteral("20.0 MiB of 100.0 MiB  20 %  10.0 MiB/s  0:08 left"));
}

void tst_Progress::aGrowingSourceStaysAtHundredPercent()
{
    m_now += 1000;
    m_progress.update(110 * s_mebi);
    QCOMPARE(text(), QStringLiteral("110.0 MiB of 100.0 MiB  100 %  110.0 MiB/s"));
}

void tst_Progress::nothingToCopyIsAllCopied()
{
    m_progress.start(0);
    QCOMPARE(text(), QStringLiteral("0 B of 0 B  100 %"));
}

void tst_Progress::aRestartForgetsTheCopyBefore()
{
    m_now += 1000;
    m_progress.update(50 * s_mebi);
    m_progress.start(10 * s_mebi);
    QCOMPARE(m_progress.elapsed(), qint64(0));
    QCOMPARE(text(), QStringLiteral("0 B of 10.0 MiB  0 %"));
}

void tst_Progress::percentAndTimeStayInANarrowLine_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("line");

    QTest::newRow("room for all")
        << 100
        << QStringLiteral("a directory of some thirty-on…  20.0 MiB of 100.0 MiB  20 %  "
                          "20.0 MiB/s  0:04 left");
    QTest::newRow("80 columns") << 79
                                << QStringLiteral(
                                       "a directory of some thirty…  20.0 MiB of 100.0 MiB  20 %  "
                                       "20.0 MiB/s  0:04 left");
    QTest::newRow("no room for the directory")
        << 55 << QStringLiteral("20.0 MiB of 100.0 MiB  20 %  20.0 MiB/s  0:04 left");
    QTest::newRow("40 columns") << 39 << QStringLiteral("20.0 MiB of 100.0 MiB  20 %  0:04 left");
    QTest::newRow("30 columns") << 29 << QStringLiteral("a directory…  20 %  0:04 left");
}

void tst_Progress::percentAndTimeStayInANarrowLine()
{
    QFETCH(int, columns);
    m_now += 1000;
    m_progress.update(20 * s_mebi);
    const QString line = Tavro::FieldHost::progressLine(
        m_progress, QStringLiteral("a directory of some thirty-one letters"), {}, columns);
    QTEST(line, "line");
}

QTEST_APPLESS_MAIN(tst_Progress)

#include "tst_Progress.moc"
