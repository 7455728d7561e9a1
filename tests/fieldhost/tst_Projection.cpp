// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/GeoProjectorSettings.h"
#include "tests/fieldhost/Program.h"

#include <QTest>

using namespace Test;
using Tavro::View3d::GeoProjectorSettings;

namespace {
enum Exit { Done = 0, Usage = 2 };
}

/** `ovo-fieldhost projection`. */
class tst_Projection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsOneTextAlone_data();
    void showsOneTextAlone();
    void showsAllOfThem();
    void wrongCommandLinesShowNothing_data();
    void wrongCommandLinesShowNothing();
    void helpIsShown();
};

void tst_Projection::showsOneTextAlone_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("default") << QStringLiteral("1")
                             << GeoProjectorSettings::getDefaultPseudoMercatorWKT();
    QTest::newRow("valid") << QStringLiteral("2")
                           << GeoProjectorSettings::getValidPseudoMercatorWKT();
    QTest::newRow("second valid") << QStringLiteral("3")
                                  << GeoProjectorSettings::getValidPseudoMercatorWKT_2();
}

void tst_Projection::showsOneTextAlone()
{
    QFETCH(QString, number);
    QFETCH(QString, text);

    const Outcome outcome = Program::run({QStringLiteral("projection"), number});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, text + QLatin1Char('\n'));
    QCOMPARE(outcome.errors, QString());
}

void tst_Projection::showsAllOfThem()
{
    const Outcome outcome = Program::run({QStringLiteral("projection")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output,
             QStringLiteral("1: 475 characters\n%1\n2: 425 characters\n%2\n3: 850 characters\n%3\n")
                 .arg(GeoProjectorSettings::getDefaultPseudoMercatorWKT(),
                      GeoProjectorSettings::getValidPseudoMercatorWKT(),
                      GeoProjectorSettings::getValidPseudoMercatorWKT_2()));
}

void tst_Projection::wrongCommandLinesShowNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    QTest::newRow("a number too high")
        << QStringList{QStringLiteral("4")}
        << QStringLiteral("There is no projection \"4\", only 1, 2 and 3.");
    QTest::newRow("no number") << QStringList{QStringLiteral(
        "mercator")} << QStringLiteral("There is no projection \"mercator\", only 1, 2 and 3.");
    QTest::newRow("two numbers") << QStringList{QStringLiteral("1"), QStringLiteral("2")}
                                 << QStringLiteral("There is an argument too many: \"2\".");
    QTest::newRow("an unknown option")
        << QStringList{QStringLiteral("--all")} << QStringLiteral("Unknown option 'all'.");
}

void tst_Projection::wrongCommandLinesShowNothing()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    const Outcome outcome = Program::run(QStringList{QStringLiteral("projection")} + arguments);
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors, reason + QStringLiteral("\nTry: ovo-fieldhost projection --help\n"));
}

void tst_Projection::helpIsShown()
{
    const Outcome outcome = Program::run({QStringLiteral("projection"), QStringLiteral("-h")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QVERIFY(outcome.output.startsWith(QLatin1String("Usage: ovo-fieldhost projection [1|2|3]\n")));
    QVERIFY(outcome.output.contains(QLatin1String("\n  0  shown\n  2  ")));
}

QTEST_GUILESS_MAIN(tst_Projection)

#include "tst_Projection.moc"
