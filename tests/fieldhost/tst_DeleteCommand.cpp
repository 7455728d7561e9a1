// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"
#include "tests/fieldhost/TerminalProgram.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2, SourceRefused = 3, Aborted = 6 };

const auto s_delete = QStringLiteral("delete");
const auto s_yes = QStringLiteral("--yes");

} // namespace

/** `ovo-fieldhost delete`. */
class tst_DeleteCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void directoriesFilesAndLinksAreDeleted();
    void withoutATerminalNothingGoesUnasked();
    void oneMissingPathKeepsAll();
    void currentDirectoryIsRefused_data();
    void currentDirectoryIsRefused();
    void linkWithASlashGoesAlone();
    void whatIsStillThereIsNamed();
    void theCauseIsNamed();
    void withoutThreadsNothingIsWaitedFor();

    void terminalAsksAndYDeletes();
    void anyOtherKeyDeletesNothing_data();
    void anyOtherKeyDeletesNothing();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    bool exists(const char *name) const { return QFileInfo::exists(path(name)); }

    QScopedPointer<TemporaryFolder> m_folder;
};

void tst_DeleteCommand::init()
{
    m_folder.reset(new TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_DeleteCommand::cleanup()
{
    m_folder.reset();
}

void tst_DeleteCommand::directoriesFilesAndLinksAreDeleted()
{
    makeFile(path("tree/sub/a"), "1");
    makeFile(path("tree/.b"), "1");
    makeFile(path("file"), "1");
    makeFile(path("outside/c"), "1");
    QVERIFY(QFile::link(path("outside"), path("link")));
    const Outcome outcome =
        Program::run({s_delete, s_yes, path("tree"), path("file"), path("link"), path("tree")});
    QCOMPARE(outcome.exitCode, int(Done));
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.output,
             QStringLiteral("Deleted: \"%1\"\nDeleted: \"%2\"\nDeleted: \"%3\"\n")
                 .arg(path("tree"), path("file"), path("link")));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("outside")});
    QVERIFY(exists("outside/c"));
}

void tst_DeleteCommand::withoutATerminalNothingGoesUnasked()
{
    makeFile(path("tree/a"), "1");
    const Outcome outcome = Program::run({s_delete, path("tree")});
    QCOMPARE(outcome.exitCode, int(Usage));
    QCOMPARE(outcome.errors,
             QStringLiteral("There is no terminal to ask on, and --yes is missing: nothing was "
                            "deleted.\n"));
    QVERIFY(exists("tree/a"));
}

void tst_DeleteCommand::oneMissingPathKeepsAll()
{
    makeFile(path("tree/a"), "1");
    const Outcome outcome = Program::run({s_delete, s_yes, path("tree"), path("missing")});
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QCOMPARE(outcome.errors, QStringLiteral("There is no \"%1\".\n").arg(path("missing")));
    QVERIFY(exists("tree/a"));
}

void tst_DeleteCommand::currentDirectoryIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    for (const char *typed : {".", "./", "..", "/", "../here"}) {
        QTest::newRow(typed) << QString::fromUtf8(typed);
    }
}

void tst_DeleteCommand::currentDirectoryIsRefused()
{
    QFETCH(QString, typed);
    makeFile(path("here/a"), "1");
    Program program;
    program.setWorkingDirectory(path("here"));
    program.begin({s_delete, typed}); // without --yes, should it not be refused
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(SourceRefused));
    QVERIFY(outcome.errors.contains(QLatin1String(" is, or holds, the current directory.\n")));
    QVERIFY(exists("here/a"));
}

void tst_DeleteCommand::linkWithASlashGoesAlone()
{
    makeFile(path("outside/a"), "1");
    QVERIFY(QFile::link(path("outside"), path("link")));
    const Outcome outcome = Program::run({s_delete, s_yes, path("link/")});
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(!exists("link"));
    QVERIFY(exists("outside/a"));
}

void tst_DeleteCommand::whatIsStillThereIsNamed()
{
    makeFile(path("one/a"), "1");
    makeFile(path("two/b"), "1");
    // no text names it, so that it stays
    const int file =
        ::open((path("one").toUtf8() + "/\xff").constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    QVERIFY(file >= 0);
    ::close(file);
    const Outcome outcome = Program::run({s_delete, s_yes, path("one"), path("two")});
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output, QStringLiteral("Deleted: \"%1\"\n").arg(path("two")));
    QCOMPARE(outcome.errors,
             QStringLiteral("Failed: \"%1\", or part of it, is still there.\n"
                            "\"%1\" cannot be deleted: Invalid or incomplete multibyte or wide "
                            "character.\n"
                            "The directory \"%1\" cannot be read as a whole.\n"
                            "Failed: 1 of 2 not deleted.\n")
                 .arg(path("one")));
    QVERIFY(!exists("two"));
}

void tst_DeleteCommand::theCauseIsNamed()
{
    makeFile(path("tree/kept/a"), "1");
    makeFile(path("closed/file"), "1");
    makeFile(path("unreadable/sub/b"), "1");
    const QMap<QString, QFile::Permissions> rights = {
        {path("tree/kept"), QFile::ReadOwner | QFile::ExeOwner},
        {path("closed"), QFile::ReadOwner | QFile::ExeOwner},
        {path("unreadable/sub"), {}},
    };
    for (auto it = rights.begin(); it != rights.end(); ++it) {
        QVERIFY(QFile::setPermissions(it.key(), it.value()));
    }
    Program program;
    program.dropRights();
    program.begin({s_delete, s_yes, path("tree"), path("closed/file"), path("unreadable")});
    const Outcome outcome = program.end();
    for (auto it = rights.begin(); it != rights.end(); ++it) {
        QVERIFY(QFile::setPermissions(it.key(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    if (outcome.exitCode == Program::cannotDropRights) {
        QSKIP("root's right to write everywhere cannot be given up here");
    }
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.output, QString());
    const QString left = QStringLiteral("Failed: \"%1\", or part of it, is still there.\n");
    const QString cause = QStringLiteral("\"%1\" cannot be deleted: Permission denied.\n");
    QVERIFY2(outcome.errors.contains(left.arg(path("tree")) + cause.arg(path("tree/kept/a"))),
             qPrintable(outcome.errors));
    QVERIFY2(
        outcome.errors.contains(left.arg(path("closed/file")) + cause.arg(path("closed/file"))),
        qPrintable(outcome.errors));
    QVERIFY2(
        outcome.errors.contains(QStringLiteral("The directory \"%1\" cannot be read as a whole")
                                    .arg(path("unreadable/sub"))),
        qPrintable(outcome.errors));
    QVERIFY(outcome.errors.endsWith(QLatin1String("Failed: 3 of 3 not deleted.\n")));
}

void tst_DeleteCommand::withoutThreadsNothingIsWaitedFor()
{
    if (::geteuid() != 0) {
        QSKIP("a process namespace of its own needs the rights of root");
    }
    makeFile(path("tree/a"), "1");
    Program program;
    program.refuseClones();
    program.begin({s_delete, s_yes, path("tree")});
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.errors.contains( // Qt warns of the thread first
        QStringLiteral("\nFailed: \"%1\", or part of it, is still there.\n").arg(path("tree"))));
    QVERIFY(exists("tree/a"));
}

void tst_DeleteCommand::terminalAsksAndYDeletes()
{
    makeFile(path("tree/a"), someBytes(2048));
    TerminalProgram program({s_delete, path("tree")});
    QVERIFY(program.waitFor("(directory of 2.0 KiB)\r\n"));
    QVERIFY(program.waitFor("Delete? y deletes, any other key does not\r\n"));
    QVERIFY(exists("tree/a"));
    program.type("y");
    QVERIFY(program.waitFor("Deleted: "));
    QCOMPARE(program.exitCode(), int(Done));
    QVERIFY(!exists("tree"));
    const QList<QByteArray> settings = program.settings();
    QCOMPARE(settings.size(), 2);
    QCOMPARE(settings.at(1), settings.at(0));
}

void tst_DeleteCommand::anyOtherKeyDeletesNothing_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::newRow("n") << QByteArray("n");
    QTest::newRow("Return") << QByteArray("\r");
    QTest::newRow("q") << QByteArray("q");
    QTest::newRow("Ctrl-C") << QByteArray("\x03");
}

void tst_DeleteCommand::anyOtherKeyDeletesNothing()
{
    QFETCH(QByteArray, key);
    makeFile(path("tree/a"), "1");
    TerminalProgram program({s_delete, path("tree")});
    QVERIFY(program.waitFor("Delete? "));
    QVERIFY(program.waitFor("does not\r\n"));
    QVERIFY(program.waitUntilAsleep());
    program.type(key);
    QVERIFY(program.waitFor("Nothing was deleted.\r\n"));
    QCOMPARE(program.exitCode(), int(Aborted));
    QVERIFY(exists("tree/a"));
}

QTEST_GUILESS_MAIN(tst_DeleteCommand)

#include "tst_DeleteCommand.moc"
