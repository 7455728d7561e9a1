// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Loads a library whose initialisers are hidden, and calls them itself. Prints the seconds that
// each of the two took, the bytes of memory that this process has for itself since then, and those
// that the initialisers have allocated. It is a host that is linked with all that the libraries
// need. Without a library it does nothing.

#include "benchmarks/HiddenInitialisers.h"
#include "benchmarks/Measurement.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

using namespace Tavro::Benchmarks;

namespace {

// Pages that were written to, and so are no longer those of a file. "Private_Dirty" counts those of
// files in memory, too. Allocates nothing.
long ownBytes()
{
    static char text[8192];
    const int file = ::open("/proc/self/smaps_rollup", O_RDONLY | O_CLOEXEC);
    const ssize_t size = ::read(file, text, sizeof text - 1);
    ::close(file);
    text[size > 0 ? size : 0] = '\0';
    const char *const line = std::strstr(text, "\nAnonymous:");
    return line ? std::strtol(line + std::strlen("\nAnonymous:"), nullptr, 10) * 1024 : 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2) {
        return EXIT_SUCCESS;
    }

    const long ownBefore = ownBytes();
    const double begin = now();
    void *const handle = ::dlopen(argv[1], RTLD_NOW); // as Debian has its hardened libraries loaded
    const double loaded = now();
    if (!handle) {
        fail(::dlerror());
    }

    link_map *library = nullptr;
    ::dlinfo(handle, RTLD_DI_LINKMAP, &library);
    using Initialiser = void (*)(int, char **, char **);
    const Initialiser *initialisers = nullptr;
    size_t count = 0;
    for (const ElfW(Dyn) *entry = library->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == s_hiddenInitialisersTag) {
            const ElfW(Addr) address = library->l_addr + entry->d_un.d_ptr;
            std::memcpy(&initialisers, &address, sizeof initialisers);
        } else if (entry->d_tag == DT_INIT_ARRAYSZ) {
            count = entry->d_un.d_val / sizeof(Initialiser);
        }
    }
    if (!initialisers) {
        fail("The library has no hidden initialisers");
    }
    const size_t heapBefore = ::mallinfo2().uordblks;
    const double initialising = now();
    for (size_t i = 0; i < count; ++i) {
        initialisers[i](argc, argv, environ);
    }
    const double end = now();
    const size_t heap = ::mallinfo2().uordblks - heapBefore;
    const long own = ownBytes() - ownBefore;

    std::printf("%.9f %.9f %ld %zu\n", loaded - begin, end - initialising, own, heap);
    return EXIT_SUCCESS;
}
