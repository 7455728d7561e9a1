#include "tests/support/FaultInjection.h"

#include <QFile>

#include <dlfcn.h>
// not <fcntl.h>: it renames the very functions that are defined here
#include <linux/fcntl.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <mutex>
#include <string>

namespace Test::FaultInjection {

namespace {

constexpr int s_calls = 6;
constexpr int s_descriptors = 4096;

std::atomic<bool> s_watching{false};
std::mutex s_mutex; // guards the rest
std::array<int, s_calls> s_counts = {};
int s_journal = -1;
Call s_faultyCall = Call::Open;
int s_faultIn = 0; // calls until the fault, 0: none
int s_error = 0;
bool s_struck = false;

// made when first needed: the calls below are made before main(), too
std::string &folder()
{
    static std::string path;
    return path;
}

// of the watched files, by descriptor
std::array<std::string, s_descriptors> &names()
{
    static std::array<std::string, s_descriptors> table;
    return table;
}

std::string &nameOf(int fd)
{
    return names()[static_cast<size_t>(fd)];
}

int rawOpen(const char *path, int flags, int mode)
{
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

bool isWatched(int fd)
{
    return fd >= 0 && fd < s_descriptors && !nameOf(fd).empty();
}

// whether this call is the one to fail
bool strikes(Call call)
{
    ++s_counts[static_cast<size_t>(call)];
    if (s_faultIn == 0 || call != s_faultyCall || --s_faultIn != 0) {
        return false;
    }
    s_struck = true;
    return true;
}

void record(const std::string &line)
{
    if (s_journal >= 0) {
        const std::string text = line + '\n';
        ::syscall(SYS_write, s_journal, text.data(), text.size());
    }
}

void closeJournal()
{
    if (s_journal >= 0) {
        ::syscall(SYS_close, s_journal);
        s_journal = -1;
    }
}

} // namespace

void watch(const QString &path)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    folder() = QFile::encodeName(path).toStdString() + '/';
    names().fill(std::string());
    s_counts.fill(0);
    s_faultIn = 0;
    s_struck = false;
    closeJournal();
    s_watching = true;
}

void stop()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_watching = false;
    closeJournal();
}

void failNth(Call call, int n, int error)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_faultyCall = call;
    s_faultIn = n;
    s_error = error;
    s_struck = false;
}

bool hasStruck()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    return s_struck;
}

int count(Call call)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    return s_counts[static_cast<size_t>(call)];
}

void recordTo(const QString &file)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    closeJournal();
    s_journal = rawOpen(QFile::encodeName(file).constData(),
                        O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
}

namespace {

template<typename Function> Function next(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

int openWatched(const char *path, int flags, int mode, const char *symbol)
{
    using Open = int (*)(const char *, int, ...);
    static const auto open64Next = next<Open>("open64");
    static const auto openNext = next<Open>("open");
    const Open original = std::strcmp(symbol, "open64") == 0 ? open64Next : openNext;
    if (!s_watching) {
        return original(path, flags, mode);
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (std::strncmp(path, folder().c_str(), folder().size()) != 0) {
        return original(path, flags, mode);
    }
    if (strikes(Call::Open)) {
        errno = s_error;
        return -1;
    }
    const int fd = original(path, flags, mode);
    if (fd >= 0 && fd < s_descriptors) {
        nameOf(fd) = path + folder().size();
        record("open " + nameOf(fd));
    }
    return fd;
}

// read and write have the same shape: a transfer that fails, stops halfway, or happens
template<typename Transfer, typename Pointer>
ssize_t transferWatched(Call call, const char *verb, Transfer original, int fd, Pointer data,
                        size_t size)
{
    if (!s_watching) {
        return original(fd, data, size);
    }
    std::unique_lock<std::mutex> lock(s_mutex);
    if (!isWatched(fd)) {
        lock.unlock(); // may block
        return original(fd, data, size);
    }
    if (strikes(call)) {
        if (s_error != shortTransfer) {
            errno = s_error;
            return -1;
        }
        size = size > 2 ? size / 2 - 1 : size;
    }
    const ssize_t n = original(fd, data, size);
    record(std::string(verb) + ' ' + nameOf(fd) + ' ' + std::to_string(n));
    return n;
}

} // namespace

} // namespace Test::FaultInjection

using namespace Test::FaultInjection;

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    return openWatched(path, flags, mode, "open");
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    return openWatched(path, flags, mode, "open64");
}

ssize_t read(int fd, void *data, size_t size)
{
    static const auto original = next<ssize_t (*)(int, void *, size_t)>("read");
    return transferWatched(Call::Read, "read", original, fd, data, size);
}

ssize_t write(int fd, const void *data, size_t size)
{
    static const auto original = next<ssize_t (*)(int, const void *, size_t)>("write");
    return transferWatched(Call::Write, "write", original, fd, data, size);
}

int fsync(int fd)
{
    static const auto original = next<int (*)(int)>("fsync");
    if (!s_watching) {
        return original(fd);
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (isWatched(fd)) {
        if (strikes(Call::Fsync)) {
            errno = s_error;
            return -1;
        }
        record("fsync " + nameOf(fd));
    }
    return original(fd);
}

int close(int fd)
{
    static const auto original = next<int (*)(int)>("close");
    if (!s_watching) {
        return original(fd);
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (!isWatched(fd)) {
        return original(fd);
    }
    const bool fails = strikes(Call::Close);
    record("close " + nameOf(fd));
    nameOf(fd).clear();
    const int result = original(fd); // a close that fails closes all the same
    if (fails) {
        errno = s_error;
        return -1;
    }
    return result;
}

int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*function)(void *),
                   void *argument)
{
    using Create = int (*)(pthread_t *, const pthread_attr_t *, void *(*)(void *), void *);
    static const auto original = next<Create>("pthread_create");
    if (s_watching) {
        const std::lock_guard<std::mutex> lock(s_mutex);
        if (strikes(Call::CreateThread)) {
            return s_error;
        }
    }
    return original(thread, attributes, function, argument);
}

} // extern "C"
