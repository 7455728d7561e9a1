// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"

#include <QTest>

using namespace Test;

namespace {

enum Exit { Done = 0, Refused = 1, Usage = 2 };

Outcome validate(const QStringList &arguments)
{
    return Program::run(QStringList{QStringLiteral("validate")} + arguments);
}

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char('|'));
}

} // namespace

/** `ovo-fieldhost validate` */
class tst_ValidateCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpListsRulesAndExitCodes();
    void everyRuleGivesVerdictAndHint();
    void textsAreJudged_data();
    void textsAreJudged();
    void patternReachesToTheEnd();
    void localeIsThatOfTheEnvironment();
    void controlCharactersAreSpelledOut();
    void whatIsNotUnderstoodIsRefused_data();
    void whatIsNotUnderstoodIsRefused();
};

void tst_ValidateCommand::helpListsRulesAndExitCodes()
{
    for (const char *option : {"-h", "--help"}) {
        const Outcome outcome = validate({QLatin1String(option)});
        QCOMPARE(outcome.exitCode, int(Done));
        QVERIFY(outcome.output.startsWith(QLatin1String(
            "Usage: ovo-fieldhost validate [options] --rule RULE... [--] TEXT...\n")));
        for (const char *rule :
             {"double", "int", "regexp", "mask", "datetime", "length", "notempty"}) {
            QVERIFY(outcome.output.contains(QLatin1String("\n        ") + QLatin1String(rule)
                                            + QLatin1Char(' ')));
        }
        for (const char *code : {"\n  0  ", "\n  1  ", "\n  2  "}) {
            QVERIFY(outcome.output.contains(QLatin1String(code)));
        }
        QCOMPARE(outcome.errors, QString());
    }
}

void tst_ValidateCommand::everyRuleGivesVerdictAndHint()
{
    const Outcome outcome =
        validate(words("--rule|int:bottom=0,top=10,step=5|--rule|notempty|5|3|"));
    QCOMPARE(outcome.output,
             QStringLiteral("\"5\" passes\n"
                            "  Acceptable    int:bottom=0,top=10,step=5\n"
                            "                Minimum value larger or equal 0\n"
                            "                Maximum value smaller or equal 10\n"
                            "                Value quantized with step size 5\n"
                            "  Acceptable    notempty\n"
                            "                Expression can not be empty\n"
                            "\"3\" does not pass\n"
                            "  Invalid       int:bottom=0,top=10,step=5\n"
                            "                Minimum value larger or equal 0\n"
                            "                Maximum value smaller or equal 10\n"
                            "                Value quantized with step size 5\n"
                            "  Acceptable    notempty\n"
                            "                Expression can not be empty\n"
                            "\"\" does not pass\n"
                            "  Intermediate  int:bottom=0,top=10,step=5\n"
                            "                Minimum value larger or equal 0\n"
                            "                Maximum value smaller or equal 10\n"
                            "                Value quantized with step size 5\n"
                            "  Invalid       notempty\n"
                            "                Expression can not be empty\n"));
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Refused));
}

void tst_ValidateCommand::textsAreJudged_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("passes");

    QTest::newRow("whole number") << words("--rule|int|42%") << true;
    QTest::newRow("negative number") << words("--rule|int|--|-5") << true;
    QTest::newRow("no number") << words("--rule|int|five") << false;
    QTest::newRow("unfinished number") << words("--rule|int|") << true;
    QTest::newRow("unfinished, at the end") << words("--rule|int|--final|") << false;
    QTest::newRow("number with decimals") << words("--rule|double:step=0.5|1,5") << true;
    QTest::newRow("0 without a bottom") << words("--rule|double|0") << false;
    QTest::newRow("pattern") << words("--rule|regexp:pattern=[a-c]+|abc") << true;
    QTest::newRow("mask") << words("--rule|mask:pattern=00.0|12.5") << true;
    QTest::newRow("mask is no pattern") << words("--rule|mask:pattern=00.0|00x0") << false;
    QTest::newRow("date") << words("--rule|datetime:format=dd.MM.yyyy|29.02.2024") << true;
    QTest::newRow("length") << words("--rule|length:bottom=2,top=3|abcd") << false;
    QTest::newRow("rule without its options") << words("--rule|length:|abcd") << true;
    QTest::newRow("the last text counts, too") << words("--rule|int|5|6|a") << false;
    QTest::newRow("and so does the first") << words("--rule|int|a|5|6") << false;
    QTest::newRow("every rule counts") << words("--rule|int|--rule|length:top=1|12") << false;
}

void tst_ValidateCommand::textsAreJudged()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, passes);

    const Outcome outcome = validate(arguments);
    QCOMPARE(outcome.exitCode, int(passes ? Done : Refused));
    QCOMPARE(outcome.output.contains(QLatin1String("does not pass\n")), !passes);
    QCOMPARE(outcome.errors, QString());
}

void tst_ValidateCommand::patternReachesToTheEnd()
{
    const Outcome outcome = validate(words("--rule|regexp:pattern=a{1,2},b=1:2|aa,b=1:2"));
    QCOMPARE(outcome.output,
             QStringLiteral("\"aa,b=1:2\" passes\n"
                            "  Acceptable    regexp:pattern=a{1,2},b=1:2\n"
                            "                Expression have to match pattern: a{1,2},b=1:2\n"));
    QCOMPARE(outcome.exitCode, int(Done));
}

void tst_ValidateCommand::localeIsThatOfTheEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // its numbers have a comma, and there is no translation
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("fr_FR.UTF-8"));
    Program program;
    program.setProcessEnvironment(environment);
    program.begin(words("validate|--rule|double|1.5"));
    const Outcome outcome = program.end();
    QCOMPARE(outcome.output,
             QStringLiteral("\"1.5\" passes\n"
                            "  Acceptable    double, read as \"1,5\"\n"));
}

void tst_ValidateCommand::controlCharactersAreSpelledOut()
{
    const Outcome outcome = validate(words("--rule|regexp:pattern=\x1b|\x1b"));
    QCOMPARE(outcome.output,
             QStringLiteral("\"\\x1b\" passes\n"
                            "  Acceptable    regexp:pattern=\\x1b\n"
                            "                Expression have to match pattern: \\x1b\n"));
}

void tst_ValidateCommand::whatIsNotUnderstoodIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    const auto row = [](const char *name, const char *arguments, const char *reason) {
        QTest::newRow(name) << words(arguments) << QString::fromUtf8(reason);
    };
    row("no rule", "5", "A --rule is missing.");
    row("no text", "--rule|int", "A TEXT is missing.");
    row("unknown option", "--rules|int|5", "Unknown option 'rules'.");
    row("unknown rule", "--rule|itn|5", "There is no rule \"itn\". The nearest one is \"int\".");
    row("empty rule", "--rule||5", "There is no rule \"\".");
    row("unknown key", "--rule|int:botom=1|5",
        "The rule int has no option \"botom\". The nearest one is \"bottom\".");
    row("key of another rule", "--rule|length:step=1|5", "The rule length has no option \"step\".");
    row("key of every object", "--rule|int:objectName=1|5",
        "The rule int has no option \"objectName\".");
    row("rule without options", "--rule|notempty:top=1|5", "The rule notempty has no options.");
    row("key without value", "--rule|int:top|5", "The option top lacks its value: top=...");
    row("no value for the key", "--rule|int:top=x|5",
        "\"x\" is not a value for top of the rule int.");
    row("pattern that is none", "--rule|regexp:pattern=(|5",
        "The pattern \"(\" cannot be compiled: unexpected end.");
    row("second rule", "--rule|int|--rule|no|5", "There is no rule \"no\".");
}

void tst_ValidateCommand::whatIsNotUnderstoodIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    const Outcome outcome = validate(arguments);
    QCOMPARE(outcome.errors, reason + QStringLiteral("\nTry: ovo-fieldhost validate --help\n"));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.exitCode, int(Usage));
}

QTEST_GUILESS_MAIN(tst_ValidateCommand)

#include "tst_ValidateCommand.moc"
