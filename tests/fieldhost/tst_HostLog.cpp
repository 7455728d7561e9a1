// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/HostLog.h"
#include "shared/fileops/CFileCopyController.h"
#include "tests/support/LogRecorder.h"

#include <QScopeGuard>
#include <QTemporaryFile>
#include <QTest>

#include <thread>
#include <vector>

#include <unistd.h>

using Tavro::FieldHost::HostLog;
using Tavro::Logging::CLogger;
using Tavro::Logging::LogLevel;

/** The log of the simulated host. */
class tst_HostLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEntryIsLevelCategoryAndMessage_data();
    void anEntryIsLevelCategoryAndMessage();
    void furtherLinesAreIndented();
    void controlCharactersAreSpelledOut();
    void whatMattersLessThanTheThresholdIsLeftOut();
    void theFormerSinkComesBack();
    void standardErrorGetsWholeLinesFromAllThreads();
    void theSinkIsNeverEnteredTwice();
    void theLibraryLogsThroughTheHost();
};

void tst_HostLog::anEntryIsLevelCategoryAndMessage_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("entry");

    QTest::newRow("error") << 1 << QStringLiteral("[error] Locale: no such unit");
    QTest::newRow("warning") << 2 << QStringLiteral("[warning] Locale: no such unit");
    QTest::newRow("info") << 3 << QStringLiteral("[info] Locale: no such unit");
    QTest::newRow("debug") << 4 << QStringLiteral("[debug] Locale: no such unit");
}

void tst_HostLog::anEntryIsLevelCategoryAndMessage()
{
    QFETCH(int, level);
    QFETCH(QString, entry);

    Test::LogRecorder recorder;
    CLogger::logMessage(static_cast<LogLevel>(level), QStringLiteral("Locale"),
                        QStringLiteral("no such unit"));
    QCOMPARE(recorder.entries(), QStringList{entry});
}

void tst_HostLog::furtherLinesAreIndented()
{
    QCOMPARE(HostLog::format(LogLevel::Info, QStringLiteral("A"), QStringLiteral("b\nc")),
             QStringLiteral("[info] A: b\n    c"));
}

void tst_HostLog::controlCharactersAreSpelledOut()
{
    QCOMPARE(
        HostLog::format(LogLevel::Info, QStringLiteral("A"), QStringLiteral("b\x1b[2J\u0000c")),
        QStringLiteral("[info] A: b\\x1b[2J\\x00c"));
}

void tst_HostLog::whatMattersLessThanTheThresholdIsLeftOut()
{
    QVERIFY(HostLog::threshold() == LogLevel::Info);
    Test::LogRecorder recorder;
    HostLog::setThreshold(LogLevel::Warning);
    for (const auto level : {LogLevel::Debug, LogLevel::Info, LogLevel::Warning, LogLevel::Error}) {
        CLogger::logMessage(level, QStringLiteral("A"), QStringLiteral("b"));
    }
    const QStringList expected = {QStringLiteral("[warning] A: b"), QStringLiteral("[error] A: b")};
    QCOMPARE(recorder.entries(), expected);
}

void tst_HostLog::theFormerSinkComesBack()
{
    QVERIFY(!HostLog::setSink([](const QString &) {}));
    QVERIFY(HostLog::setSink({}));
    QVERIFY(!HostLog::setSink({}));
}

void tst_HostLog::standardErrorGetsWholeLinesFromAllThreads()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const int before = ::dup(STDERR_FILENO);
    QVERIFY(::dup2(file.handle(), STDERR_FILENO) >= 0);
    const QString message(200, QLatin1Char('x'));
    constexpr int threads = 8;
    constexpr int entries = 500;
    {
        const auto restore = qScopeGuard([before] {
            ::dup2(before, STDERR_FILENO);
            ::close(before);
        });
        std::vector<std::thread> writers;
        writers.reserve(threads);
        for (int i = 0; i < threads; ++i) {
            writers.emplace_back([&message] {
                for (int n = 0; n < entries; ++n) {
                    CLogger::logMessage(LogLevel::Error, QStringLiteral("A"), message);
                }
            });
        }
        for (std::thread &writer : writers) {
            writer.join();
        }
    }
    QVERIFY(file.seek(0));
    const QByteArray line = "[error] A: " + message.toUtf8() + '\n';
    QVERIFY(file.readAll() == line.repeated(threads * entries));
}

void tst_HostLog::theSinkIsNeverEnteredTwice()
{
    std::atomic<int> inside{0};
    std::atomic<int> most{0};
    std::atomic<int> calls{0};
    HostLog::setSink([&](const QString &) {
        const int now = ++inside;
        if (now > most) {
            most = now;
        }
        std::this_thread::yield();
        ++calls;
        --inside;
    });
    const auto restore = qScopeGuard([] { HostLog::setSink({}); });
    std::vector<std::thread> writers;
    constexpr int threads = 8;
    writers.reserve(threads);
    for (int i = 0; i < threads; ++i) {
        writers.emplace_back([] {
            for (int n = 0; n < 200; ++n) {
                CLogger::logMessage(LogLevel::Error, QStringLiteral("A"), QStringLiteral("b"));
            }
        });
    }
    for (std::thread &writer : writers) {
        writer.join();
    }
    QCOMPARE(int(calls), 1600);
    QCOMPARE(int(most), 1);
}

void tst_HostLog::theLibraryLogsThroughTheHost()
{
    Test::LogRecorder recorder;
    Tavro::Shared::CFileCopyController controller;
    controller.copyFile(QStringLiteral("/nonexistent/a"), QStringLiteral("/nonexistent/b"));
    const QStringList expected = {
        QStringLiteral("[error] CFileCopyController: Failed to copy file from \"/nonexistent/a\" "
                       "to \"/nonexistent/b\" Error code is: 721153")};
    QCOMPARE(recorder.entries(), expected);
}

QTEST_GUILESS_MAIN(tst_HostLog)

#include "tst_HostLog.moc"
