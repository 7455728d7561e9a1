// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/resource.h>
#include <time.h>

/* Bytes of memory that this process had resident at its largest. */
static inline long peak_resident_bytes(void)
{
    struct rusage usage;
    return getrusage(RUSAGE_SELF, &usage) == 0 ? usage.ru_maxrss * 1024L : 0;
}

/* Seconds that the processor has worked for this process. */
static inline double processor_seconds(void)
{
    struct timespec time;
    return clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time) == 0
        ? (double)time.tv_sec + (double)time.tv_nsec / 1e9
        : 0;
}
