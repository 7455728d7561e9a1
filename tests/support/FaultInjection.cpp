// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

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
#include <cstdint>
#include <cstring>
#include <mutex>
#include <string>

namespace Test::FaultInjection {

namespace {

constexpr int s_calls = 11;
constexpr int s_descriptors = 4096;

std::atomic<bool> s_watching{false};
std::mutex s_mutex; // guards the rest
std::array<int, s_calls> s_counts = {};
int s_journal = -1;
Call s_faultyCall = Call::Open;
int s_faultIn = 0; // calls until the fault, 0: none
int s_error = 0;
bool s_isLasting = false; // the calls after it fail, too
bool s_struck = false;
bool s_hidesTypes = false;
std::array<bool, s_descriptors> s_isDirectory = {}; // where the descriptor is watched

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
    s_faultIn = s_isLasting ? 1 : 0;
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
    s_hidesTypes = false;
    closeJournal();
    s_watching = true;
}

void stop()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_watching = false;
    closeJournal();
}

namespace {

void fail(Call call, int n, int error, bool isLasting)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_faultyCall = call;
    s_faultIn = n;
    s_error = error;
    s_isLasting = isLasting;
    s_struck = false;
}

} // namespace

void failNth(Call call, int n, int error)
{
    fail(call, n, error, false);
}

void failFrom(Call call, int n, int error)
{
    fail(call, n, error, true);
}

void hideEntryTypes()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_hidesTypes = true;
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

void remember(int fd, const std::string &name, bool isDirectory)
{
    if (fd >= 0 && fd < s_descriptors) {
        nameOf(fd) = name;
        s_isDirectory[static_cast<size_t>(fd)] = isDirectory;
    }
}

int descriptorOf(void *directory)
{
    static const auto original = next<int (*)(void *)>("dirfd");
    return original(directory);
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
    remember(fd, path + folder().size(), false);
    if (isWatched(fd)) {
        record("open " + nameOf(fd));
    }
    return fd;
}

// what @p path, from the directory @p base on, is called below the folder; empty when it is not
std::string nameBelow(int base, const char *path)
{
    const std::string &watched = folder();
    if (path[0] == '/') {
        if (std::strncmp(path, watched.c_str(), watched.size()) == 0) {
            const std::string name = path + watched.size();
            return name.empty() ? "." : name;
        }
        return watched.compare(0, watched.size() - 1, path) == 0 ? "." : std::string();
    }
    if (!isWatched(base)) {
        return {};
    }
    const bool isItself = std::strcmp(path, ".") == 0;
    const std::string above = nameOf(base) == "." ? std::string() : nameOf(base) + '/';
    return isItself ? nameOf(base) : above + path;
}

int openAtWatched(int base, const char *path, int flags, int mode, const char *symbol)
{
    using OpenAt = int (*)(int, const char *, int, ...);
    const auto original = next<OpenAt>(symbol);
    if (!s_watching) {
        return original(base, path, flags, mode);
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    const std::string name = nameBelow(base, path);
    const bool isDirectory = (flags & O_DIRECTORY) != 0;
    if (name.empty() || (!isDirectory && name == ".")) {
        return original(base, path, flags, mode);
    }
    if (strikes(isDirectory ? Call::OpenDirectory : Call::Open)) {
        errno = s_error;
        return -1;
    }
    const int fd = original(base, path, flags, mode);
    remember(fd, name, isDirectory);
    if (isWatched(fd) && !isDirectory) {
        record("open " + nameOf(fd));
    }
    return fd;
}

// a call on a path or, without one, on a descriptor
template<typename Original>
int callWatched(Call call, int base, const char *path, Original original)
{
    if (!s_watching) {
        return original();
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    const bool isBelow = path == nullptr ? isWatched(base) : !nameBelow(base, path).empty();
    if (isBelow && strikes(call)) {
        errno = s_error;
        return -1;
    }
    return original();
}

/** An entry of a directory, as the system hands it out, by readdir64 and by getdents64. */
struct SystemEntry
{
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t length;
    std::uint8_t type;
    char name[1];
};

void *readWatched(void *directory, const char *symbol)
{
    const auto original = next<void *(*)(void *)>(symbol);
    if (!s_watching) {
        return original(directory);
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (!isWatched(descriptorOf(directory))) {
        return original(directory);
    }
    if (strikes(Call::ReadDirectory)) {
        errno = s_error;
        return nullptr;
    }
    auto *entry = static_cast<SystemEntry *>(original(directory));
    if (entry != nullptr && s_hidesTypes) {
        entry->type = 0;
    }
    return entry;
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

// with _FORTIFY_SOURCE, where the compiler does not know the flags
int fortifiedOpen(const char *path, int flags) __asm__("__open_2");
int fortifiedOpen64(const char *path, int flags) __asm__("__open64_2");
int fortifiedOpenAt(int base, const char *path, int flags) __asm__("__openat_2");
int fortifiedOpenAt64(int base, const char *path, int flags) __asm__("__openat64_2");

int fortifiedOpen(const char *path, int flags)
{
    return openWatched(path, flags, 0, "open");
}

int fortifiedOpen64(const char *path, int flags)
{
    return openWatched(path, flags, 0, "open64");
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
    if (s_isDirectory[static_cast<size_t>(fd)]) {
        nameOf(fd).clear();
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

int openat(int base, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    return openAtWatched(base, path, flags, mode, "openat");
}

int openat64(int base, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    return openAtWatched(base, path, flags, mode, "openat64");
}

int fortifiedOpenAt(int base, const char *path, int flags)
{
    return openAtWatched(base, path, flags, 0, "openat");
}

int fortifiedOpenAt64(int base, const char *path, int flags)
{
    return openAtWatched(base, path, flags, 0, "openat64");
}

void *opendir(const char *path)
{
    static const auto original = next<void *(*)(const char *)>("opendir");
    if (!s_watching) {
        return original(path);
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    const std::string name = nameBelow(AT_FDCWD, path);
    if (!name.empty() && strikes(Call::OpenDirectory)) {
        errno = s_error;
        return nullptr;
    }
    void *directory = original(path);
    if (!name.empty() && directory != nullptr) {
        remember(descriptorOf(directory), name, true);
    }
    return directory;
}

int closedir(void *directory)
{
    static const auto original = next<int (*)(void *)>("closedir");
    if (s_watching) {
        const std::lock_guard<std::mutex> lock(s_mutex);
        const int fd = descriptorOf(directory);
        if (isWatched(fd)) {
            nameOf(fd).clear();
        }
    }
    return original(directory);
}

void *readdir(void *directory)
{
    return readWatched(directory, "readdir");
}

void *readdir64(void *directory)
{
    return readWatched(directory, "readdir64");
}

ssize_t getdents64(int fd, void *buffer, size_t size)
{
    static const auto original = next<ssize_t (*)(int, void *, size_t)>("getdents64");
    if (!s_watching) {
        return original(fd, buffer, size);
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (isWatched(fd) && strikes(Call::ReadDirectory)) {
        errno = s_error;
        return -1;
    }
    const ssize_t n = original(fd, buffer, size);
    if (isWatched(fd) && s_hidesTypes) {
        for (ssize_t at = 0; at < n;) {
            void *position = static_cast<char *>(buffer) + at; // aligned by the system
            auto *entry = static_cast<SystemEntry *>(position);
            entry->type = 0;
            at += entry->length;
        }
    }
    return n;
}

// One symbol for each name that the C library gives a function: with 64 bits for file offsets,
// and on 32-bit machines with 64 bits for times.
#define DEFINE_STAT(symbol) \
    int symbol(const char *path, void *info) \
    { \
        static const auto original = next<int (*)(const char *, void *)>(#symbol); \
        return callWatched(Call::Examine, AT_FDCWD, path, [=] { return original(path, info); }); \
    }
#define DEFINE_FSTAT(symbol) \
    int symbol(int fd, void *info) \
    { \
        static const auto original = next<int (*)(int, void *)>(#symbol); \
        return callWatched(Call::Examine, fd, nullptr, [=] { return original(fd, info); }); \
    }
#define DEFINE_FSTATAT(symbol) \
    int symbol(int base, const char *path, void *info, int flags) \
    { \
        static const auto original = next<int (*)(int, const char *, void *, int)>(#symbol); \
        return callWatched(Call::Examine, base, path, \
                           [=] { return original(base, path, info, flags); }); \
    }

DEFINE_STAT(stat)
DEFINE_STAT(stat64)
DEFINE_STAT(lstat)
DEFINE_STAT(lstat64)
DEFINE_FSTAT(fstat)
DEFINE_FSTAT(fstat64)
DEFINE_FSTATAT(fstatat)
DEFINE_FSTATAT(fstatat64)
#if __SIZEOF_LONG__ == 4
DEFINE_STAT(__stat64_time64)
DEFINE_STAT(__lstat64_time64)
DEFINE_FSTAT(__fstat64_time64)
DEFINE_FSTATAT(__fstatat64_time64)
#endif

int unlink(const char *path)
{
    static const auto original = next<int (*)(const char *)>("unlink");
    return callWatched(Call::Remove, AT_FDCWD, path, [=] { return original(path); });
}

int rmdir(const char *path)
{
    static const auto original = next<int (*)(const char *)>("rmdir");
    return callWatched(Call::Remove, AT_FDCWD, path, [=] { return original(path); });
}

int unlinkat(int base, const char *path, int flags)
{
    static const auto original = next<int (*)(int, const char *, int)>("unlinkat");
    return callWatched(Call::Remove, base, path, [=] { return original(base, path, flags); });
}

int syncfs(int fd)
{
    static const auto original = next<int (*)(int)>("syncfs");
    return callWatched(Call::FlushVolume, fd, nullptr, [=] { return original(fd); });
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
