// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/CopyCheck.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <unistd.h>

using namespace Tavro::FieldHost;
using namespace Test;

/** Whether a copy is whole, and if not, why. */
class tst_CopyCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aWholeCopyIsCounted();
    void aMissingFileOfNoBytesIsNoticed();
    void aShortFileIsNoticedAndRemoved();
    void theFirstLostFileIsNamed();
    void aVanishedSourceIsTheCause();
    void aCopyWhoseSourceIsGoneIsKept();
    void aSourceThatGrewIsTheCause();
    void aLostDirectoryIsCreated();
    void aDirectoryThatCannotBeCreatedIsNamed();
    void twoNamesOfOneFileAreNoticed();
    void twoDirectoriesAndCompositionsOfOneNameAreNoticed();
    void namesThatDifferInCaseOnlyAreTwoFilesHere();

private:
    ExportJob job() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_source; // ends in "/"
    QString m_copy;
};

void tst_CopyCheck::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_source = m_folder->filePath(QStringLiteral("source/"));
    m_copy = m_folder->filePath(QStringLiteral("copy"));
    makeFile(m_source + QStringLiteral("a"), "12345");
    makeFile(m_source + QStringLiteral("b"));
    makeFile(m_source + QStringLiteral("sub/c"), "123");
    makeFile(m_copy + QStringLiteral("/a"), "12345");
    makeFile(m_copy + QStringLiteral("/b"));
    makeFile(m_copy + QStringLiteral("/sub/c"), "123");
}

ExportJob tst_CopyCheck::job() const
{
    ExportJob job;
    job.source = m_source;
    job.isDirectory = true;
    job.landing = m_copy;
    job.survey = surveyDirectory(m_source, [] { return false; });
    return job;
}

void tst_CopyCheck::aWholeCopyIsCounted()
{
    const CopyCheck check = checkCopy(job(), m_copy);
    QVERIFY(!check.fault);
    QCOMPARE(check.wholeFiles, qint64(3));
    QCOMPARE(check.wholeBytes, qint64(8));
}

void tst_CopyCheck::aMissingFileOfNoBytesIsNoticed()
{
    QVERIFY(QFile::remove(m_copy + QStringLiteral("/b")));
    const CopyCheck check = checkCopy(job(), m_copy);
    QVERIFY(check.fault);
    QCOMPARE(check.fault->source, m_source + QStringLiteral("b"));
    QCOMPARE(check.fault->cause, QStringLiteral("it is not in the destination"));
    QCOMPARE(check.wholeFiles, qint64(2));
}

void tst_CopyCheck::aShortFileIsNoticedAndRemoved()
{
    makeFile(m_copy + QStringLiteral("/sub/c"), "12");
    const CopyCheck check = checkCopy(job(), m_copy);
    QVERIFY(check.fault);
    QCOMPARE(check.fault->source, m_source + QStringLiteral("sub/c"));
    QVERIFY(!QFile::exists(m_copy + QStringLiteral("/sub/c")));
    QCOMPARE(check.wholeBytes, qint64(5));
}

void tst_CopyCheck::theFirstLostFileIsNamed()
{
    QVERIFY(QFile::remove(m_copy + QStringLiteral("/sub/c")));
    QVERIFY(QFile::remove(m_copy + QStringLiteral("/b")));
    QCOMPARE(checkCopy(job(), m_copy).fault->source, m_source + QStringLiteral("b"));
}

void tst_CopyCheck::aVanishedSourceIsTheCause()
{
    const ExportJob planned = job();
    QVERIFY(QFile::remove(m_source + QStringLiteral("b")));
    QVERIFY(QFile::remove(m_copy + QStringLiteral("/b")));
    const CopyCheck check = checkCopy(planned, m_copy);
    QVERIFY(check.fault);
    QCOMPARE(check.fault->cause, QStringLiteral("it is no longer in the source"));
}

void tst_CopyCheck::aCopyWhoseSourceIsGoneIsKept()
{
    const ExportJob planned = job();
    QVERIFY(QFile::remove(m_source + QStringLiteral("a")));
    const CopyCheck check = checkCopy(planned, m_copy);
    QVERIFY(!check.fault);
    QCOMPARE(check.wholeFiles, qint64(3));
    QCOMPARE(contentOf(m_copy + QStringLiteral("/a")), QByteArray("12345"));
}

void tst_CopyCheck::aSourceThatGrewIsTheCause()
{
    const ExportJob planned = job();
    makeFile(m_source + QStringLiteral("a"), "1234567");
    const CopyCheck check = checkCopy(planned, m_copy);
    QVERIFY(check.fault);
    QCOMPARE(check.fault->cause,
             QStringLiteral("reading it gave 5 B where its size says 7 B; it may have changed "
                            "while it was copied"));
    QVERIFY(!QFile::exists(m_copy + QStringLiteral("/a")));
}

void tst_CopyCheck::aLostDirectoryIsCreated()
{
    QVERIFY(QDir().mkpath(m_source + QStringLiteral("empty/inside")));
    QVERIFY(!checkCopy(job(), m_copy).fault);
    QVERIFY(QDir(m_copy + QStringLiteral("/empty/inside")).exists());
}

void tst_CopyCheck::aDirectoryThatCannotBeCreatedIsNamed()
{
    QVERIFY(QDir().mkpath(m_source + QStringLiteral("empty")));
    makeFile(m_copy + QStringLiteral("/empty"));
    const CopyCheck check = checkCopy(job(), m_copy);
    QVERIFY(check.fault);
    QCOMPARE(check.fault->source, m_source + QStringLiteral("empty"));
    QCOMPARE(check.fault->cause,
             QStringLiteral("the directory cannot be created in the destination (File exists)"));
}

void tst_CopyCheck::twoNamesOfOneFileAreNoticed()
{
    // what a file system makes of them that does not tell the cases of letters apart
    makeFile(m_source + QStringLiteral("A"), "54321");
    QVERIFY(::link(QFile::encodeName(m_copy + QStringLiteral("/a")).constData(),
                   QFile::encodeName(m_copy + QStringLiteral("/A")).constData())
            == 0);
    const CopyCheck check = checkCopy(job(), m_copy);
    QVERIFY(check.fault);
    QVERIFY(check.fault->cause.startsWith(QLatin1String("its name and that of \"") + m_source));
    QVERIFY(check.fault->cause.contains(
        QLatin1String("are one and the same on the destination's file system")));
}

void tst_CopyCheck::twoDirectoriesAndCompositionsOfOneNameAreNoticed()
{
    const QString composed = QStringLiteral(u"/D/\u00e9");
    const QString decomposed = QStringLiteral(u"/d/e\u0301");
    for (const QString &name : {composed, decomposed}) {
        makeFile(m_source + name, "123");
    }
    makeFile(m_copy + composed, "123");
    QVERIFY(QDir().mkpath(m_copy + QStringLiteral("/d")));
    QVERIFY(::link(QFile::encodeName(m_copy + composed).constData(),
                   QFile::encodeName(m_copy + decomposed).constData())
            == 0);
    const CopyCheck check = checkCopy(job(), m_copy);
    QVERIFY(check.fault);
    QVERIFY(check.fault->cause.contains(
        QLatin1String("are one and the same on the destination's file system")));
    QCOMPARE(check.wholeFiles, qint64(4));
}

void tst_CopyCheck::namesThatDifferInCaseOnlyAreTwoFilesHere()
{
    makeFile(m_source + QStringLiteral("A"), "54321");
    makeFile(m_copy + QStringLiteral("/A"), "54321");
    const CopyCheck check = checkCopy(job(), m_copy);
    QVERIFY(!check.fault);
    QCOMPARE(check.wholeFiles, qint64(4));
}

QTEST_APPLESS_MAIN(tst_CopyCheck)

#include "tst_CopyCheck.moc"
