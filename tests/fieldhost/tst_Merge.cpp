// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/Merge.h"
#include "fieldhost/jobs/StagedCopy.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

#include <sched.h>
#include <sys/mount.h>

using namespace Tavro::FieldHost;
using namespace Test;

/**
 * How a copy takes the place of what was there: on a file system with a rename in one step, and on
 * one that is not known to have it.
 */
class tst_Merge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void newFilesTakeTheirPlaces_data() { addFileSystems(); }
    void newFilesTakeTheirPlaces();
    void manyFilesTakeTheirPlaces_data() { addFileSystems(); }
    void manyFilesTakeTheirPlaces();
    void aFileAloneTakesItsPlace_data() { addFileSystems(); }
    void aFileAloneTakesItsPlace();
    void whatIsNewAndWhatIsOldIsTold_data() { addFileSystems(); }
    void whatIsNewAndWhatIsOldIsTold();
    void whatIsNotOnTheListStays();

private:
    static void addFileSystems();
    ExportJob job(const QString &source, bool isDirectory) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString place(const QString &name = QString()) const
    {
        return path(QStringLiteral("disk/place/")) + name;
    }

    bool m_mayMount = false;
    bool m_isMounted = false;
    std::unique_ptr<TemporaryFolder> m_folder;
};

void tst_Merge::initTestCase()
{
    m_mayMount = ::unshare(CLONE_NEWNS) == 0
        && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

void tst_Merge::addFileSystems()
{
    QTest::addColumn<bool>("isKnown");
    QTest::newRow("a file system that renames in one step") << true;
    QTest::newRow("one of which that is not known") << false;
}

void tst_Merge::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    const QString disk = path(QStringLiteral("disk"));
    QVERIFY(QDir().mkpath(disk));
    const auto *isKnown = QTest::currentDataTag();
    if (isKnown && QByteArray(isKnown).startsWith("one")) {
        if (!m_mayMount) {
            QSKIP("mounting a file system needs the rights of root");
        }
        QCOMPARE(::mount("ramfs", QFile::encodeName(disk).constData(), "ramfs", 0, nullptr), 0);
        m_isMounted = true;
    }
}

void tst_Merge::cleanup()
{
    if (m_isMounted) {
        QCOMPARE(::umount2(QFile::encodeName(path(QStringLiteral("disk"))).constData(), 0), 0);
        m_isMounted = false;
    }
    m_folder.reset();
}

ExportJob tst_Merge::job(const QString &source, bool isDirectory) const
{
    ExportJob job;
    job.source = path(source);
    job.isDirectory = isDirectory;
    job.landing = isDirectory ? place().chopped(1) : place(source);
    job.landingExists = true;
    job.held = std::make_shared<HeldDirectory>(place().chopped(1));
    job.survey =
        isDirectory ? surveyDirectory(job.source, [] { return false; }) : surveyFile(job.source);
    return job;
}

void tst_Merge::newFilesTakeTheirPlaces()
{
    makeFile(path(QStringLiteral("source/a")), "new a");
    makeFile(path(QStringLiteral("source/sub/b")), "new b");
    makeFile(path(QStringLiteral("source/sub/deep/c")), "new c");
    QVERIFY(QDir().mkpath(path(QStringLiteral("source/empty"))));
    makeFile(place(QStringLiteral("a")), "old a");
    makeFile(place(QStringLiteral("sub/b")), "old b");
    makeFile(place(QStringLiteral("sub/other")), "other");
    const ExportJob directory = job(QStringLiteral("source/"), true);
    StagedCopy copy(directory);
    QVERIFY(copy.prepare());
    for (const SurveyedFile &file : directory.survey.files) {
        makeFile(copy.root() + QLatin1Char('/') + file.path,
                 contentOf(directory.source + file.path));
    }
    QVERIFY2(copy.settle(), qPrintable(copy.error()));
    QMap<QString, QByteArray> expected = treeOf(directory.source);
    expected.insert(QStringLiteral("sub/other"), "other");
    QCOMPARE(treeOf(place()), expected);
    QCOMPARE(copy.discard(), QStringList());
    QCOMPARE(treeOf(place()), expected);
}

void tst_Merge::manyFilesTakeTheirPlaces()
{
    for (int i = 0; i < 150; ++i) { // more than share a flush
        const QString name = QStringLiteral("%1").arg(i, 3);
        makeFile(path(QStringLiteral("source/") + name), "new" + name.toUtf8());
        makeFile(place(name), "old");
    }
    const ExportJob directory = job(QStringLiteral("source/"), true);
    StagedCopy copy(directory);
    QVERIFY(copy.prepare());
    for (const SurveyedFile &file : directory.survey.files) {
        makeFile(copy.root() + QLatin1Char('/') + file.path,
                 contentOf(directory.source + file.path));
    }
    QVERIFY2(copy.settle(), qPrintable(copy.error()));
    QCOMPARE(treeOf(place()), treeOf(directory.source));
}

void tst_Merge::aFileAloneTakesItsPlace()
{
    makeFile(path(QStringLiteral("file")), "new");
    makeFile(place(QStringLiteral("file")), "old");
    makeFile(place(QStringLiteral("other")), "other");
    const ExportJob file = job(QStringLiteral("file"), false);
    StagedCopy copy(file);
    QVERIFY(copy.prepare());
    makeFile(copy.root(), "new");
    QVERIFY2(copy.settle(), qPrintable(copy.error()));
    QMap<QString, QByteArray> expected;
    expected.insert(QStringLiteral("file"), "new");
    expected.insert(QStringLiteral("other"), "other");
    QCOMPARE(treeOf(place()), expected);
}

void tst_Merge::whatIsNewAndWhatIsOldIsTold()
{
    makeFile(path(QStringLiteral("source/a")), "new");
    makeFile(path(QStringLiteral("source/b")), "new");
    makeFile(path(QStringLiteral("source/sub/c")), "new");
    makeFile(path(QStringLiteral("source/sub/d")), "new");
    makeFile(place(QStringLiteral("a")), "old");
    makeFile(place(QStringLiteral("sub/d")), "old");
    const ExportJob directory = job(QStringLiteral("source/"), true);
    StagedCopy copy(directory);
    QVERIFY(copy.prepare());
    for (const SurveyedFile &file : directory.survey.files) {
        makeFile(copy.root() + QLatin1Char('/') + file.path, "new");
    }
    makeFile(place(QStringLiteral("sub/c/in the way")), "precious");
    QVERIFY(!copy.settle());
    QCOMPARE(copy.error(),
             QStringLiteral("The copy cannot be moved to its place: \"%1\": Is a directory.\n"
                            "New: 2 files, from \"%2\" to \"%3\" in the order of the copy.\n"
                            "As before: 2 files, from \"%1\" to \"%4\" in the order of the copy.")
                 .arg(place(QStringLiteral("sub/c")), place(QStringLiteral("a")),
                      place(QStringLiteral("b")), place(QStringLiteral("sub/d"))));
    copy.discard();
    QMap<QString, QByteArray> expected;
    expected.insert(QStringLiteral("a"), "new");
    expected.insert(QStringLiteral("b"), "new");
    expected.insert(QStringLiteral("sub/"), QByteArray());
    expected.insert(QStringLiteral("sub/c/"), QByteArray());
    expected.insert(QStringLiteral("sub/c/in the way"), "precious");
    expected.insert(QStringLiteral("sub/d"), "old");
    QCOMPARE(treeOf(place()), expected);
}

void tst_Merge::whatIsNotOnTheListStays()
{
    makeFile(path(QStringLiteral("source/a")), "new");
    makeFile(place(QStringLiteral("a")), "old");
    const ExportJob directory = job(QStringLiteral("source/"), true);
    StagedCopy copy(directory);
    QVERIFY(copy.prepare());
    makeFile(copy.root() + QStringLiteral("/a"), "new");
    const QString unknown = copy.root() + QStringLiteral("/unknown");
    makeFile(unknown, "the only copy");
    QVERIFY(!copy.settle());
    QVERIFY2(copy.error().startsWith(QLatin1String("All is in its place, but \"") + place()
                                     + QStringLiteral(".ovo-export-")),
             qPrintable(copy.error()));
    QCOMPARE(contentOf(place(QStringLiteral("a"))), QByteArray("new"));
    QCOMPARE(contentOf(unknown), QByteArray("the only copy"));
}

QTEST_APPLESS_MAIN(tst_Merge)

#include "tst_Merge.moc"
