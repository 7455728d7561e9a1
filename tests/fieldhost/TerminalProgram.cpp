// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/TerminalProgram.h"

#include "tests/fieldhost/Program.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QtDebug>

#include <array>
#include <vector>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Test {

namespace {

constexpr int s_patience = 60'000; // ms

// 148: suspended by Ctrl-Z
const char s_session[] = R"sh(set -m
settings() { echo "settings: $(stty -g)"; }
settings
"$@"
code=$?
while [ $code = 148 ]; do
    settings
    echo suspended
    read -r line
    fg >/dev/null
    code=$?
done
settings
exit $code)sh";

} // namespace

TerminalProgram::TerminalProgram(const QStringList &arguments, int columns)
{
    std::vector<QByteArray> words = {"sh", "-c", s_session, "sh", QFile::encodeName(programPath())};
    words.reserve(words.size() + static_cast<size_t>(arguments.size()));
    for (const QString &argument : arguments) {
        words.push_back(QFile::encodeName(argument));
    }
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (QByteArray &word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);

    winsize size{};
    size.ws_col = static_cast<unsigned short>(columns);
    size.ws_row = 24;
    m_shell = ::forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_shell == 0) {
        restoreSignals();
        ::setenv("TERM", "xterm", 1);
        ::execv("/bin/sh", pointers.data());
        ::_exit(127);
    }
    if (m_shell < 0) {
        qFatal("no terminal to be had");
    }
}

TerminalProgram::~TerminalProgram()
{
    ::close(m_terminal); // hangs up on whatever still runs
    if (m_shell > 0) {
        ::waitpid(m_shell, nullptr, 0);
    }
}

bool TerminalProgram::readSome(int timeout)
{
    pollfd descriptor{m_terminal, POLLIN, 0};
    if (::poll(&descriptor, 1, timeout) <= 0) {
        return false;
    }
    std::array<char, 4096> buffer{};
    const ssize_t n = ::read(m_terminal, buffer.data(), buffer.size());
    if (n <= 0) {
        return false;
    }
    m_shown.append(buffer.data(), static_cast<int>(n));
    return true;
}

bool TerminalProgram::waitFor(const QByteArray &text)
{
    QElapsedTimer elapsed;
    elapsed.start();
    for (;;) {
        const int found = m_shown.indexOf(text, m_seen);
        if (found >= 0) {
            m_seen = found + text.size();
            return true;
        }
        const qint64 left = s_patience - elapsed.elapsed();
        if (left <= 0 || !readSome(static_cast<int>(left))) {
            qWarning("not shown: %s; but at the end: %s", text.constData(),
                     m_shown.mid(m_seen).right(300).constData());
            return false;
        }
    }
}

bool TerminalProgram::waitUntilAsleep()
{
    const QString process = QStringLiteral("/proc/%1/%2");
    return QTest::qWaitFor([&] {
        QFile children(process.arg(m_shell).arg(QStringLiteral("task/%1/children").arg(m_shell)));
        if (!children.open(QIODevice::ReadOnly)) {
            return false;
        }
        const QString program = QString::fromLatin1(children.readAll()).trimmed();
        QFile stat(process.arg(program, QStringLiteral("stat")));
        return stat.open(QIODevice::ReadOnly) && stat.readAll().contains(") S ");
    });
}

void TerminalProgram::type(const QByteArray &keys)
{
    if (::write(m_terminal, keys.constData(), static_cast<size_t>(keys.size())) != keys.size()) {
        qWarning("cannot type");
    }
}

int TerminalProgram::exitCode()
{
    // the terminal ends with the shell; what it shows must be read, or the shell waits for us
    while (readSome(s_patience)) { }
    int status = 0;
    if (!QTest::qWaitFor([&] { return ::waitpid(m_shell, &status, WNOHANG) == m_shell; })) {
        return -1;
    }
    m_shell = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

QList<QByteArray> TerminalProgram::settings() const
{
    QList<QByteArray> settings;
    const QList<QByteArray> lines = m_shown.split('\n');
    for (const QByteArray &line : lines) {
        const int begin = line.indexOf("settings: ");
        if (begin >= 0) {
            settings.append(line.mid(begin).trimmed());
        }
    }
    return settings;
}

} // namespace Test
