// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/DoubleFormater.h"

#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <atomic>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <thread>
#include <type_traits>
#include <vector>

#include <locale.h>

using Tavro::Shared::DoubleFormater;

namespace {

using Limits = std::numeric_limits<double>;

struct Picture
{
    const char *text;
    int width;
    int decimals;
};

constexpr std::array<Picture, 5> s_pictures = {{
    {"0", 1, 0},
    {"00", 2, 0},
    {"0.00", 3, 2},
    {"00.00", 5, 2},
    {"00.000", 6, 3},
}};

// for what QLocale calls German, the C library needs a name and a folder
constexpr auto s_commaLocale = "de_DE.UTF-8";

/** What the C library's printf makes of @p value, in the "C" locale whatever is set. */
QString printed(double value, const Picture &picture)
{
    const locale_t c = ::newlocale(LC_ALL_MASK, "C", nullptr);
    const locale_t before = ::uselocale(c);
    std::array<char, 512> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%0*.*f", picture.width, picture.decimals, value);
    ::uselocale(before);
    ::freelocale(c);
    return QString::fromLatin1(buffer.data());
}

QVector<double> values()
{
    QVector<double> list = {
        0.0,
        -0.0,
        0.5,
        1.5,
        2.5,
        6.5,
        7.5,
        9.5,
        99.5,
        0.125,
        0.375,
        0.625,
        2.675,
        1.005,
        0.0625,
        0.0005,
        0.0015,
        0.00049999999999999,
        9.994,
        9.995,
        9.996,
        99.99499,
        99.995,
        99.9995,
        -0.4,
        -0.5,
        -0.004,
        -0.005,
        -6.5,
        -7.5,
        -99.995,
        1.0 / 3,
        123456.789,
        1e15 + 0.5,
        1e17,
        1e22,
        1e23,
        1e308,
        -1e308,
        1e-300,
        -1e-300,
        9007199254740993.0,
        Limits::max(),
        Limits::lowest(),
        Limits::min(),
        Limits::denorm_min(),
        -Limits::denorm_min(),
        Limits::infinity(),
        -Limits::infinity(),
        Limits::quiet_NaN(),
        -Limits::quiet_NaN(),
    };
    // halves, and what lies next to them
    for (int i = 0; i < 1000; ++i) {
        const double half = (i * 7 - 3500 + 0.5) / 1000;
        list << half << std::nextafter(half, 1e9) << std::nextafter(half, -1e9);
    }
    return list;
}

/** A locale of the C library with a decimal comma, made for the test, and set while it lives. */
class CommaLocale
{
public:
    CommaLocale()
        : m_before(std::setlocale(LC_ALL, nullptr))
        , m_pathBefore(qgetenv("LOCPATH"))
    {
        QProcess localedef;
        localedef.start(QStringLiteral("localedef"),
                        {QStringLiteral("--no-archive"), QStringLiteral("-i"),
                         QStringLiteral("de_DE"), QStringLiteral("-f"), QStringLiteral("UTF-8"),
                         m_folder.filePath(QString::fromLatin1(s_commaLocale))});
        if (localedef.waitForFinished(60000)) {
            m_problem = localedef.readAllStandardError();
        } else {
            m_problem = localedef.errorString().toLocal8Bit();
        }
        qputenv("LOCPATH", m_folder.path().toLocal8Bit());
        m_isSet = std::setlocale(LC_ALL, s_commaLocale) != nullptr;
    }

    ~CommaLocale()
    {
        std::setlocale(LC_ALL, m_before.constData());
        if (m_pathBefore.isNull()) {
            qunsetenv("LOCPATH");
        } else {
            qputenv("LOCPATH", m_pathBefore);
        }
    }

    CommaLocale(const CommaLocale &) = delete;
    CommaLocale &operator=(const CommaLocale &) = delete;

    bool isSet() const { return m_isSet; }
    const QByteArray &problem() const { return m_problem; }

private:
    QTemporaryDir m_folder;
    QByteArray m_before;
    QByteArray m_pathBefore;
    QByteArray m_problem;
    bool m_isSet = false;
};

} // namespace

class tst_DoubleFormater : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainClass();
    void pictures_data();
    void pictures();
    void picturesAreAsTheLibraryPrintsThem();
    void otherFormats_data();
    void otherFormats();
    void textsAreReadAndFormatted_data();
    void textsAreReadAndFormatted();
    void trimmed_data();
    void trimmed();
    void localeOfTheToolkitDoesNotMatter();
    void localeOfTheLibraryDoesNotMatter();
    void threadsDoNotDisturbEachOther();
};

void tst_DoubleFormater::isAPlainClass()
{
    static_assert(std::is_trivially_default_constructible_v<DoubleFormater>);
    static_assert(std::is_empty_v<DoubleFormater>);
}

void tst_DoubleFormater::pictures_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QStringList>("expected"); // in the order of the pictures

    const auto row = [](const char *name, double value, const char *expected) {
        QTest::newRow(name) << value << QString::fromLatin1(expected).split(QLatin1Char('|'));
    };
    row("7.5", 7.5, "8|08|7.50|07.50|07.500");
    row("a half goes to the even neighbour", 6.5, "6|06|6.50|06.50|06.500");
    row("a half of the second decimal", 0.125, "0|00|0.12|00.12|00.125");
    row("a half of the second decimal, upwards", 0.375, "0|00|0.38|00.38|00.375");
    row("a half of the third decimal", 0.0625, "0|00|0.06|00.06|00.062");
    row("a half that is less, exactly", 2.675, "3|03|2.67|02.67|02.675");
    row("zero", 0, "0|00|0.00|00.00|00.000");
    row("negative zero", -0.0, "-0|-0|-0.00|-0.00|-0.000");
    row("rounded to negative zero", -0.0001, "-0|-0|-0.00|-0.00|-0.000");
    row("negative", -7.5, "-8|-8|-7.50|-7.50|-7.500");
    row("a sign takes a place", -2.25, "-2|-2|-2.25|-2.25|-2.250");
    row("many digits", 12345.6789, "12346|12346|12345.68|12345.68|12345.679");
    row("rounded to one digit more", 9.9996, "10|10|10.00|10.00|10.000");
    row("denormal", Limits::denorm_min(), "0|00|0.00|00.00|00.000");
    row("negative denormal", -Limits::denorm_min(), "-0|-0|-0.00|-0.00|-0.000");
    row("infinity", Limits::infinity(), "inf|inf|inf|  inf|   inf");
    row("negative infinity", -Limits::infinity(), "-inf|-inf|-inf| -inf|  -inf");
    row("NaN", Limits::quiet_NaN(), "nan|nan|nan|  nan|   nan");
}

void tst_DoubleFormater::pictures()
{
    QFETCH(double, value);
    QFETCH(QStringList, expected);
    QStringList actual;
    for (const Picture &picture : s_pictures) {
        actual.append(DoubleFormater::toString(value, QString::fromLatin1(picture.text)));
    }
    QCOMPARE(actual, expected);
}

void tst_DoubleFormater::picturesAreAsTheLibraryPrintsThem()
{
    const QVector<double> list = values();
    for (const double value : list) {
        for (const Picture &picture : s_pictures) {
            QCOMPARE(DoubleFormater::toString(value, QString::fromLatin1(picture.text)),
                     printed(value, picture));
        }
    }
}

void tst_DoubleFormater::otherFormats_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, double value, const char *format, const char *expected) {
        QTest::newRow(name) << value << QString::fromLatin1(format)
                            << QString::fromLatin1(expected);
    };
    row("no format", 2.5, "", "2.5");
    row("no format, no decimals", 3, "", "3");
    row("no format, zeros before the mark", 1000, "", "1000");
    row("no format, six decimals", 3.14159265, "", "3.141593");
    row("no format, five decimals", 3.14159, "", "3.14159");
    row("no format, less than six decimals can show", 1e-9, "", "0");
    row("no format, negative zero", -0.0, "", "0");
    row("no format, rounded to negative zero", -1e-9, "", "-0");
    row("no format, large", 1e15, "", "1000000000000000");
    row("no format, infinity", Limits::infinity(), "", "inf");
    row("no format, negative infinity", -Limits::infinity(), "", "-inf");
    row("no format, NaN", Limits::quiet_NaN(), "", "nan");
    row("no picture", 3.14159, "#.#", "3.14159");
    row("no picture, six significant digits", 1234567.0, "#.#", "1.23457e+06");
    row("no picture, no zeros", 3, "#.#", "3");
    row("no picture, small", 0.00001, "#.#", "1e-05");
    row("no picture, zeros are not trimmed", 1.5e10, "#.#", "1.5e+10");
    row("three zeros are no picture", 7.5, "000", "7.5");
    row("one decimal is no picture", 7.25, "0.0", "7.25");
    row("three decimals are no picture", 7.25, "0.000", "7.25");
    row("a comma is no picture", 7.25, "0,00", "7.25");
    row("a blank behind is no picture", 7.25, "0.00 ", "7.25");
    row("a blank is no picture", 7.25, " ", "7.25");
    row("letters are no picture", 7.25, "dd.MM.yyyy", "7.25");
    row("a printf conversion is no picture", 7.25, "%s%n", "7.25");
}

void tst_DoubleFormater::otherFormats()
{
    QFETCH(double, value);
    QFETCH(QString, format);
    QTEST(DoubleFormater::toString(value, format), "expected");
}

void tst_DoubleFormater::textsAreReadAndFormatted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const char *text, const char *format,
                        const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(format)
                            << QString::fromLatin1(expected);
    };
    row("a number", "3.14159", "0.00", "3.14");
    row("a number without format", "2.500", "", "2.5");
    row("a number and no picture", "1234567", "x", "1.23457e+06");
    row("with an exponent", "1.5e3", "0.00", "1500.00");
    row("negative", "-6.5", "0", "-6");
    row("letters", "abc", "0.00", "abc");
    row("letters and no format", "abc", "", "abc");
    row("nothing", "", "0.00", "");
    row("a comma", "3,14", "0.00", "3,14");
    row("two marks", "1.2.3", "0.00", "1.2.3");
    row("group separators", "1,234.5", "0.00", "1,234.5");
    row("a unit behind", "7 m", "0.00", "7 m");
    row("too large", "1e400", "0.00", "1e400");
    row("infinity", "inf", "00.00", "  inf");
    row("no number", "nan", "0.00", "nan");
}

void tst_DoubleFormater::textsAreReadAndFormatted()
{
    QFETCH(QString, text);
    QFETCH(QString, format);
    QTEST(DoubleFormater::toString(text, format), "expected");
}

void tst_DoubleFormater::trimmed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const char *text, const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(expected);
    };
    row("no mark", "100", "100");
    row("only zeros behind the mark", "10.000", "10");
    row("some zeros behind", "0.50", "0.5");
    row("zero", "0.0", "0");
    row("zero without decimals", "0.", "0");
    row("nothing to trim", "1.25", "1.25");
    row("zeros in the middle", "1.2005", "1.2005");
    row("negative", "-1.500", "-1.5");
    row("negative zero", "-0.000", "-0");
    row("mark at the end", "12.", "12");
    row("one mark of two", "1..", "1.");
    row("mark in front", ".500", ".5");
    row("mark in front of zeros", ".000", "");
    row("only a mark", ".", "");
    row("comma is no mark", "1,500", "1,500");
    row("exponent behind", "1.50e+10", "1.50e+1");
    row("letters", "a.b", "a.b");
    row("nothing", "", "");
    row("a zero alone", "0", "0");
    row("zeros alone", "000", "000");
}

void tst_DoubleFormater::trimmed()
{
    QFETCH(QString, text);
    QTEST(DoubleFormater::TrimString(text), "expected");
}

void tst_DoubleFormater::localeOfTheToolkitDoesNotMatter()
{
    const QLocale before;
    QStringList texts;
    for (const QLocale &locale :
         {QLocale(QLocale::German, QLocale::Germany), QLocale(QLocale::Persian, QLocale::Iran)}) {
        QLocale::setDefault(locale);
        for (const char *format : {"0.00", "", "x"}) {
            texts << DoubleFormater::toString(7.25, QString::fromLatin1(format))
                  << DoubleFormater::toString(QStringLiteral("7.25"), QString::fromLatin1(format));
        }
    }
    QLocale::setDefault(before);
    QCOMPARE(texts.join(QLatin1Char(' ')),
             QStringLiteral("7.25 7.25 7.25 7.25 7.25 7.25 7.25 7.25 7.25 7.25 7.25 7.25"));
}

void tst_DoubleFormater::localeOfTheLibraryDoesNotMatter()
{
    const CommaLocale locale;
    QVERIFY2(locale.isSet(), locale.problem().constData());
    std::array<char, 16> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.2f", 7.5);
    QCOMPARE(buffer.data(), "7,50"); // so the locale is in force

    QCOMPARE(DoubleFormater::toString(7.5, QStringLiteral("0")), QStringLiteral("8"));
    QCOMPARE(DoubleFormater::toString(7.5, QStringLiteral("0.00")), QStringLiteral("7.50"));
    QCOMPARE(DoubleFormater::toString(7.5, QStringLiteral("00.00")), QStringLiteral("07.50"));
    QCOMPARE(DoubleFormater::toString(7.5, QStringLiteral("00.000")), QStringLiteral("07.500"));
    QCOMPARE(DoubleFormater::toString(7.5, QString()), QStringLiteral("7.5"));
    QCOMPARE(DoubleFormater::toString(7.5, QStringLiteral("x")), QStringLiteral("7.5"));
    QCOMPARE(DoubleFormater::toString(QStringLiteral("7.5"), QStringLiteral("0.00")),
             QStringLiteral("7.50"));
    QCOMPARE(DoubleFormater::toString(QStringLiteral("7,5"), QStringLiteral("0.00")),
             QStringLiteral("7,5"));
}

void tst_DoubleFormater::threadsDoNotDisturbEachOther()
{
    std::atomic<int> right{0};
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([i, &right] {
            const QString expected = QString::number(i) + QLatin1String(".250");
            for (int n = 0; n < 500; ++n) {
                right += DoubleFormater::toString(i + 0.25, QStringLiteral("00.000"))
                    == QLatin1Char('0') + expected;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(right.load(), 2000);
}

QTEST_GUILESS_MAIN(tst_DoubleFormater)

#include "tst_DoubleFormater.moc"
