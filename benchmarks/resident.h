#pragma once

#include <sys/resource.h>

/* Bytes of memory that this process had resident at its largest. */
static inline long peak_resident_bytes(void)
{
    struct rusage usage;
    return getrusage(RUSAGE_SELF, &usage) == 0 ? usage.ru_maxrss * 1024L : 0;
}
