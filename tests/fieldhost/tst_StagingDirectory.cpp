// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/StagingDirectory.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace Tavro::FieldHost;
using namespace Test;

/** The hidden directory of an export, while it runs and after it was killed. */
class tst_StagingDirectory : public QObject
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
    static std::unique_ptr<StagingDirectory> made(const QString &place)
    {
        int error = 0;
        return StagingDirectory::create(place, error);
    }

    std::unique_ptr<TemporaryFolder> m_folder;
};

void tst_StagingDirectory::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
}

void tst_StagingDirectory::onesThatRunAreLeftAlone()
{
    const auto directory = made(place());
    QVERIFY(directory);
    makeFile(directory->rootFor(QStringLiteral("a"), false), "new");
    QVERIFY(StagingDirectory::isFilled(place()));
    QCOMPARE(StagingDirectory::discardAbandoned(place()), QStringList());
    QVERIFY(QFile::exists(directory->rootFor(QStringLiteral("a"), false)));
}

void tst_StagingDirectory::abandonedOnesGo()
{
    auto directory = made(place());
    makeFile(directory->rootFor(QStringLiteral("a"), false), "new");
    makeFile(directory->rootFor(QStringLiteral("b"), true) + QStringLiteral("/c"), "new");
    makeFile(path(QStringLiteral("a")), "new"); // before the merge they share nothing
    directory.reset();
    QVERIFY(QFile::remove(path(QStringLiteral("a"))));
    QVERIFY(!StagingDirectory::isFilled(place()));
    makeFile(path(QStringLiteral("a")), "new");
    QVERIFY(StagingDirectory::isFilled(place()));
    QCOMPARE(StagingDirectory::discardAbandoned(place()), QStringList());
    QCOMPARE(names(), QStringList{QStringLiteral("a")});
}

void tst_StagingDirectory::whatWaitsIsPutBack()
{
    auto directory = made(place());
    const QString copy = directory->rootFor(QStringLiteral("x"), true);
    makeFile(copy + QStringLiteral("/sub/a"), "new");
    QVERIFY(directory->beginMerge());
    makeFile(directory->backups() + QStringLiteral("/sub/a"), "old");
    makeFile(path(QStringLiteral("sub/b")), "other");
    directory.reset();
    QCOMPARE(StagingDirectory::discardAbandoned(place()), QStringList());
    QCOMPARE(names(), QStringList{QStringLiteral("sub")});
    QCOMPARE(contentOf(path(QStringLiteral("sub/a"))), QByteArray("old"));
    QCOMPARE(contentOf(path(QStringLiteral("sub/b"))), QByteArray("other"));
}

void tst_StagingDirectory::whatIsInPlaceStays()
{
    auto directory = made(place());
    makeFile(directory->rootFor(QStringLiteral("x"), true) + QStringLiteral("/b"), "newer");
    makeFile(directory->rootFor(QStringLiteral("c"), false), "newer");
    QVERIFY(directory->beginMerge());
    makeFile(directory->backups() + QStringLiteral("/a"), "old");
    makeFile(path(QStringLiteral("a")), "new");
    makeFile(path(QStringLiteral("b")), "old");
    makeFile(path(QStringLiteral("c")), "old");
    directory.reset();
    QCOMPARE(StagingDirectory::discardAbandoned(place()), QStringList());
    QCOMPARE(names(), (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QCOMPARE(contentOf(path(QStringLiteral("a"))), QByteArray("new"));
    QCOMPARE(contentOf(path(QStringLiteral("b"))), QByteArray("old"));
}

void tst_StagingDirectory::whatMayShareTheDataOfAFileInPlaceStays()
{
    // on FAT, a cut in mid-rename can leave both names; removing one frees the data of the other
    auto directory = made(place());
    const QString name = directory->path();
    makeFile(directory->rootFor(QStringLiteral("x"), true) + QStringLiteral("/a"), "new");
    QVERIFY(directory->beginMerge());
    makeFile(path(QStringLiteral("a")), "new");
    directory.reset();
    QCOMPARE(StagingDirectory::discardAbandoned(place()), QStringList{name});
    QCOMPARE(contentOf(name + QStringLiteral("/folder/x/a")), QByteArray("new"));
    QCOMPARE(contentOf(path(QStringLiteral("a"))), QByteArray("new"));
}

void tst_StagingDirectory::namesThatOnlyLookSimilarAreNotOurs()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral(".ovo-export-notes"))));
    QVERIFY(StagingDirectory::isFilled(place()));
    QCOMPARE(StagingDirectory::discardAbandoned(place()), QStringList());
    QCOMPARE(names(), QStringList{QStringLiteral(".ovo-export-notes")});
}

QTEST_APPLESS_MAIN(tst_StagingDirectory)

#include "tst_StagingDirectory.moc"
