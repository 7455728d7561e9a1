// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"
#include "tests/fieldhost/TerminalProgram.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <csignal>
#include <memory>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2, DestinationRefused = 4, Aborted = 6 };

QByteArrayList linesThatBegin(const QByteArray &prefix, const QByteArray &content)
{
    QByteArrayList lines;
    const QByteArrayList all = content.split('\n');
    for (const QByteArray &line : all) {
        if (line.startsWith(prefix)) {
            lines += line;
        }
    }
    return lines;
}

} // namespace

/** `ovo-fieldhost record`: the file that the real handler leaves. */
class tst_Record : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theFileIsThatOfTheDrive();
    void recordingTwiceIsTheSame();
    void feetAreWritten();
    void anObservationIsASample();
    void aPauseIsNoTimeOfTheVideo();
    void aFileThatIsThereIsContinued();
    void whatIsRecordedUpToASignalIsWritten_data();
    void whatIsRecordedUpToASignalIsWritten();
    void aFileThatCannotBeWrittenAtTheEndIsReported();
    void progressIsShownOnATerminal();

    void thePlaceMustBeFit_data();
    void thePlaceMustBeFit();
    void theCommandLineMustBeUnderstood_data();
    void theCommandLineMustBeUnderstood();
    void helpNamesEveryOptionAndExitCode();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    Outcome record(const QStringList &options) const
    {
        return Program::run(QStringList{QStringLiteral("record"), m_clip, QStringLiteral("--speed"),
                                        QStringLiteral("100")}
                            + options);
    }

    std::unique_ptr<TemporaryFolder> m_folder;
    QString m_clip;
    QString m_info;
};

void tst_Record::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    QVERIFY(m_folder->isValid());
    m_clip = path(QStringLiteral("clip.001.mp4"));
    m_info = path(QStringLiteral("clip.txt"));
}

void tst_Record::cleanup()
{
    m_folder.reset();
}

void tst_Record::theFileIsThatOfTheDrive()
{
    const Outcome outcome = record({QStringLiteral("--duration"), QStringLiteral("8")});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output,
             QStringLiteral("Recorded 8.0 s of video, 75 samples in \"%1\"\n").arg(m_info));
    QVERIFY(!QFile::exists(m_clip));

    const QByteArray content = contentOf(m_info);
    QVERIFY(content.startsWith("[ClipInfo]\nApplication=ovo-fieldhost\n"));
    QVERIFY(content.contains("\nOriginalClipName=clip.001.mp4\n"));
    QVERIFY(content.contains("\nDistanceUnit=m\n"));
    QVERIFY(content.contains("\nIntercept=0.00456\nSlope=1.23\n"));
    const QByteArrayList samples = linesThatBegin("Val", content);
    QCOMPARE(samples.size(), 75);
    QCOMPARE(samples.at(0), QByteArray("Val00000=0.000;0.000;0;0.000;0.000"));
    // 0.2 m/s and a sample every 0.05 m, in frames of 40 ms
    QCOMPARE(samples.at(1), QByteArray("Val00001=0.280;0.056;0;0.000;0.000"));
    // a look to the right after seven seconds: a sample for pan and one for tilt
    QCOMPARE(samples.at(25), QByteArray("Val00025=7.040;1.344;0;5.000;0.000"));
    QCOMPARE(samples.at(26), QByteArray("Val00026=7.040;1.344;0;5.000;0.800"));
    QCOMPARE(samples.last(), QByteArray("Val00074=8.000;1.344;0;52.000;17.300"));
}

void tst_Record::recordingTwiceIsTheSame()
{
    const QStringList options{QStringLiteral("--duration"), QStringLiteral("3.01")};
    QCOMPARE(record(options).exitCode, int(Done));
    const QByteArrayList samples = linesThatBegin("Val", contentOf(m_info));
    QVERIFY(QFile::remove(m_info));
    // at another speed
    QCOMPARE(record(options + QStringList{QStringLiteral("--speed"), QStringLiteral("7")}).exitCode,
             int(Done));
    QCOMPARE(linesThatBegin("Val", contentOf(m_info)), samples);
}

void tst_Record::feetAreWritten()
{
    QCOMPARE(record({QStringLiteral("--duration"), QStringLiteral("1"), QStringLiteral("--unit"),
                     QStringLiteral("ft")})
                 .exitCode,
             int(Done));
    const QByteArray content = contentOf(m_info);
    QVERIFY(content.contains("\nDistanceUnit=ft\n"));
    QCOMPARE(linesThatBegin("Val00001", content),
             QByteArrayList{"Val00001=0.280;0.184;0;0.000;0.000"});
}

void tst_Record::anObservationIsASample()
{
    QCOMPARE(
        record({QStringLiteral("--duration"), QStringLiteral("1"), QStringLiteral("--observe-at"),
                QStringLiteral("0.4"), QStringLiteral("--observe-at"), QStringLiteral("0.1")})
            .exitCode,
        int(Done));
    QCOMPARE(linesThatBegin("Val", contentOf(m_info)).mid(0, 4),
             (QByteArrayList{
                 "Val00000=0.000;0.000;0;0.000;0.000", "Val00001=0.120;0.024;0;0.000;0.000",
                 "Val00002=0.280;0.056;0;0.000;0.000", "Val00003=0.400;0.080;0;0.000;0.000"}));
}

void tst_Record::aPauseIsNoTimeOfTheVideo()
{
    QCOMPARE(record({QStringLiteral("--duration"), QStringLiteral("3")}).exitCode, int(Done));
    const QByteArrayList samples = linesThatBegin("Val", contentOf(m_info));
    QVERIFY(QFile::remove(m_info));
    QCOMPARE(
        record({QStringLiteral("--duration"), QStringLiteral("3"), QStringLiteral("--pause-at"),
                QStringLiteral("1"), QStringLiteral("--pause-at"), QStringLiteral("2")})
            .exitCode,
        int(Done));
    // neither a second initial sample nor a gap
    QCOMPARE(linesThatBegin("Val", contentOf(m_info)), samples);
}

void tst_Record::aFileThatIsThereIsContinued()
{
    const QByteArray before = "[Indexing]\nVal00012=12.480;3.215;0;-45.000;10.500\n";
    makeFile(m_info, before);
    const Outcome outcome = record({QStringLiteral("--duration"), QStringLiteral("0.3")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.output,
             QStringLiteral("Continues \"%1\" after 1 sample\n"
                            "Recorded 0.3 s of video, 2 samples in \"%1\"\n")
                 .arg(m_info));
    QCOMPARE(contentOf(m_info),
             before
                 + "Val00013=0.000;0.000;0;0.000;0.000\n"
                   "Val00014=0.280;0.056;0;0.000;0.000\n");
}

void tst_Record::whatIsRecordedUpToASignalIsWritten_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("Ctrl-C") << SIGINT;
    QTest::newRow("asked to end") << SIGTERM;
}

void tst_Record::whatIsRecordedUpToASignalIsWritten()
{
    QFETCH(int, signal);

    makeFile(m_info, "Val00000=0.000;0.000;0;0.000;0.000\n"); // its "Continues" tells of the start
    Program program;
    program.begin(
        {QStringLiteral("record"), m_clip, QStringLiteral("--duration"), QStringLiteral("100000")});
    QVERIFY(program.waitForOutput("Continues"));
    QCOMPARE(::kill(static_cast<pid_t>(program.processId()), signal), 0);
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Aborted));
    QVERIFY(outcome.output.contains(QLatin1String("\nEnded after ")));
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(linesThatBegin("Val00001=0.000;0.000;0;0.000;0.000", contentOf(m_info)).size(), 1);
}

void tst_Record::aFileThatCannotBeWrittenAtTheEndIsReported()
{
    makeFile(m_info, "Val00000=0.000;0.000;0;0.000;0.000\n");
    Program program;
    program.begin(
        {QStringLiteral("record"), m_clip, QStringLiteral("--duration"), QStringLiteral("100000")});
    QVERIFY(program.waitForOutput("Continues"));
    QVERIFY(QFile::remove(m_info));
    QVERIFY(QDir().mkpath(m_info));
    QCOMPARE(::kill(static_cast<pid_t>(program.processId()), SIGINT), 0);
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(outcome.errors.startsWith(
                 QStringLiteral("\"%1\" was not written as it should be: ").arg(m_info)),
             qPrintable(outcome.errors));
}

void tst_Record::progressIsShownOnATerminal()
{
    TerminalProgram program({QStringLiteral("record"), m_clip, QStringLiteral("--duration"),
                             QStringLiteral("100000"), QStringLiteral("--unit"),
                             QStringLiteral("ft"), QStringLiteral("--pause-at"),
                             QStringLiteral("99999")});
    QVERIFY(program.waitFor("recording  0:01 of 27:46:40  0 %  "));
    QVERIFY(program.waitFor(" ft  pan 0.0°  tilt 0.0°"));
    program.type("\x03");
    QVERIFY(program.waitFor("Ended after "));
    QCOMPARE(program.exitCode(), int(Aborted));
    QVERIFY(QFile::exists(m_info));
}

void tst_Record::thePlaceMustBeFit_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QString>("reason");

    QTest::newRow("a directory") << QStringLiteral(
        "directory") << QStringLiteral("\"%1/directory\" is a directory, not a clip.\n");
    QTest::newRow("no name at all")
        << QStringLiteral("missing/")
        << QStringLiteral("\"%1/missing/\" is a directory, not a clip.\n");
    QTest::newRow("no base name") << QStringLiteral(
        ".mp4") << QStringLiteral("\"%1/.mp4\" has no name before its first dot.\n");
    QTest::newRow("the file itself")
        << QStringLiteral("clip.txt")
        << QStringLiteral(
               "\"%1/clip.txt\" is the name of a clip information file, not of a clip.\n");
    QTest::newRow("no directory") << QStringLiteral("missing/clip.mp4")
                                  << QStringLiteral("There is no directory \"%1/missing\".\n");
    QTest::newRow("a directory in the file's place")
        << QStringLiteral("taken.mp4")
        << QStringLiteral("\"%1/taken.txt\" is there and cannot be continued.\n");
}

void tst_Record::thePlaceMustBeFit()
{
    QFETCH(QString, clip);
    QFETCH(QString, reason);

    QVERIFY(QDir().mkpath(path(QStringLiteral("directory"))));
    QVERIFY(QDir().mkpath(path(QStringLiteral("taken.txt"))));
    const Outcome outcome = Program::run(
        {QStringLiteral("record"), path(clip), QStringLiteral("--duration"), QStringLiteral("1")});
    QCOMPARE(outcome.errors, reason.arg(m_folder->path()));
    QCOMPARE(outcome.exitCode, int(DestinationRefused));
    QCOMPARE(treeOf(m_folder->path()).keys(),
             (QStringList{QStringLiteral("directory/"), QStringLiteral("taken.txt/")}));
}

void tst_Record::theCommandLineMustBeUnderstood_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("reason");

    const auto row = [](const char *name, const char *arguments, const char *reason) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QString::fromLatin1(reason);
    };
    row("nothing", "", "A CLIP is missing.");
    row("two clips", "a b --duration 1", "There is an argument too many: \"b\".");
    row("no duration", "a", "--duration is missing.");
    row("a word for a duration", "a --duration x", "--duration \"x\" is not a number above 0.");
    row("no time at all", "a --duration 0", "--duration \"0\" is not a number above 0.");
    row("no number", "a --duration nan", "--duration \"nan\" is not a number above 0.");
    row("for ever", "a --duration inf",
        "--duration \"inf\" is above 1000000, the most that is possible.");
    row("too fast", "a --duration 1 --speed 1000001",
        "--speed \"1000001\" is above 1000000, the most that is possible.");
    row("faster than there are numbers", "a --duration 1 --speed 1e999",
        "--speed \"1e999\" is above 1000000, the most that is possible.");
    row("backwards", "a --duration 1 --speed -2", "--speed \"-2\" is not a number above 0.");
    row("a pause behind the end", "a --duration 1 --pause-at 1",
        "--pause-at \"1\" is not a time within the video.");
    row("an observation before the beginning", "a --duration 1 --observe-at -1",
        "--observe-at \"-1\" is not a time within the video.");
    row("another unit", "a --duration 1 --unit inch", "--unit \"inch\" is neither m nor ft.");
    row("an unknown option", "a --duration 1 --fast", "Unknown option 'fast'.");
}

void tst_Record::theCommandLineMustBeUnderstood()
{
    QFETCH(QString, arguments);
    QFETCH(QString, reason);

    Program program;
    program.setWorkingDirectory(m_folder->path());
    program.begin(QStringList{QStringLiteral("record")}
                  + arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors, reason + QStringLiteral("\nTry: ovo-fieldhost record --help\n"));
    QCOMPARE(treeOf(m_folder->path()).size(), 0);
}

void tst_Record::helpNamesEveryOptionAndExitCode()
{
    const Outcome outcome = Program::run({QStringLiteral("record"), QStringLiteral("--help")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    for (const char *word : {"--duration", "--speed", "--pause-at", "--observe-at", "--unit"}) {
        QVERIFY(outcome.output.contains(QStringLiteral("\n  ") + QLatin1String(word)));
    }
    for (const int code : {Done, Failed, Usage, DestinationRefused, Aborted}) {
        QVERIFY(outcome.output.contains(QStringLiteral("\n  %1  ").arg(code)));
    }
}

QTEST_GUILESS_MAIN(tst_Record)

#include "tst_Record.moc"
