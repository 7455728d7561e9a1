// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Width.h"
#include "fieldhost/jobs/Text.h"

#include <QTest>

#include <clocale>

using namespace Tavro::FieldHost;

/** Figures and names as the program prints them. */
class tst_Text : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void bytesAreInBinaryUnits_data();
    void bytesAreInBinaryUnits();
    void ratesAreInMebibytes();
    void clocksAreRoundedUp();
    void durationsAreInWords();
    void nounsFollowTheirNumber();
    void namesAreSafeToShow_data();
    void namesAreSafeToShow();
    void bytesThatAreNotUtf8AreSpelledOut();
    void linesAreCutToColumns_data();
    void linesAreCutToColumns();
};

void tst_Text::initTestCase()
{
    QVERIFY(std::setlocale(LC_CTYPE, "C.UTF-8"));
}

void tst_Text::bytesAreInBinaryUnits_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("none") << qint64(0) << QStringLiteral("0 B");
    QTest::newRow("last of the bytes") << qint64(1023) << QStringLiteral("1023 B");
    QTest::newRow("first of the KiB") << qint64(1024) << QStringLiteral("1.0 KiB");
    QTest::newRow("no 1024.0 KiB") << qint64(1048575) << QStringLiteral("1.0 MiB");
    QTest::newRow("MiB") << qint64(12'900'000) << QStringLiteral("12.3 MiB");
    QTest::newRow("GiB") << (qint64(5) << 30) << QStringLiteral("5.0 GiB");
    QTest::newRow("TiB") << (qint64(3) << 40) << QStringLiteral("3.0 TiB");
    QTest::newRow("EiB") << (qint64(4096) << 50) << QStringLiteral("4.0 EiB");
}

void tst_Text::bytesAreInBinaryUnits()
{
    QFETCH(qint64, bytes);
    QFETCH(QString, text);
    QCOMPARE(formatBytes(bytes), text);
}

void tst_Text::ratesAreInMebibytes()
{
    QCOMPARE(formatRate(0), QStringLiteral("0.00 MiB/s"));
    QCOMPARE(formatRate(512.0 * 1024), QStringLiteral("0.50 MiB/s"));
    QCOMPARE(formatRate(45.24 * 1024 * 1024), QStringLiteral("45.2 MiB/s"));
}

void tst_Text::clocksAreRoundedUp()
{
    QCOMPARE(formatClock(0), QStringLiteral("0:00"));
    QCOMPARE(formatClock(1), QStringLiteral("0:01"));
    QCOMPARE(formatClock(61'000), QStringLiteral("1:01"));
    QCOMPARE(formatClock(3'599'001), QStringLiteral("1:00:00"));
    QCOMPARE(formatClock(36'061'000), QStringLiteral("10:01:01"));
}

void tst_Text::durationsAreInWords()
{
    QCOMPARE(formatDuration(0), QStringLiteral("0.0 s"));
    QCOMPARE(formatDuration(1340), QStringLiteral("1.3 s"));
    QCOMPARE(formatDuration(59'949), QStringLiteral("59.9 s"));
    QCOMPARE(formatDuration(59'950), QStringLiteral("1 min 00 s"));
    QCOMPARE(formatDuration(125'400), QStringLiteral("2 min 05 s"));
    QCOMPARE(formatDuration(3'599'500), QStringLiteral("1 h 00 min"));
    QCOMPARE(formatDuration(3'725'000), QStringLiteral("1 h 02 min"));
}

void tst_Text::nounsFollowTheirNumber()
{
    QCOMPARE(counted(0, QStringLiteral("1 file"), QStringLiteral("%1 files")),
             QStringLiteral("0 files"));
    QCOMPARE(counted(1, QStringLiteral("1 file"), QStringLiteral("%1 files")),
             QStringLiteral("1 file"));
    QCOMPARE(counted(2, QStringLiteral("1 file"), QStringLiteral("%1 files")),
             QStringLiteral("2 files"));
    QCOMPARE(counted(1, QStringLiteral("1 entry"), QStringLiteral("%1 entries")),
             QStringLiteral("1 entry"));
    QCOMPARE(counted(2, QStringLiteral("1 entry"), QStringLiteral("%1 entries")),
             QStringLiteral("2 entries"));
}

void tst_Text::namesAreSafeToShow_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");

    QTest::newRow("blanks stay") << QStringLiteral(" a b ") << QStringLiteral("\" a b \"");
    QTest::newRow("any script stays")
        << QString::fromUtf8("труба 管渠 🚰") << QString::fromUtf8("\"труба 管渠 🚰\"");
    QTest::newRow("a line feed") << QStringLiteral("a\nb") << QStringLiteral("\"a\\x0ab\"");
    QTest::newRow("an escape sequence")
        << QStringLiteral("a\x1b[2J") << QStringLiteral("\"a\\x1b[2J\"");
    QTest::newRow("delete") << QStringLiteral("a\x7f") << QStringLiteral("\"a\\x7f\"");
    QTest::newRow("a C1 control") << QString(QChar(0x9b)) << QStringLiteral("\"\\x9b\"");
    QTest::newRow("a change of direction")
        << QString(QChar(0x202e)) << QStringLiteral("\"\\u202e\"");
    QTest::newRow("an isolated direction")
        << QString(QChar(0x2066)) << QStringLiteral("\"\\u2066\"");
    QTest::newRow("a line separator") << QString(QChar(0x2028)) << QStringLiteral("\"\\u2028\"");
}

void tst_Text::namesAreSafeToShow()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QCOMPARE(quoted(name), text);
    QCOMPARE(quoted(name.toUtf8()), text);
}

void tst_Text::bytesThatAreNotUtf8AreSpelledOut()
{
    QCOMPARE(quoted(QByteArray("a\xff\xc3\xa4z\xc3")), QString::fromUtf8("\"a\\xffäz\\xc3\""));
}

void tst_Text::linesAreCutToColumns_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("text");

    QTest::newRow("it fits") << QStringLiteral("12345") << 5 << QStringLiteral("12345");
    QTest::newRow("one too many") << QStringLiteral("123456") << 5 << QString::fromUtf8("1234…");
    QTest::newRow("wide letters fit")
        << QString::fromUtf8("管渠") << 4 << QString::fromUtf8("管渠");
    QTest::newRow("half a wide letter")
        << QString::fromUtf8("管渠") << 3 << QString::fromUtf8("管…");
    QTest::newRow("letters with accents of their own")
        << QString::fromUtf8("e\u0301e\u0301e\u0301") << 3
        << QString::fromUtf8("e\u0301e\u0301e\u0301");
    QTest::newRow("a pair of code units")
        << QString::fromUtf8("🚰🚰") << 3 << QString::fromUtf8("🚰…");
    QTest::newRow("no room at all") << QStringLiteral("12") << 0 << QString();
}

void tst_Text::linesAreCutToColumns()
{
    QFETCH(QString, line);
    QFETCH(int, columns);
    QFETCH(QString, text);
    QCOMPARE(fitToColumns(line, columns), text);
}

QTEST_APPLESS_MAIN(tst_Text)

#include "tst_Text.moc"
