// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/CFileCopyData.h"

#include <QTest>

using Tavro::Shared::CFileCopyData;
using Tavro::Shared::CFileEntry;

class tst_CFileCopyData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void copyInAnotherListKeepsItsOwnLists();
};

void tst_CFileCopyData::startsEmpty()
{
    const CFileCopyData data;
    QVERIFY(data.directories.isEmpty());
    QVERIFY(data.files.isEmpty());
    QVERIFY(data.sourcePath.isEmpty());
    QCOMPARE(data.size, Q_INT64_C(0));
}

void tst_CFileCopyData::copyInAnotherListKeepsItsOwnLists()
{
    QList<CFileCopyData> jobs = {CFileCopyData()};
    jobs.first().sourcePath = QStringLiteral("/data/");
    jobs.first().directories.append(QStringLiteral("a"));
    jobs.first().files.append(CFileEntry(QStringLiteral("/data/f"), 1));

    const QList<CFileCopyData> copy = jobs;
    jobs.first().sourcePath = QStringLiteral("/other/");
    jobs.first().directories.append(QStringLiteral("b"));
    jobs.first().files.first().setSize(2);

    QCOMPARE(copy.first().sourcePath, QStringLiteral("/data/"));
    QCOMPARE(copy.first().directories, QStringList(QStringLiteral("a")));
    QCOMPARE(copy.first().files.first().size(), Q_INT64_C(1));
}

QTEST_APPLESS_MAIN(tst_CFileCopyData)

#include "tst_CFileCopyData.moc"
