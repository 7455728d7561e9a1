#include "fieldhost/jobs/StagingFolder.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace Tavro::FieldHost;
using namespace Test;

/** The hidden folder of an export, while it runs and after it was killed. */
class tst_StagingFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void onesThatRunAreLeftAlone();
    void abandonedOnesGo();
    void whatWaitsIsPutBack();
    void whatIsInPlaceStays();
    void whatMayShareTheDataOfAFileInPlaceStays();
    void namesThatOnlyLookSimilarAreNotOurs();

private:
    QString place() const { return m_folder->path(); }
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList names() const
    {
        return QDir(place()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                       QDir::Name);
    }
    static std::unique_ptr<StagingFolder> made(const QString &place)
    {
        int error = 0;
        return StagingFolder::create(place, error);
    }

    std::unique_ptr<TemporaryFolder> m_folder;
};

void tst_StagingFolder::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
}

void tst_StagingFolder::onesThatRunAreLeftAlone()
{
    const auto folder = made(place());
    QVERIFY(folder);
    makeFile(folder->rootFor(QStringLiteral("a"), false), "new");
    QVERIFY(StagingFolder::isFilled(place()));
    QCOMPARE(StagingFolder::discardAbandoned(place()), QStringList());
    QVERIFY(QFile::exists(folder->rootFor(QStringLiteral("a"), false)));
}

void tst_StagingFolder::abandonedOnesGo()
{
    auto folder = made(place());
    makeFile(folder->rootFor(QStringLiteral("a"), false), "new");
    makeFile(folder->rootFor(QStringLiteral("b"), true) + QStringLiteral("/c"), "new");
    makeFile(path(QStringLiteral("a")), "new"); // before the merge they share nothing
    folder.reset();
    QVERIFY(QFile::remove(path(QStringLiteral("a"))));
    QVERIFY(!StagingFolder::isFilled(place()));
    makeFile(path(QStringLiteral("a")), "new");
    QVERIFY(StagingFolder::isFilled(place()));
    QCOMPARE(StagingFolder::discardAbandoned(place()), QStringList());
    QCOMPARE(names(), QStringList{QStringLiteral("a")});
}

void tst_StagingFolder::whatWaitsIsPutBack()
{
    auto folder = made(place());
    const QString copy = folder->rootFor(QStringLiteral("x"), true);
    makeFile(copy + QStringLiteral("/sub/a"), "new");
    QVERIFY(folder->beginMerge());
    makeFile(folder->backups() + QStringLiteral("/sub/a"), "old");
    makeFile(path(QStringLiteral("sub/b")), "other");
    folder.reset();
    QCOMPARE(StagingFolder::discardAbandoned(place()), QStringList());
    QCOMPARE(names(), QStringList{QStringLiteral("sub")});
    QCOMPARE(contentOf(path(QStringLiteral("sub/a"))), QByteArray("old"));
    QCOMPARE(contentOf(path(QStringLiteral("sub/b"))), QByteArray("other"));
}

void tst_StagingFolder::whatIsInPlaceStays()
{
    auto folder = made(place());
    makeFile(folder->rootFor(QStringLiteral("x"), true) + QStringLiteral("/b"), "newer");
    makeFile(folder->rootFor(QStringLiteral("c"), false), "newer");
    QVERIFY(folder->beginMerge());
    makeFile(folder->backups() + QStringLiteral("/a"), "old");
    makeFile(path(QStringLiteral("a")), "new");
    makeFile(path(QStringLiteral("b")), "old");
    makeFile(path(QStringLiteral("c")), "old");
    folder.reset();
    QCOMPARE(StagingFolder::discardAbandoned(place()), QStringList());
    QCOMPARE(names(), (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QCOMPARE(contentOf(path(QStringLiteral("a"))), QByteArray("new"));
    QCOMPARE(contentOf(path(QStringLiteral("b"))), QByteArray("old"));
}

void tst_StagingFolder::whatMayShareTheDataOfAFileInPlaceStays()
{
    // on FAT, a cut in mid-rename can leave both names; removing one frees the data of the other
    auto folder = made(place());
    const QString name = folder->path();
    makeFile(folder->rootFor(QStringLiteral("x"), true) + QStringLiteral("/a"), "new");
    QVERIFY(folder->beginMerge());
    makeFile(path(QStringLiteral("a")), "new");
    folder.reset();
    QCOMPARE(StagingFolder::discardAbandoned(place()), QStringList{name});
    QCOMPARE(contentOf(name + QStringLiteral("/folder/x/a")), QByteArray("new"));
    QCOMPARE(contentOf(path(QStringLiteral("a"))), QByteArray("new"));
}

void tst_StagingFolder::namesThatOnlyLookSimilarAreNotOurs()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral(".ovo-export-notes"))));
    QVERIFY(StagingFolder::isFilled(place()));
    QCOMPARE(StagingFolder::discardAbandoned(place()), QStringList());
    QCOMPARE(names(), QStringList{QStringLiteral(".ovo-export-notes")});
}

QTEST_APPLESS_MAIN(tst_StagingFolder)

#include "tst_StagingFolder.moc"
