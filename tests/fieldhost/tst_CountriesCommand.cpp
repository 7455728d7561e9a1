// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"

#include <QTest>

using namespace Test;

namespace {

enum Exit { Done = 0, Usage = 2 };

Outcome countries(const QStringList &arguments)
{
    return Program::run(QStringList{QStringLiteral("countries")} + arguments);
}

} // namespace

/** `ovo-fieldhost countries` */
class tst_CountriesCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countriesAndLanguagesAreListed();
    void helpIsShown();
    void nothingMayFollow();
};

void tst_CountriesCommand::countriesAndLanguagesAreListed()
{
    const Outcome outcome = countries({});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());

    const QStringList parts = outcome.output.split(QLatin1String("\n\n"));
    QCOMPARE(parts.size(), 2);
    const QStringList countryLines = parts.at(0).split(QLatin1Char('\n'));
    QCOMPARE(countryLines.size(), 1 + 44);
    QCOMPARE(countryLines.at(0), QStringLiteral("  Code  ISO  Country"));
    QCOMPARE(countryLines.at(1), QStringLiteral("  A     AT   Austria"));
    QCOMPARE(countryLines.at(44), QStringLiteral("  COL   CO   Colombia"));
    QVERIFY(countryLines.contains(QStringLiteral("  UK    GB   United Kingdom")));
    QVERIFY(countryLines.contains(QStringLiteral("  RC    CN   China")));

    const QStringList languageLines = parts.at(1).trimmed().split(QLatin1Char('\n'));
    QCOMPARE(languageLines.size(), 1 + 29);
    QVERIFY(languageLines.contains(QStringLiteral("  DEU   German")));
    QVERIFY(languageLines.contains(QStringLiteral("  NOR   Norwegian Bokmal")));
}

void tst_CountriesCommand::helpIsShown()
{
    const Outcome outcome = countries({QStringLiteral("--help")});
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.startsWith(QLatin1String("Usage: ovo-fieldhost countries\n")));
    QCOMPARE(outcome.errors, QString());
}

void tst_CountriesCommand::nothingMayFollow()
{
    const Outcome outcome = countries({QStringLiteral("CH")});
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.errors,
             QStringLiteral("There is an argument too many: \"CH\".\n"
                            "Try: ovo-fieldhost countries --help\n"));
    QCOMPARE(outcome.output, QString());
}

QTEST_GUILESS_MAIN(tst_CountriesCommand)

#include "tst_CountriesCommand.moc"
