// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/clipinfo/detail/SampleText.h"

#include <QTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using Tavro::Shared::detail::sampleText;

namespace {

using Limits = std::numeric_limits<double>;

// the peer: slower, and what the files have always been written with
QString expectedText(double time, double distance, int code, double pan, double tilt)
{
    QStringList fields;
    for (const double number : {time, distance}) {
        fields.append(QString::number(number, 'f', 3));
    }
    fields.append(QString::number(code));
    for (const double number : {pan, tilt}) {
        fields.append(QString::number(number, 'f', 3));
    }
    return fields.join(QLatin1Char(';'));
}

} // namespace

class tst_SampleText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsStandInOrder();
    void numbersAreThoseOfQString_data();
    void numbersAreThoseOfQString();
    void anyNumbersAreThoseOfQString();
};

void tst_SampleText::fieldsStandInOrder()
{
    QCOMPARE(sampleText(12.48, 3.215, 0, -45.0, 10.5),
             QStringLiteral("12.480;3.215;0;-45.000;10.500"));
    QCOMPARE(sampleText(1, 2, std::numeric_limits<int>::min(), 4, 5),
             QStringLiteral("1.000;2.000;-2147483648;4.000;5.000"));
}

void tst_SampleText::numbersAreThoseOfQString_data()
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
    QTest::newRow("largest without help") << std::nextafter(1e15, 0.0) << "999999999999999.875";
    QTest::newRow("large") << -1e15 << "-1000000000000000.000";
    QTest::newRow("infinite") << Limits::infinity() << "inf";
    QTest::newRow("infinite below zero") << -Limits::infinity() << "-inf";
    QTest::newRow("not a number") << Limits::quiet_NaN() << "nan";
}

void tst_SampleText::numbersAreThoseOfQString()
{
    QFETCH(double, number);
    QFETCH(QString, text);
    QCOMPARE(QString::number(number, 'f', 3), text);
    QCOMPARE(sampleText(number, number, 7, number, number),
             QStringLiteral("%1;%1;7;%1;%1").arg(text));
}

void tst_SampleText::anyNumbersAreThoseOfQString()
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
        QCOMPARE(sampleText(time, distance, i, pan, tilt),
                 expectedText(time, distance, i, pan, tilt));
    }
}

QTEST_GUILESS_MAIN(tst_SampleText)

#include "tst_SampleText.moc"
