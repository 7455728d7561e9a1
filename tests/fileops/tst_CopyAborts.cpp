// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyController.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>

using Tavro::Shared::CFileCopyController;

// Defined for all of the program's libraries: flushing has no part in what is tested here, and
// would make ten thousand aborts take an hour.
extern "C" {
void sync()
{
}
int syncfs(int /*fd*/)
{
    return 0;
}
int fsync(int /*fd*/)
{
    return 0;
}
}

namespace {

/**
 * A root directory of this process' own, in memory: whatever is removed there, no other program
 * misses it. False when the system refuses it, which it does to everybody but root.
 */
bool enterRootOfOurOwn()
{
    const QByteArray path = QFile::encodeName(QDir::tempPath()); // covered here, and nowhere else
    return ::unshare(CLONE_NEWNS | CLONE_FS) == 0
        && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
        && ::mount("tmpfs", path.constData(), "tmpfs", 0, nullptr) == 0
        && ::chroot(path.constData()) == 0 && ::chdir("/") == 0;
}

bool s_isAlone = false;

/** What is at a path, links not followed: "dir", a link's target or a file's content. */
using Tree = QMap<QString, QByteArray>;

void addTo(Tree &tree, const QString &directory)
{
    const QFileInfoList entries = QDir(directory).entryInfoList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo &entry : entries) {
        const QString path = entry.absoluteFilePath();
        if (entry.isSymLink()) {
            tree.insert(path, "-> " + entry.symLinkTarget().toUtf8());
        } else if (entry.isDir()) {
            tree.insert(path, "dir");
            addTo(tree, path);
        } else {
            tree.insert(path, "= " + Test::contentOf(path));
        }
    }
}

Tree everything()
{
    Tree tree;
    addTo(tree, QStringLiteral("/"));
    return tree;
}

bool isBelow(const QString &path, const QString &directory)
{
    return path == directory
        || path.startsWith(directory == QLatin1String("/") ? directory
                                                           : directory + QLatin1Char('/'));
}

/** Makes and aborts requests on a tree of a few directories, files and links. */
class Round
{
public:
    explicit Round(quint32 seed)
        : m_random(seed)
    {
    }

    void makeTree()
    {
        const QStringList names = entries(QStringLiteral("/"));
        for (const QString &name : names) {
            remove(QLatin1Char('/') + name);
        }
        for (const char *directory : {"/a", "/a/b", "/a/b/c", "/d", "/d/e", "/m"}) {
            QDir().mkpath(QLatin1String(directory));
            for (int i = m_random.bounded(3); i > 0; --i) {
                Test::makeFile(QStringLiteral("%1/f%2").arg(QLatin1String(directory)).arg(i),
                               Test::someBytes(1 + m_random.bounded(5000), m_random.bounded(9)));
            }
        }
        Test::makeFile(QStringLiteral("/a/db"), Test::someBytes(20000));
        // one at most: two that lead up would keep the walk busy for years
        if (m_random.bounded(4) > 0) {
            QFile::link(anyOf({"/a", "/a/b", "/d", ".", "..", "/missing", "/a/db"}),
                        anyOf({"/a/link", "/d/link", "/m/link", "/link"}));
        }
    }

    void request(CFileCopyController &controller)
    {
        QDir::setCurrent(anyOf({"/", "/a", "/a/b", "/d", "/m"}));
        switch (m_random.bounded(3)) {
        case 0:
            controller.copyDirectory(note(anySource()), aim(anyDestination()));
            break;
        case 1: {
            const QStringList sources = {note(anySource()), note(anySource())};
            controller.copyDirectories(sources, {aim(anyDestination()), aim(anyDestination())});
            break;
        }
        default:
            controller.copyDatabaseFile(
                note(anyOf({"/a/db", "a/db", "db", "/a/link", "/d/link", "/link", "/missing"})),
                aim(anyOf({"/a/db", "/m/new", "db", "/m/link", "/link", "../new", "/d", "/"})));
        }
        QDir::setCurrent(anyOf({"/", "/a", "/d"}));
    }

    /** What has to be there after an abort: all but what stood below a destination. */
    bool mustStay(const QString &path) const
    {
        for (const Aim &aim : m_aims) {
            if (!aim.isKept && isBelow(path, aim.path)) {
                return false;
            }
        }
        return true;
    }
    /** What a copy may have written to, whatever becomes of it. */
    bool mayDiffer(const QString &path) const
    {
        for (const Aim &aim : m_aims) {
            if (isBelow(path, aim.path)) {
                return true;
            }
        }
        return false;
    }

    QString text() const { return m_words.join(QLatin1Char(' ')); }
    int bounded(int highest) { return m_random.bounded(highest); }

private:
    struct Aim
    {
        QString path; // links resolved
        bool isKept; // a source, or holds one
    };

    static QStringList entries(const QString &directory)
    {
        return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                         | QDir::NoDotAndDotDot);
    }
    static void remove(const QString &path)
    {
        const QFileInfo info(path);
        if (info.isDir() && !info.isSymLink()) {
            QDir(path).removeRecursively();
        } else {
            QFile::remove(path);
        }
    }

    QString anyOf(std::initializer_list<const char *> names)
    {
        return QString::fromUtf8(
            *(names.begin() + m_random.bounded(static_cast<int>(names.size()))));
    }
    QString anySource()
    {
        return anyOf({"/a", "/a/", "/a/b", "a", ".", "..", "/d", "/link", "/a/link", "/a/b/../b",
                      "/d/link/..", "/missing", "/m", "/"});
    }
    QString anyDestination()
    {
        return anyOf({"/",
                      "//",
                      "/.",
                      "/a/..",
                      "/new/../a/../",
                      "/a",
                      "/a/.",
                      "/a/b",
                      "/a/b/new",
                      "new",
                      ".",
                      "..",
                      "./",
                      "../new",
                      "/m",
                      "/m/new/deep  ",
                      "/link",
                      "/a/link",
                      "/m/link",
                      "/d/link/..",
                      "/d/e\t",
                      "",
                      " ",
                      "/missing/new"});
    }

    QString note(const QString &source)
    {
        m_sources.append(QFileInfo(source).canonicalFilePath());
        for (Aim &aim : m_aims) {
            aim.isKept = aim.isKept || isBelow(m_sources.constLast(), aim.path);
        }
        m_words += {QDir::currentPath(), source};
        return source;
    }
    QString aim(const QString &destination)
    {
        QString name = destination;
        while (name.endsWith(QLatin1Char(' ')) || name.endsWith(QLatin1Char('\t'))) {
            name.chop(1);
        }
        const QString path = name.isEmpty() ? QString() : QFileInfo(name).canonicalFilePath();
        if (!path.isEmpty()) {
            Aim aim = {path, path == QLatin1String("/")};
            for (const QString &source : qAsConst(m_sources)) {
                aim.isKept = aim.isKept || (!source.isEmpty() && isBelow(source, path));
            }
            m_aims.append(aim);
        }
        // a link that is no directory goes itself
        const QFileInfo link(name);
        if (link.isSymLink() && !link.isDir()) {
            m_aims.append(
                {QDir(QFileInfo(link.absolutePath()).canonicalFilePath()).filePath(link.fileName()),
                 false});
        }
        m_words += {QStringLiteral("to"), destination};
        return destination;
    }

    QRandomGenerator m_random;
    QStringList m_sources;
    QList<Aim> m_aims;
    QStringList m_words; // of the request
};

} // namespace

/** What an abort leaves, in a root directory of the test's own. */
class tst_CopyAborts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void destinationThatMeansTheRootStays_data();
    void destinationThatMeansTheRootStays();
    void sourceStays_data();
    void sourceStays();
    void databaseFileStays_data();
    void databaseFileStays();
    void relativeDestinationMeansWhatItMeantAtTheRequest();
    void cutOffFileGoesFromADestinationThatStays();
    void twoNamesOfOneFileShowInTheResult();
    void randomRequestsLoseNothing();
};

void tst_CopyAborts::initTestCase()
{
    if (!s_isAlone) {
        QSKIP("needs root, to have a root directory of its own");
    }
}

void tst_CopyAborts::init()
{
    QVERIFY(QDir().mkpath(QStringLiteral("/tmp")));
    QVERIFY(QDir().mkpath(QStringLiteral("/x")));
    Test::makeFile(QStringLiteral("/keep/me"), "dear");
    Test::makeFile(QStringLiteral("/src/film"), Test::someBytes(9000));
    Test::makeFile(QStringLiteral("/src/sub/film"), Test::someBytes(5000));
    Test::makeFile(QStringLiteral("/db"), Test::someBytes(5000));
}

void tst_CopyAborts::cleanup()
{
    QDir::setCurrent(QStringLiteral("/"));
    for (const char *name : {"/tmp", "/x", "/keep", "/src", "/elsewhere"}) {
        QDir(QLatin1String(name)).removeRecursively();
    }
    for (const char *name : {"/db", "/link"}) {
        QFile::remove(QLatin1String(name));
    }
}

void tst_CopyAborts::destinationThatMeansTheRootStays_data()
{
    QTest::addColumn<QString>("destination");
    QTest::newRow("/") << "/";
    QTest::newRow("a point") << "/.";
    QTest::newRow("two slashes") << "//";
    QTest::newRow("the parent of a directory") << "/tmp/..";
    QTest::newRow("up and down and up") << "/x/../tmp/../";
    QTest::newRow("above the root") << "/../..";
    QTest::newRow("a link") << "/tmp/root";
}

void tst_CopyAborts::destinationThatMeansTheRootStays()
{
    QFETCH(QString, destination);
    QVERIFY(QFile::link(QStringLiteral("/"), QStringLiteral("/tmp/root")));
    const Tree before = everything();
    CFileCopyController controller;
    QSignalSpy canceled(&controller, &CFileCopyController::operationCanceled);
    // nothing to copy, so that nothing is written into the root
    controller.copyDirectory(QStringLiteral("/missing"), destination);
    controller.abort();
    QVERIFY(canceled.count() == 1 || canceled.wait(30000));
    QCOMPARE(everything(), before);
}

void tst_CopyAborts::sourceStays_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("destination");
    QTest::newRow("the source itself") << "/src"
                                       << "/src";
    QTest::newRow("by another name") << "/src/"
                                     << "/x/../src/.";
    QTest::newRow("a link to the source") << "/src"
                                          << "/link";
    QTest::newRow("from a link to the destination") << "/link"
                                                    << "/src";
    QTest::newRow("a directory that holds the source") << "/src/sub"
                                                       << "/src";
}

void tst_CopyAborts::sourceStays()
{
    QFETCH(QString, source);
    QFETCH(QString, destination);
    QVERIFY(QFile::link(QStringLiteral("/src"), QStringLiteral("/link")));
    const Tree before = everything();
    CFileCopyController controller;
    QSignalSpy canceled(&controller, &CFileCopyController::operationCanceled);
    controller.copyDirectory(source, destination);
    controller.abort();
    QVERIFY(canceled.count() == 1 || canceled.wait(30000));
    QCOMPARE(canceled.count(), 1);
    const Tree after = everything();
    for (auto entry = before.cbegin(); entry != before.cend(); ++entry) {
        QVERIFY2(after.contains(entry.key()), qPrintable(entry.key()));
    }
}

void tst_CopyAborts::databaseFileStays_data()
{
    QTest::addColumn<QString>("destination");
    QTest::newRow("the file itself") << "/db";
    QTest::newRow("another link to the file") << "/hard";
    QTest::newRow("a directory that holds it") << "/";
}

void tst_CopyAborts::databaseFileStays()
{
    QFETCH(QString, destination);
    QCOMPARE(::link("/db", "/hard"), 0);
    const Tree before = everything();
    CFileCopyController controller;
    QSignalSpy canceled(&controller, &CFileCopyController::operationCanceled);
    controller.copyDatabaseFile(QStringLiteral("/db"), destination);
    controller.abort();
    QVERIFY(canceled.count() == 1 || canceled.wait(30000));
    const Tree after = everything();
    QFile::remove(QStringLiteral("/hard"));
    QCOMPARE(after, before);
}

void tst_CopyAborts::relativeDestinationMeansWhatItMeantAtTheRequest()
{
    Test::makeFile(QStringLiteral("/elsewhere/copy/mine"), "not a copy");
    QVERIFY(QDir::setCurrent(QStringLiteral("/x")));
    CFileCopyController controller;
    QSignalSpy canceled(&controller, &CFileCopyController::operationCanceled);
    connect(&controller, &CFileCopyController::processedBytesChanged, &controller,
            &CFileCopyController::abort);
    controller.copyDirectory(QStringLiteral("../src"), QStringLiteral("copy"));
    QVERIFY(QDir::setCurrent(QStringLiteral("/elsewhere")));
    QVERIFY(canceled.wait(30000));
    QVERIFY(!QFileInfo::exists(QStringLiteral("/x/copy")));
    QCOMPARE(Test::contentOf(QStringLiteral("/elsewhere/copy/mine")), QByteArray("not a copy"));
}

// "/src" stays, because it holds the source; what was being written into it does not
void tst_CopyAborts::cutOffFileGoesFromADestinationThatStays()
{
    constexpr int size = 12 * 1024 * 1024;
    Test::makeFile(QStringLiteral("/src/sub/large"), Test::someBytes(size));
    QFile::remove(QStringLiteral("/src/sub/film"));
    CFileCopyController controller;
    QSignalSpy canceled(&controller, &CFileCopyController::operationCanceled);
    connect(&controller, &CFileCopyController::processedBytesChanged, &controller,
            [&controller] { controller.abort(); });
    controller.copyDirectory(QStringLiteral("/src/sub"), QStringLiteral("/src"));
    QVERIFY(canceled.wait(30000));
    const QFileInfo copy(QStringLiteral("/src/large"));
    QVERIFY2(!copy.exists() || copy.size() == size, "a part of the file");
}

// the source's own path is cut out of "/src/a/src/film" as well, and leaves "afilm"
void tst_CopyAborts::twoNamesOfOneFileShowInTheResult()
{
    Test::makeFile(QStringLiteral("/src/afilm"), "first");
    Test::makeFile(QStringLiteral("/src/a/src/film"), "second");
    CFileCopyController controller;
    QSignalSpy completed(&controller, &CFileCopyController::operationCompleted);
    controller.copyDirectory(QStringLiteral("/src"), QStringLiteral("/x/copy"));
    QVERIFY(completed.wait(30000));
    QCOMPARE(controller.processedBytes(), controller.totalBytes());
    QCOMPARE(Test::contentOf(QStringLiteral("/x/copy/afilm")), QByteArray("second"));
    QVERIFY(!controller.lastResult().isWhole());
    QCOMPARE(controller.lastResult().systemError, EEXIST);
    QCOMPARE(controller.lastResult().path, QStringLiteral("/x/copy/afilm"));
}

void tst_CopyAborts::randomRequestsLoseNothing()
{
    constexpr int rounds = 10000;
    for (quint32 seed = 0; seed < rounds; ++seed) {
        Round round(seed);
        round.makeTree();
        const Tree before = everything();

        CFileCopyController controller;
        int ends = 0;
        int progress = 0;
        const int last = round.bounded(6);
        const auto abortAt = [&] {
            if (++progress == last) {
                controller.abort();
            }
        };
        connect(&controller, &CFileCopyController::processedBytesChanged, &controller, abortAt);
        connect(&controller, &CFileCopyController::stateChanged, &controller, abortAt);
        connect(&controller, &CFileCopyController::operationCanceled, &controller, [&] { ++ends; });
        connect(&controller, &CFileCopyController::operationCompleted, &controller,
                [&] { ++ends; });
        round.request(controller);
        if (last == 0) {
            controller.abort();
        }
        QTimer wake; // the loop, should nothing else do so
        wake.start(1000);
        for (int waits = 0; ends == 0 && waits < 10000; ++waits) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        QCOMPARE(ends, 1);

        const Tree after = everything();
        for (auto entry = before.cbegin(); entry != before.cend(); ++entry) {
            const QString &path = entry.key();
            if (!round.mustStay(path)) {
                continue;
            }
            const QString where =
                QStringLiteral("seed %1, %2: %3").arg(seed).arg(round.text(), path);
            QVERIFY2(after.contains(path), qPrintable(where));
            if (!round.mayDiffer(path)) {
                QVERIFY2(after.value(path) == entry.value(), qPrintable(where));
            }
        }
    }
}

int main(int argc, char *argv[])
{
    s_isAlone = enterRootOfOurOwn();
    QCoreApplication application(argc, argv);
    tst_CopyAborts test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CopyAborts.moc"
