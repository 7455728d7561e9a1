// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/TextChart.h"
#include "fieldhost/jobs/Trace.h"
#include "tests/fieldhost/Program.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>

#include <memory>

using namespace Tavro::FieldHost;
using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2, SourceRefused = 3 };

QByteArray header()
{
    return "[ClipInfo]\n"
           "Application=ovo-fieldhost\n"
           "ClipRatio=1.0591\n"
           "CreationDate=21.11.2026 19:11:50\n"
           "OriginalClipName=clip.001.mp4\n"
           "PictureRatio=1.0591\n"
           "\n"
           "[IndexInfo]\n"
           "DistanceUnit=ft\n"
           "\n"
           "[LaserCalibration]\n"
           "Intercept=0.00456\n"
           "Slope=1.23\n"
           "\n"
           "[Indexing]\n";
}

} // namespace

/** `ovo-fieldhost trace`: what it reads out of a clip information file, and how it draws it. */
class tst_Trace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aWholeFileIsRead();
    void samplesStandByTheirNumber();
    void aNumberThatComesAgainReplaces();
    void linesThatCannotBeReadAreCounted_data();
    void linesThatCannotBeReadAreCounted();
    void aFileCutAnywhereIsRead();
    void veryLongLinesAreNotRead();
    void theEndOfTheLastLineIsSeen();

    void recordingsFollowOneAnother();
    void aValueHoldsUntilTheNextSample();
    void aFlatCurveHasSomeExtent();
    void aCurveIsDrawnInDots();

    void theTerminalShowsEachCurve();
    void theFileItselfMayBeNamed();
    void damageIsSaidAndDrawnAround();
    void aPictureShowsEachCurve();
    void aPictureThatCannotBeWrittenIsReported();
    void nothingToDrawIsAFailure();
    void aFileThatCannotBeReadIsRefused();
    void theCommandLineMustBeUnderstood_data();
    void theCommandLineMustBeUnderstood();
    void helpNamesEveryExitCode();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    ClipInfoFile readOf(const QByteArray &content) const
    {
        makeFile(m_info, content);
        return ClipInfoFile::read(m_info);
    }

    std::unique_ptr<TemporaryFolder> m_folder;
    QString m_clip;
    QString m_info;
};

void tst_Trace::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    QVERIFY(m_folder->isValid());
    m_clip = path(QStringLiteral("clip.001.mp4"));
    m_info = path(QStringLiteral("clip.txt"));
}

void tst_Trace::cleanup()
{
    m_folder.reset();
}

void tst_Trace::aWholeFileIsRead()
{
    const ClipInfoFile info = readOf(header()
                                     + "Val00000=0.000;0.000;0;0.000;0.000\n"
                                       "Val00001=12.480;3.215;0;-45.000;10.500\n");
    QCOMPARE(info.error, QString());
    QCOMPARE(info.application, QStringLiteral("ovo-fieldhost"));
    QCOMPARE(info.creationDate, QStringLiteral("21.11.2026 19:11:50"));
    QCOMPARE(info.clipName, QStringLiteral("clip.001.mp4"));
    QCOMPARE(info.unit, QStringLiteral("ft"));
    QCOMPARE(info.badLines, 0);
    QCOMPARE(info.replacedSamples, 0);
    QVERIFY(info.endsWhole);
    QCOMPARE(info.samples.size(), 2);
    const ClipSample &last = info.samples.last();
    QCOMPARE(last.index, 1);
    QCOMPARE(last.time, 12.48);
    QCOMPARE(last.distance, 3.215);
    QCOMPARE(last.pan, -45.0);
    QCOMPARE(last.tilt, 10.5);
}

void tst_Trace::samplesStandByTheirNumber()
{
    // as texts, 100000 comes before 99999
    const ClipInfoFile info = readOf("Val100000=2;0;0;0;0\nVal99999=1;0;0;0;0\n");
    QCOMPARE(info.samples.size(), 2);
    QCOMPARE(info.samples.at(0).index, 99999);
    QCOMPARE(info.samples.at(1).index, 100000);
}

void tst_Trace::aNumberThatComesAgainReplaces()
{
    const ClipInfoFile info =
        readOf("Val00001=1;5;0;0;0\nVal00002=2;6;0;0;0\nVal00001=1;7;0;0;0\n");
    QCOMPARE(info.samples.size(), 2);
    QCOMPARE(info.samples.at(0).distance, 7.0);
    QCOMPARE(info.replacedSamples, 1);
    QCOMPARE(info.badLines, 0);
}

void tst_Trace::linesThatCannotBeReadAreCounted_data()
{
    QTest::addColumn<QByteArray>("line");

    QTest::newRow("cut in the key") << QByteArray("Val000");
    QTest::newRow("cut behind the key") << QByteArray("Val00001=");
    QTest::newRow("cut in the value") << QByteArray("Val00001=12.48;3.2");
    QTest::newRow("continued where it was cut")
        << QByteArray("Val00001=12.48;3.2Val00002=0.000;0.000;0;0.000;0.000");
    QTest::newRow("one field too many") << QByteArray("Val00001=1;2;0;3;4;5");
    QTest::newRow("a field that is no number") << QByteArray("Val00001=1;x;0;3;4");
    QTest::newRow("a comma for a point") << QByteArray("Val00001=1,5;2;0;3;4");
    QTest::newRow("infinite") << QByteArray("Val00001=1;inf;0;3;4");
    QTest::newRow("a number beyond 32 bits") << QByteArray("Val4294967295=1;2;0;3;4");
    QTest::newRow("no entry") << QByteArray("ClipRat");
    QTest::newRow("no key") << QByteArray("=1");
    QTest::newRow("a section cut off") << QByteArray("[Index");
    QTest::newRow("zero bytes") << QByteArray(100, '\0');
}

void tst_Trace::linesThatCannotBeReadAreCounted()
{
    QFETCH(QByteArray, line);

    const ClipInfoFile info =
        readOf("[Indexing]\nVal00007=1;2;0;3;4\n" + line + "\nVal00008=1;2;0;3;4\n\n" + line);
    QCOMPARE(info.samples.size(), 2);
    QCOMPARE(info.badLines, 2);
    QCOMPARE(info.firstBadLine, 3);
}

void tst_Trace::aFileCutAnywhereIsRead()
{
    const QByteArray whole = header()
        + "Val00000=0.000;0.000;0;0.000;0.000\n"
          "Val00001=12.480;3.215;0;-45.000;10.500\n";
    for (int length = 0; length <= whole.size(); ++length) {
        const QByteArray content = whole.left(length);
        const ClipInfoFile info = readOf(content);
        QVERIFY(info.samples.size() <= content.count("\nVal"));
        QVERIFY(info.samples.size() >= content.count(";0.000\n") + content.count(";10.500\n"));
        QVERIFY(info.badLines <= 1);
        drawText(Trace(info), 80);
    }
}

void tst_Trace::veryLongLinesAreNotRead()
{
    const QByteArray end(100'000, '0');
    const ClipInfoFile info = readOf("Val00001=1;2;0;3;4" + end + "\nVal00002=1;2;0;3;4\n");
    QCOMPARE(info.samples.size(), 1);
    QCOMPARE(info.badLines, 1);
    QCOMPARE(info.firstBadLine, 1);
}

void tst_Trace::theEndOfTheLastLineIsSeen()
{
    QVERIFY(readOf("Val00001=1;2;0;3;4\n").endsWhole);
    QVERIFY(!readOf("Val00001=1;2;0;3;4").endsWhole);
}

void tst_Trace::recordingsFollowOneAnother()
{
    const Trace trace(readOf("DistanceUnit=m\n"
                             "Val00000=0;0;0;0;0\nVal00001=2;1;0;0;0\n"
                             "Val00002=0.5;2;0;0;0\nVal00003=3;3;0;0;0\n"));
    QCOMPARE(trace.recordings(), 2);
    QCOMPARE(trace.duration(), 5.0);
    const QVector<Curve> &curves = trace.curves();
    QCOMPARE(curves.size(), 3);
    QCOMPARE(curves.at(0).title, QStringLiteral("distance m"));
    QCOMPARE(curves.at(1).title, QStringLiteral("pan °"));
    QCOMPARE(curves.at(2).title, QStringLiteral("tilt °"));
    QCOMPARE(curves.at(0).values, (QVector<double>{0, 1, 2, 3}));
}

void tst_Trace::aValueHoldsUntilTheNextSample()
{
    const Trace trace(readOf("Val00000=0;1;0;0;0\nVal00001=6;4;0;0;0\nVal00002=7;2;0;0;0\n"
                             "Val00003=10;3;0;0;0\n"));
    const QVector<Span> spans = trace.columnsOf(trace.curves().at(0), 5); // two seconds each
    QCOMPARE(spans.size(), 5);
    const QVector<QPair<double, double>> expected = {{1, 1}, {1, 1}, {1, 1}, {1, 4}, {2, 3}};
    for (int i = 0; i < spans.size(); ++i) {
        QCOMPARE(spans.at(i).low, expected.at(i).first);
        QCOMPARE(spans.at(i).high, expected.at(i).second);
    }
    QVERIFY(Trace(ClipInfoFile()).columnsOf(trace.curves().at(0), 3).at(2).isEmpty());
}

void tst_Trace::aFlatCurveHasSomeExtent()
{
    const Span extent = Trace::extentOf({QString(), 1, {5, 5}});
    QCOMPARE(extent.low, 4.0);
    QCOMPARE(extent.high, 6.0);
    QVERIFY(!Trace::extentOf({}).isEmpty());
}

void tst_Trace::aCurveIsDrawnInDots()
{
    // low for the first half of the time, then high
    const Trace trace(readOf("Val00000=0;0;0;0;0\nVal00001=10;9;0;0;0\nVal00002=20;9;0;0;0\n"));
    const QStringList lines = drawText(trace, 32);
    QCOMPARE(lines.size(), 3 * 7 + 2);
    QCOMPARE(lines.at(0), QStringLiteral("distance"));
    QCOMPARE(lines.at(1), QStringLiteral("      9.00 │⠀⠀⠀⠀⠀⠀⠀⠀⠀⠀⡏⠉⠉⠉⠉⠉⠉⠉⠉⠉"));
    QCOMPARE(lines.at(2), QStringLiteral("           │⠀⠀⠀⠀⠀⠀⠀⠀⠀⠀⡇⠀⠀⠀⠀⠀⠀⠀⠀⠀"));
    QCOMPARE(lines.at(6), QStringLiteral("      0.00 │⣀⣀⣀⣀⣀⣀⣀⣀⣀⣀⡇⠀⠀⠀⠀⠀⠀⠀⠀⠀"));
    QCOMPARE(lines.at(21), QStringLiteral("           └────────────────────"));
    QCOMPARE(lines.at(22), QStringLiteral("            0:00            0:20"));
    for (const QString &line : lines) {
        QVERIFY(line.size() <= 32);
    }
}

void tst_Trace::theTerminalShowsEachCurve()
{
    makeFile(m_info,
             header()
                 + "Val00000=0.000;0.000;0;0.000;0.000\n"
                   "Val00001=65.000;3.215;0;-45.000;10.500\n");
    const Outcome outcome = Program::run({QStringLiteral("trace"), m_clip});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    const QStringList lines = outcome.output.split(QLatin1Char('\n'));
    QCOMPARE(lines.at(0), QStringLiteral("\"%1\": 2 samples, 1 min 05 s, 1 recording").arg(m_info));
    QCOMPARE(lines.at(1),
             QStringLiteral("video \"clip.001.mp4\" of \"21.11.2026 19:11:50\", made by "
                            "\"ovo-fieldhost\""));
    QCOMPARE(lines.at(2), QStringLiteral("distance ft"));
    QVERIFY(lines.at(3).startsWith(QStringLiteral("      3.21 │")));
    QVERIFY(lines.at(15).startsWith(QStringLiteral("     -45.0 │")));
    QVERIFY(lines.at(17).startsWith(QStringLiteral("      10.5 │")));
}

void tst_Trace::theFileItselfMayBeNamed()
{
    makeFile(m_info, header() + "Val00000=0.000;0.000;0;0.000;0.000\n");
    const Outcome outcome = Program::run({QStringLiteral("trace"), m_info});
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.startsWith(QStringLiteral("\"%1\": 1 sample, ").arg(m_info)));
}

void tst_Trace::damageIsSaidAndDrawnAround()
{
    makeFile(m_info, "OriginalClipName=\x1b[2J\nVal00000=0;0;0;0;0\nVal00000=1;1;0;0;0\nVal0");
    const Outcome outcome = Program::run({QStringLiteral("trace"), m_clip});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors,
             QStringLiteral("1 line could not be read, the first is line 4.\n"
                            "1 sample has the number of a later one, which was taken.\n"));
    QVERIFY(outcome.output.contains(QLatin1String("video \"\\x1b[2J\" of ")));
}

void tst_Trace::aPictureShowsEachCurve()
{
    makeFile(m_info,
             header()
                 + "Val00000=0.000;0.000;0;0.000;0.000\n"
                   "Val00001=10.000;3.215;0;-45.000;10.500\n"
                   "Val00002=20.000;3.215;0;-45.000;10.500\n");
    const QString picture = path(QStringLiteral("picture.png"));
    // as on a device without anybody's login
    Program program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.insert(QStringLiteral("TMPDIR"), m_folder->path());
    program.setProcessEnvironment(environment);
    program.begin({QStringLiteral("trace"), m_clip, QStringLiteral("--png"), picture});
    const Outcome outcome = program.end();
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(outcome.output.contains(QLatin1String("\ndistance ft\n"))); // in the terminal as well
    QCOMPARE(treeOf(m_folder->path()).keys(),
             (QStringList{QStringLiteral("clip.txt"), QStringLiteral("picture.png")}));

    const QImage image(picture);
    QCOMPARE(image.size(), QSize(960, 720));
    // each curve steps in the middle of the picture: distance and tilt up, pan down
    const QVector<QPair<QRgb, bool>> curves = {
        {0xff1f5fa8, true}, {0xffb0481c, false}, {0xff2e7d32, true}};
    for (int i = 0; i < curves.size(); ++i) {
        const auto rowsOf = [&](int x) {
            QVector<int> rows;
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixel(x, y) == curves.at(i).first) {
                    rows += y;
                }
            }
            return rows;
        };
        const QVector<int> before = rowsOf(200);
        const QVector<int> after = rowsOf(800);
        QCOMPARE(before.size(), 1);
        QCOMPARE(after.size(), 1);
        QCOMPARE(after.first() < before.first(), curves.at(i).second);
        QVERIFY(before.first() >= i * 230 && before.first() < (i + 1) * 230);
    }
}

void tst_Trace::aPictureThatCannotBeWrittenIsReported()
{
    makeFile(m_info, header() + "Val00000=0.000;0.000;0;0.000;0.000\n");
    const QString picture = path(QStringLiteral("missing/picture.png"));
    const Outcome outcome =
        Program::run({QStringLiteral("trace"), m_clip, QStringLiteral("--png=") + picture});
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY2(outcome.errors.startsWith(QStringLiteral("Cannot write \"%1\": ").arg(picture)),
             qPrintable(outcome.errors));
}

void tst_Trace::nothingToDrawIsAFailure()
{
    makeFile(m_info, header());
    const Outcome outcome = Program::run({QStringLiteral("trace"), m_clip});
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors, QStringLiteral("There is no sample to draw.\n"));
}

void tst_Trace::aFileThatCannotBeReadIsRefused()
{
    Outcome outcome = Program::run({QStringLiteral("trace"), m_clip});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors,
             QStringLiteral("Cannot read \"%1\": No such file or directory\n").arg(m_info));

    QVERIFY(QDir().mkpath(m_info));
    outcome = Program::run({QStringLiteral("trace"), m_clip});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QVERIFY(outcome.errors.startsWith(QStringLiteral("Cannot read \"%1\": ").arg(m_info)));
}

void tst_Trace::theCommandLineMustBeUnderstood_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");

    QTest::newRow("nothing") << QStringList() << QStringLiteral("A CLIP is missing.");
    QTest::newRow("an empty clip") << QStringList{QString()} << QStringLiteral("A CLIP is empty.");
    QTest::newRow("two clips") << QStringList{QStringLiteral("a"), QStringLiteral("b")}
                               << QStringLiteral("There is an argument too many: \"b\".");
    QTest::newRow("no file for the picture")
        << QStringList{QStringLiteral("a"), QStringLiteral("--png=")}
        << QStringLiteral("The FILE of --png is empty.");
    QTest::newRow("an unknown option")
        << QStringList{QStringLiteral("--svg")} << QStringLiteral("Unknown option 'svg'.");
}

void tst_Trace::theCommandLineMustBeUnderstood()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    const Outcome outcome = Program::run(QStringList{QStringLiteral("trace")} + arguments);
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.errors, reason + QStringLiteral("\nTry: ovo-fieldhost trace --help\n"));
}

void tst_Trace::helpNamesEveryExitCode()
{
    const Outcome outcome = Program::run({QStringLiteral("trace"), QStringLiteral("--help")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    for (const int code : {Done, Failed, Usage, SourceRefused}) {
        QVERIFY(outcome.output.contains(QStringLiteral("\n  %1  ").arg(code)));
    }
}

QTEST_GUILESS_MAIN(tst_Trace)

#include "tst_Trace.moc"
