// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/detail/ChildProcess.h"
#include "tests/support/FakeCommands.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryFile>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <memory>
#include <thread>

using Tavro::Shared::detail::ChildEnd;
using Tavro::Shared::detail::exitCodeOf;
using Tavro::Shared::detail::runProgram;
using Test::FakeCommands;

namespace {

const QString s_tool = QStringLiteral("tool");

/** A way to treat SIGCHLD, for as long as the object lives. */
class ChildSignal
{
public:
    explicit ChildSignal(void (*handler)(int), int flags = 0)
    {
        struct sigaction action = {};
        action.sa_handler = handler;
        action.sa_flags = flags;
        ::sigaction(SIGCHLD, &action, &m_before);
    }
    ~ChildSignal() { ::sigaction(SIGCHLD, &m_before, nullptr); }
    ChildSignal(const ChildSignal &) = delete;
    ChildSignal &operator=(const ChildSignal &) = delete;

    static struct sigaction now()
    {
        struct sigaction action = {};
        ::sigaction(SIGCHLD, nullptr, &action);
        return action;
    }

private:
    struct sigaction m_before = {};
};

void doNothing(int /*signal*/)
{
}

} // namespace

class tst_ChildProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void exitCodeIsAnswered_data();
    void exitCodeIsAnswered();
    void deathIsNoExit();
    void missingProgramIsNotStarted();
    void fileWithoutTheRightIsNotStarted();
    void argumentsArriveAsTheyAre();
    void pathNeedsNoSearch();
    void scriptWithoutFirstLineIsRunByTheShell();
    void nothingIsReadOrShown();
    void signalsAreAsAProgramExpectsThem();

    void programOutOfTimeIsKilled();
    void noTimeAtAllIsALimit();
    void programWithinItsTimeIsLeftAlone();

    void ignoredChildSignalHidesNothing_data();
    void ignoredChildSignalHidesNothing();
    void twoAtOnceInAHostThatIgnores();
    void endThatTheHostTookIsUnknown_data();
    void endThatTheHostTookIsUnknown();

private:
    /** Adds a command that hands over its number and then hangs, until it is let go or killed. */
    QString addWaiting()
    {
        QString fifo = m_commands->journalPath() + QStringLiteral(".fifo");
        ::mkfifo(QFile::encodeName(fifo).constData(), 0600);
        m_commands->add(s_tool,
                        "echo $$ >> '" + QFile::encodeName(m_commands->journalPath())
                            + "'\nread -r line < '" + QFile::encodeName(fifo) + "'\nexit 7");
        return fifo;
    }

    std::unique_ptr<FakeCommands> m_commands;
};

void tst_ChildProcess::init()
{
    m_commands = std::make_unique<FakeCommands>();
    m_commands->hideOthers();
}

void tst_ChildProcess::cleanup()
{
    m_commands.reset();
}

void tst_ChildProcess::exitCodeIsAnswered_data()
{
    QTest::addColumn<int>("code");

    QTest::newRow("done") << 0;
    QTest::newRow("failed") << 1;
    QTest::newRow("the largest") << 255;
}

void tst_ChildProcess::exitCodeIsAnswered()
{
    QFETCH(int, code);
    m_commands->add(s_tool, "exit " + QByteArray::number(code));
    QCOMPARE(exitCodeOf(s_tool), code);
    const ChildEnd end = runProgram(s_tool, {}, 60'000);
    QCOMPARE(end.kind, ChildEnd::Exited);
    QCOMPARE(end.code, code);
}

void tst_ChildProcess::deathIsNoExit()
{
    m_commands->add(s_tool, "kill -KILL $$");
    QCOMPARE(exitCodeOf(s_tool), -1);
    const ChildEnd end = runProgram(s_tool, {});
    QCOMPARE(end.kind, ChildEnd::Died);
    QCOMPARE(end.code, SIGKILL);
}

void tst_ChildProcess::missingProgramIsNotStarted()
{
    QCOMPARE(exitCodeOf(QStringLiteral("no-such-command")), -2);
    QCOMPARE(exitCodeOf(QString()), -2);
    const ChildEnd end = runProgram(QStringLiteral("/no/such/command"), {});
    QCOMPARE(end.kind, ChildEnd::NotStarted);
    QCOMPARE(end.code, ENOENT);
}

void tst_ChildProcess::fileWithoutTheRightIsNotStarted()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const ChildEnd end = runProgram(file.fileName(), {});
    QCOMPARE(end.kind, ChildEnd::NotStarted);
    QCOMPARE(end.code, EACCES);
}

void tst_ChildProcess::argumentsArriveAsTheyAre()
{
    m_commands->add(s_tool,
                    "for a in \"$@\"; do echo \"<$a>\"; done >> '"
                        + QFile::encodeName(m_commands->journalPath()) + "'");
    const QStringList arguments = {QStringLiteral("a b"), QString(), QStringLiteral("$HOME *"),
                                   QString::fromUtf8("\u00e4")};
    QCOMPARE(exitCodeOf(s_tool, arguments), 0);
    QCOMPARE(m_commands->journal().mid(1),
             (QStringList{QStringLiteral("<a b>"), QStringLiteral("<>"),
                          QStringLiteral("<$HOME *>"), QString::fromUtf8("<\u00e4>")}));
}

void tst_ChildProcess::pathNeedsNoSearch()
{
    QCOMPARE(
        exitCodeOf(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("exit 5")}), 5);
}

void tst_ChildProcess::scriptWithoutFirstLineIsRunByTheShell()
{
    m_commands->add(s_tool);
    QFile script(QFileInfo(m_commands->journalPath()).path() + QStringLiteral("/tool"));
    QVERIFY(script.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QVERIFY(script.write("test \"$1\" = 'a b' && exit 6\n") > 0);
    script.close();
    QCOMPARE(exitCodeOf(s_tool, {QStringLiteral("a b")}), 6);
}

void tst_ChildProcess::nothingIsReadOrShown()
{
    m_commands->add(s_tool, "echo out\necho err >&2\nread -r line && exit 1\nexit 9");
    QTemporaryFile terminal;
    QVERIFY(terminal.open());
    QVERIFY(terminal.write("input\n") == 6 && terminal.flush() && terminal.seek(0));
    int kept[3] = {};
    for (int fd = 0; fd < 3; ++fd) {
        kept[fd] = ::dup(fd);
        ::dup2(terminal.handle(), fd);
    }
    const int code = exitCodeOf(s_tool);
    for (int fd = 0; fd < 3; ++fd) {
        ::dup2(kept[fd], fd);
        ::close(kept[fd]);
    }
    QCOMPARE(code, 9);
    QVERIFY(terminal.seek(0));
    QCOMPARE(terminal.readAll(), QByteArray("input\n"));
}

void tst_ChildProcess::signalsAreAsAProgramExpectsThem()
{
    m_commands->add(s_tool,
                    "while read -r key value; do\ncase $key in SigBlk:|SigIgn:) echo $value"
                    ";; esac\ndone < /proc/self/status >> '"
                        + QFile::encodeName(m_commands->journalPath()) + "'");
    const ChildSignal ignored(SIG_IGN);
    const auto before = ::signal(SIGPIPE, SIG_IGN);
    sigset_t some;
    sigset_t blockedBefore;
    ::sigemptyset(&some);
    ::sigaddset(&some, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &some, &blockedBefore);
    const int code = exitCodeOf(s_tool);
    ::pthread_sigmask(SIG_SETMASK, &blockedBefore, nullptr);
    ::signal(SIGPIPE, before);
    QCOMPARE(code, 0);
    const QStringList lines = m_commands->journal();
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(1).toULongLong(nullptr, 16), 0ULL);
    const auto bit = [](int signal) { return 1ULL << (signal - 1); };
    QCOMPARE(lines.at(2).toULongLong(nullptr, 16) & (bit(SIGPIPE) | bit(SIGCHLD)), 0ULL);
}

void tst_ChildProcess::programOutOfTimeIsKilled()
{
    addWaiting();
    QElapsedTimer elapsed;
    elapsed.start();
    const ChildEnd end = runProgram(s_tool, {}, 1000);
    QVERIFY(elapsed.elapsed() >= 1000);
    QCOMPARE(end.kind, ChildEnd::OutOfTime);
    const pid_t process = m_commands->journal().value(1).toInt();
    QVERIFY(process > 0);
    QCOMPARE(::kill(process, 0), -1);
    QCOMPARE(errno, ESRCH);
}

void tst_ChildProcess::noTimeAtAllIsALimit()
{
    addWaiting();
    QCOMPARE(runProgram(s_tool, {}, 0).kind, ChildEnd::OutOfTime);
}

void tst_ChildProcess::programWithinItsTimeIsLeftAlone()
{
    const QString fifo = addWaiting();
    std::thread host([fifo] {
        // blocks until the program reads
        ::close(::open(QFile::encodeName(fifo).constData(), O_WRONLY | O_CLOEXEC));
    });
    const ChildEnd end = runProgram(s_tool, {}, 60'000);
    host.join();
    QCOMPARE(end.kind, ChildEnd::Exited);
    QCOMPARE(end.code, 7);
}

void tst_ChildProcess::ignoredChildSignalHidesNothing_data()
{
    QTest::addColumn<bool>("ignored");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("patience");

    QTest::newRow("ignored") << true << 0 << -1;
    QTest::newRow("ignored, with a limit of time") << true << 0 << 60'000;
    QTest::newRow("ends not kept") << false << int(SA_NOCLDWAIT) << -1;
    QTest::newRow("ends not kept, with a limit of time") << false << int(SA_NOCLDWAIT) << 60'000;
}

void tst_ChildProcess::ignoredChildSignalHidesNothing()
{
    QFETCH(bool, ignored);
    QFETCH(int, flags);
    QFETCH(int, patience);
    m_commands->add(s_tool, "exit 3");
    const auto handler = ignored ? SIG_IGN : doNothing;
    const ChildSignal signal(handler, flags);
    const ChildEnd end = runProgram(s_tool, {}, patience);
    QCOMPARE(end.kind, ChildEnd::Exited);
    QCOMPARE(end.code, 3);
    QVERIFY(ChildSignal::now().sa_handler == handler);
    QCOMPARE(ChildSignal::now().sa_flags & SA_NOCLDWAIT, flags);
}

void tst_ChildProcess::twoAtOnceInAHostThatIgnores()
{
    const QString fifo = addWaiting();
    m_commands->add(QStringLiteral("other"), "exit 4");
    const ChildSignal ignored(SIG_IGN);
    int first = -3;
    std::thread waiting([&first] { first = exitCodeOf(s_tool); });
    const int file = ::open(QFile::encodeName(fifo).constData(), O_WRONLY | O_CLOEXEC);
    const int second = exitCodeOf(QStringLiteral("other"));
    ::close(file); // lets the first go
    waiting.join();
    QCOMPARE(second, 4);
    QCOMPARE(first, 7);
    QVERIFY(ChildSignal::now().sa_handler == SIG_IGN);
}

void tst_ChildProcess::endThatTheHostTookIsUnknown_data()
{
    QTest::addColumn<int>("patience");

    QTest::newRow("without a limit of time") << -1;
    QTest::newRow("with one") << 20'000;
}

void tst_ChildProcess::endThatTheHostTookIsUnknown()
{
    QFETCH(int, patience);
    const QString fifo = addWaiting();
    const ChildSignal usual(SIG_DFL);
    std::thread host([fifo] {
        const int file = ::open(QFile::encodeName(fifo).constData(), O_WRONLY | O_CLOEXEC);
        ::signal(SIGCHLD, SIG_IGN);
        ::close(file);
    });
    const ChildEnd end = runProgram(s_tool, {}, patience);
    host.join();
    QCOMPARE(end.kind, ChildEnd::Unknown);
    QCOMPARE(end.code, ECHILD);
    QVERIFY(ChildSignal::now().sa_handler == SIG_IGN);
}

QTEST_GUILESS_MAIN(tst_ChildProcess)

#include "tst_ChildProcess.moc"
