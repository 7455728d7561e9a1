// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/ProgressLine.h"
#include "fieldhost/jobs/Progress.h"
#include "fieldhost/translations/Translators.h"
#include "tests/fieldhost/Program.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Test;
using Tavro::FieldHost::Progress;
using Tavro::FieldHost::progressLine;
using Tavro::FieldHost::Translators;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2, SourceRefused = 3, DestinationRefused = 4 };

/** Runs the program with nothing but @p variables, "NAME=value", to say the user's language. */
Outcome runIn(const QStringList &variables, const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) {
        environment.remove(QLatin1String(name));
    }
    for (const QString &variable : variables) {
        const int equals = variable.indexOf(QLatin1Char('='));
        environment.insert(variable.left(equals), variable.mid(equals + 1));
    }
    Program program;
    program.setProcessEnvironment(environment);
    program.begin(arguments);
    return program.end();
}

Outcome runInGerman(const QStringList &arguments)
{
    return runIn({QStringLiteral("LC_ALL=de_DE.UTF-8")}, arguments);
}

Outcome runInC(const QStringList &arguments)
{
    return runIn({QStringLiteral("LC_ALL=C")}, arguments);
}

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

/** What stands in front of explanations: options, arguments, exit codes, commands. */
QStringList explained(const QString &help)
{
    static const QRegularExpression term(QStringLiteral("^ +(\\S+(?: \\S+)*)  +\\S"),
                                         QRegularExpression::MultilineOption);
    QStringList terms;
    auto matches = term.globalMatch(help);
    while (matches.hasNext()) {
        terms += matches.next().captured(1);
    }
    return terms;
}

/** The first paragraph in one line. */
QString usage(const QString &help)
{
    return help.section(QStringLiteral("\n\n"), 0, 0).simplified();
}

QString englishWordIn(const QString &text)
{
    static const QRegularExpression word(QStringLiteral(
        "\\b([Tt]he|[Aa]nd|are|[Cc]odes?|commands?|[Dd]elete[ds]|directory|done|drive|Exit|failed"
        "|files?|from|is|[Ii]t|message|not|of|[Oo]ptions|or|Prints|read|[Ss]hows|shown|to|Usage"
        "|which|with|without)\\b"));
    return word.match(text).captured();
}

void writeFile(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("abc"), 3);
}

} // namespace

/** The command line in the one language that it is translated into. */
class tst_GermanCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void languageIsThatOfTheEnvironment_data();
    void languageIsThatOfTheEnvironment();
    void helpSaysTheSame_data();
    void helpSaysTheSame();
    void refusalsAreTranslated_data();
    void refusalsAreTranslated();
    void failuresAreTranslated();
    void amountsHaveTwoForms_data();
    void amountsHaveTwoForms();
    void whatScriptsReadStays_data();
    void whatScriptsReadStays();
    void progressIsTranslated();
};

void tst_GermanCommands::languageIsThatOfTheEnvironment_data()
{
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<bool>("isGerman");

    const auto row = [](const char *variables, bool isGerman) {
        QTest::newRow(variables) << words(variables) << isGerman;
    };
    row("LC_ALL=de_DE.UTF-8", true);
    row("LC_MESSAGES=de_AT.UTF-8", true);
    row("LANG=de", true);
    row("LC_ALL=de_CH|LC_MESSAGES=en_GB|LANG=C", true);
    row("LANG=en_GB.UTF-8|LC_MESSAGES=de_CH.UTF-8", true);
    row("LANG=en_GB|LANGUAGE=de:en", true);
    row("LANG=fr_FR|LANGUAGE=fr:de", true); // there is no French
    row("LANG=de_DE|LC_MESSAGES=en_GB", false);
    row("LANG=de_DE|LANGUAGE=en:de", false);
    row("LANG=de_DE|LC_ALL=C", false);
    row("LC_ALL=C|LANGUAGE=de", false);
    row("LC_ALL=C.UTF-8|LANGUAGE=de", false);
    row("LC_ALL=POSIX|LANGUAGE=de", false);
    row("LANGUAGE=de", false);
    row("LC_ALL=fr_FR.UTF-8", false);
    row("LANG=en_GB|LC_NUMERIC=de_DE", false);
}

void tst_GermanCommands::languageIsThatOfTheEnvironment()
{
    QFETCH(QStringList, variables);
    QFETCH(bool, isGerman);

    const Outcome outcome = runIn(variables, {QStringLiteral("exprt")});
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.errors,
             isGerman ? QStringLiteral("Den Befehl \"exprt\" gibt es nicht. Ähnlich ist "
                                       "\"export\".\nHilfe: ovo-fieldhost --help\n")
                      : QStringLiteral("There is no command \"exprt\". The nearest one is "
                                       "\"export\".\nTry: ovo-fieldhost --help\n"));
}

void tst_GermanCommands::helpSaysTheSame_data()
{
    QTest::addColumn<QStringList>("arguments");

    const QString option = QStringLiteral("--help");
    QTest::newRow("the program") << QStringList{option};
    // it lists the commands first
    const QString all = runInC({option}).output;
    const QStringList terms = explained(all);
    for (const QString &command : terms) {
        if (!command.startsWith(QLatin1Char('-'))) {
            QTest::newRow(qPrintable(command)) << QStringList{command, option};
        }
    }
}

void tst_GermanCommands::helpSaysTheSame()
{
    QFETCH(QStringList, arguments);

    const Outcome english = runInC(arguments);
    const Outcome german = runInGerman(arguments);
    QCOMPARE(german.exitCode, int(Done));
    QCOMPARE(english.exitCode, int(Done));
    QCOMPARE(german.errors, QString());

    QVERIFY(explained(english.output).contains(QStringLiteral("-h, --help")));
    QCOMPARE(explained(german.output), explained(english.output));
    QCOMPARE(usage(german.output)
                 .replace(QLatin1String("Aufruf:"), QLatin1String("Usage:"))
                 .replace(QLatin1String("[Optionen]"), QLatin1String("[options]")),
             usage(english.output));

    QVERIFY(!englishWordIn(english.output).isEmpty());
    QCOMPARE(englishWordIn(german.output), QString());
    const QStringList lines = german.output.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        QVERIFY2(line.size() <= 80, qPrintable(line));
    }
}

void tst_GermanCommands::refusalsAreTranslated_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    const auto row = [](const char *arguments, const char *reason) {
        QTest::newRow(arguments) << words(arguments) << QString::fromUtf8(reason);
    };
    row("export|a", "DESTINATION fehlt.");
    row("compare|a|b|c", "Ein Argument ist zu viel: \"c\".");
    row("free|--fast|a", "Unbekannte Option: fast.");
    row("free|-x|-y|a", "Unbekannte Optionen: x, y.");
    row("name|--dir", "Nach „--dir“ fehlt der Wert.");
    row("export|--verify=yes|a|b", "Unerwarteter Wert nach „--verify“.");
    row("usb|lok", "\"usb\" kennt \"lok\" nicht. Ähnlich ist \"lock\".");
    row("usb|list|a", "\"usb list\" erwartet kein \"a\".");
    row("convert|1|m|mn",
        "Die Einheit \"mn\" gibt es nicht. Die ähnlichste ist \"m\", möglich sind m, ft, inch, mm, "
        "cm.");
    row("record|a|--duration|0", "--duration \"0\" ist keine Zahl über 0.");
    row("record|a|--duration|1000001",
        "--duration \"1000001\" ist mehr als 1000000, der höchste mögliche Wert.");
    row("locale|--country|GER", "Das Länderkürzel \"GER\" gibt es nicht. Ähnlich ist \"");
    row("validate|--rule|int:top|1", "Der Option top fehlt ihr Wert: top=...");
    row("clock|set-date|2026-02-30", "Den Tag \"2026-02-30\" gibt es im Kalender nicht.");
}

void tst_GermanCommands::refusalsAreTranslated()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    const Outcome outcome = runInGerman(arguments);
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QVERIFY2(outcome.errors.startsWith(reason), qPrintable(outcome.errors));
    QVERIFY(outcome.errors.endsWith(
        QStringLiteral("\nHilfe: ovo-fieldhost %1 --help\n").arg(arguments.first())));
}

void tst_GermanCommands::failuresAreTranslated()
{
    const QTemporaryDir directory;
    const QString none = directory.filePath(QStringLiteral("fehlt"));

    const Outcome size = runInGerman({QStringLiteral("size"), none});
    QCOMPARE(size.exitCode, int(SourceRefused));
    QCOMPARE(size.errors, QStringLiteral("\"%1\" ist weder Verzeichnis noch Datei.\n").arg(none));

    // the sentence is of the jobs
    const Outcome copy =
        runInGerman({QStringLiteral("export"), none, directory.filePath(QStringLiteral("Ziel"))});
    QCOMPARE(copy.exitCode, int(SourceRefused));
    QCOMPARE(copy.errors, QStringLiteral("Die Quelle \"%1\" gibt es nicht.\n").arg(none));

    // the hint is of the library
    const Outcome verdict = runInGerman(words("validate|--rule|length:bottom=3|ab"));
    QCOMPARE(verdict.exitCode, int(Failed));
    QCOMPARE(verdict.output,
             QStringLiteral("\"ab\" erfüllt nicht alle Regeln\n"
                            "  Ungültig      length:bottom=3\n"
                            "                Mindestens 3 Zeichen\n"));
}

void tst_GermanCommands::amountsHaveTwoForms_data()
{
    QTest::addColumn<int>("files");
    QTest::addColumn<QString>("amount");

    QTest::newRow("one") << 1 << QStringLiteral("1 Datei");
    QTest::newRow("two") << 2 << QStringLiteral("2 Dateien");
}

void tst_GermanCommands::amountsHaveTwoForms()
{
    QFETCH(int, files);
    QFETCH(QString, amount);

    const QTemporaryDir directory;
    const QDir source(directory.filePath(QStringLiteral("Haltung")));
    QVERIFY(source.mkpath(QStringLiteral(".")));
    for (int i = 0; i < files; ++i) {
        writeFile(source.filePath(QString::number(i)));
    }
    const QString landing = directory.filePath(QStringLiteral("Ziel"));
    const QStringList arguments = {QStringLiteral("export"), source.path() + QLatin1Char('/'),
                                   landing};
    const Outcome outcome = runInGerman(arguments);
    QCOMPARE(outcome.exitCode, int(Done));
    const QStringList lines = outcome.output.split(QLatin1Char('\n'));
    QCOMPARE(lines.first(),
             QStringLiteral("Kopiert wird: %1 (%2 B) von \"%3\" nach \"%4\"")
                 .arg(amount)
                 .arg(files * 3)
                 .arg(source.path(), landing));
    QVERIFY2(outcome.output.contains(QStringLiteral("\nFertig: %1, ").arg(amount)),
             qPrintable(outcome.output));

    const Outcome again = runInGerman({QStringLiteral("export"), QStringLiteral("--into-existing"),
                                       source.path() + QLatin1Char('/'), landing});
    QCOMPARE(again.exitCode, int(Done));
    QVERIFY2(
        again.output.contains(
            QStringLiteral("\n  ersetzt dort %1, sobald die Kopie vollständig ist\n").arg(amount)),
        qPrintable(again.output));
}

void tst_GermanCommands::whatScriptsReadStays_data()
{
    QTest::addColumn<QStringList>("arguments");

    for (const char *arguments : {"--version", "convert|2.5|m|ft", "safe-name|a:b", "projection|2",
                                  "name|--dir|.|--ext|txt|--prefix|p"}) {
        QTest::newRow(arguments) << words(arguments);
    }
}

void tst_GermanCommands::whatScriptsReadStays()
{
    QFETCH(QStringList, arguments);

    const Outcome german = runInGerman(arguments);
    QCOMPARE(german.exitCode, int(Done));
    QVERIFY(!german.output.isEmpty());
    QCOMPARE(german.output, runInC(arguments).output);
}

void tst_GermanCommands::progressIsTranslated()
{
    constexpr qint64 mebi = 1 << 20;
    qint64 now = 1'000'000;
    Progress progress([&now] { return now; });
    progress.start(100 * mebi);
    now += 1000;
    progress.update(20 * mebi);
    const QString english =
        QStringLiteral("20.0 MiB of 100.0 MiB  20 %  20.0 MiB/s  0:04 left  %1");
    const QString remark = QStringLiteral("remark");
    QCOMPARE(progressLine(progress, {}, remark, 0), english.arg(remark));
    {
        Translators translators;
        QVERIFY(translators.load(QLocale(QStringLiteral("de_AT"))));
        QCOMPARE(progressLine(progress, {}, remark, 0),
                 QStringLiteral("20,0 MiB von 100,0 MiB  20 %  20,0 MiB/s  noch 0:04  remark"));
        QVERIFY(!translators.load(QLocale(QStringLiteral("fr_FR"))));
        QCOMPARE(progressLine(progress, {}, remark, 0), english.arg(remark));
        QVERIFY(translators.load(QLocale(QStringLiteral("de_DE"))));
    }
    QCOMPARE(progressLine(progress, {}, remark, 0), english.arg(remark));
}

QTEST_GUILESS_MAIN(tst_GermanCommands)

#include "tst_GermanCommands.moc"
