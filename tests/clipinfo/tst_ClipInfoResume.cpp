// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/clipinfo/ClipInfoHandler.h"

#include "tests/clipinfo/NextValue.h"
#include "tests/clipinfo/RecordingHost.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace Test;
using Tavro::Shared::ClipInfoHandler;

/** Continuing what is found beside a video: whole files, and what a power cut leaves of them. */
class tst_ClipInfoResume : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theNextNumberIsThatAfterTheLastVal_data();
    void theNextNumberIsThatAfterTheLastVal();
    void aFileCutAnywhereIsContinued();
    void aLargeFileIsContinued();
    void whatFuzzingHasFoundIsContinued();
    void anUnreadableFileChangesNothing();
    void aMissingFileCannotBeResumed();
    void theFileIsClosedAgain();
    void startIsTrueForWhateverIsThere_data();
    void startIsTrueForWhateverIsThere();
    void aNewFileBeginsWithZero();

private:
    // the key of the sample that comes after that content; what is wrong, in words, if anything is
    QByteArray keyAfter(const QByteArray &content)
    {
        makeFile(m_info, content);
        m_handler->setVideoIndexingFilePath(m_video);
        QFile file(m_info);
        if (!m_handler->resume(file)) {
            return "not resumed";
        }
        if (!m_handler->write(0, 0, 0, 0, 0) || !m_handler->stop()) {
            return "not written";
        }
        QByteArray added = contentOf(m_info);
        if (!added.startsWith(content)) {
            return "what was there has changed";
        }
        added.remove(0, content.size());
        const QByteArray value = "=0.000;0.000;0;0.000;0.000\n";
        if (!added.endsWith(value) || added.count('\n') != 1) {
            return "more than one line was added";
        }
        added.chop(value.size());
        return added;
    }

    QScopedPointer<ProjectUnit> m_unit;
    std::unique_ptr<RecordingHost> m_host;
    ClipInfoHandler *m_handler = nullptr; // belongs to the host's creation handler
    QString m_video;
    QString m_info;
};

namespace {

QByteArray validFile()
{
    return "[ClipInfo]\n"
           "Application=Valve\n"
           "ClipRatio=1.0591\n"
           "CreationDate=21.11.2026 19:11:50\n"
           "OriginalClipName=Val00041.mp4\n"
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
           "Val00010=0.000;0.000;0;0.000;0.000\n"
           "Val00011=0.400;0.100;0;0.000;0.000\n"
           "Val00012=12.480;3.215;0;-45.000;10.500\n";
}

} // namespace

void tst_ClipInfoResume::init()
{
    m_unit.reset(new ProjectUnit);
    m_host = std::make_unique<RecordingHost>();
    m_handler = new ClipInfoHandler(&m_host->creation());
    m_video = m_host->path(QStringLiteral("clip.mp4"));
    m_info = m_host->path(QStringLiteral("clip.txt"));
}

void tst_ClipInfoResume::cleanup()
{
    m_host.reset();
    m_unit.reset();
}

void tst_ClipInfoResume::theNextNumberIsThatAfterTheLastVal_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("key");

    const auto row = [](const char *name, const QByteArray &content, const char *key) {
        QTest::newRow(name) << content << QByteArray(key);
    };
    const QByteArray valid = validFile();
    row("a whole file", valid, "Val00013");
    row("the last, not the largest", "Val00020=a\nVal00007=b\n", "Val00008");
    row("six digits", "Val100000=a\n", "Val100001");
    row("the step to six digits", "Val99999=a\n", "Val100000");
    row("sorted as texts, the last line is 99999", "Val10000=a\nVal100000=b\nVal99999=c\n",
        "Val100000");
    row("one digit", "Val7=a\n", "Val00008");
    row("many zeros", "Val00000000000000000000000000000007=a\n", "Val00008");
    row("a line end of two characters", "Val00006=a\r\nVal00007=b\r\n", "Val00008");

    row("empty", "", "Val00001");
    row("no Val", "[ClipInfo]\nApplication=a\n", "Val00001");
    row("no Val, but a number before an equals sign", "12=3\n", "Val00001");
    row("no Val, but a number where one would be behind it", "xx12=3\n", "Val00001");
    row("another case", "VAL00012=a\nval00013=b\n", "Val00001");
    row("a header alone", valid.left(valid.indexOf("Val00010")), "Val00001");
    row("Val in the header alone", "Application=Valve\nSlope=1\n", "Val00001");
    row("Val and a number in the header", "OriginalClipName=Val00041=3.mp4\n", "Val00042");
    row("Val in a value behind the last sample", "Val00012=a\nApplication=Valve\n", "Val00001");

    row("cut before the number", "Val00012=a\nVal", "Val00001");
    row("cut within the number", "Val00012=a\nVal000", "Val00001");
    row("cut before the equals sign", "Val00012=a\nVal00013", "Val00001");
    row("cut behind the equals sign", "Val00012=a\nVal00013=", "Val00014");
    row("cut within the word", "Val00012=a\nVa", "Val00013");
    row("cut within the value", "Val00012=a\nVal00013=12.48", "Val00014");
    row("an equals sign in the value", "Val00012=1;2=3\n", "Val00001");
    row("the word twice", "ValVal00012=a\n", "Val00013");

    row("no digits", "Val=a\n", "Val00001");
    row("letters", "Valxyz=a\n", "Val00001");
    row("digits and letters", "Val00012x=a\n", "Val00001");
    row("hexadecimal", "Val0x10=a\n", "Val00001");
    row("a fraction", "Val1.5=a\n", "Val00001");
    row("grouped digits", "Val1,000=a\n", "Val00001");
    row("a negative number", "Val-7=a\n", "Val-0006");
    row("minus one", "Val-1=a\n", "Val00000");
    row("a zero byte behind the digits", QByteArray("Val00012\0=a\n", 12), "Val00001");

    row("the largest but one", "Val2147483646=a\n", "Val2147483647");
    row("the largest: the smallest follows", "Val2147483647=a\n", "Val-2147483648");
    row("the smallest", "Val-2147483648=a\n", "Val-2147483647");
    row("more than 32 bits", "Val2147483648=a\n", "Val00001");
    row("less than 32 bits", "Val-2147483649=a\n", "Val00001");
    row("unsigned 32 bits", "Val4294967295=a\n", "Val00001");
    row("more than 64 bits", "Val99999999999999999999999=a\n", "Val00001");

    row("zero bytes", QByteArray(4096, '\0'), "Val00001");
    row("zero bytes behind a whole file", valid + QByteArray(4096, '\0'), "Val00013");
    row("zero bytes before a sample", QByteArray(4096, '\0') + "Val00012=a\n", "Val00013");
    row("bytes of every value", someBytes(100'000), "Val00001");
    row("bytes that are no text around a sample", "\xff\xfe\x80Val00012=\xff\xfe\x80", "Val00013");
}

void tst_ClipInfoResume::theNextNumberIsThatAfterTheLastVal()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, key);

    QCOMPARE(keyAfter(content), key);
    QCOMPARE(QByteArray::fromStdString(nextKey(content.toStdString())), key);
}

void tst_ClipInfoResume::aFileCutAnywhereIsContinued()
{
    const QByteArray valid = validFile();
    QByteArrayList keys;
    for (int length = 0; length <= valid.size(); ++length) {
        const QByteArray content = valid.left(length);
        const QByteArray expected = QByteArray::fromStdString(nextKey(content.toStdString()));
        const QByteArray key = keyAfter(content);
        QVERIFY2(key == expected, (QByteArray::number(length) + " bytes: " + key).constData());
        if (keys.isEmpty() || keys.last() != key) {
            keys += key;
        }
    }
    // what each further byte changes: a number counts from its "=" until the next "Val"
    QCOMPARE(
        keys,
        (QByteArrayList{"Val00001", "Val00011", "Val00001", "Val00012", "Val00001", "Val00013"}));
}

void tst_ClipInfoResume::aLargeFileIsContinued()
{
    constexpr qint64 size = 100LL * 1024 * 1024;
    const QByteArray end = "\nVal00012=a\n";
    QFile file(m_info);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(size)); // a hole: zero bytes
    QVERIFY(file.seek(size - end.size()));
    QCOMPARE(file.write(end), qint64(end.size()));
    file.close();

    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->resume(file));
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));
    QVERIFY(m_handler->stop());
    const QByteArray added = "Val00013=0.000;0.000;0;0.000;0.000\n";
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.size(), size + added.size());
    QVERIFY(file.seek(size));
    QCOMPARE(file.readAll(), added);
    file.close();
    QVERIFY(file.remove());
}

void tst_ClipInfoResume::whatFuzzingHasFoundIsContinued()
{
    const QDir corpus(QStringLiteral(OVO_CLIPINFO_CORPUS));
    const QStringList names = corpus.entryList(QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        const QByteArray content = contentOf(corpus.filePath(name));
        const QByteArray expected = QByteArray::fromStdString(nextKey(content.toStdString()));
        const QByteArray key = keyAfter(content);
        QVERIFY2(key == expected, (name.toUtf8() + ": " + key).constData());
    }
}

void tst_ClipInfoResume::anUnreadableFileChangesNothing()
{
    QVERIFY(m_handler->initRecordedVideoIndexing(m_video));
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));

    QFile folder(m_host->path(QStringLiteral("folder")));
    QVERIFY(QDir().mkpath(folder.fileName())); // root may read anything but a folder
    QVERIFY(!m_handler->resume(folder));

    QVERIFY(m_handler->write(1, 0, 0, 0, 0));
    QVERIFY(m_handler->stop());
    QVERIFY(contentOf(m_info).startsWith("[ClipInfo]\n")); // no continuation
    QCOMPARE(valuesIn(m_info),
             (QByteArrayList{"Val00000=0.000;0.000;0;0.000;0.000",
                             "Val00001=1.000;0.000;0;0.000;0.000"}));
}

void tst_ClipInfoResume::aMissingFileCannotBeResumed()
{
    QFile file(m_info);
    QVERIFY(!m_handler->resume(file));
    QVERIFY(!file.exists());
}

void tst_ClipInfoResume::theFileIsClosedAgain()
{
    makeFile(m_info, validFile());
    QFile file(m_info);
    QVERIFY(m_handler->resume(file));
    QVERIFY(!file.isOpen());
}

void tst_ClipInfoResume::startIsTrueForWhateverIsThere_data()
{
    QTest::addColumn<bool>("folder");
    QTest::addColumn<QByteArray>("key");

    QTest::newRow("a file") << false << QByteArray("Val00013");
    // not readable: numbering and kind of file stay as they were
    QTest::newRow("a folder") << true << QByteArray("Val00001");
}

void tst_ClipInfoResume::startIsTrueForWhateverIsThere()
{
    QFETCH(bool, folder);
    QFETCH(QByteArray, key);

    // one sample of a clip before, so that number 1 would come next
    m_handler->setVideoIndexingFilePath(m_host->path(QStringLiteral("before.mp4")));
    QVERIFY(m_handler->start());
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));
    QVERIFY(m_handler->stop());

    if (folder) {
        QVERIFY(QDir().mkpath(m_info));
    } else {
        makeFile(m_info, validFile());
    }
    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->start());
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));
    if (folder) {
        QVERIFY(!m_handler->stop());
        QVERIFY(QDir().rmdir(m_info));
    }
    QVERIFY(m_handler->stop());
    const QByteArrayList values = valuesIn(m_info);
    QCOMPARE(values.last(), key + "=0.000;0.000;0;0.000;0.000");
    QCOMPARE(contentOf(m_info).count("[Indexing]"), 1);
}

void tst_ClipInfoResume::aNewFileBeginsWithZero()
{
    QCOMPARE(keyAfter("Val00012=a\n"), QByteArray("Val00013"));
    QVERIFY(QFile::remove(m_info));
    m_handler->setVideoIndexingFilePath(m_video);
    QVERIFY(m_handler->start());
    QVERIFY(m_handler->write(0, 0, 0, 0, 0));
    QVERIFY(m_handler->stop());
    QCOMPARE(valuesIn(m_info), QByteArrayList{"Val00000=0.000;0.000;0;0.000;0.000"});
}

QTEST_GUILESS_MAIN(tst_ClipInfoResume)

#include "tst_ClipInfoResume.moc"
