#include "tests/fieldhost/Program.h"

#include <QTest>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace Test {

namespace {
constexpr int s_patience = 60'000; // ms
}

QString programPath()
{
    return QStringLiteral(OVO_FIELDHOST_PROGRAM);
}

Program::Program()
{
    setProgram(programPath());
}

void Program::dropRights()
{
    m_dropRights = true;
}

void Program::setupChildProcess()
{
    // the program starts with what the bounding set leaves, although it belongs to root
    if (m_dropRights && ::geteuid() == 0
        && (::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE) != 0
            || ::prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH) != 0)) {
        ::_exit(cannotDropRights);
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
