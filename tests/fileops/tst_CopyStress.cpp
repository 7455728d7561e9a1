// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileCopyWorker.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <thread>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileCopyWorker;

namespace {

/** A request as the test made it, and what it must come to. */
struct Request
{
    QString source;
    QString destination;
    QStringList removedByAbort;
    bool aborted = false;
};

/** Calls a controller in random order, and checks each end of a request where it is announced. */
class RandomCalls
{
public:
    RandomCalls(const QString &folder, quint32 seed)
        : m_folder(folder)
        , m_random(seed)
    {
        QObject::connect(&m_controller, &CFileCopyController::operationCompleted, &m_controller,
                         [this] { checkEnd(false); });
        QObject::connect(&m_controller, &CFileCopyController::operationCanceled, &m_controller,
                         [this] { checkEnd(true); });
    }

    void makeCall(int number)
    {
        const QString destination = path(QStringLiteral("dst/%1").arg(number));
        switch (m_random.bounded(12)) {
        case 0: {
            const QString source = anyTree();
            note(source, destination, m_destinations + QStringList(destination));
            m_controller.copyDirectory(source, destination);
            break;
        }
        case 1:
        case 2: {
            const QString source = anyTree();
            note(source, destination, {destination});
            m_controller.copyDirectories({source}, {destination});
            break;
        }
        case 3: {
            const QString source = path(QStringLiteral("src/file/f"));
            note(source, destination, {destination});
            m_controller.copyDatabaseFile(source, destination);
            break;
        }
        case 4:
            m_controller.pause();
            break;
        case 5:
            m_controller.resume();
            break;
        case 6:
            if (m_ends < m_requests.size()) { // the last one's end is not announced yet
                m_requests.last().aborted = true;
            }
            m_controller.abort();
            break;
        case 7:
            m_controller.reset();
            break;
        case 8:
            QTest::qSleep(1);
            break;
        default:
            QCoreApplication::processEvents();
            break;
        }
    }

    /** Processes events until each request has ended; false after 60 s. */
    bool waitForEnds()
    {
        m_controller.resume();
        QTimer wake;
        wake.start(10);
        QElapsedTimer elapsed;
        elapsed.start();
        while (m_ends < m_requests.size() && elapsed.elapsed() < 60000) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return m_ends == m_requests.size();
    }

    /** What is there in the end is what the requests have copied and no abort has removed. */
    void checkCopies() const
    {
        QSet<QString> removed;
        for (const Request &request : m_requests) {
            if (request.aborted) {
                const QStringList &paths = request.removedByAbort;
                removed.unite(QSet<QString>(paths.cbegin(), paths.cend()));
            }
        }
        QVERIFY(!removed.isEmpty());
        for (const Request &request : m_requests) {
            const QFileInfo info(request.destination);
            if (removed.contains(request.destination)) {
                QVERIFY(!info.exists());
            } else if (QFileInfo(request.source).isDir()) {
                QCOMPARE(Test::treeOf(request.destination), Test::treeOf(request.source));
            } else {
                QCOMPARE(Test::contentOf(request.destination), Test::contentOf(request.source));
            }
        }
    }

    int requestCount() const { return m_requests.size(); }

private:
    QString path(const QString &name) const { return m_folder + QLatin1Char('/') + name; }
    QString anyTree()
    {
        const QStringList trees = {QStringLiteral("empty"), QStringLiteral("empty"),
                                   QStringLiteral("many"), QStringLiteral("small")};
        return path(QStringLiteral("src/") + trees.at(m_random.bounded(trees.size())));
    }
    void note(const QString &source, const QString &destination, const QStringList &destinations)
    {
        m_destinations = destinations;
        m_requests.append({source, destination, destinations});
    }
    void checkEnd(bool canceled)
    {
        QVERIFY(m_ends < m_requests.size());
        const Request &request = m_requests.at(m_ends++);
        QCOMPARE(canceled, request.aborted);
        for (const QString &removed : request.removedByAbort) {
            QVERIFY(!canceled || !QFileInfo::exists(removed));
        }
    }

    const QString m_folder;
    QRandomGenerator m_random;
    CFileCopyController m_controller;
    QVector<Request> m_requests;
    QStringList m_destinations; // that an abort removes: copyDirectory() adds to them
    int m_ends = 0;
};

/** Calls what any thread may call on a worker. */
void callAnything(CFileCopyWorker &worker, QRandomGenerator &random)
{
    switch (random.bounded(7)) {
    case 0:
        worker.pause();
        break;
    case 1:
        worker.resume();
        break;
    case 2:
        worker.cancelWork();
        break;
    case 3:
        worker.reset();
        break;
    case 4:
        worker.isCanceled();
        break;
    case 5:
        worker.state();
        break;
    default:
        worker.error();
        break;
    }
}

} // namespace

/** Thousands of calls in random order, each seed a different one; what each run does is known. */
class tst_CopyStress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void everyRequestEndsOnceAndAsMeant_data();
    void everyRequestEndsOnceAndAsMeant();
    void workerStandsCallsFromEveryThread();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Test::FakeCommands> m_commands;
};

void tst_CopyStress::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
    m_commands.reset(new Test::FakeCommands);
    // no shell, no journal: starting "sync" would be most of the time
    m_commands->addProgram(QStringLiteral("sync"), QStringLiteral("/bin/true"));
    Test::makeFile(path(QStringLiteral("src/empty/sub/f")));
    Test::makeFile(path(QStringLiteral("src/small/sub/f")), "small");
    Test::makeFile(path(QStringLiteral("src/small/g")));
    for (int i = 0; i < 20; ++i) {
        Test::makeFile(path(QStringLiteral("src/many/%1").arg(i)));
    }
    Test::makeFile(path(QStringLiteral("src/file/f")), "file");
}

void tst_CopyStress::cleanup()
{
    m_commands.reset();
    m_folder.reset();
}

void tst_CopyStress::everyRequestEndsOnceAndAsMeant_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 5; ++seed) {
        QTest::addRow("2000 calls, seed %u", seed) << seed;
    }
}

void tst_CopyStress::everyRequestEndsOnceAndAsMeant()
{
    QFETCH(quint32, seed);
    QVERIFY(QDir().mkpath(path(QStringLiteral("dst"))));
    RandomCalls calls(m_folder->path(), seed);
    for (int i = 0; i < 2000 && !QTest::currentTestFailed(); ++i) {
        calls.makeCall(i);
    }
    QVERIFY(calls.waitForEnds());
    QVERIFY(calls.requestCount() > 500);
    calls.checkCopies();
}

void tst_CopyStress::workerStandsCallsFromEveryThread()
{
    QThread thread;
    CFileCopyWorker worker;
    worker.moveToThread(&thread);
    connect(&thread, &QThread::started, &worker, &CFileCopyWorker::doWork);
    connect(&worker, &CFileCopyWorker::finished, &thread, &QThread::quit, Qt::DirectConnection);
    std::atomic<int> finished{0};
    connect(
        &worker, &CFileCopyWorker::finished, &worker, [&finished] { ++finished; },
        Qt::DirectConnection);

    std::atomic<bool> isOver{false};
    std::thread control([&] {
        QRandomGenerator random(7);
        for (int i = 0; i < 10000; ++i) {
            callAnything(worker, random);
        }
        isOver = true;
        while (finished >= 0) { // the last pause must not outlive the calls
            worker.resume();
            std::this_thread::yield();
        }
    });

    int runs = 0;
    while (!isOver || runs < 200) {
        worker.copyDirectory(path(QStringLiteral("src/many")), path(QStringLiteral("dst")));
        thread.start();
        ++runs;
        QVERIFY(thread.wait());
    }
    QCOMPARE(finished, runs);
    finished = -1;
    control.join();
}

QTEST_GUILESS_MAIN(tst_CopyStress)

#include "tst_CopyStress.moc"
