// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"

#include <QTest>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Test {

namespace {
constexpr int s_patience = 60'000; // ms

// goes on as the first process of a process namespace; the one before waits for its end
void enterProcessNamespace()
{
    if (::unshare(CLONE_NEWPID) != 0) {
        ::_exit(Program::cannotDropRights);
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        return;
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) {
        ::_exit(Program::cannotDropRights);
    }
    ::_exit(WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status));
}

void refuseFurtherClones()
{
    constexpr auto refusal = SECCOMP_RET_ERRNO | EAGAIN;
    std::array<sock_filter, 5> filter{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_clone3, 2, 0),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_clone, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        BPF_STMT(BPF_RET | BPF_K, refusal),
    }};
    const sock_fprog program{filter.size(), filter.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0
        || ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        ::_exit(Program::cannotDropRights);
    }
}
} // namespace

QString programPath()
{
    return QStringLiteral(OVO_FIELDHOST_PROGRAM);
}

void restoreSignals()
{
    for (const int signal : {SIGINT, SIGQUIT, SIGHUP, SIGTERM, SIGTSTP}) {
        std::signal(signal, SIG_DFL);
    }
}

Program::Program()
{
    setProgram(programPath());
}

void Program::dropRights()
{
    m_dropRights = true;
}

void Program::refuseClones()
{
    m_refuseClones = true;
    // a sanitizer looks for leaks in a process of its own
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LSAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    setProcessEnvironment(environment);
}

void Program::setupChildProcess()
{
    restoreSignals();
    if (m_refuseClones) {
        enterProcessNamespace();
        refuseFurtherClones();
    }
    // the program starts with what the bounding set leaves, although it belongs to root
    for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH, CAP_SYS_TIME}) {
        if (m_dropRights && ::geteuid() == 0 && ::prctl(PR_CAPBSET_DROP, right) != 0) {
            ::_exit(cannotDropRights);
        }
    }
}

void Program::begin(const QStringList &arguments)
{
    setArguments(arguments);
    start();
}

bool Program::waitForOutput(const QByteArray &text)
{
    return QTest::qWaitFor([&] { return peek(bytesAvailable()).contains(text); }, s_patience);
}

Outcome Program::end()
{
    Outcome outcome;
    if (waitForFinished(s_patience) && exitStatus() == NormalExit) {
        outcome.exitCode = exitCode();
    }
    outcome.output = QString::fromUtf8(readAllStandardOutput());
    outcome.errors = QString::fromUtf8(readAllStandardError());
    // a test that compares the exit code first would not show it
    if (outcome.errors.contains(QLatin1String("Sanitizer"))
        || outcome.errors.contains(QLatin1String(": runtime error: "))) {
        qWarning("%s", qUtf8Printable(outcome.errors));
    }
    return outcome;
}

Outcome Program::run(const QStringList &arguments)
{
    Program program;
    program.begin(arguments);
    return program.end();
}

} // namespace Test
