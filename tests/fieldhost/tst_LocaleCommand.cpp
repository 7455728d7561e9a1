// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"
#include "tests/support/FileTree.h"

#include <QTest>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2 };

// with the words of one line
Outcome locale(const QString &line)
{
    return Program::run(QStringList{QStringLiteral("locale")}
                        + line.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

QString sample(const char *name)
{
    return QStringLiteral(OVO_SAMPLE_CATALOGS "/%1.json").arg(QLatin1String(name));
}

// what stands in the last column of the line that begins with that
QString shown(const Outcome &outcome, const QString &what)
{
    const QStringList lines = outcome.output.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("  ") + what + QLatin1String("  "))) {
            return line.section(QLatin1String("  "), -1).trimmed();
        }
    }
    return QStringLiteral("no line of that");
}

} // namespace

/** `ovo-fieldhost locale` */
class tst_LocaleCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpListsTheExitCodes();
    void aProjectIsShownWhole();
    void withoutAProjectTheDeviceCounts();
    void withoutAnyOptionTheEnvironmentCounts();
    void everythingFollowsTheLocale_data();
    void everythingFollowsTheLocale();
    void inchesAreShownAsMetres();
    void aCatalogWithoutAUnitLeavesItToTheLocale();
    void codesGivenReplaceThoseOfTheCatalog();
    void oneCodeIsEnough();
    void unknownCodesOfACatalogAreNamedAndShownAsTheyWork();
    void namesInACatalogCannotCommandTheTerminal();
    void unknownCodesAreRefused_data();
    void unknownCodesAreRefused();
    void aMalformedCatalogIsNamedWithPlaceAndCause();
    void aMissingCatalogIsNamed();
};

void tst_LocaleCommand::helpListsTheExitCodes()
{
    const Outcome outcome = locale(QStringLiteral("--help"));
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.startsWith(QLatin1String("Usage: ovo-fieldhost locale [--catalog")));
    for (const char *code : {"\n  0  ", "\n  1  ", "\n  2  "}) {
        QVERIFY(outcome.output.contains(QLatin1String(code)));
    }
    QCOMPARE(outcome.errors, QString());
}

void tst_LocaleCommand::aProjectIsShownWhole()
{
    const Outcome outcome = locale(QStringLiteral("--catalog ") + sample("metric"));
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.output, QStringLiteral(R"(  Catalog    Sewers, metric
  Country    D  Germany
  Language   DEU  German
  Locale     de_DE, of the project
  Distances  in m, as the catalog has it

  What             Value                Shown as
  Distance         1234.567             1234,57 m
  Distance, short  1234.567             1234,6
  Speed            4.5                  4,50 m/min
  Temperature      21.5                 21,50 °C
  Angle            12.5                 12,50 °
  Pressure         850                  850 mbar
  Whole number     3.0                  3
  Date             2026-03-31           31.03.2026
  Time             17:05:08             17:05:08 UTC
  Date and time    2026-03-31 17:05:08  31.03.26 17:05
  Clock                                 24 hours
  Size             1610612736 bytes     1.5 GB

  Column         View        Unit  From
  SEC_Name       detail_s    m     distances
  SEC_Length     detail_s    m     the catalog
  SEC_Height     detail_s    mm    the catalog
  SEC_Width      detail_s    mm    the catalog
  SEC_Slope      detail_s    ‰     the catalog
  SEC_Name       overview_s  m     distances
  SEC_Inspected  overview_s  m     distances
)"));
}

void tst_LocaleCommand::withoutAProjectTheDeviceCounts()
{
    const Outcome outcome = locale(QStringLiteral("--device en_US"));
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.startsWith(QLatin1String("  Locale     en_US, of the device\n"
                                                    "  Distances  in ft, as the locale has it\n")));
    QVERIFY(!outcome.output.contains(QLatin1String("Column")));
    QCOMPARE(shown(outcome, QStringLiteral("Distance")), QStringLiteral("1234.57 ft"));

    const Outcome withProject = locale(QStringLiteral("--device en_US --country D --language DEU"));
    QVERIFY(withProject.output.contains(QLatin1String("  Locale     de_DE, of the project\n")));
}

void tst_LocaleCommand::withoutAnyOptionTheEnvironmentCounts()
{
    Program program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("sv_SE.UTF-8"));
    program.setProcessEnvironment(environment);
    program.begin({QStringLiteral("locale")});
    const Outcome outcome = program.end();
    QVERIFY(outcome.output.startsWith(QLatin1String("  Locale     sv_SE, of the device\n")));
    QCOMPARE(shown(outcome, QStringLiteral("Distance")), QStringLiteral("1234,57 m"));
}

void tst_LocaleCommand::everythingFollowsTheLocale_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("distance");
    QTest::addColumn<QString>("speed");
    QTest::addColumn<QString>("temperature");
    QTest::addColumn<QString>("clock");

    QTest::newRow("United States") << "--country USA --language ENG"
                                   << "en_US"
                                   << "1234.57 ft"
                                   << "4.50 ft/min"
                                   << "21.50 °F"
                                   << "AM and PM";
    QTest::newRow("United Kingdom, metric but for the temperature") << "--country UK --language ENG"
                                                                    << "en_GB"
                                                                    << "1234.57 m"
                                                                    << "4.50 m/min"
                                                                    << "21.50 °F"
                                                                    << "24 hours";
    QTest::newRow("Switzerland") << "--country CH --language DEU"
                                 << "de_CH"
                                 << "1234.57 m"
                                 << "4.50 m/min"
                                 << "21.50 °C"
                                 << "24 hours";
    QTest::newRow("Brazil") << "--country BR --language POR"
                            << "pt_BR"
                            << "1234,57 m"
                            << "4,50 m/min"
                            << "21,50 °C"
                            << "24 hours";
    QTest::newRow("Japan") << "--country J --language JPN"
                           << "ja_JP"
                           << "1234.57 m"
                           << "4.50 m/min"
                           << "21.50 °C"
                           << "24 hours";
}

void tst_LocaleCommand::everythingFollowsTheLocale()
{
    QFETCH(QString, options);
    QFETCH(QString, name);

    const Outcome outcome = locale(options);
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(shown(outcome, QStringLiteral("Locale")), name + QLatin1String(", of the project"));
    QTEST(shown(outcome, QStringLiteral("Distance")), "distance");
    QTEST(shown(outcome, QStringLiteral("Speed")), "speed");
    QTEST(shown(outcome, QStringLiteral("Temperature")), "temperature");
    QTEST(shown(outcome, QStringLiteral("Clock")), "clock");
}

void tst_LocaleCommand::inchesAreShownAsMetres()
{
    const Outcome outcome = locale(QStringLiteral("--catalog ") + sample("inches"));
    QCOMPARE(shown(outcome, QStringLiteral("Distances")),
             QStringLiteral("in inch, as the catalog has it, and shown as m"));
    QCOMPARE(shown(outcome, QStringLiteral("Distance")), QStringLiteral("1234.57 m"));
    QVERIFY(outcome.output.contains(QLatin1String("SEC_Length     detail_s    inch  the catalog")));
}

void tst_LocaleCommand::aCatalogWithoutAUnitLeavesItToTheLocale()
{
    const TemporaryFolder directory;
    const QString file = directory.filePath(QStringLiteral("catalog.json"));
    makeFile(file,
             R"({"format": 1, "id": "c", "name": "n", "country": "USA", "language": "ENG",
                 "template": {"id": "t", "views": []}})");
    const Outcome outcome = locale(QStringLiteral("--catalog ") + file);
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(shown(outcome, QStringLiteral("Distances")),
             QStringLiteral("in ft, as the locale has it"));
}

void tst_LocaleCommand::codesGivenReplaceThoseOfTheCatalog()
{
    const QString catalog = QStringLiteral("--catalog ") + sample("imperial");
    const Outcome country = locale(catalog + QStringLiteral(" --country CDN"));
    QCOMPARE(shown(country, QStringLiteral("Locale")), QStringLiteral("en_CA, of the project"));
    QCOMPARE(shown(country, QStringLiteral("Distance")), QStringLiteral("1234.57 ft"));
    const Outcome both = locale(catalog + QStringLiteral(" --country CDN --language FRA"));
    QCOMPARE(shown(both, QStringLiteral("Locale")), QStringLiteral("fr_CA, of the project"));
    QCOMPARE(shown(both, QStringLiteral("Distance")), QStringLiteral("1234,57 ft"));
}

void tst_LocaleCommand::oneCodeIsEnough()
{
    const Outcome country = locale(QStringLiteral("--country CH"));
    QCOMPARE(shown(country, QStringLiteral("Locale")), QStringLiteral("de_CH, of the project"));
    QCOMPARE(shown(country, QStringLiteral("Language")), QStringLiteral("not given"));
    const Outcome language = locale(QStringLiteral("--language SWE"));
    QCOMPARE(shown(language, QStringLiteral("Locale")), QStringLiteral("sv_SE, of the project"));
    QCOMPARE(shown(language, QStringLiteral("Country")), QStringLiteral("not given"));
}

void tst_LocaleCommand::unknownCodesOfACatalogAreNamedAndShownAsTheyWork()
{
    const TemporaryFolder directory;
    const QString file = directory.filePath(QStringLiteral("catalog.json"));
    makeFile(file,
             R"({"format": 1, "id": "c", "name": "n", "country": "DE", "language": "Deu",
                 "template": {"id": "t", "unit": "yd", "views": []}})");
    const Outcome outcome = locale(QStringLiteral("--catalog ") + file);
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors,
             QStringLiteral("The catalog's country code \"DE\" is not known. The nearest one is "
                            "\"D\" (Germany).\n"
                            "The catalog's language code \"Deu\" is not known. The nearest one is "
                            "\"DEU\" (German).\n"
                            "The catalog's unit \"yd\" is not among \"m\", \"ft\" and \"inch\", so "
                            "the locale decides.\n"));
    QVERIFY(outcome.output.contains(QLatin1String("  Country    DE  not known\n"
                                                  "  Language   Deu  not known\n"
                                                  "  Locale     C, of the project\n"
                                                  "  Distances  in m, as the locale has it\n")));
}

void tst_LocaleCommand::namesInACatalogCannotCommandTheTerminal()
{
    const TemporaryFolder directory;
    const QString file = directory.filePath(QStringLiteral("catalog.json"));
    makeFile(
        file,
        R"({"format": 1, "id": "c", "name": "\u001b[2J", "country": "D\u0007", "language": "DEU",
                 "template": {"id": "t", "unit": "\u001b", "views": [{"key": "detail_s",
                 "columns": [{"key": "A\u000a", "unit": "\u202e"}]}]}})");
    const Outcome outcome = locale(QStringLiteral("--catalog ") + file);
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.contains(QLatin1String("  Catalog    \\x1b[2J\n")));
    QVERIFY(outcome.output.contains(QLatin1String("  A\\x0a   detail_s  \\u202e  the catalog\n")));
    const QString all = outcome.output + outcome.errors;
    for (const QChar c : {QChar(0x1b), QChar(0x07), QChar(0x202e)}) {
        QVERIFY(!all.contains(c));
    }
}

void tst_LocaleCommand::unknownCodesAreRefused_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("reason");

    QTest::newRow("a country") << "--country GB"
                               << "There is no country code \"GB\". The nearest one is \"UK\" "
                                  "(United Kingdom).";
    QTest::newRow("a language") << "--country D --language de"
                                << "There is no language code \"de\". The nearest one is \"DEU\" "
                                   "(German).";
    QTest::newRow("a locale") << "--device de_XX"
                              << "There is no locale \"de_XX\". The nearest one is \"de_DE\".";
    QTest::newRow("no value") << "--country"
                              << "Missing value after '--country'.";
    QTest::newRow("an option") << "--land D"
                               << "Unknown option 'land'.";
    QTest::newRow("a word too much") << "CH"
                                     << "There is an argument too many: \"CH\".";
}

void tst_LocaleCommand::unknownCodesAreRefused()
{
    QFETCH(QString, options);
    QFETCH(QString, reason);

    const Outcome outcome = locale(options);
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.errors, reason + QLatin1String("\nTry: ovo-fieldhost locale --help\n"));
    QCOMPARE(outcome.output, QString());
}

void tst_LocaleCommand::aMalformedCatalogIsNamedWithPlaceAndCause()
{
    const TemporaryFolder directory;
    const QString file = directory.filePath(QStringLiteral("catalog.json"));
    makeFile(file, "{\n  \"format\": 1,\n  \"id\" \"c\"\n}\n");
    const Outcome outcome = locale(QStringLiteral("--catalog ") + file);
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(
        outcome.errors,
        QStringLiteral("The catalog \"%1\" cannot be used. Line 3, column 8: expected \":\".\n")
            .arg(file));
    QCOMPARE(outcome.output, QString());
}

void tst_LocaleCommand::aMissingCatalogIsNamed()
{
    const Outcome outcome = locale(QStringLiteral("--catalog /nonexistent/catalog.json"));
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors,
             QStringLiteral("The catalog \"/nonexistent/catalog.json\" cannot be read: there is no "
                            "such file.\n"));
    QCOMPARE(outcome.output, QString());
}

QTEST_GUILESS_MAIN(tst_LocaleCommand)

#include "tst_LocaleCommand.moc"
