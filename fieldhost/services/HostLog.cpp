// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/HostLog.h"

#include "fieldhost/services/Printable.h"

#include <QByteArray>

#include <atomic>
#include <cerrno>
#include <mutex>

#include <unistd.h>

namespace Tavro::FieldHost {

using Logging::LogLevel;

namespace {

std::atomic<LogLevel> s_currentThreshold{LogLevel::Info};

struct Output
{
    std::mutex mutex; // held while an entry is written, so that entries do not mix
    HostLog::Sink sink;
};

Output &output()
{
    // never destroyed: a thread may still log while the process ends
    static auto *const instance = new Output;
    return *instance;
}

QLatin1String levelName(LogLevel level)
{
    switch (level) {
    case LogLevel::Error:
        return QLatin1String("error");
    case LogLevel::Warning:
        return QLatin1String("warning");
    case LogLevel::Info:
        return QLatin1String("info");
    case LogLevel::Debug:
        return QLatin1String("debug");
    }
    return QLatin1String("unknown");
}

void writeToStandardError(const QString &line)
{
    // as few system calls as possible: other processes may write to the same terminal or file
    const QByteArray bytes = line.toUtf8() + '\n';
    qint64 written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(STDERR_FILENO, bytes.constData() + written,
                                  static_cast<size_t>(bytes.size() - written));
        if (n < 0 && errno != EINTR) {
            return; // nobody left to tell
        }
        if (n > 0) {
            written += n;
        }
    }
}

} // namespace

LogLevel HostLog::threshold()
{
    return s_currentThreshold;
}

void HostLog::setThreshold(LogLevel level)
{
    s_currentThreshold = level;
}

HostLog::Sink HostLog::setSink(Sink sink)
{
    Output &out = output();
    const std::lock_guard<std::mutex> lock(out.mutex);
    std::swap(out.sink, sink);
    return sink;
}

QString HostLog::format(LogLevel level, const QString &category, const QString &message)
{
    QString text = printableLines(message); // names from a drive are among them
    text.replace(QLatin1Char('\n'), QLatin1String("\n    "));
    return QStringLiteral("[%1] %2: %3").arg(levelName(level), category, text);
}

void HostLog::write(LogLevel level, const QString &category, const QString &message)
{
    if (level > threshold()) {
        return;
    }
    const QString line = format(level, category, message);
    Output &out = output();
    const std::lock_guard<std::mutex> lock(out.mutex);
    if (out.sink) {
        out.sink(line);
    } else {
        writeToStandardError(line);
    }
}

} // namespace Tavro::FieldHost

void Tavro::Logging::CLogger::logMessage(LogLevel level, const QString &category,
                                         const QString &message)
{
    FieldHost::HostLog::write(level, category, message);
}
