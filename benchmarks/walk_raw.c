// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

/*
 * The least work that a walk over a tree can be: opendir, readdir and fstatat, adding sizes up.
 * Prints the seconds it took, the bytes by which memory grew at most, and what it counted.
 */
#include "benchmarks/resident.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

static long long files;
static long long bytes;

/* takes the descriptor over */
static void walk(int fd)
{
    DIR *directory = fdopendir(fd);
    if (directory == NULL) {
        perror("fdopendir");
        exit(EXIT_FAILURE);
    }
    const struct dirent *entry = NULL;
    while ((entry = readdir(directory)) != NULL) {
        if (entry->d_name[0] == '.') {
            continue;
        }
        struct stat info;
        if (entry->d_type == DT_DIR) {
            walk(openat(fd, entry->d_name, O_RDONLY | O_DIRECTORY));
        } else if (fstatat(fd, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) == 0) {
            ++files;
            bytes += info.st_size;
        }
    }
    closedir(directory);
}

int main(int argc, char **argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return EXIT_FAILURE;
    }
    struct timespec begin;
    struct timespec end;
    const long before = peak_resident_bytes();
    clock_gettime(CLOCK_MONOTONIC, &begin);
    walk(open(argv[1], O_RDONLY | O_DIRECTORY));
    clock_gettime(CLOCK_MONOTONIC, &end);
    const double seconds =
        (double)(end.tv_sec - begin.tv_sec) + (double)(end.tv_nsec - begin.tv_nsec) / 1e9;
    printf("%.9f %ld %lld %lld\n", seconds, peak_resident_bytes() - before, files, bytes);
    return EXIT_SUCCESS;
}
