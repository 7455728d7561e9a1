// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/clipinfo/detail/SampleLines.h"

#include <QTest>
#include <QTextStream>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using Tavro::Shared::detail::SampleLines;

namespace {

using Limits = std::numeric_limits<double>;

QString written(const SampleLines &lines)
{
    QString text;
    QTextStream out(&text);
    lines.write(out);
    return text;
}

QString line(qint32 number, double time, double distance, int code, double pan, double tilt)
{
    SampleLines lines;
    lines.append(number, time, distance, code, pan, tilt);
    return written(lines);
}

// the peer: slower, and what the files have always been written with
QString expectedLine(qint32 number, double time, double distance, int code, double pan, double tilt)
{
    QStringList fields;
    for (const double value : {time, distance}) {
        fields.append(QString::number(value, 'f', 3));
    }
    fields.append(QString::number(code));
    for (const double value : {pan, tilt}) {
        fields.append(QString::number(value, 'f', 3));
    }
    return QStringLiteral("Val%1=%2\n")
        .arg(number, 5, 10, QLatin1Char('0'))
        .arg(fields.join(QLatin1Char(';')));
}

} // namespace

class tst_SampleLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutSamplesNothingIsWritten();
    void fieldsStandInOrder();
    void keysAreThoseOfQString_data();
    void keysAreThoseOfQString();
    void keysSortAsTexts();
    void aLaterSampleReplacesThoseOfItsKey();
    void numbersAreThoseOfQString_data();
    void numbersAreThoseOfQString();
    void anyNumbersAreThoseOfQString();
    void theLongestLineIsWritten();
    void clearingDropsTheSamples();
};

void tst_SampleLines::withoutSamplesNothingIsWritten()
{
    QCOMPARE(written(SampleLines()), QString());
}

void tst_SampleLines::fieldsStandInOrder()
{
    QCOMPARE(line(7, 12.48, 3.215, 0, -45.0, 10.5),
             QStringLiteral("Val00007=12.480;3.215;0;-45.000;10.500\n"));
    QCOMPARE(line(7, 1, 2, std::numeric_limits<int>::min(), 4, 5),
             QStringLiteral("Val00007=1.000;2.000;-2147483648;4.000;5.000\n"));
}

void tst_SampleLines::keysAreThoseOfQString_data()
{
    QTest::addColumn<qint32>("number");
    QTest::addColumn<QString>("key");

    const auto row = [](qint32 number, const char *key) {
        QTest::newRow(key) << number << QString::fromLatin1(key);
    };
    row(0, "Val00000");
    row(10, "Val00010");
    row(99999, "Val99999");
    row(100000, "Val100000");
    row(std::numeric_limits<qint32>::max(), "Val2147483647");
    row(-1, "Val-0001");
    row(-9999, "Val-9999");
    row(-10000, "Val-10000");
    row(std::numeric_limits<qint32>::min(), "Val-2147483648");
}

void tst_SampleLines::keysAreThoseOfQString()
{
    QFETCH(qint32, number);
    QFETCH(QString, key);
    QCOMPARE(QStringLiteral("Val%1").arg(number, 5, 10, QLatin1Char('0')), key);
    QCOMPARE(line(number, 0, 0, 0, 0, 0), key + QStringLiteral("=0.000;0.000;0;0.000;0.000\n"));
}

void tst_SampleLines::keysSortAsTexts()
{
    SampleLines lines;
    for (const qint32 number : {99999, 10000, 100000, 10001, 1000000, 9999, -1, 2, -20000}) {
        lines.append(number, 0, 0, 0, 0, 0);
    }
    QStringList keys;
    const QStringList all = written(lines).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &each : all) {
        keys += each.section(QLatin1Char('='), 0, 0);
    }
    QCOMPARE(keys.join(QLatin1Char(' ')),
             QStringLiteral("Val-0001 Val-20000 Val00002 Val09999 Val10000 Val100000 Val1000000"
                            " Val10001 Val99999"));
}

void tst_SampleLines::aLaterSampleReplacesThoseOfItsKey()
{
    SampleLines lines;
    // the value decides nothing, neither as a number nor as a text
    for (const double time : {1, 2, 3, 4, 6, 7, 8, 9, 5}) {
        for (const qint32 number : {2, 1, 3, 100000, 10000}) {
            lines.append(number, time, 0, 0, 0, 0);
        }
    }
    lines.append(2, 4, 0, 0, 0, 0);
    QCOMPARE(written(lines),
             QStringLiteral("Val00001=5.000;0.000;0;0.000;0.000\n"
                            "Val00002=4.000;0.000;0;0.000;0.000\n"
                            "Val00003=5.000;0.000;0;0.000;0.000\n"
                            "Val10000=5.000;0.000;0;0.000;0.000\n"
                            "Val100000=5.000;0.000;0;0.000;0.000\n"));
}

void tst_SampleLines::numbersAreThoseOfQString_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("zero") << 0.0 << "0.000";
    QTest::newRow("zero with a sign") << -0.0 << "0.000";
    QTest::newRow("less than shows") << 0.0004 << "0.000";
    QTest::newRow("less than shows, below zero") << -0.0004 << "-0.000";
    QTest::newRow("halfway") << 0.0625 << "0.063";
    QTest::newRow("halfway, odd digit before") << 0.1875 << "0.188";
    QTest::newRow("halfway below zero") << -0.0625 << "-0.063";
    QTest::newRow("halfway, large") << 7036874417766.0625 << "7036874417766.063";
    QTest::newRow("a little less than halfway") << std::nextafter(0.0625, 0.0) << "0.062";
    QTest::newRow("a little more than halfway") << std::nextafter(0.0625, 1.0) << "0.063";
    QTest::newRow("an eighth, exactly") << 0.125 << "0.125";
    QTest::newRow("carries to the next digit") << 9.9996 << "10.000";
    QTest::newRow("least") << Limits::denorm_min() << "0.000";
    QTest::newRow("halfway, to the next digit") << 0.9995 << "1.000";
    QTest::newRow("rounded to halfway, but less") << 1.0005 << "1.000";
    QTest::newRow("rounded to halfway, but more") << 1.0015 << "1.002";
    QTest::newRow("largest without help") << 3999999.998 << "3999999.998";
    QTest::newRow("32 bits, in thousandths") << 4294967.295 << "4294967.295";
    QTest::newRow("more than 32 bits") << 4294967.296 << "4294967.296";
    QTest::newRow("larger") << std::nextafter(1e15, 0.0) << "999999999999999.875";
    QTest::newRow("large") << -1e15 << "-1000000000000000.000";
    QTest::newRow("infinite") << Limits::infinity() << "inf";
    QTest::newRow("infinite below zero") << -Limits::infinity() << "-inf";
    QTest::newRow("not a number") << Limits::quiet_NaN() << "nan";
}

void tst_SampleLines::numbersAreThoseOfQString()
{
    QFETCH(double, number);
    QFETCH(QString, text);
    QCOMPARE(QString::number(number, 'f', 3), text);
    QCOMPARE(line(1, number, number, 7, number, number),
             QStringLiteral("Val00001=%1;%1;7;%1;%1\n").arg(text));
}

void tst_SampleLines::anyNumbersAreThoseOfQString()
{
    std::mt19937_64 random(20260331);
    const auto bits = [&random] {
        const quint64 pattern = random();
        double number = 0;
        std::memcpy(&number, &pattern, sizeof number);
        return number;
    };
    const auto thousandths = [&random] { return static_cast<double>(random() % 1000000) / 1000; };
    const auto sixteenths = [&random] { return static_cast<double>(random() % 1000000) / 16; };
    for (int i = 0; i < 10000; ++i) {
        const double time = thousandths();
        const double distance = -sixteenths();
        const double pan = thousandths() / 10 - 50;
        const double tilt = bits();
        QCOMPARE(line(i, time, distance, i, pan, tilt),
                 expectedLine(i, time, distance, i, pan, tilt));
        const double halfway = time + 0.0005; // or beside it
        QCOMPARE(line(-i, halfway, -halfway, -i, std::nextafter(halfway, 0.0), 0),
                 expectedLine(-i, halfway, -halfway, -i, std::nextafter(halfway, 0.0), 0));
    }
}

void tst_SampleLines::theLongestLineIsWritten()
{
    const qint32 number = std::numeric_limits<qint32>::min();
    const double longest = -Limits::max();
    QCOMPARE(line(number, longest, longest, number, longest, longest),
             expectedLine(number, longest, longest, number, longest, longest));
}

void tst_SampleLines::clearingDropsTheSamples()
{
    SampleLines lines;
    lines.append(1, 1, 1, 1, 1, 1);
    lines.clear();
    QCOMPARE(written(lines), QString());
    lines.append(2, 2, 2, 2, 2, 2);
    QCOMPARE(written(lines), QStringLiteral("Val00002=2.000;2.000;2;2.000;2.000\n"));
}

QTEST_GUILESS_MAIN(tst_SampleLines)

#include "tst_SampleLines.moc"
