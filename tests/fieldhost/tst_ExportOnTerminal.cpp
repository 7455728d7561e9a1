// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Handshake.h"
#include "tests/fieldhost/Program.h"
#include "tests/fieldhost/TerminalProgram.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace Test;

namespace {

enum Exit { Done = 0, Aborted = 6 };

// the state of a copy held by a Handshake: "data.bin" is written, "later.txt" is still to come
QString makeSource(const QTemporaryDir &directory)
{
    QString source = directory.filePath(QStringLiteral("source"));
    makeFile(source + QStringLiteral("/data.bin"), someBytes(100'000));
    makeFile(source + QStringLiteral("/later.txt"));
    return source;
}

} // namespace

/** `ovo-fieldhost export` where somebody looks on and types. */
class tst_ExportOnTerminal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aLiveLineFollowsTheCopy();
    void theLiveLineFitsTheTerminal();
    void pHoldsTheCopyAndLetsItGoOn();
    void qAbortsAndSaysWhatWasRemoved();
    void endsBySignal_data();
    void endsBySignal();
    void aPausedCopyCanBeAborted();
    void ctrlZGivesTheTerminalBack();
    void keysTypedBeforehandAreNotMeant();
    void otherKeysDoNothing();
    void aClosedTerminalAborts();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_source;
    QString m_destination;
};

void tst_ExportOnTerminal::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_source = makeSource(*m_folder);
    m_destination = m_folder->filePath(QStringLiteral("destination"));
}

void tst_ExportOnTerminal::aLiveLineFollowsTheCopy()
{
    Handshake handshake;
    TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
    QVERIFY(program.waitFor("Keys: p pauses and resumes, q aborts\r\n"));
    QVERIFY(handshake.waitUntilHeld());
    // directory, bytes and percent; nothing counts before its "sync" is over
    QVERIFY(program.waitFor("\rsource  0 B of 97.7 KiB  0 %\x1b[K"));
    handshake.letGo();
    // the line has gone before the result is printed
    QVERIFY(program.waitFor("\r\x1b[KDone: 2 files, 97.7 KiB in "));
    QCOMPARE(program.exitCode(), int(Done));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
    const QList<QByteArray> settings = program.settings();
    QCOMPARE(settings.size(), 2);
    QCOMPARE(settings.at(1), settings.at(0));
}

void tst_ExportOnTerminal::theLiveLineFitsTheTerminal()
{
    const QString wide = m_folder->filePath(QString::fromUtf8("下水道管渠の調査"));
    QVERIFY(QDir().rename(m_source, wide));
    Handshake handshake;
    TerminalProgram program({QStringLiteral("export"), wide, m_destination}, 35);
    QVERIFY(handshake.waitUntilHeld());
    // 5 letters of 2 columns, then the figures; the last column stays free
    QVERIFY(program.waitFor(QByteArray("\r下水道管渠…  0 B of 97.7 KiB  0 %\x1b[K")));
    handshake.letGo();
    QCOMPARE(program.exitCode(), int(Done));
}

void tst_ExportOnTerminal::pHoldsTheCopyAndLetsItGoOn()
{
    Handshake handshake;
    TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    program.type("p");
    QVERIFY(program.waitFor("paused, p resumes"));
    handshake.letGo();
    // the file that was on its way is whole, and no other is begun
    QVERIFY(program.waitFor("97.7 KiB of 97.7 KiB  100 %  paused, p resumes"));
    QVERIFY(program.waitFor("paused, p resumes"));
    QVERIFY(!QFile::exists(m_destination + QStringLiteral("/source/later.txt")));
    program.type("p");
    QVERIFY(program.waitFor("Done: 2 files"));
    QCOMPARE(program.exitCode(), int(Done));
    QCOMPARE(treeOf(m_destination + QStringLiteral("/source")), treeOf(m_source));
}

void tst_ExportOnTerminal::qAbortsAndSaysWhatWasRemoved()
{
    Handshake handshake;
    TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    program.type("q");
    QVERIFY(program.waitFor("Aborting, once the data on its way is written"));
    handshake.letGo();
    QVERIFY(program.waitFor("\r\x1b[KAborted. Removed: \"" + QFile::encodeName(m_destination)
                            + "/source\"\r\n"));
    QCOMPARE(program.exitCode(), int(Aborted));
    QVERIFY(!QFile::exists(m_destination));
    const QList<QByteArray> settings = program.settings();
    QCOMPARE(settings.size(), 2);
    QCOMPARE(settings.at(1), settings.at(0));
}

void tst_ExportOnTerminal::endsBySignal_data()
{
    QTest::addColumn<QByteArray>("key");

    QTest::newRow("Ctrl-C") << QByteArray("\x03");
    QTest::newRow("Ctrl-backslash") << QByteArray("\x1c");
}

void tst_ExportOnTerminal::endsBySignal()
{
    QFETCH(QByteArray, key);

    Handshake handshake;
    TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    program.type(key);
    QVERIFY(program.waitFor("Aborting"));
    handshake.letGo();
    QVERIFY(program.waitFor("Aborted. Removed: "));
    QCOMPARE(program.exitCode(), int(Aborted));
    QVERIFY(!QFile::exists(m_destination));
    const QList<QByteArray> settings = program.settings();
    QCOMPARE(settings.size(), 2);
    QCOMPARE(settings.at(1), settings.at(0));
}

void tst_ExportOnTerminal::aPausedCopyCanBeAborted()
{
    Handshake handshake;
    TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    program.type("p");
    QVERIFY(program.waitFor("paused"));
    handshake.letGo();
    QVERIFY(program.waitFor("100 %  paused"));
    program.type("q");
    QVERIFY(program.waitFor("Aborted. Removed: "));
    QCOMPARE(program.exitCode(), int(Aborted));
    QVERIFY(!QFile::exists(m_destination));
}

void tst_ExportOnTerminal::ctrlZGivesTheTerminalBack()
{
    Handshake handshake;
    TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    program.type("\x1a");
    QVERIFY(program.waitFor("suspended"));
    program.type("\n");
    // alone with the terminal again, as the answer to a key shows
    QVERIFY(program.waitFor("0 B of"));
    program.type("p");
    QVERIFY(program.waitFor("paused"));
    program.type("p");
    handshake.letGo();
    QVERIFY(program.waitFor("Done: 2 files"));
    QCOMPARE(program.exitCode(), int(Done));
    const QList<QByteArray> settings = program.settings();
    QCOMPARE(settings.size(), 3);
    QCOMPARE(settings.at(1), settings.at(0));
    QCOMPARE(settings.at(2), settings.at(0));
}

void tst_ExportOnTerminal::keysTypedBeforehandAreNotMeant()
{
    TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
    program.type("q");
    QVERIFY(program.waitFor("Done: 2 files"));
    QCOMPARE(program.exitCode(), int(Done));
}

void tst_ExportOnTerminal::otherKeysDoNothing()
{
    Handshake handshake;
    TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    // the p behind them proves that they have been read
    program.type("xQ\xc3\xa4\x1b[Ap");
    QVERIFY(program.waitFor("paused"));
    program.type("p");
    handshake.letGo();
    QVERIFY(program.waitFor("Done: 2 files"));
    QCOMPARE(program.exitCode(), int(Done));
}

void tst_ExportOnTerminal::aClosedTerminalAborts()
{
    Handshake handshake;
    {
        TerminalProgram program({QStringLiteral("export"), m_source, m_destination});
        QVERIFY(handshake.waitUntilHeld());
        program.type("p");
        QVERIFY(program.waitFor("paused"));
        handshake.letGo();
        QVERIFY(program.waitFor("100 %  paused"));
    }
    QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(m_destination), 30000);
}

QTEST_GUILESS_MAIN(tst_ExportOnTerminal)

#include "tst_ExportOnTerminal.moc"
