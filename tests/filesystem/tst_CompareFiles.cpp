// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/CFileSystemHelper.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/FileTree.h"
#include "tests/support/LogRecorder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>

using Tavro::Shared::CFileSystemHelper;
using Test::FaultInjection::Call;

namespace Faults = Test::FaultInjection;

namespace {

// Two blocks of the same MD5 sum, as published by X. Wang and H. Yu in "How to Break MD5 and
// Other Hash Functions" (2005).
const char s_collisionA[] = "d131dd02c5e6eec4693d9a0698aff95c2fcab58712467eab4004583eb8fb7f89"
                            "55ad340609f4b30283e488832571415a085125e8f7cdc99fd91dbdf280373c5b"
                            "d8823e3156348f5bae6dacd436c919c6dd53e2b487da03fd02396306d248cda0"
                            "e99f33420f577ee8ce54b67080a80d1ec69821bcb6a8839396f9652b6ff72a70";
const char s_collisionB[] = "d131dd02c5e6eec4693d9a0698aff95c2fcab50712467eab4004583eb8fb7f89"
                            "55ad340609f4b30283e4888325f1415a085125e8f7cdc99fd91dbd7280373c5b"
                            "d8823e3156348f5bae6dacd436c919c6dd53e23487da03fd02396306d248cda0"
                            "e99f33420f577ee8ce54b67080280d1ec69821bcb6a8839396f965ab6ff72a70";

enum class Answer { Equal, Different, Unreadable };

Answer compare(const QString &a, const QString &b)
{
    bool ok = false;
    const bool isEqual = CFileSystemHelper::compareFiles(a, b, ok);
    if (!ok) {
        return isEqual ? Answer::Equal : Answer::Unreadable;
    }
    return isEqual ? Answer::Equal : Answer::Different;
}

} // namespace

Q_DECLARE_METATYPE(Answer)

class tst_CompareFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void contentDecides_data();
    void contentDecides();
    void fileEqualsItself();
    void linksAreFollowed();
    void filesOfTheSameSumAreEqual_data();
    void filesOfTheSameSumAreEqual();
    void filesBeyondTwoGigabytesAreToldApart();
    void unreadableFileIsLogged_data();
    void unreadableFileIsLogged();
    void nameWithANulIsUnreadable();
    void brokenOffReadingIsUnreadable_data();
    void brokenOffReadingIsUnreadable();
    void pipeIsNotWaitedFor();
    void okIsSetEitherWay();
    void memoryStaysSmall();
    void namesThatOnlyQtKnows_data();
    void namesThatOnlyQtKnows();
    void linkIsFollowedBeforeTwoPoints();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void makeLarge(const char *name, qint64 size, char last) const;
    QString logOf(const char *name) const
    {
        return QStringLiteral("[error] Tavro::FileSystemHelper: "
                              "Could not read file content for MD5 sum check: ")
            + path(name);
    }

    QScopedPointer<Test::TemporaryFolder> m_folder;
};

void tst_CompareFiles::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_CompareFiles::cleanup()
{
    Faults::stop();
    m_folder.reset();
}

void tst_CompareFiles::contentDecides_data()
{
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<Answer>("answer");
    const QByteArray some = Test::someBytes(1'000'000, 1);
    QByteArray last = some;
    last[last.size() - 1] = static_cast<char>(~last.at(last.size() - 1));
    QByteArray first = some;
    first[0] = static_cast<char>(~first.at(0));
    const QByteArray block = Test::someBytes(128 * 1024, 2);
    QTest::newRow("both empty") << QByteArray() << QByteArray() << Answer::Equal;
    QTest::newRow("one empty") << QByteArray() << QByteArray("a") << Answer::Different;
    QTest::newRow("other empty") << QByteArray("a") << QByteArray() << Answer::Different;
    QTest::newRow("small and equal") << QByteArray("a") << QByteArray("a") << Answer::Equal;
    QTest::newRow("small and different") << QByteArray("a") << QByteArray("b") << Answer::Different;
    QTest::newRow("large and equal") << some << some << Answer::Equal;
    QTest::newRow("last byte differs") << some << last << Answer::Different;
    QTest::newRow("first byte differs") << first << some << Answer::Different;
    QTest::newRow("one is longer") << some << some + "a" << Answer::Different;
    QTest::newRow("one is shorter") << some + QByteArray(1, '\0') << some << Answer::Different;
    QTest::newRow("whole blocks, equal") << block + block << block + block << Answer::Equal;
    QTest::newRow("one block more") << block << block + block << Answer::Different;
    QTest::newRow("one byte beyond a block") << block + "a" << block + "a" << Answer::Equal;
}

void tst_CompareFiles::contentDecides()
{
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    Test::makeFile(path("a"), a);
    Test::makeFile(path("b"), b);
    const Test::LogRecorder log;
    QTEST(compare(path("a"), path("b")), "answer");
    QCOMPARE(log.entries(), QStringList());
}

void tst_CompareFiles::fileEqualsItself()
{
    Test::makeFile(path("a"), Test::someBytes(500'000));
    const Test::LogRecorder log;
    QCOMPARE(compare(path("a"), path("a")), Answer::Equal);
    QCOMPARE(log.entries(), QStringList());
}

void tst_CompareFiles::linksAreFollowed()
{
    Test::makeFile(path("a"), "content");
    Test::makeFile(path("b"), "content");
    QVERIFY(QFile::link(path("b"), path("link")));
    QCOMPARE(compare(path("a"), path("link")), Answer::Equal);
    QCOMPARE(compare(path("link"), path("a")), Answer::Equal);
}

void tst_CompareFiles::filesOfTheSameSumAreEqual_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<Answer>("answer");
    QTest::newRow("alone") << QByteArray() << QByteArray() << Answer::Equal;
    QTest::newRow("with the same behind")
        << QByteArray() << Test::someBytes(1'000'000) << Answer::Equal;
    // the pair works from the sum's initial state only
    QTest::newRow("with something in front")
        << QByteArray(64, 'x') << QByteArray() << Answer::Different;
}

void tst_CompareFiles::filesOfTheSameSumAreEqual()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const QByteArray a = before + QByteArray::fromHex(s_collisionA) + after;
    const QByteArray b = before + QByteArray::fromHex(s_collisionB) + after;
    QVERIFY(a != b);
    Test::makeFile(path("a"), a);
    Test::makeFile(path("b"), b);
    QTEST(compare(path("a"), path("b")), "answer");
}

// a hole, with one byte at its end
void tst_CompareFiles::makeLarge(const char *name, qint64 size, char last) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.seek(size - 1));
    QVERIFY(file.putChar(last));
}

void tst_CompareFiles::filesBeyondTwoGigabytesAreToldApart()
{
    const qint64 size = Q_INT64_C(0x8000'0001);
    makeLarge("a", size, 'a');
    makeLarge("same", size, 'a');
    makeLarge("b", size, 'b');
    QCOMPARE(compare(path("a"), path("same")), Answer::Equal);
    QCOMPARE(compare(path("a"), path("b")), Answer::Different);
}

void tst_CompareFiles::unreadableFileIsLogged_data()
{
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<QByteArray>("logged");
    QTest::newRow("first missing")
        << QByteArray("missing") << QByteArray("b") << QByteArray("missing");
    QTest::newRow("second missing")
        << QByteArray("a") << QByteArray("missing") << QByteArray("missing");
    QTest::newRow("both missing") << QByteArray("missing1") << QByteArray("missing2")
                                  << QByteArray("missing1");
    QTest::newRow("first a directory")
        << QByteArray("folder") << QByteArray("b") << QByteArray("folder");
    QTest::newRow("second a directory")
        << QByteArray("a") << QByteArray("folder") << QByteArray("folder");
    QTest::newRow("broken link") << QByteArray("a") << QByteArray("broken") << QByteArray("broken");
    QTest::newRow("same missing path")
        << QByteArray("missing") << QByteArray("missing") << QByteArray("missing");
}

void tst_CompareFiles::unreadableFileIsLogged()
{
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    QFETCH(QByteArray, logged);
    Test::makeFile(path("a"), "1");
    Test::makeFile(path("b"), "1");
    QVERIFY(QDir().mkdir(path("folder")));
    QVERIFY(QFile::link(path("nowhere"), path("broken")));
    const Test::LogRecorder log;
    QCOMPARE(compare(path(a.constData()), path(b.constData())), Answer::Unreadable);
    QCOMPARE(log.entries(), QStringList{logOf(logged.constData())});
}

void tst_CompareFiles::nameWithANulIsUnreadable()
{
    Test::makeFile(path("a"), "1");
    const QString name = path("a") + QChar(0); // the system would take it for "a"
    const Test::LogRecorder log;
    QCOMPARE(compare(name, path("a")), Answer::Unreadable);
    QCOMPARE(compare(path("a"), name), Answer::Unreadable);
    QCOMPARE(log.entries().size(), 2);
}

void tst_CompareFiles::brokenOffReadingIsUnreadable_data()
{
    QTest::addColumn<bool>("equal");
    QTest::addColumn<int>("failingRead");
    QTest::addColumn<QByteArray>("logged");
    QTest::newRow("first file") << true << 1 << QByteArray("a");
    QTest::newRow("second file") << true << 2 << QByteArray("b");
    QTest::newRow("first file, further on") << true << 5 << QByteArray("a");
    QTest::newRow("second file, further on") << true << 6 << QByteArray("b");
    // one block of each is compared, then each is summed up
    QTest::newRow("first file while its sum is made") << false << 4 << QByteArray("a");
    QTest::newRow("second file while its sum is made") << false << 14 << QByteArray("b");
}

void tst_CompareFiles::brokenOffReadingIsUnreadable()
{
    QFETCH(bool, equal);
    QFETCH(int, failingRead);
    QFETCH(QByteArray, logged);
    QByteArray content = Test::someBytes(1'000'000); // eight blocks
    Test::makeFile(path("a"), content);
    content[0] = static_cast<char>(equal ? content.at(0) : ~content.at(0));
    Test::makeFile(path("b"), content);
    const Test::LogRecorder log;
    Faults::watch(m_folder->path());
    Faults::failNth(Call::Read, failingRead, EIO);
    QCOMPARE(compare(path("a"), path("b")), Answer::Unreadable);
    QVERIFY(Faults::hasStruck());
    Faults::stop();
    QCOMPARE(log.entries(), QStringList{logOf(logged.constData())});
}

void tst_CompareFiles::pipeIsNotWaitedFor()
{
    Test::makeFile(path("a"), "1");
    QCOMPARE(::mkfifo(path("pipe").toUtf8().constData(), 0600), 0);
    const Test::LogRecorder log;
    QCOMPARE(compare(path("a"), path("pipe")), Answer::Unreadable);
    QCOMPARE(compare(path("pipe"), path("a")), Answer::Unreadable);
    QCOMPARE(compare(QStringLiteral("/dev/zero"), path("a")), Answer::Unreadable);
    QCOMPARE(log.entries().size(), 3);
}

void tst_CompareFiles::okIsSetEitherWay()
{
    Test::makeFile(path("a"), "1");
    Test::makeFile(path("b"), "2");
    bool ok = false;
    QVERIFY(!CFileSystemHelper::compareFiles(path("a"), path("b"), ok));
    QVERIFY(ok);
    QVERIFY(!CFileSystemHelper::compareFiles(path("a"), path("missing"), ok));
    QVERIFY(!ok);
    QVERIFY(CFileSystemHelper::compareFiles(path("a"), path("a"), ok));
    QVERIFY(ok);
}

void tst_CompareFiles::memoryStaysSmall()
{
    makeLarge("a", Q_INT64_C(300'000'000), 'a');
    makeLarge("same", Q_INT64_C(300'000'000), 'a');
    makeLarge("b", Q_INT64_C(300'000'000), 'b');
    const auto residentMiB = [] {
        rusage usage = {};
        ::getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss / 1024;
    };
    const long before = residentMiB();
    QCOMPARE(compare(path("a"), path("same")), Answer::Equal);
    QCOMPARE(compare(path("a"), path("b")), Answer::Different);
    QVERIFY(residentMiB() - before < 60); // sanitizers take their share
}

void tst_CompareFiles::namesThatOnlyQtKnows_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Answer>("answer");
    QTest::newRow("resource") << QStringLiteral(":/samples/tree/alpha") << Answer::Equal;
    QTest::newRow("search path") << QStringLiteral("files:alpha") << Answer::Equal;
    QTest::newRow("search path to a resource")
        << QStringLiteral("files:tree/alpha") << Answer::Equal;
    QTest::newRow("other resource") << QStringLiteral(":/samples/tree/Zeta") << Answer::Different;
    QTest::newRow("directory") << QStringLiteral(":/samples/tree") << Answer::Unreadable;
    QTest::newRow("missing resource") << QStringLiteral(":/samples/nothing") << Answer::Unreadable;
    QTest::newRow("not on the search path")
        << QStringLiteral("files:nothing") << Answer::Unreadable;
}

void tst_CompareFiles::namesThatOnlyQtKnows()
{
    QFETCH(QString, name);
    QFETCH(Answer, answer);
    Test::makeFile(path("second/alpha"), "123\n");
    QDir::setSearchPaths(QStringLiteral("files"),
                         {path("first"), path("second"), QStringLiteral(":/samples")});
    const Test::LogRecorder log;
    const Answer forth = compare(name, path("second/alpha"));
    const Answer back = compare(path("second/alpha"), name);
    QDir::setSearchPaths(QStringLiteral("files"), {});
    QCOMPARE(forth, answer);
    QCOMPARE(back, answer);
    QCOMPARE(log.entries().size(), answer == Answer::Unreadable ? 2 : 0);
}

void tst_CompareFiles::linkIsFollowedBeforeTwoPoints()
{
    Test::makeFile(path("a/deep/x"), "1");
    Test::makeFile(path("a/file"), "meant");
    Test::makeFile(path("file"), "other");
    QVERIFY(QFile::link(path("a/deep"), path("link")));
    QCOMPARE(compare(path("link/../file"), path("a/file")), Answer::Equal);
    QCOMPARE(compare(path("link/../file"), path("file")), Answer::Different);
}

QTEST_GUILESS_MAIN(tst_CompareFiles)

#include "tst_CompareFiles.moc"
