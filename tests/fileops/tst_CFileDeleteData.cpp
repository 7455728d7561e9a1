// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileDeleteData.h"

#include <QTest>

using Tavro::Shared::CFileDeleteData;
using Tavro::Shared::CFileEntry;

class tst_CFileDeleteData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void copyInAnotherListKeepsItsOwnLists();
};

void tst_CFileDeleteData::startsEmpty()
{
    const CFileDeleteData data;
    QVERIFY(data.directories.isEmpty());
    QVERIFY(data.files.isEmpty());
    QVERIFY(data.path.isEmpty());
    QCOMPARE(data.size, Q_INT64_C(0));
}

void tst_CFileDeleteData::copyInAnotherListKeepsItsOwnLists()
{
    QList<CFileDeleteData> jobs = {CFileDeleteData()};
    jobs.first().path = QStringLiteral("/data/");
    jobs.first().directories.append(QStringLiteral("a"));
    jobs.first().files.append(CFileEntry(QStringLiteral("/data/f"), 1));

    const QList<CFileDeleteData> copy = jobs;
    jobs.first().path = QStringLiteral("/other/");
    jobs.first().directories.append(QStringLiteral("b"));
    jobs.first().files.first().setSize(2);

    QCOMPARE(copy.first().path, QStringLiteral("/data/"));
    QCOMPARE(copy.first().directories, QStringList(QStringLiteral("a")));
    QCOMPARE(copy.first().files.first().size(), Q_INT64_C(1));
}

QTEST_APPLESS_MAIN(tst_CFileDeleteData)

#include "tst_CFileDeleteData.moc"
