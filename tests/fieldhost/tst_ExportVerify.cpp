// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Handshake.h"
#include "tests/fieldhost/Program.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1 };

} // namespace

/** `ovo-fieldhost export --verify`. */
class tst_ExportVerify : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void wholeCopyIsVerified_data();
    void wholeCopyIsVerified();
    void copyThatDiffersFailsAndGoes();
    void copyThatReplacedAFileIsComparedInItsPlace();
    void withoutTheOptionNothingIsReadBack();

private:
    static void spoil(const QString &file);
    void spoilTheCopy() { spoil(m_destination + QStringLiteral("/source/data.bin")); }

    std::unique_ptr<TemporaryFolder> m_folder;
    QString m_source;
    QString m_destination;
};

void tst_ExportVerify::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    m_source = m_folder->filePath(QStringLiteral("source"));
    m_destination = m_folder->filePath(QStringLiteral("destination"));
    makeFile(m_source + QStringLiteral("/data.bin"), someBytes(100'000));
    makeFile(m_source + QStringLiteral("/later.txt"));
}

// as bad memory of a stick would: the size stays
void tst_ExportVerify::spoil(const QString &file)
{
    QFile copy(file);
    QVERIFY(copy.open(QIODevice::ReadWrite));
    QVERIFY(copy.seek(50'000));
    char byte = 0;
    QVERIFY(copy.getChar(&byte));
    QVERIFY(copy.seek(50'000));
    QVERIFY(copy.putChar(static_cast<char>(~byte)));
}

void tst_ExportVerify::wholeCopyIsVerified_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("directory") << QStringLiteral("source");
    QTest::newRow("contents of a directory") << QStringLiteral("source/");
    QTest::newRow("single file") << QStringLiteral("source/data.bin");
}

void tst_ExportVerify::wholeCopyIsVerified()
{
    QFETCH(QString, name);
    const Outcome outcome =
        Program::run({QStringLiteral("export"), QStringLiteral("--verify"),
                      m_folder->path() + QLatin1Char('/') + name, m_destination});
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(
        outcome.output.contains(QLatin1String("\nVerified: every copy equals its source\nDone: ")));
    QCOMPARE(outcome.errors, QString());
}

void tst_ExportVerify::copyThatDiffersFailsAndGoes()
{
    Handshake handshake;
    Program program;
    program.begin({QStringLiteral("export"), QStringLiteral("--verify"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    spoilTheCopy();
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(!outcome.output.contains(QLatin1String("Verified")));
    QVERIFY(!outcome.output.contains(QLatin1String("Done")));
    QCOMPARE(outcome.errors,
             QStringLiteral("Failed: The copy of \"%1/data.bin\" is not good: its copy differs "
                            "from it.\nNothing was left in the destination.\n")
                 .arg(m_source));
    QVERIFY(!QFile::exists(m_destination));
}

void tst_ExportVerify::copyThatReplacedAFileIsComparedInItsPlace()
{
    makeFile(m_destination + QStringLiteral("/source/data.bin"), "old");
    Handshake handshake;
    Program program;
    program.begin({QStringLiteral("export"), QStringLiteral("--verify"),
                   QStringLiteral("--into-existing"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    // the copy is elsewhere still, but by the time it is compared it is here
    QVERIFY(program.waitForOutput("once all of the copy is whole"));
    const QString directory = m_destination + QStringLiteral("/source/");
    const QString staging =
        QDir(directory).entryList(QDir::AllDirs | QDir::Hidden | QDir::NoDotAndDotDot).value(0);
    spoil(directory + staging + QStringLiteral("/folder/source/data.bin"));
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Failed));
    QCOMPARE(outcome.errors,
             QStringLiteral("Failed: The copy of \"%1/data.bin\" is not good: its copy differs "
                            "from it.\nThe copies that replaced files of the same name stay where "
                            "they are. Export again.\n")
                 .arg(m_source));
    QCOMPARE(QFile(directory + QStringLiteral("data.bin")).size(), qint64(100'000));
    QCOMPARE(QDir(directory).entryList(QDir::AllDirs | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
}

void tst_ExportVerify::withoutTheOptionNothingIsReadBack()
{
    Handshake handshake;
    Program program;
    program.begin({QStringLiteral("export"), m_source, m_destination});
    QVERIFY(handshake.waitUntilHeld());
    spoilTheCopy();
    handshake.letGo();
    const Outcome outcome = program.end();
    QCOMPARE(outcome.exitCode, int(Done));
    QVERIFY(!outcome.output.contains(QLatin1String("Verified")));
}

QTEST_GUILESS_MAIN(tst_ExportVerify)

#include "tst_ExportVerify.moc"
