// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"
#include "tests/support/CopyOutcome.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/FileTree.h"
#include "tests/support/Threads.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QTest>

#include <sys/stat.h>

#include <cerrno>
#include <functional>
#include <utility>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileOperationResult;
using Test::CopyOutcomes;
using Test::resultOfCopy;
using Test::FaultInjection::Call;

namespace Faults = Test::FaultInjection;

Q_DECLARE_METATYPE(Test::FaultInjection::Call)

namespace {

constexpr int s_mebibyte = 1024 * 1024;

quint32 codeOf(CFileCopyController::Error error)
{
    return CFileCopyController::createErrorCode(error);
}

/** Waits without processing events; false after 30 s. */
template<typename Condition> bool waitUndisturbed(Condition condition)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition() && elapsed.elapsed() < 30000) {
        QTest::qSleep(1);
    }
    return condition();
}

} // namespace

/** What a controller says of the end of a run: lastResult(), the state, and nothing afterwards. */
class tst_CopyResult : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isADefaultOneBeforeTheFirstRun();
    void wholeCopyIsCounted();
    void wholeDatabaseFileIsCounted();
    void emptyRequestIsWhole();
    void sourceThatIsNoneIsAFailure_data();
    void sourceThatIsNoneIsAFailure();
    void failureHasItsErrorAndPath_data();
    void failureHasItsErrorAndPath();
    void copyOntoItselfIsAFailure();
    void destinationThatCannotBeMadeIsAFailure_data();
    void destinationThatCannotBeMadeIsAFailure();
    void unreadableDirectoriesAreListed_data();
    void unreadableDirectoriesAreListed();
    void nameThatIsNoTextMakesItsDirectoryUnreadable();
    void emptyDirectoryThatCannotBeMadeIsAFailure();
    void firstOfSeveralFailuresCounts();

    void abortedRunIsCanceled();
    void runAbortedAfterTheWorkIsCanceled();
    void runAbortedInTheSlotThatHearsIdleIsCanceled();
    void runAbortedInTheSlotThatHearsIdleAfterAResetIsCanceled();
    void requestAbortedWhileItIsLoadedIsCanceled();
    void requestWithoutAThreadIsAFailure();
    void requestMadeWhileAnotherIsLoadedFailsWithIt();
    void eachOfTwoRunsHasItsOwn();
    void failureIsForgottenByTheNextRun();

    void resetAtAnyMomentEndsIdle_data();
    void resetAtAnyMomentEndsIdle();
    void resetBeforeReportsAreDeliveredEndsIdle();

    void controllerMayEndInAnySlot_data();
    void controllerMayEndInAnySlot();
    void controllerMayEndInTheSlotThatHearsIdleAfterAReset();
    void controllerMayEndDuringADirectCopy();
    void endOfTheControllerEndsAnEndlessWalk();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    // "sync" that holds the worker in the last chunk until it is let go
    void makeSyncWait() { m_commands->addHeld(QStringLiteral("sync"), path("letGo")); }

    QScopedPointer<Test::TemporaryFolder> m_folder;
    QScopedPointer<Test::FakeCommands> m_commands;
};

void tst_CopyResult::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
    m_commands.reset(new Test::FakeCommands);
    m_commands->add(QStringLiteral("sync"));
    Test::makeFile(path("src/a"), Test::someBytes(100, 1));
    Test::makeFile(path("src/sub/b"), Test::someBytes(5000, 2));
    Test::makeFile(path("src/sub/empty"));
    Test::makeFile(path("db"), Test::someBytes(5 * s_mebibyte, 3));
}

void tst_CopyResult::cleanup()
{
    Faults::stop();
    m_commands.reset();
    m_folder.reset();
}

void tst_CopyResult::isADefaultOneBeforeTheFirstRun()
{
    const CFileCopyController controller;
    const CFileOperationResult result = controller.lastResult();
    QCOMPARE(result.errorCode, 0U);
    QCOMPARE(result.systemError, 0);
    QCOMPARE(result.path, QString());
    QCOMPARE(result.unreadableDirectories, QStringList());
    QCOMPARE(result.files, Q_INT64_C(0));
    QCOMPARE(result.bytes, Q_INT64_C(0));
    QVERIFY(!result.canceled);
    QVERIFY(result.isWhole());
}

void tst_CopyResult::wholeCopyIsCounted()
{
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(outcomes.waitFor(1));
    QCOMPARE(outcomes.ends(), QStringLiteral("completed"));
    for (const CFileOperationResult &result :
         {outcomes.resultAtIdle(), outcomes.results().constFirst(), controller.lastResult()}) {
        QVERIFY(result.isWhole());
        QCOMPARE(result.errorCode, 0U);
        QCOMPARE(result.systemError, 0);
        QCOMPARE(result.path, QString());
        QCOMPARE(result.files, Q_INT64_C(3));
        QCOMPARE(result.bytes, Q_INT64_C(5100));
    }
    QCOMPARE(controller.processedBytes(), Q_INT64_C(5100));
}

void tst_CopyResult::wholeDatabaseFileIsCounted()
{
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        controller.copyDatabaseFile(path("db"), path("copy"));
    });
    QVERIFY(result.isWhole());
    QCOMPARE(result.files, Q_INT64_C(1));
    QCOMPARE(result.bytes, Q_INT64_C(5) * s_mebibyte);
}

void tst_CopyResult::emptyRequestIsWhole()
{
    const CFileOperationResult result = resultOfCopy(
        [this](CFileCopyController &controller) { controller.copyDirectories({}, {path("dst")}); });
    QVERIFY(result.isWhole());
    QCOMPARE(result.files, Q_INT64_C(0));
}

void tst_CopyResult::sourceThatIsNoneIsAFailure_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("systemError");
    for (const char *request : {"copyDirectory", "copyDirectories"}) {
        const QString name = QString::fromLatin1(request);
        QTest::addRow("%s, missing", request) << name << "missing" << ENOENT;
        QTest::addRow("%s, missing, with a slash", request) << name << "missing/" << ENOENT;
        QTest::addRow("%s, a file", request) << name << "db" << ENOTDIR;
        QTest::addRow("%s, below a file", request) << name << "db/sub" << ENOTDIR;
        QTest::addRow("%s, empty", request) << name << "" << ENOENT;
    }
    const QString name = QStringLiteral("copyDatabaseFile");
    QTest::newRow("copyDatabaseFile, missing") << name << "missing" << ENOENT;
    QTest::newRow("copyDatabaseFile, a directory") << name << "src" << EISDIR;
    QTest::newRow("copyDatabaseFile, a pipe") << name << "fifo" << EINVAL;
    QTest::newRow("copyDatabaseFile, below a file") << name << "db/sub" << ENOTDIR;
    QTest::newRow("copyDatabaseFile, empty") << name << "" << ENOENT;
}

void tst_CopyResult::sourceThatIsNoneIsAFailure()
{
    QFETCH(QString, request);
    QFETCH(QString, source);
    QFETCH(int, systemError);
    QCOMPARE(::mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    const QString given = source.isEmpty() ? source : m_folder->filePath(source);
    const QString named = given.endsWith(QLatin1Char('/')) ? given.chopped(1) : given;
    const CFileOperationResult result = resultOfCopy([&](CFileCopyController &controller) {
        if (request == QLatin1String("copyDirectory")) {
            controller.copyDirectory(given, path("dst"));
        } else if (request == QLatin1String("copyDirectories")) {
            controller.copyDirectories({given}, {path("dst")});
        } else {
            controller.copyDatabaseFile(given, path("dst"));
        }
    });
    QCOMPARE(result.errorCode, codeOf(CFileCopyController::ErrorSourceFileOpenFailed));
    QCOMPARE(result.systemError, systemError);
    QCOMPARE(result.path, named);
    QVERIFY(!result.isWhole());
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CopyResult::failureHasItsErrorAndPath_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("systemError");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("files");
    // "a" is opened twice, read twice, written, flushed and closed twice; then "sub/b"
    QTest::newRow("source not opened") << Call::Open << 3 << EACCES << 1 << "src/sub/b" << 1;
    QTest::newRow("source not read") << Call::Read << 3 << EIO << 2 << "src/sub/b" << 1;
    QTest::newRow("source not read at its end") << Call::Read << 2 << EIO << 2 << "src/a" << 0;
    QTest::newRow("destination not opened") << Call::Open << 4 << ENOSPC << 3 << "dst/sub/b" << 1;
    QTest::newRow("directory not opened") << Call::Open << 2 << EMFILE << 3 << "dst/a" << 0;
    QTest::newRow("destination not written") << Call::Write << 2 << ENOSPC << 4 << "dst/sub/b" << 1;
    QTest::newRow("destination not flushed") << Call::Fsync << 2 << EIO << 4 << "dst/sub/b" << 1;
    QTest::newRow("destination not closed") << Call::Close << 1 << EIO << 4 << "dst/a" << 0;
    QTest::newRow("volume not flushed") << Call::FlushVolume << 1 << EIO << 4 << "dst" << 3;
}

void tst_CopyResult::failureHasItsErrorAndPath()
{
    QFETCH(Call, call);
    QFETCH(int, n);
    QFETCH(int, systemError);
    QFETCH(int, error);
    QFETCH(QString, file);
    QFETCH(int, files);
    Faults::watch(m_folder->path());
    Faults::failNth(call, n, systemError);
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(outcomes.waitFor(1));
    Faults::stop();
    QCOMPARE(outcomes.ends(), QStringLiteral("completed"));
    for (const CFileOperationResult &result :
         {outcomes.resultAtIdle(), outcomes.results().constFirst(), controller.lastResult()}) {
        QVERIFY(!result.isWhole());
        QCOMPARE(result.errorCode, codeOf(static_cast<CFileCopyController::Error>(error)));
        QCOMPARE(result.systemError, systemError);
        QCOMPARE(result.path, m_folder->filePath(file));
        QCOMPARE(result.files, static_cast<qint64>(files));
        QVERIFY(!result.canceled);
        QCOMPARE(result.bytes, controller.processedBytes());
    }
}

void tst_CopyResult::copyOntoItselfIsAFailure()
{
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        controller.copyDatabaseFile(path("db"), path("db"));
    });
    QCOMPARE(result.errorCode, codeOf(CFileCopyController::ErrorDestinationFileOpenFailed));
    QCOMPARE(result.systemError, 0); // no call has failed
    QCOMPARE(result.path, path("db"));
    QCOMPARE(QFileInfo(path("db")).size(), Q_INT64_C(5) * s_mebibyte);
}

void tst_CopyResult::destinationThatCannotBeMadeIsAFailure_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<int>("systemError");
    QTest::newRow("below a file") << "db/dst" << ENOTDIR;
    QTest::newRow("a file") << "db" << ENOTDIR;
    QTest::newRow("a name that is too long") << QString(300, QLatin1Char('n')) << ENAMETOOLONG;
    QTest::newRow("where nothing can be made") << "/proc/dst" << ENOENT;
    QTest::newRow("below a link that leads nowhere") << "broken/dst" << ENOENT;
    QTest::newRow("empty") << "" << ENOENT;
}

void tst_CopyResult::destinationThatCannotBeMadeIsAFailure()
{
    QFETCH(QString, destination);
    QFETCH(int, systemError);
    QVERIFY(QFile::link(path("missing/sub"), path("broken")));
    const QString given =
        destination.isEmpty() ? destination : QDir(m_folder->path()).filePath(destination);
    const CFileOperationResult result = resultOfCopy(
        [&](CFileCopyController &controller) { controller.copyDirectory(path("src"), given); });
    QCOMPARE(result.errorCode, codeOf(CFileCopyController::ErrorDestinationFileOpenFailed));
    QCOMPARE(result.systemError, systemError);
    QCOMPARE(result.files, Q_INT64_C(0));
    QVERIFY(result.path.startsWith(given));
}

void tst_CopyResult::unreadableDirectoriesAreListed_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("systemError");
    QTest::addColumn<QString>("directory");
    QTest::newRow("root not opened") << Call::OpenDirectory << 1 << EACCES << "src";
    QTest::newRow("subdirectory not opened") << Call::OpenDirectory << 2 << EMFILE << "src/sub";
    QTest::newRow("root not read") << Call::ReadDirectory << 1 << EIO << "src";
    QTest::newRow("subdirectory not read") << Call::ReadDirectory << 6 << EIO << "src/sub";
}

void tst_CopyResult::unreadableDirectoriesAreListed()
{
    QFETCH(Call, call);
    QFETCH(int, n);
    QFETCH(int, systemError);
    QFETCH(QString, directory);
    Faults::watch(m_folder->path());
    Faults::failNth(call, n, systemError);
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(outcomes.waitFor(1));
    Faults::stop();
    const CFileOperationResult result = outcomes.results().constFirst();
    QCOMPARE(result.unreadableDirectories, QStringList(m_folder->filePath(directory)));
    QCOMPARE(result.systemError, systemError);
    QCOMPARE(result.errorCode, 0U);
    QCOMPARE(result.path, QString());
    QVERIFY(!result.isWhole());
    // what hosts relied on, and it says nothing
    QCOMPARE(controller.processedBytes(), controller.totalBytes());
}

void tst_CopyResult::nameThatIsNoTextMakesItsDirectoryUnreadable()
{
    QFile::remove(path("src/sub/empty"));
    const QByteArray name = QFile::encodeName(path("src/sub/")) + "f\xFF";
    QCOMPARE(::rename(QFile::encodeName(path("db")).constData(), name.constData()), 0);
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        controller.copyDirectory(path("src"), path("dst"));
    });
    QCOMPARE(result.unreadableDirectories, QStringList(path("src/sub")));
    QCOMPARE(result.systemError, EILSEQ);
    QVERIFY(!result.isWhole());
    QCOMPARE(result.files, Q_INT64_C(2));
}

void tst_CopyResult::emptyDirectoryThatCannotBeMadeIsAFailure()
{
    QVERIFY(QDir().mkpath(path("src/void")));
    Test::makeFile(path("dst/void"), "a file");
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        controller.copyDirectory(path("src"), path("dst"));
    });
    QCOMPARE(result.errorCode, codeOf(CFileCopyController::ErrorDestinationFileOpenFailed));
    QCOMPARE(result.systemError, ENOTDIR);
    QCOMPARE(result.path, path("dst/void"));
    QVERIFY(!result.isWhole());
    QCOMPARE(result.files, Q_INT64_C(3)); // no file needs it
    QCOMPARE(Test::contentOf(path("dst/void")), QByteArray("a file"));
}

void tst_CopyResult::firstOfSeveralFailuresCounts()
{
    Faults::watch(m_folder->path());
    Faults::failNth(Call::Write, 1, ENOSPC);
    const CFileOperationResult result = resultOfCopy([this](CFileCopyController &controller) {
        controller.copyDirectories({path("one"), path("db"), path("src")},
                                   {path("dst1"), path("dst2"), path("dst3")});
    });
    QVERIFY(Faults::hasStruck()); // later
    QCOMPARE(result.errorCode, codeOf(CFileCopyController::ErrorSourceFileOpenFailed));
    QCOMPARE(result.systemError, ENOENT);
    QCOMPARE(result.path, path("one"));

    Faults::watch(m_folder->path());
    const CFileOperationResult unreadable = resultOfCopy([this](CFileCopyController &controller) {
        Faults::failNth(Call::OpenDirectory, 1, EACCES);
        controller.copyDirectories({path("src"), path("db")}, {path("dst4"), path("dst5")});
    });
    QCOMPARE(unreadable.errorCode, codeOf(CFileCopyController::ErrorSourceFileOpenFailed));
    QCOMPARE(unreadable.systemError, ENOTDIR); // belongs to the error's path
    QCOMPARE(unreadable.path, path("db"));
    QCOMPARE(unreadable.unreadableDirectories, QStringList(path("src")));
}

void tst_CopyResult::abortedRunIsCanceled()
{
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    connect(&controller, &CFileCopyController::processedBytesChanged, &controller,
            &CFileCopyController::abort);
    controller.copyDatabaseFile(path("db"), path("copy"));
    QVERIFY(outcomes.waitFor(1));
    QCOMPARE(outcomes.ends(), QStringLiteral("canceled"));
    for (const CFileOperationResult &result :
         {outcomes.resultAtIdle(), outcomes.results().constFirst(), controller.lastResult()}) {
        QVERIFY(result.canceled);
        QVERIFY(!result.isWhole());
        QCOMPARE(result.errorCode, 0U);
    }
}

void tst_CopyResult::runAbortedAfterTheWorkIsCanceled()
{
    const int threads = Test::threadCount();
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(waitUndisturbed([=] { return Test::threadCount() == threads; }));
    controller.abort();
    QVERIFY(outcomes.waitFor(1));
    QCOMPARE(outcomes.ends(), QStringLiteral("canceled"));
    for (const CFileOperationResult &result :
         {outcomes.resultAtIdle(), outcomes.results().constFirst(), controller.lastResult()}) {
        QVERIFY(result.canceled);
        QVERIFY(!result.isWhole());
    }
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CopyResult::runAbortedInTheSlotThatHearsIdleIsCanceled()
{
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    connect(&controller, &CFileCopyController::stateChanged, &controller, [&controller] {
        if (controller.state() == CFileCopyController::StateIdle) {
            controller.abort();
        }
    });
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(outcomes.waitFor(1));
    QCOMPARE(outcomes.ends(), QStringLiteral("canceled"));
    QVERIFY(outcomes.results().constFirst().canceled);
    QVERIFY(!QFileInfo::exists(path("dst")));
}

// the state is no longer the worker's word then
void tst_CopyResult::runAbortedInTheSlotThatHearsIdleAfterAResetIsCanceled()
{
    makeSyncWait();
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    bool hasCopied = false;
    connect(&controller, &CFileCopyController::stateChanged, &controller, [&] {
        hasCopied = hasCopied || controller.state() == CFileCopyController::StateCopying;
        if (hasCopied && controller.state() == CFileCopyController::StateIdle) {
            controller.abort();
        }
    });
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(waitUndisturbed([this] { return !m_commands->journal().isEmpty(); }));
    controller.reset();
    Test::makeFile(path("letGo"));
    QVERIFY(outcomes.waitFor(1));
    QVERIFY(hasCopied);
    QCOMPARE(outcomes.ends(), QStringLiteral("canceled"));
    QVERIFY(outcomes.results().constFirst().canceled);
    QVERIFY(!QFileInfo::exists(path("dst")));
}

// the state changes while the request is loaded, before there is a run
void tst_CopyResult::requestAbortedWhileItIsLoadedIsCanceled()
{
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    connect(&controller, &CFileCopyController::stateChanged, &controller, [&controller] {
        if (controller.state() == CFileCopyController::StateEnumeratingFiles) {
            controller.abort();
        }
    });
    Test::makeFile(path("dst/before"), "1");
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(outcomes.waitFor(1));
    QVERIFY(outcomes.results().constFirst().canceled);
    QCOMPARE(outcomes.ends(), QStringLiteral("canceled"));
    QVERIFY(!QFileInfo::exists(path("dst")));
}

void tst_CopyResult::requestWithoutAThreadIsAFailure()
{
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    Faults::watch(m_folder->path());
    Faults::failNth(Call::CreateThread, 1, EAGAIN);
    QTest::ignoreMessage(
        QtCriticalMsg, "QThread::start: Thread creation error (Resource temporarily unavailable)");
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(outcomes.waitFor(1));
    QCOMPARE(outcomes.ends(), QStringLiteral("completed"));
    QCOMPARE(outcomes.statesAtEnds(), QList<int>({CFileCopyController::StateIdle}));
    const CFileOperationResult result = outcomes.results().constFirst();
    QVERIFY(!result.isWhole());
    QCOMPARE(result.errorCode, codeOf(CFileCopyController::ErrorSourceFileOpenFailed));
    QCOMPARE(result.systemError, EAGAIN);
    QCOMPARE(result.files, Q_INT64_C(0));
}

// the inner request is the one that starts the thread, for both
void tst_CopyResult::requestMadeWhileAnotherIsLoadedFailsWithIt()
{
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    bool isRequested = false;
    connect(&controller, &CFileCopyController::stateChanged, &controller, [&] {
        if (!std::exchange(isRequested, true)) {
            controller.copyDirectory(path("src"), path("inner"));
        }
    });
    Faults::watch(m_folder->path());
    Faults::failNth(Call::CreateThread, 1, EAGAIN);
    QTest::ignoreMessage(
        QtCriticalMsg, "QThread::start: Thread creation error (Resource temporarily unavailable)");
    controller.copyDirectory(path("src"), path("outer"));
    QVERIFY(outcomes.waitFor(2));
    QCOMPARE(outcomes.ends(), QStringLiteral("completed completed"));
    for (const CFileOperationResult &result : outcomes.results()) {
        QCOMPARE(result.systemError, EAGAIN);
        QVERIFY(!result.canceled);
    }
    QVERIFY(!QFileInfo::exists(path("inner")));
    QVERIFY(!QFileInfo::exists(path("outer")));
}

void tst_CopyResult::eachOfTwoRunsHasItsOwn()
{
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    controller.copyDirectory(path("missing"), path("first"));
    controller.copyDirectories({path("src")}, {path("second")});
    controller.copyDatabaseFile(path("src"), path("third"));
    QVERIFY(outcomes.waitFor(3));
    QCOMPARE(outcomes.ends(), QStringLiteral("completed completed completed"));
    QCOMPARE(outcomes.results().at(0).path, path("missing"));
    QVERIFY(!outcomes.results().at(0).isWhole());
    QVERIFY(outcomes.results().at(1).isWhole());
    QCOMPARE(outcomes.results().at(1).files, Q_INT64_C(3));
    QCOMPARE(outcomes.results().at(2).path, path("src"));
    QCOMPARE(outcomes.results().at(2).systemError, EISDIR);
    QCOMPARE(controller.lastResult().path, path("src"));
}

void tst_CopyResult::failureIsForgottenByTheNextRun()
{
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    controller.copyDirectory(path("missing"), path("first"));
    QVERIFY(outcomes.waitFor(1));
    controller.copyDirectories({path("src")}, {path("second")});
    QVERIFY(!controller.lastResult().isWhole()); // of the run that was announced last
    QVERIFY(outcomes.waitFor(2));
    QVERIFY(controller.lastResult().isWhole());
    QCOMPARE(controller.lastResult().path, QString());
}

void tst_CopyResult::resetAtAnyMomentEndsIdle_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("tree") << "src";
    QTest::newRow("large file") << "db";
}

void tst_CopyResult::resetAtAnyMomentEndsIdle()
{
    QFETCH(QString, source);
    const bool isTree = source == QLatin1String("src");
    for (int n = 1, reports = n; reports >= n; ++n) {
        CFileCopyController controller;
        const CopyOutcomes outcomes(controller);
        reports = 0;
        int directories = 0;
        const auto strike = [&] {
            if (outcomes.ends().isEmpty() && ++reports == n) {
                controller.reset();
            }
        };
        connect(&controller, &CFileCopyController::processedBytesChanged, &controller, strike);
        connect(&controller, &CFileCopyController::totalBytesChanged, &controller, strike);
        connect(&controller, &CFileCopyController::stateChanged, &controller, strike);
        connect(&controller, &CFileCopyController::processingDirectoryChanged, &controller, [&] {
            ++directories;
            strike();
        });
        const QString destination = m_folder->filePath(QStringLiteral("dst%1").arg(n));
        if (isTree) {
            controller.copyDirectory(path("src"), destination);
        } else {
            controller.copyDatabaseFile(path("db"), destination);
        }
        QVERIFY(outcomes.waitFor(1));
        const QByteArray where = "report number " + QByteArray::number(n);
        QVERIFY2(outcomes.statesAtEnds().constFirst() == CFileCopyController::StateIdle, where);
        // a later run's end proves that nothing of the first one comes afterwards
        QVERIFY2(outcomes.states().constLast() == CFileCopyController::StateIdle, where);
        const int states = outcomes.states().size();
        controller.copyDirectories({}, {});
        QVERIFY(outcomes.waitFor(2));
        QVERIFY2(outcomes.ends() == QLatin1String("completed completed"), where);
        QVERIFY2(outcomes.states().mid(states) == QList<int>({1, 2, 3, 0}), where);
        for (int i = 1; i < outcomes.states().size(); ++i) {
            QVERIFY2(outcomes.states().at(i) != outcomes.states().at(i - 1), where);
        }
        QVERIFY2(directories == (isTree ? 1 : 0), where);
        // a request that was made runs to its end, even when its loading was heard of by a reset()
        QVERIFY2(outcomes.results().constFirst().isWhole(), where);
        QVERIFY2(QFileInfo::exists(destination), where);
    }
}

void tst_CopyResult::resetBeforeReportsAreDeliveredEndsIdle()
{
    makeSyncWait();
    CFileCopyController controller;
    const CopyOutcomes outcomes(controller);
    controller.copyDirectory(path("src"), path("dst"));
    QVERIFY(waitUndisturbed([this] { return !m_commands->journal().isEmpty(); }));
    controller.reset(); // the steps up to copying are still to be delivered
    QCOMPARE(controller.state(), CFileCopyController::StateIdle);
    Test::makeFile(path("letGo"));
    QVERIFY(outcomes.waitFor(1));
    QCOMPARE(outcomes.states(), QList<int>({1, 0, 2, 3, 0}));
    QCOMPARE(outcomes.statesAtEnds(), QList<int>({CFileCopyController::StateIdle}));
    QCOMPARE(controller.state(), CFileCopyController::StateIdle);
    QVERIFY(controller.lastResult().isWhole());
}

void tst_CopyResult::controllerMayEndInAnySlot_data()
{
    QTest::addColumn<int>("last");
    QTest::newRow("one run") << 1;
    QTest::newRow("runs that overlap") << 3;
    QTest::newRow("with reset()") << 4;
    QTest::newRow("with abort()") << 5;
}

void tst_CopyResult::controllerMayEndInAnySlot()
{
    QFETCH(int, last);
    const QList<std::function<void(CFileCopyController &)>> requests = {
        [this](CFileCopyController &c) { c.copyDirectory(path("src"), path("dst1")); },
        [this](CFileCopyController &c) { c.copyDirectory(path("src"), path("dst2")); },
        [this](CFileCopyController &c) {
            c.copyDirectories({path("src"), path("src")}, {path("dst3"), path("dst4")});
        },
        [](CFileCopyController &c) { c.reset(); },
        [](CFileCopyController &c) { c.abort(); },
    };
    const int threads = Test::threadCount();
    for (int n = 1, signalled = n; signalled >= n; ++n) {
        signalled = 0;
        QPointer<CFileCopyController> controller = new CFileCopyController;
        int ends = 0;
        const auto strike = [&] {
            if (++signalled == n) {
                delete controller.data();
            }
        };
        using Controller = CFileCopyController;
        for (auto signal :
             {&Controller::stateChanged, &Controller::processedBytesChanged,
              &Controller::processingDirectoryChanged, &Controller::totalBytesChanged}) {
            connect(controller.data(), signal, this, strike);
        }
        for (auto signal : {&Controller::operationCompleted, &Controller::operationCanceled}) {
            connect(controller.data(), signal, this, [&] {
                ++ends;
                strike();
            });
        }
        int runs = 0;
        for (int i = 0; i < last && controller; ++i) {
            requests.at(i)(*controller);
            runs += i < 3 ? 1 : 0;
        }
        QTRY_VERIFY_WITH_TIMEOUT(!controller || ends == runs, 30000);
        QCOMPARE(controller.isNull(), signalled >= n);
        delete controller.data();
        // the workers go by themselves
        QTRY_COMPARE_WITH_TIMEOUT(Test::threadCount(), threads, 30000);
        QVERIFY(n < 1000);
    }
}

// whose end is announced right behind
void tst_CopyResult::controllerMayEndInTheSlotThatHearsIdleAfterAReset()
{
    makeSyncWait();
    const QPointer<CFileCopyController> controller = new CFileCopyController;
    bool hasCopied = false;
    connect(controller.data(), &CFileCopyController::stateChanged, this, [&] {
        hasCopied = hasCopied || controller->state() == CFileCopyController::StateCopying;
        if (hasCopied && controller->state() == CFileCopyController::StateIdle) {
            delete controller.data();
        }
    });
    controller->copyDirectory(path("src"), path("dst"));
    QVERIFY(waitUndisturbed([this] { return !m_commands->journal().isEmpty(); }));
    controller->reset();
    QVERIFY(!hasCopied);
    Test::makeFile(path("letGo"));
    QTRY_VERIFY_WITH_TIMEOUT(controller.isNull(), 30000);
    QVERIFY(hasCopied);
}

void tst_CopyResult::controllerMayEndDuringADirectCopy()
{
    auto *controller = new CFileCopyController;
    QPointer<CFileCopyController> guard(controller);
    QMetaObject::invokeMethod(
        this, [controller] { delete controller; }, Qt::QueuedConnection);
    controller->copyFile(path("db"), path("copy"));
    QVERIFY(guard.isNull());
    QCOMPARE(Test::contentOf(path("copy")).size(), 5 * s_mebibyte);
}

// 2 to the power of 40 directories
void tst_CopyResult::endOfTheControllerEndsAnEndlessWalk()
{
    QVERIFY(QFile::link(QStringLiteral("."), path("src/sub/one")));
    QVERIFY(QFile::link(QStringLiteral("."), path("src/sub/two")));
    const int threads = Test::threadCount();
    auto controller = std::make_unique<CFileCopyController>();
    Faults::watch(m_folder->path());
    controller->copyDirectory(path("src"), path("dst"));
    QVERIFY(waitUndisturbed([] { return Faults::count(Call::OpenDirectory) > 1000; }));
    QCOMPARE(Test::threadCount(), threads + 1);
    controller.reset(); // must not wait for the walk
    QTRY_COMPARE_WITH_TIMEOUT(Test::threadCount(), threads, 20000);
    QVERIFY(!QFileInfo::exists(path("dst")));
}

QTEST_GUILESS_MAIN(tst_CopyResult)

#include "tst_CopyResult.moc"
