// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/SystemDateTime.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/LogRecorder.h"
#include "tests/support/RefusedProcesses.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>

#include <cerrno>

using Tavro::SystemDateTime;
using Tavro::FieldHost::HostLog;
using Tavro::Logging::LogLevel;

namespace {

QString entry(const QString &command, const QString &reason)
{
    return HostLog::format(LogLevel::Error, QStringLiteral("SystemDateTime"),
                           QStringLiteral("System command <%1> - %2").arg(command, reason));
}

int openDescriptors()
{
    return static_cast<int>(QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::System).size());
}

} // namespace

/** What becomes of the clock where the system makes no process for a command. */
class tst_ClockFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusedCommandFailsAtOnce_data();
    void refusedCommandFailsAtOnce();
};

void tst_ClockFaults::refusedCommandFailsAtOnce_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("reason");

    QTest::newRow("too many processes")
        << EAGAIN
        << QStringLiteral("Resource error (fork failure): Resource temporarily unavailable");
    QTest::newRow("no memory") << ENOMEM
                               << QStringLiteral(
                                      "Resource error (fork failure): Cannot allocate memory");
}

void tst_ClockFaults::refusedCommandFailsAtOnce()
{
    QFETCH(int, error);
    QFETCH(QString, reason);

    Test::FakeCommands commands;
    commands.add(QStringLiteral("date"));
    commands.add(QStringLiteral("hwclock"));
    const Test::LogRecorder log;
    QVERIFY(SystemDateTime().setTime(QTime(12, 0)));
    const QStringList both = commands.journal();
    QCOMPARE(both.size(), 2);
    const int descriptors = openDescriptors();
    {
        const Test::RefusedProcesses refused(error);
        QElapsedTimer elapsed;
        elapsed.start();
        QVERIFY(!SystemDateTime().setTime(QTime(12, 0)));
        QVERIFY(elapsed.elapsed() < 5000); // the limit for a command that runs
        QCOMPARE(refused.count(), 1);
        QVERIFY(Test::RefusedProcesses::killedGroups().empty());
    }
    QCOMPARE(openDescriptors(), descriptors);
    QCOMPARE(log.entries(), QStringList(entry(QStringLiteral("date -u -s 12:00:00"), reason)));
    // and the next change finds everything as it was
    QVERIFY(SystemDateTime().setTime(QTime(12, 0)));
    QCOMPARE(commands.journal(), both + both);
}

QTEST_GUILESS_MAIN(tst_ClockFaults)

#include "tst_ClockFaults.moc"
