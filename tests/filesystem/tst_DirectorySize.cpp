// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/CFileSystemHelper.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

using Tavro::Shared::CFileSystemHelper;
using Test::FaultInjection::Call;

namespace Faults = Test::FaultInjection;

namespace {

// The sum as its contract words it, by QDir and nothing else.
qint64 sizeByQDir(const QString &path)
{
    if (!QFileInfo(path).isDir()) {
        return 0;
    }
    qint64 sum = 0;
    const QFileInfoList entries = QDir(path).entryInfoList(
        QDir::Dirs | QDir::Files | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot,
        QDir::NoSort);
    for (const QFileInfo &entry : entries) {
        sum += entry.isDir() ? sizeByQDir(entry.absoluteFilePath()) : entry.size();
    }
    return sum;
}

} // namespace

Q_DECLARE_METATYPE(Test::FaultInjection::Call)

class tst_DirectorySize : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void whatIsNoDirectoryIsNothing_data();
    void whatIsNoDirectoryIsNothing();
    void allFilesBelowCount();
    void linksNeitherCountNorAreFollowed();
    void linkAskedForItselfIsFollowed();
    void pipesAndDevicesCountNothing();
    void namesThatAreNotUtf8AreLeftOut();
    void tenThousandLevelsAreCounted();
    void fewDescriptorsAreNeeded();
    void deepBranchesSideBySideAreAllCounted();
    void namesThatOnlyQtKnows_data();
    void namesThatOnlyQtKnows();
    void linkIsFollowedBeforeTwoPoints();
    void failingCallTakesNothingElseAway_data();
    void failingCallTakesNothingElseAway();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    QScopedPointer<Test::TemporaryFolder> m_folder;
};

void tst_DirectorySize::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_DirectorySize::cleanup()
{
    Faults::stop();
    m_folder.reset();
}

void tst_DirectorySize::whatIsNoDirectoryIsNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("file") << QStringLiteral("%1/file");
    QTest::newRow("missing") << QStringLiteral("%1/missing");
    QTest::newRow("link to a file") << QStringLiteral("%1/link");
    QTest::newRow("empty directory") << QStringLiteral("%1/empty");
    QTest::newRow("empty path") << QString();
    QTest::newRow("cut short by a NUL") << QStringLiteral("%1") + QChar(0);
}

void tst_DirectorySize::whatIsNoDirectoryIsNothing()
{
    QFETCH(QString, name);
    Test::makeFile(path("file"), "12345");
    QVERIFY(QFile::link(path("file"), path("link")));
    QVERIFY(QDir().mkdir(path("empty")));
    const QString asked = name.contains(QLatin1Char('%')) ? name.arg(m_folder->path()) : name;
    QCOMPARE(CFileSystemHelper::getDirectorySize(asked), Q_INT64_C(0));
}

void tst_DirectorySize::allFilesBelowCount()
{
    Test::makeFile(path("t/a"), Test::someBytes(1));
    Test::makeFile(path("t/.hidden"), Test::someBytes(10));
    Test::makeFile(path("t/.folder/b"), Test::someBytes(100));
    Test::makeFile(path("t/x/y/z/c"), Test::someBytes(1000));
    Test::makeFile(path("t/x/Straße"), Test::someBytes(10'000));
    Test::makeFile(path("t/..."), Test::someBytes(100'000));
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("t")), Q_INT64_C(111'111));
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("t/")), Q_INT64_C(111'111));
    QCOMPARE(sizeByQDir(path("t")), Q_INT64_C(111'111));
}

void tst_DirectorySize::linksNeitherCountNorAreFollowed()
{
    Test::makeFile(path("large"), Test::someBytes(1000));
    Test::makeFile(path("other/f"), Test::someBytes(100));
    Test::makeFile(path("t/f"), Test::someBytes(10));
    QVERIFY(QDir().mkdir(path("links")));
    for (const char *folder : {"t", "links"}) {
        QVERIFY(QFile::link(path("large"), path(folder) + QStringLiteral("/file")));
        QVERIFY(QFile::link(path("other"), path(folder) + QStringLiteral("/folder")));
        QVERIFY(QFile::link(path(folder), path(folder) + QStringLiteral("/self")));
        QVERIFY(QFile::link(path("missing"), path(folder) + QStringLiteral("/broken")));
    }
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("t")), Q_INT64_C(10));
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("links")), Q_INT64_C(0));
}

void tst_DirectorySize::linkAskedForItselfIsFollowed()
{
    Test::makeFile(path("t/f"), Test::someBytes(10));
    QVERIFY(QFile::link(path("t"), path("link")));
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("link")), Q_INT64_C(10));
    QCOMPARE(sizeByQDir(path("link")), Q_INT64_C(10));
}

void tst_DirectorySize::pipesAndDevicesCountNothing()
{
    Test::makeFile(path("t/f"), Test::someBytes(10));
    QCOMPARE(::mkfifo(path("t/pipe").toUtf8().constData(), 0600), 0);
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("t")), Q_INT64_C(10));
    QCOMPARE(sizeByQDir(path("t")), Q_INT64_C(10));
}

void tst_DirectorySize::namesThatAreNotUtf8AreLeftOut()
{
    Test::makeFile(path("t/f"), Test::someBytes(10));
    const QByteArray folder = path("t").toUtf8() + "/\xff\xfe";
    QCOMPARE(::mkdir(folder.constData(), 0700), 0);
    for (const QByteArray &name : {folder + "/inside", path("t").toUtf8() + "/caf\xe9"}) {
        const int file = ::open(name.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        QCOMPARE(::write(file, "12345", 5), 5);
        ::close(file);
    }
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("t")), Q_INT64_C(10));
    QCOMPARE(sizeByQDir(path("t")), Q_INT64_C(10));
}

void tst_DirectorySize::tenThousandLevelsAreCounted()
{
    const Test::DeepTree tree(path("t"), 10'000, "12345");
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("t")), Q_INT64_C(50'000));
}

void tst_DirectorySize::fewDescriptorsAreNeeded()
{
    const Test::DeepTree tree(path("t"), 1000, "12345");
    rlimit before = {};
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit few = before;
    few.rlim_cur = 60; // those of the test's own among them
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const qint64 size = CFileSystemHelper::getDirectorySize(path("t"));
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
    QCOMPARE(size, Q_INT64_C(5000));
}

// The way back up has to find the folders that were closed on the way down.
void tst_DirectorySize::deepBranchesSideBySideAreAllCounted()
{
    QString chain = path("t");
    qint64 expected = 0;
    for (int level = 0; level < 60; ++level) {
        for (int branch = 0; branch < 3; ++branch) {
            Test::makeFile(chain + QStringLiteral("/b%1/x/y/f").arg(branch),
                           Test::someBytes(1 + level));
            expected += 1 + level;
        }
        chain += QStringLiteral("/c");
    }
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("t")), expected);
    QCOMPARE(sizeByQDir(path("t")), expected);
}

void tst_DirectorySize::namesThatOnlyQtKnows_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qint64>("size");
    QTest::newRow("resource") << QStringLiteral(":/samples/tree") << Q_INT64_C(26);
    QTest::newRow("directory in it") << QStringLiteral(":/samples/tree/sub") << Q_INT64_C(13);
    QTest::newRow("file in it") << QStringLiteral(":/samples/tree/sub/inner") << Q_INT64_C(0);
    QTest::newRow("missing resource") << QStringLiteral(":/samples/missing") << Q_INT64_C(0);
    QTest::newRow("search path") << QStringLiteral("sizes:tree") << Q_INT64_C(7);
    QTest::newRow("search path to a resource") << QStringLiteral("sizes:sub") << Q_INT64_C(13);
    QTest::newRow("neither") << QStringLiteral("sizes:missing") << Q_INT64_C(0);
    QTest::newRow("prefix that nobody has made") << QStringLiteral("nothing:tree") << Q_INT64_C(0);
    QTest::newRow("prefix of one letter") << QStringLiteral("s:tree") << Q_INT64_C(0);
}

void tst_DirectorySize::namesThatOnlyQtKnows()
{
    QFETCH(QString, name);
    QFETCH(qint64, size);
    Test::makeFile(path("second/tree/f"), "12345");
    Test::makeFile(path("second/tree/.hidden/g"), "12");
    QDir::setSearchPaths(QStringLiteral("sizes"),
                         {path("first"), path("second"), QStringLiteral(":/samples/tree")});
    const qint64 sizeOfQDir = sizeByQDir(name);
    const qint64 actual = CFileSystemHelper::getDirectorySize(name);
    QDir::setSearchPaths(QStringLiteral("sizes"), {});
    QCOMPARE(actual, size);
    QCOMPARE(sizeOfQDir, size);
}

void tst_DirectorySize::linkIsFollowedBeforeTwoPoints()
{
    Test::makeFile(path("a/deep/x"), "1");
    Test::makeFile(path("a/tree/f"), "12345");
    Test::makeFile(path("tree/f"), "12");
    QVERIFY(QFile::link(path("a/deep"), path("link")));
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("link/../tree")), Q_INT64_C(5));
    QCOMPARE(CFileSystemHelper::getDirectorySize(path("link/..")), Q_INT64_C(6));
}

void tst_DirectorySize::failingCallTakesNothingElseAway_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<bool>("hidesTypes");
    QTest::newRow("opening a directory") << Call::OpenDirectory << false;
    QTest::newRow("reading a directory") << Call::ReadDirectory << false;
    QTest::newRow("examining an entry") << Call::Examine << false;
    QTest::newRow("examining an entry without types") << Call::Examine << true;
}

void tst_DirectorySize::failingCallTakesNothingElseAway()
{
    QFETCH(Call, call);
    QFETCH(bool, hidesTypes);
    // each file adds another bit to the sum
    Test::makeFile(path("t/a"), "1");
    Test::makeFile(path("t/b/c"), "12");
    Test::makeFile(path("t/b/deep/d"), "1234");
    Test::makeFile(path("t/.e/f"), "12345678");
    for (const int error : {EIO, EACCES, EMFILE, ENOMEM, EOVERFLOW}) {
        qint64 lost = 0;
        int n = 0;
        for (bool hasStruck = true; hasStruck;) {
            Faults::watch(m_folder->path());
            if (hidesTypes) {
                Faults::hideEntryTypes();
            }
            Faults::failNth(call, ++n, error);
            const qint64 size = CFileSystemHelper::getDirectorySize(path("t"));
            hasStruck = Faults::hasStruck();
            Faults::stop();
            QVERIFY(size >= 0 && size <= 15);
            QVERIFY(hasStruck || size == 15);
            lost |= 15 - size;
        }
        QCOMPARE(lost, Q_INT64_C(15)); // each of them by one of the calls
    }
}

QTEST_GUILESS_MAIN(tst_DirectorySize)

#include "tst_DirectorySize.moc"
