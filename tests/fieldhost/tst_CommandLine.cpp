// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"

#include <QRegularExpression>
#include <QTest>

using namespace Test;

namespace {
enum Exit { Done = 0, Usage = 2 };
}

/** What the program says of itself, and of a command line that it does not understand. */
class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpListsTheCommands();
    void versionIsShown();
    void aMissingCommandIsAUsageError();
    void anUnknownCommandNamesTheNearest_data();
    void anUnknownCommandNamesTheNearest();
    void nothingIsOfferedThatIsNotNear_data();
    void nothingIsOfferedThatIsNotNear();
    void helpIsACommand();
    void exportHelpListsEveryExitCode();
    void exportNeedsItsArguments_data();
    void exportNeedsItsArguments();
    void anArgumentThatIsNotUtf8IsShownAndRefused();
};

void tst_CommandLine::helpListsTheCommands()
{
    for (const char *option : {"-h", "--help"}) {
        const Outcome outcome = Program::run({QLatin1String(option)});
        QCOMPARE(outcome.exitCode, int(Done));
        QVERIFY(outcome.output.startsWith(QLatin1String("Usage: ovo-fieldhost COMMAND ...\n")));
        const QString text = outcome.output.simplified();
        QVERIFY(text.contains(QLatin1String(" export Copies directories and files durably")));
        QVERIFY(text.contains(QLatin1String(" locale Shows how a project shows numbers")));
        QVERIFY(text.contains(QLatin1String(" convert Converts a length")));
        QVERIFY(text.contains(QLatin1String(" countries Lists the countries")));
        QVERIFY(text.contains(QLatin1String(" validate Tells whether texts pass")));
        QCOMPARE(outcome.errors, QString());
    }
}

void tst_CommandLine::versionIsShown()
{
    const Outcome outcome = Program::run({QStringLiteral("--version")});
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(QRegularExpression(QStringLiteral(R"(^ovo-fieldhost \d+\.\d+\.\d+\n$)"))
                .match(outcome.output)
                .hasMatch());
}

void tst_CommandLine::aMissingCommandIsAUsageError()
{
    const Outcome outcome = Program::run({});
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QVERIFY(outcome.errors.startsWith(
        QLatin1String("A COMMAND is missing.\n\nUsage: ovo-fieldhost COMMAND ...\n")));
}

void tst_CommandLine::anUnknownCommandNamesTheNearest_data()
{
    QTest::addColumn<QString>("typed");

    QTest::newRow("a letter missing") << QStringLiteral("exprt");
    QTest::newRow("another case") << QStringLiteral("Export");
    QTest::newRow("an unknown option") << QStringLiteral("--export");
}

void tst_CommandLine::anUnknownCommandNamesTheNearest()
{
    QFETCH(QString, typed);

    const Outcome outcome = Program::run({typed});
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors,
             QStringLiteral("There is no command \"%1\". The nearest one is \"export\".\n"
                            "Try: ovo-fieldhost --help\n")
                 .arg(typed));
}

void tst_CommandLine::nothingIsOfferedThatIsNotNear_data()
{
    QTest::addColumn<QString>("typed");

    for (const char *typed : {"cp", "rm", "ls", "move", "list", "date"}) {
        QTest::newRow(typed) << QString::fromLatin1(typed);
    }
}

void tst_CommandLine::nothingIsOfferedThatIsNotNear()
{
    QFETCH(QString, typed);

    const Outcome outcome = Program::run({typed});
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.errors,
             QStringLiteral("There is no command \"%1\".\nTry: ovo-fieldhost --help\n").arg(typed));
}

void tst_CommandLine::helpIsACommand()
{
    const QString help = QStringLiteral("help");
    const QString option = QStringLiteral("--help");
    const Outcome all = Program::run({help});
    QCOMPARE(all.exitCode, int(Done));
    QCOMPARE(all.output, Program::run({option}).output);
    for (const char *name : {"export", "safe-name", "convert"}) {
        const Outcome one = Program::run({help, QLatin1String(name)});
        QCOMPARE(one.exitCode, int(Done));
        QCOMPARE(one.output, Program::run({QLatin1String(name), option}).output);
        QCOMPARE(one.errors, QString());
    }
    const Outcome none = Program::run({help, QStringLiteral("exprt")});
    QCOMPARE(none.exitCode, int(Usage));
    QVERIFY(none.errors.startsWith(
        QLatin1String("There is no command \"exprt\". The nearest one is \"export\".\n")));
}

void tst_CommandLine::exportHelpListsEveryExitCode()
{
    const Outcome outcome = Program::run({QStringLiteral("export"), QStringLiteral("--help")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QVERIFY(outcome.output.startsWith(
        QLatin1String("Usage: ovo-fieldhost export [options] SOURCE... DESTINATION\n")));
    const QString codes = outcome.output.mid(outcome.output.indexOf(QLatin1String("Exit codes:")));
    for (int code = 0; code <= 6; ++code) {
        QVERIFY(codes.contains(QStringLiteral("\n  %1  ").arg(code)));
    }
    QVERIFY(!codes.contains(QLatin1String("\n  7  ")));
}

void tst_CommandLine::exportNeedsItsArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    QTest::newRow("nothing") << QStringList() << QStringLiteral("A SOURCE is missing.");
    QTest::newRow("one path") << QStringList{QStringLiteral("a")}
                              << QStringLiteral("A DESTINATION is missing.");
    QTest::newRow("an empty path") << QStringList{QString(), QStringLiteral("b")}
                                   << QStringLiteral("A SOURCE or DESTINATION is empty.");
    QTest::newRow("an unknown option")
        << QStringList{QStringLiteral("--fast"), QStringLiteral("a"), QStringLiteral("b")}
        << QStringLiteral("Unknown option 'fast'.");
}

void tst_CommandLine::exportNeedsItsArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    const Outcome outcome = Program::run(QStringList{QStringLiteral("export")} + arguments);
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors, reason + QStringLiteral("\nTry: ovo-fieldhost export --help\n"));
}

void tst_CommandLine::anArgumentThatIsNotUtf8IsShownAndRefused()
{
    // QProcess passes texts, so a shell has to form the bytes
    const QString line = QStringLiteral("exec \"$0\" export \"$(printf 'b\\377d')\" x");
    QProcess shell;
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), line, programPath()});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.exitCode(), int(Usage));
    QCOMPARE(shell.readAllStandardError(),
             QByteArray("\"b\\xffd\" is not valid UTF-8. A file or directory of this name can be "
                        "used once it is renamed.\n"));
}

QTEST_GUILESS_MAIN(tst_CommandLine)

#include "tst_CommandLine.moc"
