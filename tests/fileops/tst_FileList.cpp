// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/FileList.h"

#include <QTest>

using Tavro::Shared::detail::FileList;
using Tavro::Shared::detail::FoundFile;

namespace {

QStringList linesOf(const FileList &list)
{
    QStringList lines;
    for (const FoundFile &file : list) {
        lines.append(QStringLiteral("%1 %2%3").arg(file.path).arg(file.size).arg(
            QLatin1String(file.isSpecial ? " special" : "")));
    }
    return lines;
}

} // namespace

class tst_FileList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst();
    void filesStandInOrderBelowTheirDirectories();
    void aNameComesBackAsItWas_data();
    void aNameComesBackAsItWas();
    void manyFilesAreSeveralBlocks();
    void aCopyIsAddedToAlone();
    void listsCanBeJoined();
};

void tst_FileList::isEmptyAtFirst()
{
    FileList list;
    QVERIFY(list.isEmpty());
    list.enterDirectory(QStringLiteral("/a/"));
    QVERIFY(list.isEmpty());
    QCOMPARE(list.size(), 0);
    QCOMPARE(linesOf(list), QStringList());
    QCOMPARE(list.directories(), QStringList());
}

void tst_FileList::filesStandInOrderBelowTheirDirectories()
{
    FileList list;
    list.enterDirectory(QStringLiteral("/"));
    list.append(QStringLiteral("b"), 2);
    list.append(QStringLiteral("a"), -1);
    list.enterDirectory(QStringLiteral("/empty/"));
    list.enterDirectory(QStringLiteral("/d/"));
    list.append(QStringLiteral("fifo"), 0, true);
    list.append(QStringLiteral("large"), Q_INT64_C(1) << 40);
    QCOMPARE(linesOf(list),
             (QStringList{QStringLiteral("/b 2"), QStringLiteral("/a -1"),
                          QStringLiteral("/d/fifo 0 special"),
                          QStringLiteral("/d/large 1099511627776")}));
    QCOMPARE(list.directories(), (QStringList{QStringLiteral("/"), QStringLiteral("/d/")}));
    QCOMPARE(list.size(), 4);
}

void tst_FileList::aNameComesBackAsItWas_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("empty") << QString();
    QTest::newRow("ASCII") << QStringLiteral("Clip 1\x7f.mp4");
    QTest::newRow("Latin-1") << QStringLiteral(u"Stra\u00dfe");
    QTest::newRow("surrogates") << QString::fromUtf8("\xf0\x9f\x8e\xa5");
    QTest::newRow("byte order mark") << QStringLiteral(u"\ufeffname");
    QTest::newRow("longer than a block") << QString(100'000, QLatin1Char('x'));
    QTest::newRow("longer than a block, not ASCII") << QString(100'000, QChar(0x4e2d));
}

void tst_FileList::aNameComesBackAsItWas()
{
    QFETCH(QString, name);
    FileList list;
    list.enterDirectory(QStringLiteral(u"/d\u00f6/"));
    list.append(QStringLiteral("before"), 1);
    list.append(name, 2);
    list.append(QStringLiteral("after"), 3);
    QStringList paths;
    for (const FoundFile &file : list) {
        paths.append(file.path);
    }
    QCOMPARE(paths,
             (QStringList{QStringLiteral(u"/d\u00f6/before"), QStringLiteral(u"/d\u00f6/") + name,
                          QStringLiteral(u"/d\u00f6/after")}));
}

void tst_FileList::manyFilesAreSeveralBlocks()
{
    constexpr int count = 20'000;
    FileList list;
    for (int i = 0; i < count; ++i) {
        if (i % 1000 == 0) {
            list.enterDirectory(QStringLiteral("/%1/").arg(i));
        }
        list.append(QStringLiteral("file %1").arg(i), i);
    }
    int i = 0;
    for (const FoundFile &file : list) {
        QCOMPARE(file.path, QStringLiteral("/%1/file %2").arg(i - i % 1000).arg(i));
        QCOMPARE(file.size, qint64(i));
        ++i;
    }
    QCOMPARE(i, count);
    QCOMPARE(list.directories().size(), count / 1000);
}

void tst_FileList::aCopyIsAddedToAlone()
{
    FileList list;
    list.enterDirectory(QStringLiteral("/d/"));
    list.append(QStringLiteral("a"), 1);
    FileList copy = list;
    copy.append(QStringLiteral("b"), 2);
    list.append(QStringLiteral("c"), 3);
    QCOMPARE(linesOf(copy), (QStringList{QStringLiteral("/d/a 1"), QStringLiteral("/d/b 2")}));
    QCOMPARE(linesOf(list), (QStringList{QStringLiteral("/d/a 1"), QStringLiteral("/d/c 3")}));
}

void tst_FileList::listsCanBeJoined()
{
    FileList list;
    list.enterDirectory(QStringLiteral("/d/"));
    list.append(QStringLiteral("a"), 1);
    FileList other;
    other += list; // to an empty one
    other.enterDirectory(QStringLiteral("/e/"));
    other.append(QStringLiteral("b"), 2);
    list += other;
    list += FileList();
    list.append(QStringLiteral("c"), 3); // still of its own directory
    QCOMPARE(linesOf(list),
             (QStringList{QStringLiteral("/d/a 1"), QStringLiteral("/d/a 1"),
                          QStringLiteral("/e/b 2"), QStringLiteral("/d/c 3")}));
}

QTEST_APPLESS_MAIN(tst_FileList)

#include "tst_FileList.moc"
