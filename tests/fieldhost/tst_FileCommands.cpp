// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include <unistd.h>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2, SourceRefused = 3, DestinationRefused = 4 };

} // namespace

/** `ovo-fieldhost` size, compare, name, safe-name and free. */
class tst_FileCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void helpListsEveryExitCode_data();
    void helpListsEveryExitCode();
    void argumentsAreAskedFor_data();
    void argumentsAreAskedFor();

    void sizesAreShownInTheOrderAsked();
    void sizeOfNothingIsRefused();
    void sizeTellsWhatItCouldNotLookInto();
    void sizeNeedsNoThread();
    void equalFilesAreFoundEqual();
    void differentFilesAreFoundDifferent();
    void unreadableFileIsNamed();
    void nameIsTheNextThatIsFree();
    void nameOfDateAndTimeNeedsNoPrefix();
    void nameNeedsADirectory();
    void nameNeedsToKnowTheNamesThatAreTaken_data();
    void nameNeedsToKnowTheNamesThatAreTaken();
    void textIsMadeAName_data();
    void textIsMadeAName();
    void freeSpaceIsShown();
    void freeSpaceOfNowhereIsRefused();

    void outputThatCannotBeWrittenIsAFailure_data();
    void outputThatCannotBeWrittenIsAFailure();
    void controlCharactersDoNotReachTheTerminal();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    QScopedPointer<TemporaryFolder> m_folder;
};

void tst_FileCommands::init()
{
    m_folder.reset(new TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_FileCommands::cleanup()
{
    m_folder.reset();
}

void tst_FileCommands::helpListsEveryExitCode_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("codes");
    QTest::newRow("size") << QStringLiteral("size") << QStringLiteral("0123");
    QTest::newRow("compare") << QStringLiteral("compare") << QStringLiteral("0123");
    QTest::newRow("name") << QStringLiteral("name") << QStringLiteral("024");
    QTest::newRow("safe-name") << QStringLiteral("safe-name") << QStringLiteral("02");
    QTest::newRow("free") << QStringLiteral("free") << QStringLiteral("023");
    QTest::newRow("delete") << QStringLiteral("delete") << QStringLiteral("01236");
}

void tst_FileCommands::helpListsEveryExitCode()
{
    QFETCH(QString, command);
    for (const char *option : {"-h", "--help"}) {
        const Outcome outcome = Program::run({command, QLatin1String(option)});
        QCOMPARE(outcome.exitCode, int(Done));
        QCOMPARE(outcome.errors, QString());
        QVERIFY(outcome.output.startsWith(QLatin1String("Usage: ovo-fieldhost ") + command));
        QString codes;
        auto match =
            QRegularExpression(QStringLiteral("^  (\\d)  "), QRegularExpression::MultilineOption)
                .globalMatch(outcome.output);
        while (match.hasNext()) {
            codes += match.next().captured(1);
        }
        QTEST(codes, "codes");
    }
}

void tst_FileCommands::argumentsAreAskedFor_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *line, const char *reason) {
        QTest::newRow(*line != '\0' ? line : "nothing")
            << QString::fromUtf8(line).split(QLatin1Char(' ')) << QString::fromUtf8(reason);
    };
    row("size", "A PATH is missing.");
    row("size ", "A PATH is empty.");
    row("compare", "A FILE is missing.");
    row("compare a", "A FILE is missing.");
    row("compare a b c", "There is an argument too many: \"c\".");
    row("name", "--dir is missing.");
    row("name --dir .", "--ext is missing.");
    row("name --ext jpg", "--dir is missing.");
    row("name --dir . --ext jpg surplus", "There is an argument too many: \"surplus\".");
    row("safe-name", "A TEXT is missing.");
    row("safe-name ", "A TEXT is empty.");
    row("free", "A PATH is missing.");
    row("free a b", "There is an argument too many: \"b\".");
    row("delete", "A PATH is missing.");
    row("delete --yes", "A PATH is missing.");
    row("size --frobnicate", "Unknown option 'frobnicate'.");
}

void tst_FileCommands::argumentsAreAskedFor()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    const Outcome outcome = Program::run(arguments);
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(
        outcome.errors,
        QStringLiteral("%1\nTry: ovo-fieldhost %2 --help\n").arg(reason, arguments.constFirst()));
}

void tst_FileCommands::sizesAreShownInTheOrderAsked()
{
    makeFile(path("tree/.hidden"), someBytes(3000));
    makeFile(path("tree/sub/f"), someBytes(72));
    makeFile(path("file"), someBytes(5));
    QVERIFY(QFile::link(path("file"), path("tree/link")));
    QVERIFY(QDir().mkdir(path("empty")));
    const Outcome outcome =
        Program::run({QStringLiteral("size"), path("file"), path("tree"), path("empty")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output,
             QStringLiteral("5 B (5 bytes): \"%1\"\n3.0 KiB (3072 bytes): \"%2\"\n"
                            "0 B (0 bytes): \"%3\"\n")
                 .arg(path("file"), path("tree"), path("empty")));
    QCOMPARE(outcome.errors, QString());
}

void tst_FileCommands::sizeOfNothingIsRefused()
{
    makeFile(path("file"), someBytes(5));
    const Outcome outcome = Program::run({QStringLiteral("size"), path("missing"), path("file")});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.output, QStringLiteral("5 B (5 bytes): \"%1\"\n").arg(path("file")));
    QCOMPARE(outcome.errors,
             QStringLiteral("\"%1\" is neither directory nor file.\n").arg(path("missing")));
}

void tst_FileCommands::sizeTellsWhatItCouldNotLookInto()
{
    makeFile(path("tree/f"), someBytes(72));
    makeFile(path("tree/closed/g"), someBytes(1000));
    makeFile(path("tree/unreachable/h"), someBytes(1000));
    QVERIFY(QFile::setPermissions(path("tree/closed"), {}));
    QVERIFY(QFile::setPermissions(path("tree/unreachable"), QFile::ReadOwner));
    Program program;
    program.dropRights();
    program.begin({QStringLiteral("size"), path("tree"), path("tree/closed")});
    const Outcome outcome = program.end();
    for (const char *directory : {"tree/closed", "tree/unreachable"}) {
        QVERIFY(QFile::setPermissions(path(directory),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    if (outcome.exitCode == Program::cannotDropRights) {
        QSKIP("root's right to read everything cannot be given up here");
    }
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.output.contains(QStringLiteral(": \"%1\"\n").arg(path("tree"))));
    const QString sentence =
        QStringLiteral("What \"%1\" holds is not counted, or only in part (Permission denied).\n");
    QCOMPARE(outcome.errors.count(sentence.arg(path("tree/closed"))), 2);
    QCOMPARE(outcome.errors.count(sentence.arg(path("tree/unreachable"))), 1);
}

void tst_FileCommands::sizeNeedsNoThread()
{
    if (::geteuid() != 0) {
        QSKIP("a process namespace of its own needs the rights of root");
    }
    makeFile(path("tree/sub/f"), someBytes(72));
    Program program;
    program.refuseClones();
    program.begin({QStringLiteral("size"), path("tree")});
    const Outcome outcome = program.end();
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.output, QStringLiteral("72 B (72 bytes): \"%1\"\n").arg(path("tree")));
    QCOMPARE(outcome.exitCode, int(Done));
}

void tst_FileCommands::equalFilesAreFoundEqual()
{
    makeFile(path("a"), someBytes(300'000));
    makeFile(path("b"), someBytes(300'000));
    const Outcome outcome = Program::run({QStringLiteral("compare"), path("a"), path("b")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output,
             QStringLiteral("Equal: \"%1\" and \"%2\"\n").arg(path("a"), path("b")));
}

void tst_FileCommands::differentFilesAreFoundDifferent()
{
    makeFile(path("a"), "1");
    makeFile(path("b"), "2");
    const Outcome outcome = Program::run({QStringLiteral("compare"), path("a"), path("b")});
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output,
             QStringLiteral("Different: \"%1\" and \"%2\"\n").arg(path("a"), path("b")));
}

void tst_FileCommands::unreadableFileIsNamed()
{
    makeFile(path("a"), "1");
    const Outcome outcome = Program::run({QStringLiteral("compare"), path("a"), path("missing")});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.output, QString());
    QVERIFY(outcome.errors.contains(
        QStringLiteral("Could not read file content for MD5 sum check: ") + path("missing")));
}

void tst_FileCommands::nameIsTheNextThatIsFree()
{
    makeFile(path("a_b_0001.jpg"));
    const Outcome outcome = Program::run(
        {QStringLiteral("name"), QStringLiteral("--dir"), m_folder->path(), QStringLiteral("--ext"),
         QStringLiteral("jpg"), QStringLiteral("--prefix"), QStringLiteral("a/b")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, path("a_b_0002.jpg") + QLatin1Char('\n'));
    QVERIFY(!QFileInfo::exists(path("a_b_0002.jpg")));
}

void tst_FileCommands::nameOfDateAndTimeNeedsNoPrefix()
{
    const Outcome outcome = Program::run({QStringLiteral("name"), QStringLiteral("--dir"),
                                          m_folder->path(), QStringLiteral("--ext"), QString()});
    QCOMPARE(outcome.exitCode, int(Done));
    const QRegularExpression form(QStringLiteral("/\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d_0001\n$"));
    QVERIFY2(form.match(outcome.output).hasMatch(), qPrintable(outcome.output));
}

void tst_FileCommands::nameNeedsADirectory()
{
    const Outcome outcome =
        Program::run({QStringLiteral("name"), QStringLiteral("--dir"), path("missing"),
                      QStringLiteral("--ext"), QStringLiteral("jpg")});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors, QStringLiteral("\"%1\" is not a directory.\n").arg(path("missing")));
}

void tst_FileCommands::nameNeedsToKnowTheNamesThatAreTaken_data()
{
    QTest::addColumn<int>("rights");
    QTest::newRow("a directory that may not be read") << int(QFile::ExeOwner | QFile::WriteOwner);
    QTest::newRow("a directory that may not be entered")
        << int(QFile::ReadOwner | QFile::WriteOwner);
}

void tst_FileCommands::nameNeedsToKnowTheNamesThatAreTaken()
{
    QFETCH(int, rights);
    makeFile(path("closed/a_0001.jpg"));
    QVERIFY(QFile::setPermissions(path("closed"), QFile::Permissions(rights)));
    Program program;
    program.dropRights();
    program.begin({QStringLiteral("name"), QStringLiteral("--dir"), path("closed"),
                   QStringLiteral("--ext"), QStringLiteral("jpg"), QStringLiteral("--prefix"),
                   QStringLiteral("a")});
    const Outcome outcome = program.end();
    QVERIFY(QFile::setPermissions(path("closed"),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    if (outcome.exitCode == Program::cannotDropRights) {
        QSKIP("root's right to read everything cannot be given up here");
    }
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors,
             QStringLiteral("Which names are taken in \"%1\" cannot be read (Permission denied).\n")
                 .arg(path("closed")));
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
}

void tst_FileCommands::textIsMadeAName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("several invalid letters")
        << QStringLiteral("a<b>:c. ") << QStringLiteral("a_b__c_");
    QTest::newRow("beyond ASCII") << QStringLiteral("Straße 1/2") << QStringLiteral("Straße 1_2");
}

void tst_FileCommands::textIsMadeAName()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    const Outcome outcome = Program::run({QStringLiteral("safe-name"), text});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output, name + QLatin1Char('\n'));
}

void tst_FileCommands::freeSpaceIsShown()
{
    const Outcome outcome = Program::run({QStringLiteral("free"), m_folder->path()});
    QCOMPARE(outcome.exitCode, int(Done));
    const QRegularExpression form(QStringLiteral("^[\\d.]+ [KMGT]?i?B \\(\\d+ bytes\\) free: \""));
    QVERIFY2(form.match(outcome.output).hasMatch(), qPrintable(outcome.output));
    QVERIFY(outcome.output.endsWith(m_folder->path() + QLatin1String("\"\n")));
}

void tst_FileCommands::freeSpaceOfNowhereIsRefused()
{
    const Outcome outcome = Program::run({QStringLiteral("free"), path("missing")});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("There is no volume that holds \"%1\".\n").arg(path("missing")));
}

void tst_FileCommands::outputThatCannotBeWrittenIsAFailure_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("cause");
    const char *full = "No space left on device";
    const auto row = [](const char *line, const char *cause) {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(cause);
    };
    row("--help >/dev/full", full);
    row("--version >/dev/full", full);
    row("size --help >/dev/full", full);
    row("size a >/dev/full", full);
    row("compare a a >/dev/full", full);
    row("free a >/dev/full", full);
    row("safe-name x >/dev/full", full);
    row("name --dir . --ext x >/dev/full", full);
    row("delete --yes b >/dev/full", full);
    row("export a c >/dev/full", full);
    row("countries >/dev/full", full);
    row("convert 1 m ft >/dev/full", full);
    row("size a >&-", "Bad file descriptor");
    row("export a d >&-", "Bad file descriptor");
}

void tst_FileCommands::outputThatCannotBeWrittenIsAFailure()
{
    QFETCH(QString, line);
    QFETCH(QString, cause);
    makeFile(path("a"), "1");
    makeFile(path("b"), "1");
    QProcess shell;
    shell.setWorkingDirectory(m_folder->path());
    shell.start(QStringLiteral("sh"),
                {QStringLiteral("-c"), QStringLiteral("exec \"$0\" ") + line, programPath()});
    QVERIFY(shell.waitForFinished());
    // for "compare", the usual code is an answer
    const bool isCompare = line.startsWith(QLatin1String("compare"));
    QCOMPARE(shell.exitCode(), int(isCompare ? SourceRefused : Failed));
    QCOMPARE(QString::fromUtf8(shell.readAllStandardError()),
             QStringLiteral("The output could not be written (%1).\n").arg(cause));
    // what was asked for is done all the same, and holds nothing of the output
    if (line.startsWith(QLatin1String("export"))) {
        QCOMPARE(contentOf(path(qPrintable(line.mid(9, 1) + QStringLiteral("/a")))),
                 QByteArray("1"));
    }
}

void tst_FileCommands::controlCharactersDoNotReachTheTerminal()
{
    // the library logs the name as it is
    const QString name = QStringLiteral("a\x1b[2J\x07\u202e");
    makeFile(path("b"), "1");
    const Outcome outcome = Program::run(
        {QStringLiteral("compare"), m_folder->path() + QLatin1Char('/') + name, path("b")});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QVERIFY2(outcome.errors.contains(QLatin1String("/a\\x1b[2J\\x07\\u202e")),
             qPrintable(outcome.errors));
    for (const QChar c : outcome.errors) {
        QVERIFY(c == QLatin1Char('\n') || (c.unicode() >= 0x20 && c.unicode() != 0x202e));
    }
}

QTEST_GUILESS_MAIN(tst_FileCommands)

#include "tst_FileCommands.moc"
