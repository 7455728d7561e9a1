// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/CFileSystemHelper.h"
#include "tests/support/FileTree.h"
#include "tests/support/LogRecorder.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QScopeGuard>
#include <QStorageInfo>
#include <QTest>

#include <sys/statvfs.h>

#include <type_traits>

using Tavro::Shared::CFileSystemHelper;

namespace {

using TextFunction = QString (*)(const QString &);

QString projectName(const QString &path)
{
    return CFileSystemHelper::projectNameFromPath(path);
}

} // namespace

Q_DECLARE_METATYPE(TextFunction)

class tst_CFileSystemHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hasNoInstances();
    void textsAreTakenApart_data();
    void textsAreTakenApart();
    void pathsAreJoined_data();
    void pathsAreJoined();
    void everyInvalidCharacterIsReplacedAndNoOther();
    void jpegHasItsUsualSuffix_data();
    void jpegHasItsUsualSuffix();

    void oneDirectoryIsCreated_data();
    void oneDirectoryIsCreated();
    void wholePathIsCreated();
    void failedCreationOfAPathIsTrueAllTheSame();
    void temporaryPathEndsInASlash_data();
    void temporaryPathEndsInASlash();
    void uniqueTemporaryDirectoryIsTheCallers();
    void noTemporaryFolderNoDirectory_data();
    void noTemporaryFolderNoDirectory();

    void fileSizeIsThatOfARegularFile();
    void freeSpaceIsWhatTheVolumeReports();

    void filesAreDeletedUpToTheFirstFailure_data();
    void filesAreDeletedUpToTheFirstFailure();
    void emptyDirectoriesGoWithTheirFiles();
    void directoriesGoEvenAfterAFailure();
    void nothingIsLogged();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    bool exists(const char *name) const { return QFileInfo::exists(path(name)); }

    QScopedPointer<Test::TemporaryFolder> m_folder;
};

void tst_CFileSystemHelper::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_CFileSystemHelper::cleanup()
{
    m_folder.reset();
}

void tst_CFileSystemHelper::hasNoInstances()
{
    QVERIFY(!std::is_default_constructible<CFileSystemHelper>::value);
    QVERIFY(std::is_empty<CFileSystemHelper>::value);
}

void tst_CFileSystemHelper::textsAreTakenApart_data()
{
    QTest::addColumn<TextFunction>("function");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto rows = [](TextFunction function, const char *name,
                         std::initializer_list<std::pair<const char *, const char *>> pairs) {
        for (const auto &pair : pairs) {
            QTest::addRow("%s of \"%s\"", name, pair.first)
                << function << QString::fromUtf8(pair.first) << QString::fromUtf8(pair.second);
        }
    };
    using Helper = CFileSystemHelper;
    rows(Helper::fromWindowsSeparators, "from Windows",
         {{R"(C:\a\b)", "C:/a/b"}, {R"(\\server\x/y)", "//server/x/y"}, {"", ""}, {"a/b", "a/b"}});
    rows(Helper::toWindowsSeparators, "to Windows",
         {{"/a/b", R"(\a\b)"}, {R"(a\b/c)", R"(a\b\c)"}, {"", ""}, {"ab", "ab"}});
    rows(Helper::extractFileExtension, "extension",
         {{"archive.tar.gz", "gz"},
          {"README", nullptr},
          {"ends.", ""},
          {".hidden", "hidden"},
          {"a.b/c", "b/c"},
          {"", nullptr}});
    rows(Helper::extractFileName, "file name",
         {{"/a/b", "b"}, {"/a/b/", ""}, {"c.txt", nullptr}, {"/", ""}, {"", nullptr}});
    rows(Helper::extractDirectoryName, "directory name",
         {{"/a/b", "b"}, {"a", "a"}, {"/a/b.c", "b.c"}, {"/", ""}, {"/a/b/", "b"}});
    rows(Helper::extractPath, "path",
         {{"/a/b.txt", "/a/"},
          {"/b.txt", "/"},
          {"/a/b/", "/a/b/"},
          {"/a/./x/../b", "/a/"},
          {"", ""}});
    rows(projectName, "project name",
         {{"/data/projects/P1/", "P1"},
          {"/data/projects/P1", "P1"},
          {"P1", "P1"},
          {"P1/", "P1"},
          {"/", ""},
          {"a//", ""},
          {"", ""}});
    rows(Helper::getValidFileSystemName, "valid name",
         {{"a.b,c", "a_b_c"},
          {"a<b>:c. ", "a_b__c_"},
          {"plain", "plain"},
          {"  leading", "  leading"},
          {"trailing \t \t", "trailing"},
          {"in side", "in side"},
          {"\t ", ""},
          {"", ""},
          {"line\n", "line\n"},
          {"blank \n", "blank \n"},
          {R"(\"<>|:*?/,.&)", "____________"},
          {"\x01\x1f\x7f", "\x01\x1f\x7f"},
          {"Straße-Ω_#%'{}[]()!;=+~$@^`", "Straße-Ω_#%'{}[]()!;=+~$@^`"}});
}

void tst_CFileSystemHelper::textsAreTakenApart()
{
    QFETCH(TextFunction, function);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const QString actual = function(text);
    QCOMPARE(actual, expected);
    if (function == CFileSystemHelper::extractFileExtension
        || function == CFileSystemHelper::extractFileName) {
        QCOMPARE(actual.isNull(), expected.isNull());
    }
}

void tst_CFileSystemHelper::pathsAreJoined_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("joined");
    const auto row = [](const char *title, const char *path, const char *name, const char *joined) {
        QTest::newRow(title) << QString::fromUtf8(path) << QString::fromUtf8(name)
                             << QString::fromUtf8(joined);
    };
    row("without a slash", "/a", "b", "/a/b");
    row("with a slash", "/a/", "b", "/a/b");
    row("root", "/", "b", "/b");
    row("empty path", "", "b", "/b");
    row("empty name", "/a", "", "/a/");
    row("both with slashes", "/a/", "/b", "/a//b");
    row("backslash is a letter", "a\\", "b", "a\\/b");
}

void tst_CFileSystemHelper::pathsAreJoined()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    QTEST(CFileSystemHelper::buildPath(path, name), "joined");
    QTEST(CFileSystemHelper::buildAbsoluteFileName(path, name), "joined");
}

void tst_CFileSystemHelper::everyInvalidCharacterIsReplacedAndNoOther()
{
    const QString invalid = QStringLiteral(R"(\"<>|:*?/,.&)");
    for (ushort c = 0; c < 0xFFFF; ++c) {
        const QString name = QStringLiteral("a") + QChar(c) + QStringLiteral("b");
        const QString expected = invalid.contains(QChar(c)) ? QStringLiteral("a_b") : name;
        QCOMPARE(CFileSystemHelper::getValidFileSystemName(name), expected);
    }
}

void tst_CFileSystemHelper::jpegHasItsUsualSuffix_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("jpeg") << QStringLiteral("image/jpeg") << QStringLiteral("jpg");
    QTest::newRow("png") << QStringLiteral("image/png") << QStringLiteral("png");
    QTest::newRow("text") << QStringLiteral("text/plain") << QStringLiteral("txt");
    QTest::newRow("without suffixes") << QStringLiteral("inode/directory") << QString();
    QTest::newRow("no type") << QString() << QString();
}

void tst_CFileSystemHelper::jpegHasItsUsualSuffix()
{
    QFETCH(QString, type);
    const QMimeType mime = QMimeDatabase().mimeTypeForName(type);
    QTEST(CFileSystemHelper::getPreferredSuffixFromMIMEType(mime), "suffix");
}

void tst_CFileSystemHelper::oneDirectoryIsCreated_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("created");
    QTest::newRow("new") << QStringLiteral("new") << true;
    QTest::newRow("null") << QString() << false;
    QTest::newRow("empty") << QString(QLatin1String("")) << false;
    QTest::newRow("there already") << QStringLiteral("there") << false;
    QTest::newRow("two levels") << QStringLiteral("two/levels") << false;
    QTest::newRow("second level") << QStringLiteral("there/second") << true;
    QTest::newRow("below a file") << QStringLiteral("file/sub") << false;
}

void tst_CFileSystemHelper::oneDirectoryIsCreated()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkdir(path("there")));
    Test::makeFile(path("file"));
    QTEST(CFileSystemHelper::createDirectory(m_folder->path(), name), "created");
    QFETCH(bool, created);
    QVERIFY(!created || QFileInfo(m_folder->filePath(name)).isDir());
}

void tst_CFileSystemHelper::wholePathIsCreated()
{
    QVERIFY(CFileSystemHelper::createDirectory(path("a/b/c")));
    QVERIFY(QFileInfo(path("a/b/c")).isDir());
    QVERIFY(CFileSystemHelper::createDirectory(path("a/b/c")));
    QVERIFY(CFileSystemHelper::createDirectory(path("d/")));
    QVERIFY(QFileInfo(path("d")).isDir());
}

void tst_CFileSystemHelper::failedCreationOfAPathIsTrueAllTheSame()
{
    Test::makeFile(path("file"));
    QVERIFY(CFileSystemHelper::createDirectory(path("file/sub")));
    QVERIFY(!exists("file/sub"));
}

void tst_CFileSystemHelper::temporaryPathEndsInASlash_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("without a slash") << QStringLiteral("%1/tmp");
    QTest::newRow("with a slash") << QStringLiteral("%1/tmp/");
    QTest::newRow("unclean") << QStringLiteral("%1//tmp/.");
}

void tst_CFileSystemHelper::temporaryPathEndsInASlash()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkdir(path("tmp")));
    const auto restore =
        qScopeGuard([before = qgetenv("TMPDIR"), wasSet = qEnvironmentVariableIsSet("TMPDIR")] {
            wasSet ? qputenv("TMPDIR", before) : qunsetenv("TMPDIR");
        });
    const QString expected = QFileInfo(path("tmp")).canonicalFilePath() + QLatin1Char('/');
    qputenv("TMPDIR", name.arg(m_folder->path()).toUtf8());
    QCOMPARE(CFileSystemHelper::getTempDirPath(), expected);
    const QString unique = CFileSystemHelper::createUniqueTempDirectory();
    QVERIFY(unique.startsWith(expected));
    QCOMPARE(unique.size(), expected.size() + 7);
}

void tst_CFileSystemHelper::uniqueTemporaryDirectoryIsTheCallers()
{
    const QString one = CFileSystemHelper::createUniqueTempDirectory();
    const QString two = CFileSystemHelper::createUniqueTempDirectory();
    const auto remove = qScopeGuard([&] {
        QDir().rmdir(one);
        QDir().rmdir(two);
    });
    QVERIFY(one != two);
    for (const QString &directory : {one, two}) {
        QVERIFY(directory.endsWith(QLatin1Char('/')));
        QVERIFY(directory.startsWith(CFileSystemHelper::getTempDirPath()));
        QVERIFY(QFileInfo(directory).isDir());
        QVERIFY(QDir(directory).isEmpty());
    }
}

void tst_CFileSystemHelper::noTemporaryFolderNoDirectory_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nowhere") << QStringLiteral("/missing");
    QTest::newRow("a file") << QStringLiteral("/file");
}

void tst_CFileSystemHelper::noTemporaryFolderNoDirectory()
{
    QFETCH(QString, name);
    Test::makeFile(path("file"));
    const QStringList rootBefore = QDir::root().entryList(QDir::AllEntries | QDir::Hidden);
    const auto restore =
        qScopeGuard([before = qgetenv("TMPDIR"), wasSet = qEnvironmentVariableIsSet("TMPDIR")] {
            wasSet ? qputenv("TMPDIR", before) : qunsetenv("TMPDIR");
        });
    qputenv("TMPDIR", (m_folder->path() + name).toUtf8());
    QVERIFY(CFileSystemHelper::createUniqueTempDirectory().isNull());
    QCOMPARE(QDir::root().entryList(QDir::AllEntries | QDir::Hidden), rootBefore);
    QVERIFY(CFileSystemHelper::getTempDirPath().endsWith(QLatin1Char('/')));
}

void tst_CFileSystemHelper::fileSizeIsThatOfARegularFile()
{
    Test::makeFile(path("file"), Test::someBytes(1234));
    QVERIFY(QFile::link(path("file"), path("link")));
    QVERIFY(QFile::link(path("missing"), path("broken")));
    QVERIFY(QFile::link(m_folder->path(), path("toFolder")));
    QFile large(path("large"));
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(Q_INT64_C(5'000'000'000)));
    QCOMPARE(CFileSystemHelper::getFileSize(path("file")), Q_INT64_C(1234));
    QCOMPARE(CFileSystemHelper::getFileSize(path("link")), Q_INT64_C(1234));
    QCOMPARE(CFileSystemHelper::getFileSize(path("large")), Q_INT64_C(5'000'000'000));
    for (const char *name : {"missing", "broken", "toFolder", ""}) {
        QCOMPARE(CFileSystemHelper::getFileSize(path(name)), Q_INT64_C(0));
    }
    QCOMPARE(CFileSystemHelper::getFileSize(QStringLiteral("/dev/null")), Q_INT64_C(0));
    QCOMPARE(CFileSystemHelper::getFileSize(QString()), Q_INT64_C(0));
}

void tst_CFileSystemHelper::freeSpaceIsWhatTheVolumeReports()
{
    // others fill and empty the volume meanwhile; QTRY_COMPARE would look once more at the end
    QVERIFY(QTest::qWaitFor([this] {
        return CFileSystemHelper::getDiskFreeSpace(m_folder->path())
            == QStorageInfo(m_folder->path()).bytesAvailable();
    }));
    QVERIFY(CFileSystemHelper::getDiskFreeSpace(m_folder->path()) > 0);
    for (const QString &invalid : {path("missing"), QString()}) {
        QStorageInfo storage;
        storage.setPath(invalid);
        QCOMPARE(CFileSystemHelper::getDiskFreeSpace(invalid), storage.bytesAvailable());
    }
    QCOMPARE(CFileSystemHelper::getDiskFreeSpace(path("missing")), Q_INT64_C(-1));
}

void tst_CFileSystemHelper::filesAreDeletedUpToTheFirstFailure_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QStringList>("left");
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    const QString c = QStringLiteral("c");
    const QString missing = QStringLiteral("missing");
    QTest::newRow("all") << QStringList{a, b, c} << true << QStringList();
    QTest::newRow("none") << QStringList() << true << QStringList{a, b, c};
    QTest::newRow("first is missing")
        << QStringList{missing, a, b} << false << QStringList{a, b, c};
    QTest::newRow("second is missing") << QStringList{c, missing, a} << false << QStringList{a, b};
    QTest::newRow("twice") << QStringList{a, a, b} << false << QStringList{b, c};
    QTest::newRow("a directory") << QStringList{QStringLiteral("."), a} << false
                                 << QStringList{a, b, c};
}

void tst_CFileSystemHelper::filesAreDeletedUpToTheFirstFailure()
{
    QFETCH(QStringList, names);
    for (const char *name : {"d/a", "d/b", "d/c"}) {
        Test::makeFile(path(name));
    }
    QStringList files;
    for (const QString &name : qAsConst(names)) {
        files.append(path("d/") + name);
    }
    QTEST(CFileSystemHelper::deleteFiles(files, false), "ok");
    QTEST(QDir(path("d")).entryList(QDir::Files), "left");
    QVERIFY(exists("d")); // also when nothing is left in it
}

void tst_CFileSystemHelper::emptyDirectoriesGoWithTheirFiles()
{
    for (const char *name : {"one/a", "one/b", "two/c", "two/stays", "three/sub/d"}) {
        Test::makeFile(path(name));
    }
    QVERIFY(CFileSystemHelper::deleteFiles(
        {path("one/a"), path("two/c"), path("one/b"), path("three/sub/d")}, true));
    QVERIFY(!exists("one"));
    QVERIFY(exists("two/stays"));
    QVERIFY(!exists("three/sub"));
    QVERIFY(exists("three")); // only the files' own directories
}

void tst_CFileSystemHelper::directoriesGoEvenAfterAFailure()
{
    Test::makeFile(path("full/a"));
    QVERIFY(QDir().mkpath(path("empty")));
    QVERIFY(QDir().mkpath(path("other")));
    QVERIFY(!CFileSystemHelper::deleteFiles(
        {path("empty/missing"), path("full/a"), path("other/x")}, true));
    QVERIFY(!exists("other"));
    QVERIFY(exists("full/a"));
}

void tst_CFileSystemHelper::nothingIsLogged()
{
    const Test::LogRecorder log;
    CFileSystemHelper::deleteFiles({path("missing")}, true);
    CFileSystemHelper::createDirectory(path("missing/a"), QStringLiteral("b"));
    CFileSystemHelper::getFileSize(path("missing"));
    CFileSystemHelper::getDirectorySize(path("missing"));
    QCOMPARE(log.entries(), QStringList());
}

QTEST_GUILESS_MAIN(tst_CFileSystemHelper)

#include "tst_CFileSystemHelper.moc"
