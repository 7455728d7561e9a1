// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Console.h"

#include "fieldhost/cli/Width.h"
#include "fieldhost/services/HostLog.h"
#include "fieldhost/services/Printable.h"

#include <QByteArray>

#include <atomic>
#include <cerrno>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

std::atomic<int> s_outputError{0};

bool canRewriteLines()
{
    const QByteArray terminal = qgetenv("TERM");
    return ::isatty(STDOUT_FILENO) && !terminal.isEmpty() && terminal != "dumb";
}

void writeAll(int fd, const QByteArray &bytes)
{
    int written = 0;
    while (written < bytes.size()) {
        const ssize_t n =
            ::write(fd, bytes.constData() + written, static_cast<size_t>(bytes.size() - written));
        if (n < 0 && errno != EINTR) {
            if (errno != EPIPE && s_outputError == 0) {
                s_outputError = errno;
            }
            return; // the work matters more than its report
        }
        if (n > 0) {
            written += static_cast<int>(n);
        }
    }
}

} // namespace

Console::Console()
    : m_live(canRewriteLines())
{
    m_sinkBefore = HostLog::setSink([this](const QString &line) { printError(line); });
}

Console::~Console()
{
    HostLog::setSink(m_sinkBefore);
    clearLiveLine();
}

int Console::columns()
{
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return 80;
    }
    return size.ws_col;
}

int Console::outputError()
{
    return s_outputError;
}

void Console::print(const QString &text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    erase();
    writeAll(STDOUT_FILENO, printableLines(text).toUtf8() + '\n');
    redraw();
}

void Console::printError(const QString &text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    erase();
    writeAll(STDERR_FILENO, printableLines(text).toUtf8() + '\n');
    redraw();
}

void Console::setLiveLine(const QString &line)
{
    if (!m_live) {
        return;
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_line = printable(line);
    redraw();
}

void Console::clearLiveLine()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    erase();
    m_line.clear();
}

void Console::erase()
{
    if (!m_line.isEmpty()) {
        writeAll(STDOUT_FILENO, QByteArrayLiteral("\r\x1b[K"));
    }
}

void Console::redraw()
{
    // the last column stays free: a line that fills it wraps on some terminals
    if (!m_line.isEmpty()) {
        writeAll(STDOUT_FILENO, "\r" + fitToColumns(m_line, columns() - 1).toUtf8() + "\x1b[K");
    }
}

} // namespace Tavro::FieldHost
