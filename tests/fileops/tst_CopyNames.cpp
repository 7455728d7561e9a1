// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileCopyWorker.h"
#include "tests/support/CopyOutcome.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"
#include "tests/support/LogRecorder.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <cerrno>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileCopyWorker;
using Tavro::Shared::CFileOperationResult;
using Test::resultOfCopy;

namespace {

enum class Request { Directory, Directories, DatabaseFile, File };

/** Makes one kind of request, and waits for its end. */
CFileOperationResult copy(Request request, const QString &source, const QString &destination)
{
    if (request == Request::File) {
        CFileCopyController controller;
        controller.copyFile(source, destination);
        return {};
    }
    return resultOfCopy([&](CFileCopyController &controller) {
        switch (request) {
        case Request::Directory:
            controller.copyDirectory(source, destination);
            break;
        case Request::Directories:
            controller.copyDirectories({source}, {destination});
            break;
        default:
            controller.copyDatabaseFile(source, destination);
        }
    });
}

} // namespace

Q_DECLARE_METATYPE(Request)

/** What the paths of a request mean: what QFile and QDir take them for, at its moment. */
class tst_CopyNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void resourcesAreCopied_data();
    void resourcesAreCopied();
    void resourceFileIsCopied_data();
    void resourceFileIsCopied();
    void resourceThatIsNoneIsAFailure_data();
    void resourceThatIsNoneIsAFailure();
    void nothingIsWrittenIntoResources_data();
    void nothingIsWrittenIntoResources();

    void searchPathsLeadToSources_data();
    void searchPathsLeadToSources();
    void searchPathOfResourcesIsCopied();
    void searchPathsLeadToDestinations();
    void searchPathIsThatOfTheRequest();

    void parentBehindALinkIsTheSystems_data();
    void parentBehindALinkIsTheSystems();
    void parentOfWhatIsMissingIsAFailure();

    void relativePathsCountFromTheDirectoryOfTheRequest_data();
    void relativePathsCountFromTheDirectoryOfTheRequest();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void kindsOfRequest(bool isDirectory) const
    {
        QTest::addColumn<Request>("request");
        if (isDirectory) {
            QTest::newRow("copyDirectory") << Request::Directory;
            QTest::newRow("copyDirectories") << Request::Directories;
        } else {
            QTest::newRow("copyDatabaseFile") << Request::DatabaseFile;
            QTest::newRow("copyFile") << Request::File;
        }
    }

    QScopedPointer<Test::TemporaryFolder> m_folder;
    QScopedPointer<Test::FakeCommands> m_commands;
    QString m_currentPath;
};

void tst_CopyNames::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
    m_commands.reset(new Test::FakeCommands);
    m_commands->addProgram(QStringLiteral("sync"), QStringLiteral("/bin/true"));
    m_currentPath = QDir::currentPath();
    Test::makeFile(path("src/a"), "a");
    Test::makeFile(path("src/sub/b"), "bb");
}

void tst_CopyNames::cleanup()
{
    QDir::setCurrent(m_currentPath);
    QDir::setSearchPaths(QStringLiteral("media"), {});
    m_commands.reset();
    m_folder.reset();
}

void tst_CopyNames::resourcesAreCopied_data()
{
    kindsOfRequest(true);
}

void tst_CopyNames::resourcesAreCopied()
{
    QFETCH(Request, request);
    for (const char *source : {":/samples/tree", ":/samples/tree/", ":/samples/./tree/sub/.."}) {
        const CFileOperationResult result = copy(request, QString::fromLatin1(source), path("dst"));
        QVERIFY2(result.isWhole(), source);
        QCOMPARE(result.files, Q_INT64_C(4)); // nothing is hidden among resources
        QCOMPARE(result.bytes, Q_INT64_C(26));
        const QMap<QString, QByteArray> copied = Test::treeOf(path("dst"));
        const QStringList names = copied.keys();
        QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral(".hidden Zeta alpha sub/ sub/inner"));
        for (const char *file : {".hidden", "Zeta", "alpha", "sub/inner"}) {
            const QString name = QString::fromLatin1(file);
            QCOMPARE(copied.value(name), Test::contentOf(QStringLiteral(":/samples/tree/") + name));
            QCOMPARE(Test::modeOf(path("dst/") + name), 0444);
        }
        QVERIFY(QDir(path("dst")).removeRecursively());
    }
}

void tst_CopyNames::resourceFileIsCopied_data()
{
    kindsOfRequest(false);
}

void tst_CopyNames::resourceFileIsCopied()
{
    QFETCH(Request, request);
    const Test::LogRecorder log;
    const CFileOperationResult result =
        copy(request, QStringLiteral(":/samples/tree/alpha"), path("copy"));
    QVERIFY(result.isWhole());
    QCOMPARE(log.entries(), QStringList());
    QVERIFY(!Test::contentOf(path("copy")).isEmpty());
    QCOMPARE(Test::contentOf(path("copy")),
             Test::contentOf(QStringLiteral(":/samples/tree/alpha")));
    QCOMPARE(Test::modeOf(path("copy")), 0444);
}

void tst_CopyNames::resourceThatIsNoneIsAFailure_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("systemError");
    QTest::newRow("missing directory") << Request::Directory << ":/samples/missing" << ENOENT;
    QTest::newRow("file for a directory")
        << Request::Directory << ":/samples/tree/alpha" << ENOTDIR;
    QTest::newRow("missing file") << Request::DatabaseFile << ":/samples/missing" << ENOENT;
    QTest::newRow("directory for a file") << Request::DatabaseFile << ":/samples/tree" << EISDIR;
}

void tst_CopyNames::resourceThatIsNoneIsAFailure()
{
    QFETCH(Request, request);
    QFETCH(QString, source);
    QFETCH(int, systemError);
    const CFileOperationResult result = copy(request, source, path("dst"));
    QCOMPARE(result.errorCode,
             CFileCopyController::createErrorCode(CFileCopyController::ErrorSourceFileOpenFailed));
    QCOMPARE(result.systemError, systemError);
    QCOMPARE(result.path, source);
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CopyNames::nothingIsWrittenIntoResources_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<QString>("source");
    QTest::newRow("directory") << Request::Directory << "src";
    QTest::newRow("file") << Request::DatabaseFile << "src/a";
}

void tst_CopyNames::nothingIsWrittenIntoResources()
{
    QFETCH(Request, request);
    QFETCH(QString, source);
    QVERIFY(QDir::setCurrent(path("src"))); // where ":" would be a directory
    const CFileOperationResult result =
        copy(request, m_folder->filePath(source), QStringLiteral(":/samples/new"));
    QCOMPARE(
        result.errorCode,
        CFileCopyController::createErrorCode(CFileCopyController::ErrorDestinationFileOpenFailed));
    QCOMPARE(Test::treeOf(path("src")).size(), 3);
}

void tst_CopyNames::searchPathsLeadToSources_data()
{
    QTest::addColumn<Request>("request");
    QTest::newRow("copyDirectory") << Request::Directory;
    QTest::newRow("copyDirectories") << Request::Directories;
    QTest::newRow("copyDatabaseFile") << Request::DatabaseFile;
    QTest::newRow("copyFile") << Request::File;
}

void tst_CopyNames::searchPathsLeadToSources()
{
    QFETCH(Request, request);
    const bool isDirectory = request == Request::Directory || request == Request::Directories;
    QVERIFY(QDir().mkpath(path("empty")));
    QDir::setSearchPaths(QStringLiteral("media"), {path("empty"), path("src")});
    const Test::LogRecorder log;
    const CFileOperationResult result =
        copy(request, isDirectory ? QStringLiteral("media:sub") : QStringLiteral("media:sub/b"),
             path("dst"));
    QVERIFY(result.isWhole());
    QCOMPARE(log.entries(), QStringList());
    QCOMPARE(Test::contentOf(isDirectory ? path("dst/b") : path("dst")), QByteArray("bb"));
}

void tst_CopyNames::searchPathOfResourcesIsCopied()
{
    QDir::setSearchPaths(QStringLiteral("media"), {QStringLiteral(":/samples")});
    QVERIFY(copy(Request::Directory, QStringLiteral("media:tree"), path("dst")).isWhole());
    QVERIFY(
        copy(Request::DatabaseFile, QStringLiteral("media:tree/alpha"), path("copy")).isWhole());
    QCOMPARE(Test::treeOf(path("dst")).size(), 5);
    QCOMPARE(Test::contentOf(path("copy")),
             Test::contentOf(QStringLiteral(":/samples/tree/alpha")));
}

void tst_CopyNames::searchPathsLeadToDestinations()
{
    QVERIFY(QDir().mkpath(path("stick/there")));
    QDir::setSearchPaths(QStringLiteral("media"), {path("stick")});
    QVERIFY(copy(Request::Directory, path("src"), QStringLiteral("media:there")).isWhole());
    QCOMPARE(Test::treeOf(path("stick/there")), Test::treeOf(path("src")));

    CFileCopyController controller;
    const Test::CopyOutcomes outcomes(controller);
    controller.copyDirectories({path("src")}, {QStringLiteral("media:there")});
    controller.abort();
    QVERIFY(outcomes.waitFor(1));
    QCOMPARE(outcomes.ends(), QStringLiteral("canceled"));
    QVERIFY(!QFileInfo::exists(path("stick/there")));
}

void tst_CopyNames::searchPathIsThatOfTheRequest()
{
    QVERIFY(QDir().mkpath(path("other/sub")));
    QDir::setSearchPaths(QStringLiteral("media"), {path("src")});
    CFileCopyWorker worker; // begins when it is told to
    worker.copyDirectory(QStringLiteral("media:sub"), path("dst"));
    QDir::setSearchPaths(QStringLiteral("media"), {path("other")});
    worker.doWork();
    QCOMPARE(Test::contentOf(path("dst/b")), QByteArray("bb"));
}

void tst_CopyNames::parentBehindALinkIsTheSystems_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("file");
    // "near/link" leads to "far/deep": its parent is "far", and not "near"
    QTest::newRow("the parent itself") << Request::Directory << "near/link/.."
                                       << "far";
    QTest::newRow("with a slash") << Request::Directory << "near/link/../"
                                  << "far";
    QTest::newRow("below the parent") << Request::Directory << "near/link/../sub"
                                      << "far/sub";
    QTest::newRow("up and up") << Request::Directory << "near/link/../../far"
                               << "far";
    QTest::newRow("several") << Request::Directories << "near/link/.."
                             << "far";
    QTest::newRow("database file") << Request::DatabaseFile << "near/link/../f"
                                   << "far/f";
    QTest::newRow("file") << Request::File << "near/link/../f"
                          << "far/f";
}

void tst_CopyNames::parentBehindALinkIsTheSystems()
{
    QFETCH(Request, request);
    QFETCH(QString, source);
    QFETCH(QString, file);
    Test::makeFile(path("near/f"), "near");
    Test::makeFile(path("near/sub/g"), "near");
    Test::makeFile(path("far/f"), "far");
    Test::makeFile(path("far/sub/g"), "far");
    QVERIFY(QDir().mkpath(path("far/deep")));
    QVERIFY(QFile::link(path("far/deep"), path("near/link")));

    // absolute, and relative
    for (const QString &prefix : {m_folder->path() + QLatin1Char('/'), QString()}) {
        QVERIFY(QDir::setCurrent(m_folder->path()));
        copy(request, prefix + source, path("dst"));
        if (QFileInfo(path("dst")).isDir()) {
            QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(m_folder->filePath(file)));
            QVERIFY(QDir(path("dst")).removeRecursively());
        } else {
            QCOMPARE(Test::contentOf(path("dst")), Test::contentOf(m_folder->filePath(file)));
            QVERIFY(QFile::remove(path("dst")));
        }
    }
}

// cleaned as a text it would be "src"
void tst_CopyNames::parentOfWhatIsMissingIsAFailure()
{
    const CFileOperationResult result =
        copy(Request::Directory, path("missing/../src"), path("dst"));
    QCOMPARE(result.errorCode,
             CFileCopyController::createErrorCode(CFileCopyController::ErrorSourceFileOpenFailed));
    QCOMPARE(result.systemError, ENOENT);
    QVERIFY(!QFileInfo::exists(path("dst")));

    const CFileOperationResult into = copy(Request::Directory, path("src"), path("missing/../dst"));
    QCOMPARE(
        into.errorCode,
        CFileCopyController::createErrorCode(CFileCopyController::ErrorDestinationFileOpenFailed));
    QVERIFY(!QFileInfo::exists(path("dst")));
    QVERIFY(!QFileInfo::exists(path("missing")));
}

void tst_CopyNames::relativePathsCountFromTheDirectoryOfTheRequest_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("destination");
    QTest::newRow("copyDirectory") << Request::Directory << "src"
                                   << "dst";
    QTest::newRow("copyDirectory, the current one") << Request::Directory << "src/."
                                                    << "./dst/.";
    QTest::newRow("copyDirectory, up") << Request::Directory << "elsewhere/../src"
                                       << "elsewhere/../dst";
    QTest::newRow("copyDirectories") << Request::Directories << "src"
                                     << "dst";
    QTest::newRow("copyDatabaseFile") << Request::DatabaseFile << "src/a"
                                      << "dst";
}

void tst_CopyNames::relativePathsCountFromTheDirectoryOfTheRequest()
{
    QFETCH(Request, request);
    QFETCH(QString, source);
    QFETCH(QString, destination);
    Test::makeFile(path("elsewhere/src/a"), "not this one");
    CFileCopyWorker worker; // begins when it is told to
    QDir::setCurrent(m_folder->path());
    if (request == Request::DatabaseFile) {
        worker.copyLargeFile(source, destination);
    } else if (request == Request::Directories) {
        worker.copyDirectories({source}, {destination});
    } else {
        worker.copyDirectory(source, destination);
    }
    QDir::setCurrent(path("elsewhere"));
    worker.doWork();
    QCOMPARE(worker.error(), 0);
    QCOMPARE(Test::treeOf(path("elsewhere")).size(), 2);
    if (request == Request::DatabaseFile) {
        QCOMPARE(Test::contentOf(path("dst")), QByteArray("a"));
    } else {
        QCOMPARE(Test::treeOf(path("dst")), Test::treeOf(path("src")));
    }
}

QTEST_GUILESS_MAIN(tst_CopyNames)

#include "tst_CopyNames.moc"
