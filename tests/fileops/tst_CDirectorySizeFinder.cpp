// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CDirectorySizeFinder.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/FileTree.h"
#include "tests/support/LogRecorder.h"

#include <QDir>
#include <QFile>
#include <QMetaMethod>
#include <QRunnable>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <cerrno>
#include <memory>
#include <vector>

using Tavro::Shared::CDirectorySizeFinder;
using Test::FaultInjection::Call;

namespace Faults = Test::FaultInjection;

class tst_CDirectorySizeFinder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void metaObjectStandsInOrder();
    void sizeArrivesWithThePathAsRequested_data();
    void sizeArrivesWithThePathAsRequested();
    void computationIsToBeHadAlone();
    void computationRunsAsTheHostsOwnTask();
    void sumsBeyondThirtyTwoBitsAreExact();
    void requestReturnsBeforeItIsDone();
    void signalBelongsToTheRequestingThread();
    void severalRequestsEachGetTheirAnswer();
    void tenThousandLevelsFitAPoolThread();
    void requestsAreAnsweredWhereNoThreadIsToBeHad_data();
    void requestsAreAnsweredWhereNoThreadIsToBeHad();
    void requestsAreAnsweredWhereThePoolStaysBusy();
    void searchPathsAndResourcesAreDirectories_data();
    void searchPathsAndResourcesAreDirectories();
    void destroyedWhileRequestsRun();
    void destroyedInTheSlotThatHearsTheResult();
    void slotCalledByNameIsHarmless();
    void nothingIsLogged();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    QScopedPointer<Test::TemporaryFolder> m_folder;
};

namespace {

/**
 * Keeps every thread of the global pool busy, so that no request can begin.
 *
 * Reserving them would not do, as the pool always lends one more. The occupants have nothing of
 * their own and stay with the thread that made them: a sanitizer does not see how Qt's pool
 * hands them over.
 */
class BusyPool
{
public:
    BusyPool()
        : m_occupants(static_cast<size_t>(QThreadPool::globalInstance()->maxThreadCount()))
    {
        for (Occupant &occupant : m_occupants) {
            occupant.setAutoDelete(false);
            QThreadPool::globalInstance()->start(&occupant);
        }
        begun().acquire(static_cast<int>(m_occupants.size()));
    }
    ~BusyPool()
    {
        end().release(static_cast<int>(m_occupants.size()));
        QThreadPool::globalInstance()->waitForDone();
    }

    BusyPool(const BusyPool &) = delete;
    BusyPool &operator=(const BusyPool &) = delete;

private:
    struct Occupant : QRunnable
    {
        void run() override
        {
            begun().release();
            end().acquire();
        }
    };

    static QSemaphore &begun()
    {
        static QSemaphore semaphore;
        return semaphore;
    }
    static QSemaphore &end()
    {
        static QSemaphore semaphore;
        return semaphore;
    }

    std::vector<Occupant> m_occupants;
};

} // namespace

void tst_CDirectorySizeFinder::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_CDirectorySizeFinder::cleanup()
{
    Faults::stop();
    QThreadPool::globalInstance()->waitForDone();
    m_folder.reset();
}

void tst_CDirectorySizeFinder::metaObjectStandsInOrder()
{
    const QMetaObject &meta = CDirectorySizeFinder::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod signal = meta.method(meta.methodOffset());
    QCOMPARE(signal.methodSignature(), QByteArray("gotSizeOfPath(QString,qulonglong)"));
    QCOMPARE(signal.methodType(), QMetaMethod::Signal);
    QCOMPARE(signal.parameterNames(), (QList<QByteArray>{"path", "size"}));
    const QMetaMethod slot = meta.method(meta.methodOffset() + 1);
    QCOMPARE(slot.methodSignature(), QByteArray("handleFinshed()"));
    QCOMPARE(slot.methodType(), QMetaMethod::Slot);
    QCOMPARE(slot.access(), QMetaMethod::Private);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_CDirectorySizeFinder::sizeArrivesWithThePathAsRequested_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qulonglong>("size");
    QTest::newRow("missing") << QStringLiteral("missing") << Q_UINT64_C(0);
    QTest::newRow("regular file") << QStringLiteral("large") << Q_UINT64_C(0);
    QTest::newRow("empty directory") << QStringLiteral("empty") << Q_UINT64_C(0);
    QTest::newRow("hidden file and link") << QStringLiteral("hidden") << Q_UINT64_C(10);
    QTest::newRow("slash at the end") << QStringLiteral("hidden/") << Q_UINT64_C(10);
    QTest::newRow("unclean") << QStringLiteral("empty/../hidden/.") << Q_UINT64_C(10);
    QTest::newRow("tree") << QStringLiteral("tree") << Q_UINT64_C(1111);
}

void tst_CDirectorySizeFinder::sizeArrivesWithThePathAsRequested()
{
    QFETCH(QString, name);
    Test::makeFile(path("large"), Test::someBytes(100'000));
    QVERIFY(QDir().mkpath(path("empty")));
    Test::makeFile(path("hidden/.ten"), Test::someBytes(10));
    QVERIFY(QFile::link(path("large"), path("hidden/link")));
    Test::makeFile(path("tree/a"), Test::someBytes(1));
    Test::makeFile(path("tree/sub/b"), Test::someBytes(10));
    Test::makeFile(path("tree/sub/deep/c"), Test::someBytes(100));
    Test::makeFile(path("tree/.sub/d"), Test::someBytes(1000));
    QVERIFY(QFile::link(path("hidden"), path("tree/link")));

    const QString asked = m_folder->path() + QLatin1Char('/') + name;
    CDirectorySizeFinder finder;
    QSignalSpy spy(&finder, &CDirectorySizeFinder::gotSizeOfPath);
    finder.startDirectorySizeCalculation(asked);
    QVERIFY(spy.wait(30000));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), asked);
    QTEST(spy.at(0).at(1).toULongLong(), "size");
}

void tst_CDirectorySizeFinder::computationIsToBeHadAlone()
{
    Test::makeFile(path("tree/sub/f"), "12345");
    CDirectorySizeFinder finder;
    const QPair<quint64, QString> result = finder.dirSize(path("tree"));
    QCOMPARE(result, qMakePair(Q_UINT64_C(5), path("tree")));
    QCOMPARE(finder.dirSize(QString()), qMakePair(Q_UINT64_C(0), QString()));
}

void tst_CDirectorySizeFinder::computationRunsAsTheHostsOwnTask()
{
    Test::makeFile(path("tree/sub/f"), "12345");
    CDirectorySizeFinder finder;
    const QFuture<QPair<quint64, QString>> future =
        QtConcurrent::run(&finder, &CDirectorySizeFinder::dirSize, path("tree"));
    QCOMPARE(future.result(), qMakePair(Q_UINT64_C(5), path("tree")));
}

void tst_CDirectorySizeFinder::sumsBeyondThirtyTwoBitsAreExact()
{
    QVERIFY(QDir().mkpath(path("tree")));
    for (const char *name : {"tree/a", "tree/b"}) {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.resize(Q_INT64_C(3'000'000'000))); // a hole
    }
    QCOMPARE(CDirectorySizeFinder().dirSize(path("tree")).first, Q_UINT64_C(6'000'000'000));
}

void tst_CDirectorySizeFinder::requestReturnsBeforeItIsDone()
{
    Test::makeFile(path("tree/f"), "12345");
    CDirectorySizeFinder finder;
    QSignalSpy spy(&finder, &CDirectorySizeFinder::gotSizeOfPath);
    {
        const BusyPool pool;
        finder.startDirectorySizeCalculation(path("tree"));
        QTest::qWait(20);
        QCOMPARE(spy.count(), 0);
    }
    QVERIFY(spy.wait(30000));
}

void tst_CDirectorySizeFinder::signalBelongsToTheRequestingThread()
{
    CDirectorySizeFinder finder;
    QThread *hearing = nullptr;
    connect(
        &finder, &CDirectorySizeFinder::gotSizeOfPath, &finder,
        [&] { hearing = QThread::currentThread(); }, Qt::DirectConnection);
    finder.startDirectorySizeCalculation(path("missing"));
    QVERIFY(QTest::qWaitFor([&] { return hearing; }, 30000));
    QCOMPARE(hearing, QThread::currentThread());
}

void tst_CDirectorySizeFinder::severalRequestsEachGetTheirAnswer()
{
    constexpr int count = 100;
    CDirectorySizeFinder finder;
    QMap<QString, qulonglong> answers;
    int signalCount = 0;
    connect(&finder, &CDirectorySizeFinder::gotSizeOfPath, &finder,
            [&](const QString &asked, qulonglong size) {
                answers.insert(asked, size);
                ++signalCount;
            });
    QMap<QString, qulonglong> expected;
    for (int i = 0; i < count; ++i) {
        const QString tree = m_folder->filePath(QString::number(i));
        Test::makeFile(tree + QStringLiteral("/f"), Test::someBytes(i));
        expected.insert(tree, static_cast<qulonglong>(i));
    }
    for (int i = 0; i < count; ++i) {
        finder.startDirectorySizeCalculation(m_folder->filePath(QString::number(i)));
    }
    finder.startDirectorySizeCalculation(m_folder->filePath(QStringLiteral("99"))); // once more
    QVERIFY(QTest::qWaitFor([&] { return signalCount == count + 1; }, 60000));
    QCOMPARE(answers, expected);
}

void tst_CDirectorySizeFinder::tenThousandLevelsFitAPoolThread()
{
    const Test::DeepTree tree(path("tree"), 10'000, "12345");
    CDirectorySizeFinder finder;
    QSignalSpy spy(&finder, &CDirectorySizeFinder::gotSizeOfPath);
    finder.startDirectorySizeCalculation(path("tree"));
    QVERIFY(spy.wait(120'000));
    QCOMPARE(spy.at(0).at(1).toULongLong(), Q_UINT64_C(50'000));
}

void tst_CDirectorySizeFinder::requestsAreAnsweredWhereNoThreadIsToBeHad_data()
{
    QTest::addColumn<bool>("lasts");
    QTest::newRow("for a moment") << false;
    QTest::newRow("at all") << true;
}

void tst_CDirectorySizeFinder::requestsAreAnsweredWhereNoThreadIsToBeHad()
{
    QFETCH(bool, lasts);
    Test::makeFile(path("tree/f"), "12345");
    CDirectorySizeFinder finder;
    QSignalSpy spy(&finder, &CDirectorySizeFinder::gotSizeOfPath);
    Faults::watch(m_folder->path());
    (lasts ? Faults::failFrom : Faults::failNth)(Call::CreateThread, 1, EAGAIN);
    finder.startDirectorySizeCalculation(path("tree"));
    finder.startDirectorySizeCalculation(path("missing"));
    QVERIFY(Faults::hasStruck());
    QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 2, 30000);
    Faults::stop();
    const int tree = spy.at(0).at(0) == path("tree") ? 0 : 1;
    QCOMPARE(spy.at(tree).at(1).toULongLong(), Q_UINT64_C(5));
    QCOMPARE(spy.at(1 - tree).at(1).toULongLong(), Q_UINT64_C(0));
}

void tst_CDirectorySizeFinder::requestsAreAnsweredWhereThePoolStaysBusy()
{
    Test::makeFile(path("tree/f"), "12345");
    CDirectorySizeFinder finder;
    QSignalSpy spy(&finder, &CDirectorySizeFinder::gotSizeOfPath);
    {
        const BusyPool pool;
        for (int i = 0; i < 5; ++i) {
            finder.startDirectorySizeCalculation(path("tree"));
        }
        QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 5, 60000);
    }
    // the pool comes too late, and does nothing a second time
    QThreadPool::globalInstance()->waitForDone();
    finder.startDirectorySizeCalculation(path("missing"));
    QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 6, 30000);
    QCOMPARE(spy.at(5).at(0).toString(), path("missing"));
}

void tst_CDirectorySizeFinder::searchPathsAndResourcesAreDirectories_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qulonglong>("size");
    QTest::newRow("search path") << QStringLiteral("sizes:tree") << Q_UINT64_C(5);
    QTest::newRow("second directory of it") << QStringLiteral("sizes:other") << Q_UINT64_C(2);
    QTest::newRow("resource") << QStringLiteral(":/samples/tree") << Q_UINT64_C(26);
    QTest::newRow("search path to it") << QStringLiteral("sizes:sub") << Q_UINT64_C(13);
    QTest::newRow("neither") << QStringLiteral("sizes:missing") << Q_UINT64_C(0);
}

void tst_CDirectorySizeFinder::searchPathsAndResourcesAreDirectories()
{
    QFETCH(QString, name);
    Test::makeFile(path("a/tree/f"), "12345");
    Test::makeFile(path("b/other/f"), "12");
    QDir::setSearchPaths(QStringLiteral("sizes"),
                         {path("a"), path("b"), QStringLiteral(":/samples/tree")});
    CDirectorySizeFinder finder;
    QSignalSpy spy(&finder, &CDirectorySizeFinder::gotSizeOfPath);
    finder.startDirectorySizeCalculation(name);
    QVERIFY(spy.wait(30000));
    QDir::setSearchPaths(QStringLiteral("sizes"), {});
    QCOMPARE(spy.at(0).at(0).toString(), name);
    QTEST(spy.at(0).at(1).toULongLong(), "size");
}

void tst_CDirectorySizeFinder::destroyedWhileRequestsRun()
{
    Test::makeFile(path("tree/f"), "12345");
    for (int i = 0; i < 100; ++i) {
        CDirectorySizeFinder finder;
        connect(&finder, &CDirectorySizeFinder::gotSizeOfPath, this,
                [] { QFAIL("nobody is left to announce it"); });
        for (int k = 0; k < 5; ++k) {
            finder.startDirectorySizeCalculation(path("tree"));
        }
    }
    {
        const BusyPool pool; // none of these has begun when the finder goes
        CDirectorySizeFinder finder;
        finder.startDirectorySizeCalculation(path("tree"));
    }
    QThreadPool::globalInstance()->waitForDone();
    QTest::qWait(20);
}

void tst_CDirectorySizeFinder::destroyedInTheSlotThatHearsTheResult()
{
    auto *finder = new CDirectorySizeFinder;
    const auto isGone = std::make_shared<bool>(false);
    connect(finder, &CDirectorySizeFinder::gotSizeOfPath, this, [finder, isGone] {
        if (!std::exchange(*isGone, true)) {
            delete finder;
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    });
    finder->startDirectorySizeCalculation(path("missing"));
    finder->startDirectorySizeCalculation(path("missing"));
    QVERIFY(QTest::qWaitFor([&] { return *isGone; }, 30000));
    QThreadPool::globalInstance()->waitForDone();
    QTest::qWait(20);
}

void tst_CDirectorySizeFinder::slotCalledByNameIsHarmless()
{
    CDirectorySizeFinder finder;
    QSignalSpy spy(&finder, &CDirectorySizeFinder::gotSizeOfPath);
    QVERIFY(QMetaObject::invokeMethod(&finder, "handleFinshed"));
    QCOMPARE(spy.count(), 0);
}

void tst_CDirectorySizeFinder::nothingIsLogged()
{
    const Test::LogRecorder log;
    CDirectorySizeFinder finder;
    QSignalSpy spy(&finder, &CDirectorySizeFinder::gotSizeOfPath);
    finder.startDirectorySizeCalculation(path("missing"));
    QVERIFY(spy.wait(30000));
    QCOMPARE(log.entries(), QStringList());
}

QTEST_GUILESS_MAIN(tst_CDirectorySizeFinder)

#include "tst_CDirectorySizeFinder.moc"
