// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Test;

namespace {

enum Exit { Done = 0, SourceRefused = 3, DestinationRefused = 4, NoSpace = 5 };

const QString s_export = QStringLiteral("export");
const QString s_intoExisting = QStringLiteral("--into-existing");

bool matches(const QString &text, const QString &pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

} // namespace

/** `ovo-fieldhost export` from a script: what it copies where, and what it refuses. */
class tst_Export : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aDirectoryLandsUnderItsName();
    void contentsLandInTheDestinationItself_data();
    void contentsLandInTheDestinationItself();
    void aFileLandsUnderItsName();
    void severalSourcesLandSideBySide();
    void missingDirectoriesOfTheDestinationAreCreated();
    void anEmptyDirectoryIsCopied();
    void whatIsLeftOutIsTold();
    void namesOfAllKindsArrive_data();
    void namesOfAllKindsArrive();
    void namesArriveWithoutALocale();
    void veryLongPathsArrive();
    void plainLinesComeOncePerSecond();
    void aReaderThatLeavesDoesNotEndTheCopy();
    void theExitCodeIsThatOfTheCopyUnderNohup();

    void aMissingSourceIsRefused_data();
    void aMissingSourceIsRefused();
    void aSourceThatIsNoFileIsRefused();
    void problemsOfASourceAreNamed();
    void longListsOfProblemsAreCut();
    void anUnreadableFileIsRefused_data();
    void anUnreadableFileIsRefused();

    void aFilledDestinationIsRefused();
    void anEmptyDestinationIsNot();
    void aDestinationThatIsNoDirectoryIsRefused_data();
    void aDestinationThatIsNoDirectoryIsRefused();
    void aDestinationWithoutRightsIsRefused();
    void sourceAndDestinationMustNotOverlap_data();
    void sourceAndDestinationMustNotOverlap();
    void twoSourcesMustNotLandOnOnePlace();
    void filesOfTwoSourcesMustNotCollide();
    void aPathThatWouldBeTooLongIsRefused();
    void tooMuchForTheDeviceIsRefused();

    void intoExistingKeepsWhatIsThere();
    void intoExistingReplacesFilesOfTheSameName();
    void intoExistingReplacesASingleFile();
    void intoExistingRefusesADirectoryInAFilesPlace();
    void intoExistingRefusesAFileInADirectoriesPlace();
    void intoExistingRefusesAnotherKindOfLanding();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    bool nothingWasWritten() const { return !QFile::exists(m_destination); }

    std::unique_ptr<Test::TemporaryFolder> m_folder;
    QString m_source;
    QString m_destination;
};

void tst_Export::init()
{
    m_folder = std::make_unique<Test::TemporaryFolder>();
    m_source = path(QStringLiteral("source"));
    m_destination = path(QStringLiteral("destination"));
    makeFile(m_source + QStringLiteral("/a.bin"), someBytes(5'000'000));
    makeFile(m_source + QStringLiteral("/sub/b.txt"), "text");
    makeFile(m_source + QStringLiteral("/sub/zero"));
}

void tst_Export::aDirectoryLandsUnderItsName()
{
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QVERIFY2(matches(outcome.output,
                     QStringLiteral("Copying 3 files \\(4\\.8 MiB\\) from \"%1\" to \"%2/source\"\n"
                                    "(.* of 4\\.8 MiB  .*\n)*"
                                    "Done: 3 files, 4\\.8 MiB in \\d+\\.\\d s "
                                    "\\(\\d+\\.\\d+ MiB/s\\)\n")
                         .arg(m_source, m_destination)),
             qPrintable(outcome.output));
    QCOMPARE(QDir(m_destination).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("source")});
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
}

void tst_Export::contentsLandInTheDestinationItself_data()
{
    QTest::addColumn<QString>("source");

    QTest::newRow("a slash at the end") << QStringLiteral("../source/");
    QTest::newRow("the current directory") << QStringLiteral(".");
    QTest::newRow("a dot at the end") << QStringLiteral("../source/.");
    QTest::newRow("the parent directory") << QStringLiteral("sub/..");
}

void tst_Export::contentsLandInTheDestinationItself()
{
    QFETCH(QString, source);

    Program program;
    program.setWorkingDirectory(m_source);
    program.begin({s_export, source, QStringLiteral("../destination")});
    const Outcome outcome = program.end();
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(treeOf(m_destination), treeOf(m_source));
}

void tst_Export::aFileLandsUnderItsName()
{
    const Outcome outcome =
        Program::run({s_export, m_source + QStringLiteral("/a.bin"), m_destination});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(treeOf(m_destination).keys(), QStringList{QStringLiteral("a.bin")});
    QCOMPARE(contentOf(m_destination + QStringLiteral("/a.bin")), someBytes(5'000'000));
}

void tst_Export::severalSourcesLandSideBySide()
{
    makeFile(path(QStringLiteral("other/c")), "c");
    makeFile(path(QStringLiteral("single")), "single");
    makeFile(path(QStringLiteral("loose/d")), "d");
    const Outcome outcome = Program::run(
        {s_export, m_source, path(QStringLiteral("single")), path(QStringLiteral("other")),
         path(QStringLiteral("loose/")), m_source + QStringLiteral("/sub/zero"), m_destination});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.contains(QLatin1String("Done: 7 files, 4.8 MiB in ")));
    QMap<QString, QByteArray> expected;
    const QMap<QString, QByteArray> source = treeOf(m_source);
    for (auto it = source.begin(); it != source.end(); ++it) {
        expected.insert(QStringLiteral("source/") + it.key(), it.value());
    }
    expected.insert(QStringLiteral("source/"), QByteArray());
    expected.insert(QStringLiteral("other/"), QByteArray());
    expected.insert(QStringLiteral("other/c"), "c");
    expected.insert(QStringLiteral("single"), "single");
    expected.insert(QStringLiteral("d"), "d");
    expected.insert(QStringLiteral("zero"), QByteArrayLiteral(""));
    QCOMPARE(treeOf(m_destination), expected);
}

void tst_Export::missingDirectoriesOfTheDestinationAreCreated()
{
    const QString deep = m_destination + QStringLiteral("/a/b/c");
    QCOMPARE(Program::run({s_export, m_source, deep}).exitCode, int(Done));
    QCOMPARE(treeOf(deep + QStringLiteral("/source")), treeOf(m_source));
}

void tst_Export::anEmptyDirectoryIsCopied()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral("empty"))));
    const Outcome outcome = Program::run({s_export, path(QStringLiteral("empty")), m_destination});
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.contains(QLatin1String("\nDone: 0 files, 0 B in ")));
    QCOMPARE(treeOf(m_destination).keys(), QStringList{QStringLiteral("empty/")});
}

void tst_Export::whatIsLeftOutIsTold()
{
    const QMap<QString, QByteArray> before = treeOf(m_source);
    makeFile(m_source + QStringLiteral("/.hidden"));
    makeFile(m_source + QStringLiteral("/sub/.directory/inside"));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), m_source + QStringLiteral("/broken")));
    QVERIFY(::mkfifo(QFile::encodeName(m_source + QStringLiteral("/pipe")).constData(), 0600) == 0);
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY2(outcome.output.contains(
                 QLatin1String("\nLeft out: 2 hidden entries, 1 link that leads nowhere, "
                               "1 pipe, socket or device\n")),
             qPrintable(outcome.output));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), before);
}

void tst_Export::namesOfAllKindsArrive_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("blanks at both ends") << QStringLiteral("  a b  ");
    QTest::newRow("a tab at the end") << QStringLiteral("a\t");
    QTest::newRow("Cyrillic") << QString::fromUtf8("Канализация № 5");
    QTest::newRow("Japanese") << QString::fromUtf8("下水道管渠の調査");
    QTest::newRow("Arabic") << QString::fromUtf8("أنبوب");
    QTest::newRow("beyond the first plane") << QString::fromUtf8("🚰𝄞");
    QTest::newRow("a letter and an accent") << QString::fromUtf8("e\u0301");
    QTest::newRow("a letter with an accent") << QString::fromUtf8("\u00e9");
    QTest::newRow("a line feed") << QStringLiteral("a\nb");
    QTest::newRow("a backslash and quotes") << QStringLiteral("\\\"'`$x");
    QTest::newRow("a dash in front") << QStringLiteral("-rf");
    QTest::newRow("a colon in front") << QStringLiteral(":a");
    QTest::newRow("wildcards") << QStringLiteral("*?[a]");
    QTest::newRow("percent signs") << QStringLiteral("%1 %2 %s");
    QTest::newRow("as long as a name can be") << QString(255, QLatin1Char('n'));
}

void tst_Export::namesOfAllKindsArrive()
{
    QFETCH(QString, name);

    // as directory, as file in it, as source that is a file, and as the destination
    const QString place = path(QStringLiteral("place"));
    makeFile(place + QLatin1Char('/') + name + QLatin1Char('/') + name, "in the directory");
    makeFile(path(QStringLiteral("files/")) + name + QStringLiteral("2").left(name.size() < 255),
             "alone");
    const QString file = QDir(path(QStringLiteral("files"))).entryList(QDir::Files).constFirst();
    makeFile(path(QStringLiteral("again/")) + name, "alone");
    const QString destination = place + QStringLiteral("/d/") + name;

    Program program;
    program.setWorkingDirectory(place);
    program.begin(
        {s_export, QStringLiteral("--"), name, path(QStringLiteral("again/")) + name, destination});
    Outcome outcome = program.end();
    // a directory and a file of one name cannot both land there
    QCOMPARE(outcome.exitCode, int(DestinationRefused));

    program.begin(
        {s_export, QStringLiteral("--"), name, path(QStringLiteral("files/")) + file, destination});
    outcome = program.end();
    if (name.size() == 255) {
        QCOMPARE(outcome.exitCode, int(DestinationRefused)); // the same name again
        program.begin({s_export, QStringLiteral("--"), name, destination});
        outcome = program.end();
    } else {
        QCOMPARE(contentOf(destination + QLatin1Char('/') + file), QByteArray("alone"));
    }
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(contentOf(destination + QLatin1Char('/') + name + QLatin1Char('/') + name),
             QByteArray("in the directory"));

    program.begin({s_export, QStringLiteral("--"), path(QStringLiteral("again/")) + name,
                   destination + QStringLiteral("/x")});
    outcome = program.end();
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(treeOf(destination + QStringLiteral("/x")).keys(), QStringList{name});
}

void tst_Export::namesArriveWithoutALocale()
{
    makeFile(m_source + QString::fromUtf8("/管渠/труба"), "any script");
    Program program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    program.setProcessEnvironment(environment);
    program.begin({s_export, m_source, m_destination + QString::fromUtf8("/é")});
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.contains(QString::fromUtf8("/é/source\"\n")));
    QCOMPARE(treeOf(m_destination + QString::fromUtf8("/é/source")), treeOf(m_source));
}

void tst_Export::veryLongPathsArrive()
{
    QString deep = m_source;
    while (deep.size() < 3800) {
        deep += QLatin1Char('/') + QString(200, QLatin1Char('d'));
    }
    makeFile(deep + QStringLiteral("/file"), "deep");
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
}

void tst_Export::plainLinesComeOncePerSecond()
{
    FakeCommands commands;
    commands.add(QStringLiteral("sync"), "sleep 2.5");
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(Done));
    const int lines = outcome.output.count(QLatin1String(" of 4.8 MiB  "));
    QVERIFY2(lines == 2 || lines == 3, qPrintable(outcome.output)); // 3 when the machine is busy
    QVERIFY(!outcome.output.contains(QLatin1Char('\r')));
    QVERIFY(!outcome.output.contains(QLatin1Char('\x1b')));
}

void tst_Export::aReaderThatLeavesDoesNotEndTheCopy()
{
    Program program;
    program.closeReadChannel(QProcess::StandardOutput);
    program.closeReadChannel(QProcess::StandardError);
    program.setProcessChannelMode(QProcess::SeparateChannels);
    QProcess shell;
    shell.start(QStringLiteral("sh"),
                {QStringLiteral("-c"),
                 QStringLiteral("{ \"$@\"; echo $? >\"$0\"; } | true; while ! [ -s \"$0\" ]; "
                                "do sleep 0.01; done"),
                 path(QStringLiteral("code")), programPath(), s_export, m_source, m_destination});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(contentOf(path(QStringLiteral("code"))), QByteArray("0\n"));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
}

void tst_Export::theExitCodeIsThatOfTheCopyUnderNohup()
{
    // the shell ignores SIGHUP and passes that on; the copy survives the signal
    FakeCommands commands;
    commands.add(QStringLiteral("sync"), "kill -HUP $PPID");
    QProcess shell;
    shell.start(QStringLiteral("sh"),
                {QStringLiteral("-c"), QStringLiteral("trap '' HUP; exec \"$@\""),
                 QStringLiteral("sh"), programPath(), s_export, m_source, m_destination});
    QVERIFY(shell.waitForFinished());
    QVERIFY(!commands.journal().isEmpty());
    QCOMPARE(shell.exitCode(), int(Done));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
}

void tst_Export::aMissingSourceIsRefused_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << QStringLiteral("gone")
                             << QStringLiteral("The source \"gone\" does not exist.\n");
    QTest::newRow("a broken link")
        << QStringLiteral("broken")
        << QStringLiteral("The source \"broken\" is a link that leads nowhere.\n");
    QTest::newRow("a file with a slash")
        << QStringLiteral("a.bin/")
        << QStringLiteral("The source \"a.bin/\" is not a directory.\n");
}

void tst_Export::aMissingSourceIsRefused()
{
    QFETCH(QString, source);
    QFETCH(QString, reason);

    QVERIFY(QFile::link(QStringLiteral("nowhere"), m_source + QStringLiteral("/broken")));
    Program program;
    program.setWorkingDirectory(m_source);
    program.begin({s_export, QStringLiteral("sub"), source, m_destination});
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.errors, reason);
    QCOMPARE(outcome.output, QString());
    QVERIFY(nothingWasWritten());
}

void tst_Export::aSourceThatIsNoFileIsRefused()
{
    const Outcome outcome = Program::run({s_export, QStringLiteral("/dev/null"), m_destination});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("\"/dev/null\": neither a directory nor a regular file.\n"
                            "So a copy of \"/dev/null\" could not be whole; nothing was "
                            "copied.\n"));
    QVERIFY(nothingWasWritten());
}

void tst_Export::problemsOfASourceAreNamed()
{
    QVERIFY(QFile::link(QStringLiteral("/dev/null"), m_source + QStringLiteral("/sub/device")));
    QVERIFY(QFile::link(QStringLiteral("."), m_source + QStringLiteral("/loop")));
    QVERIFY(::mknod((QFile::encodeName(m_source) + "/n\xff").constData(), S_IFREG | 0600, 0) == 0);
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral(
                 "\"%1/n\\xff\": the name is not valid UTF-8; it can be copied once renamed.\n"
                 "\"%1/loop\": the link leads back to a directory that holds it, so the copy would "
                 "never end.\n"
                 "\"%1/sub/device\": the link leads to a pipe, a socket or a device.\n"
                 "So a copy of \"%1/\" could not be whole; nothing was copied.\n")
                 .arg(m_source));
    QCOMPARE(outcome.output, QString());
    QVERIFY(nothingWasWritten());
}

void tst_Export::longListsOfProblemsAreCut()
{
    for (int i = 0; i < 7; ++i) {
        QVERIFY(QFile::link(QStringLiteral("/dev/null"),
                            m_source + QStringLiteral("/device%1").arg(i)));
    }
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.errors.count(QLatin1String("leads to a pipe")), 5);
    QVERIFY(outcome.errors.contains(QLatin1String("\nThe same goes for 2 more entries.\n")));
}

void tst_Export::anUnreadableFileIsRefused_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("cause");

    QTest::newRow("a file") << QStringLiteral("/sub/b.txt")
                            << QStringLiteral("the file cannot be read (Permission denied)");
    QTest::newRow("a directory") << QStringLiteral(
        "/sub") << QStringLiteral("the directory cannot be read (Permission denied)");
}

void tst_Export::anUnreadableFileIsRefused()
{
    QFETCH(QString, entry);
    QFETCH(QString, cause);

    QVERIFY(QFile::setPermissions(m_source + entry, {}));
    Program program;
    program.dropRights();
    program.begin({s_export, m_source, m_destination});
    const Outcome outcome = program.end();
    QVERIFY(QFile::setPermissions(m_source + entry,
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    if (outcome.exitCode == Program::cannotDropRights) {
        QSKIP("root's right to read everything cannot be given up here");
    }
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QVERIFY2(
        outcome.errors.startsWith(QStringLiteral("\"%1\": %2.\n").arg(m_source + entry, cause)),
        qPrintable(outcome.errors));
    QVERIFY(nothingWasWritten());
}

void tst_Export::aFilledDestinationIsRefused()
{
    makeFile(m_destination + QStringLiteral("/.precious"), "keep");
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.output, QString());
    QVERIFY(outcome.errors.startsWith(
        QStringLiteral("The destination \"%1\" exists and is not empty.\n").arg(m_destination)));
    QVERIFY(outcome.errors.contains(QLatin1String(
        "An abort removes the directories of a copy whole, with all that they held")));
    QVERIFY(outcome.errors.contains(s_intoExisting));
    QCOMPARE(treeOf(m_destination).keys(), QStringList{QStringLiteral(".precious")});
}

void tst_Export::anEmptyDestinationIsNot()
{
    QVERIFY(QDir().mkpath(m_destination));
    QCOMPARE(Program::run({s_export, m_source + QLatin1Char('/'), m_destination}).exitCode,
             int(Done));
    QCOMPARE(treeOf(m_destination), treeOf(m_source));
}

void tst_Export::aDestinationThatIsNoDirectoryIsRefused_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("reason");

    QTest::newRow("a file") << QStringLiteral("a.bin")
                            << QStringLiteral("The destination \"%1/a.bin\" is not a directory.\n");
    QTest::newRow("below a file")
        << QStringLiteral("a.bin/x")
        << QStringLiteral("The destination \"%1/a.bin/x\" cannot be created: \"%1/a.bin\" is not "
                          "a directory.\n");
    QTest::newRow("a broken link")
        << QStringLiteral("broken")
        << QStringLiteral("The destination \"%1/broken\" cannot be created: \"%1/broken\" is a "
                          "link that leads nowhere.\n");
}

void tst_Export::aDestinationThatIsNoDirectoryIsRefused()
{
    QFETCH(QString, destination);
    QFETCH(QString, reason);

    QVERIFY(QFile::link(QStringLiteral("nowhere"), m_source + QStringLiteral("/broken")));
    Program program;
    program.setWorkingDirectory(m_source);
    program.begin({s_export, QStringLiteral("sub"), destination});
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors, reason.arg(m_source));
}

void tst_Export::aDestinationWithoutRightsIsRefused()
{
    const QString locked = path(QStringLiteral("locked"));
    QVERIFY(QDir().mkpath(locked));
    QVERIFY(QFile::setPermissions(locked, QFile::ReadOwner | QFile::ExeOwner));
    Program program;
    program.dropRights();
    program.begin({s_export, m_source, locked + QStringLiteral("/new")});
    const Outcome outcome = program.end();
    if (outcome.exitCode == Program::cannotDropRights) {
        QSKIP("root's right to write everywhere cannot be given up here");
    }
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("Nothing can be written to \"%1\" (Permission denied).\n").arg(locked));
}

void tst_Export::sourceAndDestinationMustNotOverlap_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    const QString onto = QStringLiteral("\"%1\" would be copied onto itself.\n");
    QTest::newRow("a directory into its parent")
        << QStringList{QStringLiteral("source"), QStringLiteral(".")} << onto;
    QTest::newRow("contents into their directory")
        << QStringList{QStringLiteral("source/"), QStringLiteral("source")} << onto;
    QTest::newRow("through a link")
        << QStringList{QStringLiteral("link/"), QStringLiteral("source")} << onto;
    QTest::newRow("into itself")
        << QStringList{QStringLiteral("source"), QStringLiteral("source/new")}
        << QStringLiteral("The destination \"%1/new/source\" lies inside the source \"%1\", so "
                          "the copy would hold itself.\n");
    QTest::newRow("into itself through a link")
        << QStringList{QStringLiteral("source"), QStringLiteral("link/new")}
        << QStringLiteral("The destination \"%1/new/source\" lies inside the source \"%1\", so "
                          "the copy would hold itself.\n");
    QTest::newRow("out of itself")
        << QStringList{QStringLiteral("source/sub/"), QStringLiteral("source")}
        << QStringLiteral("The source \"%1/sub\" lies inside the destination \"%1\", so the copy "
                          "could replace parts of its own source.\n");
    QTest::newRow("a file into its directory")
        << QStringList{QStringLiteral("source/a.bin"), QStringLiteral("source")}
        << QStringLiteral("\"%1/a.bin\" would be copied onto itself.\n");
    QTest::newRow("a file onto another name of it")
        << QStringList{QStringLiteral("source/a.bin"), QStringLiteral("names")}
        << QStringLiteral("\"%1/a.bin\" would be copied onto itself.\n");
}

void tst_Export::sourceAndDestinationMustNotOverlap()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    QVERIFY(QFile::link(QStringLiteral("source"), path(QStringLiteral("link"))));
    QVERIFY(QDir().mkpath(path(QStringLiteral("names"))));
    QVERIFY(::link(QFile::encodeName(m_source + QStringLiteral("/a.bin")).constData(),
                   QFile::encodeName(path(QStringLiteral("names/a.bin"))).constData())
            == 0);
    const QMap<QString, QByteArray> before = treeOf(m_source);
    for (const QStringList &options : {QStringList(), QStringList{s_intoExisting}}) {
        Program program;
        program.setWorkingDirectory(m_folder->path());
        program.begin(QStringList{s_export} + options + arguments);
        const Outcome outcome = program.end();
        QCOMPARE(outcome.errors, reason.arg(QFileInfo(m_source).canonicalFilePath()));
        QCOMPARE(outcome.exitCode, int(DestinationRefused));
    }
    QCOMPARE(treeOf(m_source), before);
}

void tst_Export::twoSourcesMustNotLandOnOnePlace()
{
    makeFile(path(QStringLiteral("other/source/c")));
    const QString other = path(QStringLiteral("other/source"));
    const Outcome outcome = Program::run({s_export, m_source, other, m_destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("\"%1/\" and \"%2/\" would both be copied to \"%3/source\".\n")
                 .arg(m_source, other, m_destination));
    QVERIFY(nothingWasWritten());
}

void tst_Export::filesOfTwoSourcesMustNotCollide()
{
    makeFile(path(QStringLiteral("one/sub/b.txt")));
    Outcome outcome = Program::run(
        {s_export, m_source + QLatin1Char('/'), path(QStringLiteral("one/")), m_destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("\"%1/sub/b.txt\" and \"%2/one/sub/b.txt\" would both be copied to "
                            "\"%3/sub/b.txt\".\n")
                 .arg(m_source, m_folder->path(), m_destination));

    makeFile(path(QStringLiteral("two/sub")));
    outcome = Program::run(
        {s_export, m_source + QLatin1Char('/'), path(QStringLiteral("two/")), m_destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(
        outcome.errors,
        QStringLiteral("The file \"%1/two/sub\" and a directory of \"%2/\" would both be copied "
                       "to \"%3/sub\".\n")
            .arg(m_folder->path(), m_source, m_destination));
    QVERIFY(nothingWasWritten());
}

void tst_Export::aPathThatWouldBeTooLongIsRefused()
{
    QString deep = m_source;
    while (deep.size() < 3600) {
        deep += QLatin1Char('/') + QString(200, QLatin1Char('d'));
    }
    makeFile(deep + QStringLiteral("/file"));
    QString destination = m_destination;
    for (int i = 0; i < 3; ++i) {
        destination += QLatin1Char('/') + QString(200, QLatin1Char('l'));
    }
    const Outcome outcome = Program::run({s_export, m_source, destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QVERIFY(outcome.errors.startsWith(QLatin1String("The path of \"") + destination));
    QVERIFY(outcome.errors.contains(QLatin1String(" and 4095 are possible.")));
    QVERIFY(nothingWasWritten());
}

void tst_Export::tooMuchForTheDeviceIsRefused()
{
    // holes take no room here, and would at the destination
    const QString big = m_source + QStringLiteral("/big");
    makeFile(big);
    QVERIFY(::truncate(QFile::encodeName(big).constData(), off_t(7) << 40) == 0);
    const Outcome outcome = Program::run({s_export, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(NoSpace));
    QCOMPARE(outcome.output, QString());
    QVERIFY2(matches(outcome.errors,
                     QStringLiteral("Not enough free space in \".*\": the copy needs 7\\.0 TiB, "
                                    "and .* are free, so .* are missing\\.\n")),
             qPrintable(outcome.errors));
    QVERIFY(nothingWasWritten());
}

void tst_Export::intoExistingKeepsWhatIsThere()
{
    makeFile(m_destination + QStringLiteral("/other"), "other");
    makeFile(m_destination + QStringLiteral("/sub/.hidden"), "hidden");
    const Outcome outcome =
        Program::run({s_export, s_intoExisting, m_source + QLatin1Char('/'), m_destination});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QMap<QString, QByteArray> expected = treeOf(m_source);
    expected.insert(QStringLiteral("other"), "other");
    expected.insert(QStringLiteral("sub/.hidden"), "hidden");
    QCOMPARE(treeOf(m_destination), expected);
}

void tst_Export::intoExistingReplacesFilesOfTheSameName()
{
    makeFile(m_destination + QStringLiteral("/source/a.bin"), "old");
    makeFile(m_destination + QStringLiteral("/source/sub/b.txt"), "old and longer");
    const Outcome outcome = Program::run({s_export, s_intoExisting, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.contains(
        QLatin1String("\n  replaces 2 files there, once all of the copy is whole\n")));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
}

void tst_Export::intoExistingReplacesASingleFile()
{
    makeFile(m_destination + QStringLiteral("/a.bin"), "old");
    makeFile(m_destination + QStringLiteral("/other"), "other");
    const Outcome outcome = Program::run(
        {s_export, m_source + QStringLiteral("/a.bin"), m_destination, s_intoExisting});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(treeOf(m_destination).keys(),
             (QStringList{QStringLiteral("a.bin"), QStringLiteral("other")}));
    QCOMPARE(contentOf(m_destination + QStringLiteral("/a.bin")), someBytes(5'000'000));
}

void tst_Export::intoExistingRefusesADirectoryInAFilesPlace()
{
    makeFile(m_destination + QStringLiteral("/sub"), "a file");
    const Outcome outcome =
        Program::run({s_export, s_intoExisting, m_source + QLatin1Char('/'), m_destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(
        outcome.errors,
        QStringLiteral("The directory \"%1/sub\" cannot take the place of \"%2/sub\", which is "
                       "not a directory.\n")
            .arg(m_source, m_destination));
    QCOMPARE(treeOf(m_destination).keys(), QStringList{QStringLiteral("sub")});
}

void tst_Export::intoExistingRefusesAFileInADirectoriesPlace()
{
    QVERIFY(QDir().mkpath(m_destination + QStringLiteral("/a.bin")));
    const Outcome outcome =
        Program::run({s_export, s_intoExisting, m_source + QLatin1Char('/'), m_destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("The file \"%1/a.bin\" cannot take the place of \"%2/a.bin\", which "
                            "is a directory.\n")
                 .arg(m_source, m_destination));
    QCOMPARE(treeOf(m_destination).keys(), QStringList{QStringLiteral("a.bin/")});
}

void tst_Export::intoExistingRefusesAnotherKindOfLanding()
{
    makeFile(m_destination + QStringLiteral("/source"), "a file");
    Outcome outcome = Program::run({s_export, s_intoExisting, m_source, m_destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("The directory \"%1/\" cannot be copied to \"%2/source\", which is not "
                            "a directory.\n")
                 .arg(m_source, m_destination));

    QVERIFY(QDir().mkpath(m_destination + QStringLiteral("/a.bin")));
    outcome = Program::run(
        {s_export, s_intoExisting, m_source + QStringLiteral("/a.bin"), m_destination});
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(outcome.errors,
             QStringLiteral("The file \"%1/a.bin\" cannot be copied to \"%2/a.bin\", which is "
                            "not a file.\n")
                 .arg(m_source, m_destination));
}

QTEST_GUILESS_MAIN(tst_Export)

#include "tst_Export.moc"
