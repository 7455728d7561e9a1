// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/SourceSurvey.h"
#include "shared/fileops/CFileCopyController.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using namespace Tavro::FieldHost;
using namespace Test;

namespace {

bool never()
{
    return false;
}

void makeLink(const QString &target, const QString &path)
{
    if (!QFile::link(target, path)) {
        qFatal("cannot link %s", qPrintable(path));
    }
}

void makePipe(const QString &path)
{
    if (::mkfifo(QFile::encodeName(path).constData(), 0600) != 0) {
        qFatal("cannot create %s", qPrintable(path));
    }
}

QStringList paths(const SourceSurvey &survey)
{
    QStringList paths;
    for (const SurveyedFile &file : survey.files) {
        paths.append(file.path);
    }
    return paths;
}

} // namespace

/** What a look through a source says of the copy to come. */
class tst_SourceSurvey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void directoriesAndFilesComeInTheOrderOfTheCopy();
    void whatTheControllerCopiesIsWhatWasAnnounced();
    void whatIsLeftOutIsCounted();
    void linksAreFollowed();
    void aLinkToAPipeStandsInTheWay();
    void aLoopOfLinksStandsInTheWay();
    void theSameDirectoryTwiceIsNoLoop();
    void namesThatAreNotUtf8StandInTheWay();
    void thePathOfTheSourceInsideItStandsInTheWay();
    void aVanishedRootStandsInTheWay();
    void theWalkCanBeEnded();
    void aFileIsASourceToo();
    void aPipeIsNoSource();

private:
    std::unique_ptr<Test::TemporaryFolder> m_folder;
    QString m_root; // ends in "/"
};

void tst_SourceSurvey::init()
{
    m_folder = std::make_unique<Test::TemporaryFolder>();
    m_root = m_folder->filePath(QStringLiteral("source/"));
    QVERIFY(QDir().mkpath(m_root));
}

void tst_SourceSurvey::directoriesAndFilesComeInTheOrderOfTheCopy()
{
    makeFile(m_root + QStringLiteral("b"), "12345");
    makeFile(m_root + QStringLiteral("A"), "1");
    makeFile(m_root + QStringLiteral("sub/deep/z"), "12");
    makeFile(m_root + QStringLiteral("sub/c"));
    makeFile(m_root + QStringLiteral("Other/d"));
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QCOMPARE(
        survey.directories,
        (QStringList{QStringLiteral("Other"), QStringLiteral("sub"), QStringLiteral("sub/deep")}));
    QCOMPARE(paths(survey),
             (QStringList{QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("Other/d"),
                          QStringLiteral("sub/c"), QStringLiteral("sub/deep/z")}));
    QCOMPARE(survey.files.at(1).size, qint64(5));
    QCOMPARE(survey.bytes, qint64(8));
    QVERIFY(survey.problems.isEmpty());
}

void tst_SourceSurvey::whatTheControllerCopiesIsWhatWasAnnounced()
{
    makeFile(m_root + QStringLiteral("plain.txt"), "a");
    makeFile(m_root + QStringLiteral(".hidden"), "a");
    makeFile(m_root + QStringLiteral(".hidden directory/inside"), "a");
    makeFile(m_root + QStringLiteral(" blanks \t/ at both ends "), "a");
    makeFile(m_root + QString::fromUtf8("труба/管渠/e\u0301té 🚰"), "a");
    makeFile(m_root + QStringLiteral("line\nfeed\x1b[2J"), "a");
    QVERIFY(QDir().mkpath(m_root + QStringLiteral("empty/inside")));
    makeLink(QStringLiteral("plain.txt"), m_root + QStringLiteral("link"));
    makeLink(QStringLiteral("empty"), m_root + QStringLiteral("directory link"));
    makeLink(QStringLiteral("nowhere"), m_root + QStringLiteral("broken"));
    makePipe(m_root + QStringLiteral("pipe"));
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QVERIFY(survey.problems.isEmpty());

    const QString destination = m_folder->filePath(QStringLiteral("destination/"));
    Tavro::Shared::CFileCopyController controller;
    QSignalSpy completed(&controller, &Tavro::Shared::CFileCopyController::operationCompleted);
    controller.copyDirectory(m_root, destination);
    QVERIFY(completed.wait(60000));
    QCOMPARE(controller.processedBytes(), survey.bytes);

    QStringList announced = paths(survey);
    for (const QString &directory : survey.directories) {
        announced.append(directory + QLatin1Char('/'));
    }
    announced.sort();
    QCOMPARE(announced, QStringList(treeOf(destination).keys()));
}

void tst_SourceSurvey::whatIsLeftOutIsCounted()
{
    makeFile(m_root + QStringLiteral(".one"));
    makeFile(m_root + QStringLiteral(".two/three"));
    makeFile(m_root + QStringLiteral("sub/.four"));
    makeLink(QStringLiteral("nowhere"), m_root + QStringLiteral("broken"));
    makeLink(QStringLiteral("itself"), m_root + QStringLiteral("itself"));
    makePipe(m_root + QStringLiteral("pipe"));
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QCOMPARE(survey.hiddenEntries, 3);
    QCOMPARE(survey.brokenLinks, 2);
    QCOMPARE(survey.specialEntries, 1);
    QCOMPARE(survey.files.size(), 0);
    QVERIFY(survey.problems.isEmpty());
}

void tst_SourceSurvey::linksAreFollowed()
{
    makeFile(m_folder->filePath(QStringLiteral("outside/file")), "1234");
    makeLink(m_folder->filePath(QStringLiteral("outside")), m_root + QStringLiteral("directory"));
    makeLink(m_folder->filePath(QStringLiteral("outside/file")), m_root + QStringLiteral("link"));
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QCOMPARE(survey.directories, QStringList{QStringLiteral("directory")});
    QCOMPARE(paths(survey),
             (QStringList{QStringLiteral("link"), QStringLiteral("directory/file")}));
    QCOMPARE(survey.bytes, qint64(8));
}

void tst_SourceSurvey::aLinkToAPipeStandsInTheWay()
{
    makePipe(m_folder->filePath(QStringLiteral("pipe")));
    makeLink(m_folder->filePath(QStringLiteral("pipe")), m_root + QStringLiteral("link"));
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QCOMPARE(survey.problems.size(), 1);
    QCOMPARE(survey.problems.at(0).path, QStringLiteral("\"%1link\"").arg(m_root));
    QCOMPARE(survey.problems.at(0).cause,
             QStringLiteral("the link leads to a pipe, a socket or a device"));
}

void tst_SourceSurvey::aLoopOfLinksStandsInTheWay()
{
    QVERIFY(QDir().mkpath(m_root + QStringLiteral("a/b")));
    makeLink(QStringLiteral("../.."), m_root + QStringLiteral("a/b/loop"));
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QCOMPARE(survey.problems.size(), 1);
    QCOMPARE(survey.problems.at(0).path, QStringLiteral("\"%1a/b/loop\"").arg(m_root));
    QVERIFY(survey.problems.at(0).cause.startsWith(QLatin1String("the link leads back to")));
}

void tst_SourceSurvey::theSameDirectoryTwiceIsNoLoop()
{
    makeFile(m_root + QStringLiteral("a/file"));
    makeLink(QStringLiteral("a"), m_root + QStringLiteral("b"));
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QVERIFY(survey.problems.isEmpty());
    QCOMPARE(paths(survey), (QStringList{QStringLiteral("a/file"), QStringLiteral("b/file")}));
}

void tst_SourceSurvey::namesThatAreNotUtf8StandInTheWay()
{
    const QByteArray root = QFile::encodeName(m_root);
    QVERIFY(::mkdir((root + "f\xff").constData(), 0700) == 0);
    QVERIFY(::mknod((root + "g\xfe").constData(), S_IFREG | 0600, 0) == 0);
    QVERIFY(::mkfifo((root + "left out\xfe").constData(), 0600) == 0);
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QStringList names;
    for (const SourceProblem &problem : survey.problems) {
        names.append(problem.path);
        QVERIFY(problem.cause.startsWith(QLatin1String("the name is not valid UTF-8")));
    }
    names.sort();
    QCOMPARE(names,
             (QStringList{QStringLiteral("\"%1f\\xff\"").arg(m_root),
                          QStringLiteral("\"%1g\\xfe\"").arg(m_root)}));
    QCOMPARE(survey.specialEntries, 1);
}

void tst_SourceSurvey::thePathOfTheSourceInsideItStandsInTheWay()
{
    const QString inside = QStringLiteral("backup") + m_root + QStringLiteral("file");
    makeFile(m_root + inside);
    const SourceSurvey survey = surveyDirectory(m_root, never);
    QCOMPARE(survey.problems.size(), 1);
    QCOMPARE(survey.problems.at(0).path, QStringLiteral("\"%1\"").arg(m_root + inside));
    QVERIFY(survey.problems.at(0).cause.startsWith(
        QLatin1String("its path holds the path of the source a second time")));
}

void tst_SourceSurvey::aVanishedRootStandsInTheWay()
{
    const SourceSurvey survey = surveyDirectory(m_folder->filePath(QStringLiteral("gone/")), never);
    QCOMPARE(survey.problems.size(), 1);
    QCOMPARE(survey.problems.at(0).cause,
             QStringLiteral("the directory cannot be read (No such file or directory)"));
}

void tst_SourceSurvey::theWalkCanBeEnded()
{
    QVERIFY(QDir().mkpath(m_root + QStringLiteral("a/b/c")));
    int asked = 0;
    const SourceSurvey survey = surveyDirectory(m_root, [&asked] { return ++asked == 3; });
    QVERIFY(survey.canceled);
    QCOMPARE(asked, 3);
    QVERIFY(!surveyDirectory(m_root, never).canceled);
}

void tst_SourceSurvey::aFileIsASourceToo()
{
    makeFile(m_root + QStringLiteral("file"), "123");
    const SourceSurvey survey = surveyFile(m_root + QStringLiteral("file"));
    QCOMPARE(survey.files.size(), 1);
    QCOMPARE(survey.files.at(0).path, QString());
    QCOMPARE(survey.files.at(0).size, qint64(3));
    QCOMPARE(survey.bytes, qint64(3));
    QVERIFY(survey.problems.isEmpty());
}

void tst_SourceSurvey::aPipeIsNoSource()
{
    makePipe(m_root + QStringLiteral("pipe"));
    const SourceSurvey survey = surveyFile(m_root + QStringLiteral("pipe"));
    QCOMPARE(survey.problems.size(), 1);
    QCOMPARE(survey.problems.at(0).cause, QStringLiteral("neither a directory nor a regular file"));
}

QTEST_GUILESS_MAIN(tst_SourceSurvey)

#include "tst_SourceSurvey.moc"
