// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"

#include <QTest>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2 };

Outcome convert(const QStringList &arguments)
{
    return Program::run(QStringList{QStringLiteral("convert")} + arguments);
}

} // namespace

/** `ovo-fieldhost convert` */
class tst_ConvertCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpListsUnitsAndExitCodes();
    void lengthsAreConverted_data();
    void lengthsAreConverted();
    void whatIsNotUnderstoodIsRefused_data();
    void whatIsNotUnderstoodIsRefused();
    void aResultOutOfRangeIsAFailure();
};

void tst_ConvertCommand::helpListsUnitsAndExitCodes()
{
    for (const char *option : {"-h", "--help"}) {
        const Outcome outcome = convert({QLatin1String(option)});
        QCOMPARE(outcome.exitCode, int(Done));
        QVERIFY(outcome.output.startsWith(
            QLatin1String("Usage: ovo-fieldhost convert VALUE FROM TO\n")));
        QVERIFY(outcome.output.contains(QLatin1String("m, ft, inch, mm or cm")));
        for (const char *code : {"\n  0  ", "\n  1  ", "\n  2  "}) {
            QVERIFY(outcome.output.contains(QLatin1String(code)));
        }
        QCOMPARE(outcome.errors, QString());
    }
}

void tst_ConvertCommand::lengthsAreConverted_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("output");

    QTest::newRow("metres") << "1 m ft"
                            << "1 m = 3.280839895013123 ft";
    QTest::newRow("feet") << "1 ft m"
                          << "1 ft = 0.3048 m";
    QTest::newRow("inches") << "10 inch cm"
                            << "10 inch = 25.4 cm";
    QTest::newRow("millimetres") << "1000 mm m"
                                 << "1000 mm = 1 m";
    QTest::newRow("a unit to itself") << "0.1 cm cm"
                                      << "0.1 cm = 0.1 cm";
    QTest::newRow("a comma for the decimal mark") << "2,5 m cm"
                                                  << "2.5 m = 250 cm";
    QTest::newRow("less than nothing") << "-3 m cm"
                                       << "-3 m = -300 cm";
    QTest::newRow("less than nothing behind --") << "-- -3 m cm"
                                                 << "-3 m = -300 cm";
    QTest::newRow("less than nothing, without a zero") << "-,5 m cm"
                                                       << "-0.5 m = -50 cm";
    QTest::newRow("nothing") << "0 m ft"
                             << "0 m = 0 ft";
    QTest::newRow("many zeros") << "1e12 m mm"
                                << "1000000000000 m = 1e+15 mm";
    QTest::newRow("very little") << "1e-6 m mm"
                                 << "0.000001 m = 0.001 mm";
    QTest::newRow("even less") << "1e-300 mm mm"
                               << "1e-300 mm = 1e-300 mm";
}

void tst_ConvertCommand::lengthsAreConverted()
{
    QFETCH(QString, typed);
    QFETCH(QString, output);

    const Outcome outcome = convert(typed.split(QLatin1Char(' ')));
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.output, output + QLatin1Char('\n'));
    QCOMPARE(outcome.exitCode, int(Done));
}

void tst_ConvertCommand::whatIsNotUnderstoodIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    const auto typed = [](const char *line) {
        return QString::fromLatin1(line).split(QLatin1Char(' '));
    };
    const char *number = R"("%1" is not a number that can be converted.)";
    const auto noNumber = [number](const char *text) {
        return QString::fromLatin1(number).arg(QLatin1String(text));
    };
    QTest::newRow("nothing") << QStringList() << "A VALUE is missing.";
    QTest::newRow("no target") << typed("1 m") << "A TO is missing.";
    QTest::newRow("too much") << typed("1 m ft mm") << R"(There is an argument too many: "mm".)";
    QTest::newRow("a word") << typed("one m ft") << noNumber("one");
    QTest::newRow("two decimal marks") << typed("1.234,5 m ft") << noNumber("1.234,5");
    QTest::newRow("an empty number") << typed(" m ft") << noNumber("");
    QTest::newRow("not a number") << typed("nan m ft") << noNumber("nan");
    QTest::newRow("infinity") << typed("inf m ft") << noNumber("inf");
    QTest::newRow("a number out of range") << typed("1e999 m ft") << R"("1e999" is too large.)";
    QTest::newRow("an unknown option") << typed("--fast m ft") << "Unknown option 'fast'.";
    // the library would say 0
    QTest::newRow("an unknown source unit")
        << typed("1 feet m")
        << R"(There is no unit "feet". The nearest one is "ft", of m, ft, inch, mm, cm.)";
    // the library would say 1, and log it
    QTest::newRow("an unknown target unit")
        << typed("1 m inches")
        << R"(There is no unit "inches". The nearest one is "inch", of m, ft, inch, mm, cm.)";
    // the library would say 1
    QTest::newRow("an unknown unit to itself")
        << typed("1 cn cn")
        << R"(There is no unit "cn". The nearest one is "cm", of m, ft, inch, mm, cm.)";
    QTest::newRow("a unit that is near to none")
        << typed("1 furlong m")
        << R"(There is no unit "furlong". The units are m, ft, inch, mm, cm.)";
    QTest::newRow("a unit in capitals")
        << typed("1 MM m")
        << R"(There is no unit "MM". The nearest one is "mm", of m, ft, inch, mm, cm.)";
}

void tst_ConvertCommand::whatIsNotUnderstoodIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    const Outcome outcome = convert(arguments);
    QCOMPARE(outcome.errors, reason + QLatin1String("\nTry: ovo-fieldhost convert --help\n"));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.exitCode, int(Usage));
}

void tst_ConvertCommand::aResultOutOfRangeIsAFailure()
{
    const Outcome outcome =
        convert({QStringLiteral("1e308"), QStringLiteral("m"), QStringLiteral("mm")});
    QCOMPARE(outcome.errors, QStringLiteral("The result is out of range.\n"));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.exitCode, int(Failed));
}

QTEST_GUILESS_MAIN(tst_ConvertCommand)

#include "tst_ConvertCommand.moc"
