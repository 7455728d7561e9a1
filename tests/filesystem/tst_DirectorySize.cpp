#include "shared/filesystem/CFileSystemHelper.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using Tavro::Shared::CFileSystemHelper;

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

QTEST_GUILESS_MAIN(tst_DirectorySize)

#include "tst_DirectorySize.moc"
