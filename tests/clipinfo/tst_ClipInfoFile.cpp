// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/clipinfo/ClipInfoHandler.h"

#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/GlobalLocaleData.h"
#include "tests/clipinfo/RecordingHost.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTest>
#include <QTextCodec>

#include <limits>
#include <memory>

using namespace Test;
using Tavro::Base::DistanceUnit;
using Tavro::Shared::ClipInfoHandler;
using Tavro::Shared::CProjectLocaleData;
using Tavro::Shared::GlobalLocaleData;

namespace {

const QString s_dateFormat = QStringLiteral("dd.MM.yyyy hh:mm:ss");

// what stands in a line "key=value" of a file; null when there is no such line
QByteArray valueOf(const QByteArray &key, const QByteArray &content)
{
    const QByteArrayList lines = content.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(key + '=')) {
            return line.mid(key.size() + 1);
        }
    }
    return {};
}

// the file with the date of its making, which no test decides, spelled DATE
QByteArray withoutDate(QByteArray content)
{
    return content.replace("CreationDate=" + valueOf("CreationDate", content), "CreationDate=DATE");
}

} // namespace

/** The bytes of the clip information file, and what stop() does with what was collected. */
class tst_ClipInfoFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFileIsTheseBytes();
    void aFileWithoutSamplesEndsWithItsHeader();
    void aContinuedFileGetsValueLinesOnly();
    void theDateIsThatOfTheBeginning();
    void theClipIsNamedWithItsExtension();
    void doublesAreTheShortestThatReadBack_data();
    void doublesAreTheShortestThatReadBack();
    void numbersAreTheSameInEveryLocale();
    void textsAreInTheCodecOfTheLocale();

    void distancesFollowTheUnit_data();
    void distancesFollowTheUnit();
    void theUnitTextIsThatOfTheBeginning();

    void keysAreFilledUpToFiveDigits();
    void keysOfSixDigitsSortAsTexts();
    void aKeyThatComesAgainReplacesItsValue();

    void stopForgetsTheClip();
    void stopKeepsWhereTheCameraWas();
    void endingTakesPanAndTiltBackToZero();
    void stopKeepsTheValueIndex();
    void stopReplacesALongerFile();
    void aFailedStopKeepsEverything();
    void aFailedStopStaysAContinuation();
    void stopNeedsAPath();

    void sectionsAreFilledOneByOne();

private:
    QByteArray written()
    {
        return m_handler->stop() ? contentOf(m_info) : QByteArray("not written");
    }
    void begin() { QVERIFY(m_handler->initRecordedVideoIndexing(m_video)); }

    QScopedPointer<ProjectUnit> m_unit;
    std::unique_ptr<RecordingHost> m_host;
    ClipInfoHandler *m_handler = nullptr; // belongs to the host's creation handler
    QString m_video;
    QString m_info;
};

void tst_ClipInfoFile::init()
{
    QCoreApplication::setApplicationName(QStringLiteral("Pipe Viewer"));
    m_unit.reset(new ProjectUnit);
    m_host = std::make_unique<RecordingHost>();
    m_handler = new ClipInfoHandler(&m_host->creation());
    m_video = m_host->path(QStringLiteral("clip.001.mp4"));
    m_info = m_host->path(QStringLiteral("clip.txt"));
}

void tst_ClipInfoFile::cleanup()
{
    m_host.reset();
    m_unit.reset();
}

void tst_ClipInfoFile::aFileIsTheseBytes()
{
    m_host->camera().setCalibration(123, 456);
    begin();
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));
    QVERIFY(m_handler->write(12.48, 3.215, 0, -45, 10.5));
    QVERIFY(m_handler->write(3599.9996, 1234.5, 0, 0, 180));
    const QByteArray expected = "[ClipInfo]\n"
                                "Application=Pipe Viewer\n"
                                "ClipRatio=1.0591\n"
                                "CreationDate=DATE\n"
                                "OriginalClipName=clip.001.mp4\n"
                                "PictureRatio=1.0591\n"
                                "\n"
                                "[IndexInfo]\n"
                                "DistanceUnit=m\n"
                                "\n"
                                "[LaserCalibration]\n"
                                "Intercept=0.00456\n"
                                "Slope=1.23\n"
                                "\n"
                                "[Indexing]\n"
                                "Val00000=0.000;0.000;0;0.000;0.000\n"
                                "Val00001=12.480;3.215;0;-45.000;10.500\n"
                                "Val00002=3600.000;1234.500;0;0.000;180.000\n";
    QCOMPARE(withoutDate(written()), expected);
}

void tst_ClipInfoFile::aFileWithoutSamplesEndsWithItsHeader()
{
    begin();
    const QByteArray expected = "[ClipInfo]\n"
                                "Application=Pipe Viewer\n"
                                "ClipRatio=1.0591\n"
                                "CreationDate=DATE\n"
                                "OriginalClipName=clip.001.mp4\n"
                                "PictureRatio=1.0591\n"
                                "\n"
                                "[IndexInfo]\n"
                                "DistanceUnit=m\n"
                                "\n"
                                "[LaserCalibration]\n"
                                "Intercept=0\n"
                                "Slope=0\n"
                                "\n"
                                "[Indexing]\n";
    QCOMPARE(withoutDate(written()), expected);
}

void tst_ClipInfoFile::aContinuedFileGetsValueLinesOnly()
{
    const QByteArray before = "[ClipInfo]\n"
                              "Application=another\n"
                              "\n"
                              "[Indexing]\n"
                              "Val00011=1.000;0.000;0;0.000;0.000\n"
                              "Val00012=12.480;3.215;0;-45.000;10.500\n";
    makeFile(m_info, before);
    begin();
    QVERIFY(m_handler->write(0.04, 3.215, 0, 0, 0));
    QVERIFY(m_handler->write(0.08, 3.3, 0, 0, 0));
    QCOMPARE(written(),
             before
                 + "Val00013=0.040;3.215;0;0.000;0.000\n"
                   "Val00014=0.080;3.300;0;0.000;0.000\n");
}

void tst_ClipInfoFile::theDateIsThatOfTheBeginning()
{
    const auto inWholeSeconds = [] {
        return QDateTime::fromString(QDateTime::currentDateTime().toString(s_dateFormat),
                                     s_dateFormat);
    };
    // digits, calendar and order of the locale must not show
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const QDateTime before = inWholeSeconds();
    begin();
    const QDateTime after = inWholeSeconds();
    // a clip that lasts into the next second
    QVERIFY(QTest::qWaitFor([&] { return inWholeSeconds() > after; }));
    const QByteArray text = valueOf("CreationDate", written());
    const QDateTime date = QDateTime::fromString(QString::fromLatin1(text), s_dateFormat);
    QVERIFY2(date.isValid(), text.constData());
    QVERIFY(before <= date && date <= after);
}

void tst_ClipInfoFile::theClipIsNamedWithItsExtension()
{
    m_handler->setVideoIndexingFilePath(m_host->path(QStringLiteral("a.b.c.MP4")));
    QVERIFY(m_handler->start());
    QVERIFY(m_handler->stop());
    QCOMPARE(valueOf("OriginalClipName", contentOf(m_host->path(QStringLiteral("a.txt")))),
             QByteArray("a.b.c.MP4"));
}

void tst_ClipInfoFile::doublesAreTheShortestThatReadBack_data()
{
    QTest::addColumn<double>("cameraConstant");
    QTest::addColumn<double>("distanceOffset");
    QTest::addColumn<QByteArray>("slope");
    QTest::addColumn<QByteArray>("intercept");

    const auto row = [](const char *name, double constant, double offset, const char *slope,
                        const char *intercept) {
        QTest::newRow(name) << constant << offset << QByteArray(slope) << QByteArray(intercept);
    };
    row("whole", 100, 100000, "1", "1");
    row("negative", -250, -50000, "-2.5", "-0.5");
    row("seventeen digits", 1, 3, "0.01", "3e-05");
    row("more than six digits", 123.456789, 987654.25, "1.2345678900000001", "9.8765425");
    row("a third", 100.0 / 3, 100000.0 / 3, "0.33333333333333337", "0.33333333333333337");
    row("large", 1e30, 1e30, "1e+28", "1e+25");
    row("smallest", 5e-322, 5e-319, "5e-324", "5e-324");
}

void tst_ClipInfoFile::doublesAreTheShortestThatReadBack()
{
    QFETCH(double, cameraConstant);
    QFETCH(double, distanceOffset);
    QFETCH(QByteArray, slope);
    QFETCH(QByteArray, intercept);

    m_host->camera().setCalibration(cameraConstant, distanceOffset);
    begin();
    m_host->camera().setCalibration(7, 7); // not asked for again
    const QByteArray content = written();
    QCOMPARE(valueOf("Slope", content), slope);
    QCOMPARE(valueOf("Intercept", content), intercept);
    QCOMPARE(slope.toDouble(), cameraConstant / 100.0);
    QCOMPARE(intercept.toDouble(), distanceOffset / 100000.0);
}

void tst_ClipInfoFile::numbersAreTheSameInEveryLocale()
{
    m_host->camera().setCalibration(123456.789, 123456.789);
    begin();
    QVERIFY(m_handler->write(1234567.891, -1234.5, 0, -0.25, 10.5));
    const QByteArray expected = withoutDate(written());
    QVERIFY(expected.contains("Val00000=1234567.891;-1234.500;0;-0.250;10.500\n"));

    QStringList decimalPoints;
    const QList<QLocale> locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    for (const QLocale &locale : locales) {
        decimalPoints += locale.decimalPoint();
        GlobalLocaleData::instance()->setDefaultLocale(locale);
        QLocale withGrouping(locale);
        withGrouping.setNumberOptions(QLocale::DefaultNumberOptions);
        QLocale::setDefault(withGrouping);
        QVERIFY(QFile::remove(m_info));
        begin();
        QVERIFY(m_handler->write(1234567.891, -1234.5, 0, -0.25, 10.5));
        QCOMPARE(withoutDate(written()), expected);
    }
    QVERIFY(decimalPoints.contains(QStringLiteral(",")));

    // the way by which a project sets its locale
    CProjectLocaleData::instance()->setLocale(QStringLiteral("D"), QStringLiteral("DEU"));
    QCOMPARE(QLocale().decimalPoint(), QLatin1Char(','));
    QVERIFY(QFile::remove(m_info));
    begin();
    QVERIFY(m_handler->write(1234567.891, -1234.5, 0, -0.25, 10.5));
    QCOMPARE(withoutDate(written()), expected);
}

void tst_ClipInfoFile::textsAreInTheCodecOfTheLocale()
{
    QTextCodec *const codecBefore = QTextCodec::codecForLocale();
    const auto restore = qScopeGuard([=] { QTextCodec::setCodecForLocale(codecBefore); });
    QCoreApplication::setApplicationName(QStringLiteral("Gerät"));

    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    begin();
    QByteArray content = written();
    QCOMPARE(valueOf("Application", content), QByteArray("Ger\xc3\xa4t"));
    QVERIFY(content.startsWith("[ClipInfo]\n")); // no mark of byte order

    QVERIFY(QFile::remove(m_info));
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    begin();
    content = written();
    QCOMPARE(valueOf("Application", content), QByteArray("Ger\xe4t"));
}

void tst_ClipInfoFile::distancesFollowTheUnit_data()
{
    QTest::addColumn<DistanceUnit>("unit");
    QTest::addColumn<QByteArray>("unitText");
    QTest::addColumn<QByteArray>("distance");

    QTest::newRow("metres") << DistanceUnit::Meter << QByteArray("m") << QByteArray("1.000");
    QTest::newRow("feet") << DistanceUnit::Feet << QByteArray("ft") << QByteArray("3.281");
    QTest::newRow("inches are written as metres")
        << DistanceUnit::Inch << QByteArray("m") << QByteArray("1.000");
}

void tst_ClipInfoFile::distancesFollowTheUnit()
{
    QFETCH(DistanceUnit, unit);
    QFETCH(QByteArray, unitText);
    QFETCH(QByteArray, distance);

    m_unit->change(unit);
    begin();
    QVERIFY(m_handler->write(0, 1, 0, 1, 1));
    const QByteArray content = written();
    QCOMPARE(valueOf("DistanceUnit", content), unitText);
    QCOMPARE(valueOf("Val00000", content), "0.000;" + distance + ";0;1.000;1.000");
}

void tst_ClipInfoFile::theUnitTextIsThatOfTheBeginning()
{
    begin();
    QVERIFY(m_handler->write(0, 1000, 0, 0, 0));
    m_unit->change(DistanceUnit::Feet);
    QVERIFY(m_handler->write(1, 1000, 0, 0, 0));
    // 3280.8, not the 3280.84 of the true foot
    m_host->counter().setDistance(10);
    m_unit->change(DistanceUnit::Meter);
    QVERIFY(m_handler->write(2, 1000, 0, 0, 0));
    const QByteArray content = written();
    QCOMPARE(valueOf("DistanceUnit", content), QByteArray("m"));
    // the counter's sample belongs to second 0 and came too late
    QCOMPARE(valuesIn(m_info),
             (QByteArrayList{"Val00000=0.000;1000.000;0;0.000;0.000",
                             "Val00001=1.000;3280.800;0;0.000;0.000",
                             "Val00002=2.000;1000.000;0;0.000;0.000"}));
}

void tst_ClipInfoFile::keysAreFilledUpToFiveDigits()
{
    begin();
    for (int i = 0; i <= 1000; ++i) {
        QVERIFY(m_handler->write(i, 0, 0, 0, 0));
    }
    const QByteArray content = written();
    for (const char *key :
         {"Val00000", "Val00009", "Val00010", "Val00099", "Val00100", "Val01000"}) {
        QVERIFY(content.contains(QByteArray("\n") + key + '='));
    }
}

void tst_ClipInfoFile::keysOfSixDigitsSortAsTexts()
{
    makeFile(m_info, "Val09998=\n");
    begin();
    // 9999 to 100001
    for (int i = 9999; i <= 100001; ++i) {
        QVERIFY(m_handler->write(i, 0, 0, 0, 0));
    }
    written();
    QByteArrayList keys;
    const QByteArrayList values = valuesIn(m_info);
    for (const QByteArray &line : values) {
        keys += line.left(line.indexOf('='));
    }
    QCOMPARE(keys.size(), 1 + 100001 - 9999 + 1);
    QCOMPARE(
        keys.mid(0, 6),
        (QByteArrayList{"Val09998", "Val09999", "Val10000", "Val100000", "Val100001", "Val10001"}));
    QCOMPARE(keys.last(), QByteArray("Val99999"));
}

void tst_ClipInfoFile::aKeyThatComesAgainReplacesItsValue()
{
    begin();
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));
    QVERIFY(m_handler->write(1, 0, 0, 0, 0));
    QVERIFY(m_handler->write(2, 0, 0, 0, 0));
    const QString other = m_host->path(QStringLiteral("other.txt"));
    makeFile(other, "Val00000=\n");
    QFile file(other);
    QVERIFY(m_handler->resume(file)); // number 1 comes next
    QVERIFY(m_handler->write(3, 0, 0, 0, 0));
    written();
    QCOMPARE(
        valuesIn(m_info),
        (QByteArrayList{"Val00000=0.000;0.000;0;0.000;0.000", "Val00001=3.000;0.000;0;0.000;0.000",
                        "Val00002=2.000;0.000;0;0.000;0.000"}));
}

void tst_ClipInfoFile::stopForgetsTheClip()
{
    makeFile(m_info, "Val00004=\n");
    begin();
    QVERIFY(m_handler->write(100, 1, 0, 0, 0));
    QVERIFY(m_handler->stop());
    QVERIFY(!m_handler->stop()); // without a path

    // the time begins anew, the samples are gone, and a new file is no continuation
    const QString next = m_host->path(QStringLiteral("next.txt"));
    m_handler->setVideoIndexingFilePath(m_host->path(QStringLiteral("next.mp4")));
    QVERIFY(m_handler->start());
    QVERIFY(m_handler->write(1, 2, 0, 0, 0));
    QVERIFY(m_handler->stop());
    QVERIFY(contentOf(next).startsWith("[ClipInfo]\n"));
    QCOMPARE(valuesIn(next), QByteArrayList{"Val00000=1.000;2.000;0;0.000;0.000"});

    // nor are sections left
    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->stop());
    QCOMPARE(contentOf(m_info),
             QByteArray("[ClipInfo]\n\n[IndexInfo]\n\n[LaserCalibration]\n\n[Indexing]\n"));
}

void tst_ClipInfoFile::stopKeepsWhereTheCameraWas()
{
    m_host->camera().setPan(30);
    m_host->camera().setTilt(40);
    m_host->counter().setDistance(5);
    begin();
    m_handler->onDistanceCounterValueChanged(5);
    QVERIFY(m_handler->stop());

    m_handler->setVideoIndexingFilePath(m_video);
    m_handler->onDistanceCounterValueChanged(5.04); // too little from where the last clip ended
    m_handler->onDistanceCounterValueChanged(5.06);
    m_handler->onPanValueChanged(31);
    QVERIFY(m_handler->stop());
    QCOMPARE(valuesIn(m_info),
             (QByteArrayList{"Val00001=0.000;5.060;0;30.000;40.000",
                             "Val00002=0.000;5.060;0;31.000;40.000"}));
}

void tst_ClipInfoFile::endingTakesPanAndTiltBackToZero()
{
    m_host->camera().setPan(30);
    m_host->camera().setTilt(40);
    begin();
    QVERIFY(m_handler->endVideoIndexing());
    m_handler->setVideoIndexingFilePath(m_video);
    m_handler->onPanValueChanged(1);
    m_handler->onTiltValueChanged(2);
    QVERIFY(m_handler->stop());
    QCOMPARE(valuesIn(m_info),
             (QByteArrayList{"Val00000=0.000;0.000;0;1.000;0.000",
                             "Val00001=0.000;0.000;0;1.000;2.000"}));

    // also when the file cannot be written
    m_handler->setVideoIndexingFilePath(m_host->path(QStringLiteral("missing/clip.mp4")));
    m_handler->onPanValueChanged(3);
    QVERIFY(!m_handler->endVideoIndexing());
    m_handler->onTiltValueChanged(4);
    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->stop());
    QCOMPARE(valuesIn(m_info),
             (QByteArrayList{"Val00002=0.000;0.000;0;3.000;2.000",
                             "Val00003=0.000;0.000;0;0.000;4.000"}));
}

void tst_ClipInfoFile::stopKeepsTheValueIndex()
{
    begin();
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));
    QVERIFY(m_handler->stop());
    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));
    QVERIFY(m_handler->stop());
    QCOMPARE(valuesIn(m_info), QByteArrayList{"Val00001=0.000;0.000;0;0.000;0.000"});
}

void tst_ClipInfoFile::stopReplacesALongerFile()
{
    begin(); // there is no file yet
    makeFile(m_info, QByteArray(100'000, '#'));
    QVERIFY(!written().contains('#'));
}

void tst_ClipInfoFile::aFailedStopKeepsEverything()
{
    const QString folder = m_host->path(QStringLiteral("later"));
    QVERIFY(m_handler->initRecordedVideoIndexing(folder + QStringLiteral("/clip.mp4")));
    QVERIFY(m_handler->write(1, 2, 0, 0, 0));
    QVERIFY(!m_handler->stop());
    QVERIFY(!m_handler->stop());
    QVERIFY(!m_handler->write(0.5, 2, 0, 0, 0)); // the time is not forgotten either
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(m_handler->stop());
    const QByteArray content = contentOf(folder + QStringLiteral("/clip.txt"));
    QVERIFY(content.startsWith("[ClipInfo]\nApplication=Pipe Viewer\n"));
    QCOMPARE(valueOf("DistanceUnit", content), QByteArray("m"));
    QCOMPARE(valueOf("Slope", content), QByteArray("0"));
    QVERIFY(content.endsWith("\n[Indexing]\nVal00000=1.000;2.000;0;0.000;0.000\n"));
}

void tst_ClipInfoFile::aFailedStopStaysAContinuation()
{
    makeFile(m_info, "Val00004=\n");
    begin();
    QVERIFY(m_handler->write(1, 2, 0, 0, 0));
    QVERIFY(QFile::remove(m_info));
    QVERIFY(QDir().mkpath(m_info)); // root may write to anything but a folder
    QVERIFY(!m_handler->stop());
    QVERIFY(QDir().rmdir(m_info));
    makeFile(m_info, "whatever is there now\n");
    QCOMPARE(written(), QByteArray("whatever is there now\nVal00005=1.000;2.000;0;0.000;0.000\n"));
}

void tst_ClipInfoFile::stopNeedsAPath()
{
    QVERIFY(m_handler->write(1, 2, 0, 0, 0));
    QVERIFY(!m_handler->stop());
    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->stop());
    QCOMPARE(valuesIn(m_info), QByteArrayList{"Val00000=1.000;2.000;0;0.000;0.000"});
}

void tst_ClipInfoFile::sectionsAreFilledOneByOne()
{
    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->writeIndexInfo());
    QVERIFY(!QFile::exists(m_info)); // in memory
    QCOMPARE(written(),
             QByteArray("[ClipInfo]\n\n[IndexInfo]\nDistanceUnit=m\n\n[LaserCalibration]\n\n"
                        "[Indexing]\n"));

    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->writeLaserCalibrationInfo());
    QCOMPARE(written(),
             QByteArray("[ClipInfo]\n\n[IndexInfo]\n\n[LaserCalibration]\nIntercept=0\nSlope=0\n\n"
                        "[Indexing]\n"));

    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->writeClipInfo());
    QCOMPARE(withoutDate(written()),
             QByteArray("[ClipInfo]\nApplication=Pipe Viewer\nClipRatio=1.0591\nCreationDate=DATE\n"
                        "OriginalClipName=clip.001.mp4\nPictureRatio=1.0591\n\n[IndexInfo]\n"
                        "DistanceUnit=m\n\n[LaserCalibration]\nIntercept=0\nSlope=0\n\n"
                        "[Indexing]\n"));
}

QTEST_GUILESS_MAIN(tst_ClipInfoFile)

#include "tst_ClipInfoFile.moc"
