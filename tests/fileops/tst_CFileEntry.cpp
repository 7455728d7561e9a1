// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileEntry.h"

#include <QTest>

#include <limits>

using Tavro::Shared::CFileEntry;

class tst_CFileEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsWhatItWasGiven();
    void emptyEntryIsAValue();
    void settersReplace();
    void anySizeIsStored_data();
    void anySizeIsStored();
    void copiesAreIndependent();
};

void tst_CFileEntry::holdsWhatItWasGiven()
{
    const CFileEntry entry(QStringLiteral("/data/clip.mp4"), 5'000'000'000);
    QCOMPARE(entry.path(), QStringLiteral("/data/clip.mp4"));
    QCOMPARE(entry.size(), Q_INT64_C(5'000'000'000));
}

void tst_CFileEntry::emptyEntryIsAValue()
{
    const CFileEntry entry(QString(), 0);
    QVERIFY(entry.path().isEmpty());
    QCOMPARE(entry.size(), Q_INT64_C(0));
}

void tst_CFileEntry::settersReplace()
{
    CFileEntry entry(QStringLiteral("/a"), 1);
    entry.setPath(QStringLiteral("/b"));
    entry.setSize(2);
    QCOMPARE(entry.path(), QStringLiteral("/b"));
    QCOMPARE(entry.size(), Q_INT64_C(2));
}

void tst_CFileEntry::anySizeIsStored_data()
{
    QTest::addColumn<qint64>("size");
    QTest::newRow("negative") << Q_INT64_C(-1);
    QTest::newRow("smallest") << std::numeric_limits<qint64>::min();
    QTest::newRow("largest") << std::numeric_limits<qint64>::max();
}

void tst_CFileEntry::anySizeIsStored()
{
    QFETCH(qint64, size);
    CFileEntry entry(QStringLiteral("/a"), 0);
    entry.setSize(size);
    QCOMPARE(entry.size(), size);
    QCOMPARE(CFileEntry(QString(), size).size(), size);
}

void tst_CFileEntry::copiesAreIndependent()
{
    const CFileEntry original(QStringLiteral("/a"), 1);
    CFileEntry copy = original;
    copy.setPath(QStringLiteral("/b"));
    copy.setSize(2);
    QCOMPARE(original.path(), QStringLiteral("/a"));
    QCOMPARE(original.size(), Q_INT64_C(1));
    copy = original;
    QCOMPARE(copy.path(), QStringLiteral("/a"));
}

QTEST_APPLESS_MAIN(tst_CFileEntry)

#include "tst_CFileEntry.moc"
