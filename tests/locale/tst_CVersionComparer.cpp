// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CVersionComparer.h"

#include <QTest>

#include <type_traits>

using Tavro::Shared::CVersionComparer;

class tst_CVersionComparer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainClass();
    void versionsAreOrderedByNumber_data();
    void versionsAreOrderedByNumber();
    void invalidVersionsAreNotCompared_data();
    void invalidVersionsAreNotCompared();
};

void tst_CVersionComparer::isAPlainClass()
{
    static_assert(std::is_trivially_default_constructible_v<CVersionComparer>);
    static_assert(std::is_empty_v<CVersionComparer>);
}

void tst_CVersionComparer::versionsAreOrderedByNumber_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, const char *a, const char *b, int expected) {
        QTest::newRow(name) << QString::fromLatin1(a) << QString::fromLatin1(b) << expected;
    };
    row("the same", "2.0.0.1", "2.0.0.1", 0);
    row("ten is more than nine", "1.10.0.0", "1.9.0.0", 1);
    row("first part decides", "2.0.0.0", "1.9.9.9", 1);
    row("second part decides", "1.2.0.0", "1.1.9.9", 1);
    row("third part decides", "1.1.2.0", "1.1.1.9", 1);
    row("fourth part decides", "1.1.1.2", "1.1.1.1", 1);
    row("leading zeros do not count", "01.002.0.0", "1.2.00.0", 0);
    row("negative parts are smaller", "1.0.0.-1", "1.0.0.0", -1);
    row("all 32 bits, with a sign", "2147483647.0.0.0", "-2147483648.0.0.0", 1);
    row("minus one is not the largest", "-1.0.0.0", "1.0.0.0", -1);
    row("letters behind the difference", "1.2.x.4", "1.3.0.0", -1);
    row("empty part behind the difference", "1.2..4", "1.3.0.0", -1);
    row("too large behind the difference", "1.2.0.99999999999", "1.3.0.0", -1);
}

void tst_CVersionComparer::versionsAreOrderedByNumber()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, expected);

    bool ok = false;
    QCOMPARE(CVersionComparer::compare(a, b, ok), expected);
    QVERIFY(ok);

    ok = false;
    QCOMPARE(CVersionComparer::compare(b, a, ok), -expected);
    QVERIFY(ok);
}

void tst_CVersionComparer::invalidVersionsAreNotCompared_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");

    const auto row = [](const char *name, const char *a, const char *b) {
        QTest::newRow(name) << QString::fromLatin1(a) << QString::fromLatin1(b);
    };
    row("three parts", "1.2.3", "1.2.3.4");
    row("three parts on both sides", "1.2.3", "1.2.3");
    row("three parts, but another number in front", "2.0.0", "1.0.0.1");
    row("five parts", "1.2.3.4.5", "1.2.3.4");
    row("five parts, but another number in front", "2.0.0.0.0", "1.0.0.1");
    row("a dot behind", "1.2.3.4.", "1.2.3.4");
    row("a dot in front", ".1.2.3.4", "1.2.3.4");
    row("nothing", "", "1.2.3.4");
    row("nothing on both sides", "", "");
    row("only dots", "...", "1.2.3.4");
    row("only dots on both sides", "...", "...");
    row("letters", "1.2.x.4", "1.2.0.0");
    row("the same letters on both sides", "1.2.x.4", "1.2.x.4");
    row("letters behind a number", "1.2.3b.4", "1.2.3.4");
    row("hexadecimal", "0x1.2.3.4", "1.2.3.4");
    row("a hexadecimal digit", "a.2.3.4", "1.2.3.4");
    row("empty part", "1..3.4", "1.2.3.4");
    row("empty last part", "1.2.3.", "1.2.3.4");
    row("one more than 32 bits", "2147483648.0.0.0", "1.0.0.0");
    row("one less than 32 bits", "-2147483649.0.0.0", "1.0.0.0");
    row("comma", "1,2,3,4", "1.2.3.4");
}

void tst_CVersionComparer::invalidVersionsAreNotCompared()
{
    QFETCH(QString, a);
    QFETCH(QString, b);

    bool ok = true;
    QCOMPARE(CVersionComparer::compare(a, b, ok), 0);
    QVERIFY(!ok);

    ok = true;
    QCOMPARE(CVersionComparer::compare(b, a, ok), 0);
    QVERIFY(!ok);
}

QTEST_APPLESS_MAIN(tst_CVersionComparer)

#include "tst_CVersionComparer.moc"
