// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

/*
 * The least work that a durable copy can be: read and write 4 MiB, fsync for each such chunk,
 * one sync at the end. Before each file it asks whether the destination's path still means the
 * directory that it writes to: one that was moved away or unmounted is noticed. A file is not
 * copied onto itself. Takes a file or a directory. Keeps no permissions, no times, no progress.
 *
 * With --names it is durable on FAT as well, where fsync of a file does not cover its name: fsync
 * of the directory for each new file, before its chunk; of each directory above, up to that of
 * the volume, once and before that; and of one after the sync, which sends the drive no flush.
 */
#include <dirent.h>
#include <fcntl.h>
#include <libgen.h>
#include <limits.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

enum { CHUNK_SIZE = 4 * 1024 * 1024 };

static char chunk[CHUNK_SIZE];
static bool with_names;

static void give_up(const char *what)
{
    perror(what);
    exit(EXIT_FAILURE);
}

static void write_all(int fd, const char *data, size_t size)
{
    while (size > 0) {
        const ssize_t n = write(fd, data, size);
        if (n < 0) {
            give_up("write");
        }
        data += n;
        size -= (size_t)n;
    }
}

static void flush(int fd)
{
    if (fsync(fd) != 0) {
        give_up("fsync");
    }
}

/* the directory that is written to, and by which path it was meant */
struct destination
{
    int directory;
    const char *path;
    struct stat info;
};

static void check_path(const struct destination *destination)
{
    struct stat info;
    if (stat(destination->path, &info) != 0) {
        give_up(destination->path);
    }
    if (info.st_dev != destination->info.st_dev || info.st_ino != destination->info.st_ino) {
        fprintf(stderr, "%s: another directory now\n", destination->path);
        exit(EXIT_FAILURE);
    }
}

static void copy_file(int source_directory, const char *source_name, const struct destination *to,
                      const char *destination_name)
{
    check_path(to);
    const int source = openat(source_directory, source_name, O_RDONLY);
    if (source < 0) {
        give_up(source_name);
    }
    const int destination = openat(to->directory, destination_name, O_WRONLY | O_CREAT, 0666);
    if (destination < 0) {
        give_up(destination_name);
    }

    struct stat from_info;
    struct stat to_info;
    if (fstat(source, &from_info) != 0 || fstat(destination, &to_info) != 0) {
        give_up("fstat");
    }
    if (from_info.st_dev == to_info.st_dev && from_info.st_ino == to_info.st_ino) {
        fprintf(stderr, "%s: is its own copy\n", source_name);
        exit(EXIT_FAILURE);
    }
    if (to_info.st_size > 0 && ftruncate(destination, 0) != 0) {
        give_up(destination_name);
    }

    bool is_named = !with_names;
    ssize_t n = 0;
    while ((n = read(source, chunk, sizeof chunk)) > 0) {
        write_all(destination, chunk, (size_t)n);
        flush(destination);
        if (!is_named) {
            flush(to->directory);
            is_named = true;
        }
    }
    if (n < 0) {
        give_up(source_name);
    }
    if (close(destination) != 0) {
        give_up("close");
    }
    close(source);
}

static int open_directory(int parent, const char *name)
{
    const int directory = openat(parent, name, O_RDONLY | O_DIRECTORY);
    if (directory < 0) {
        give_up(name);
    }
    return directory;
}

static struct destination destination_at(int directory, const char *path)
{
    struct destination destination = {.directory = directory, .path = path};
    if (fstat(directory, &destination.info) != 0) {
        give_up(path);
    }
    return destination;
}

static void make_directory(int parent, const char *name)
{
    if (mkdirat(parent, name, 0777) != 0) {
        give_up(name);
    }
}

/* all of them before the first file: the directory above is then flushed once */
static void name_subdirectories(DIR *source, int destination)
{
    bool has_any = false;
    const struct dirent *entry = NULL;
    while ((entry = readdir(source)) != NULL) {
        if (entry->d_type == DT_DIR && entry->d_name[0] != '.') {
            make_directory(destination, entry->d_name);
            has_any = true;
        }
    }
    rewinddir(source);
    if (has_any) {
        flush(destination);
    }
}

/* takes the source's descriptor over */
static void copy_tree(int source, int destination, const char *path)
{
    const struct destination to = destination_at(destination, path);
    DIR *directory = fdopendir(source);
    if (directory == NULL) {
        give_up("fdopendir");
    }
    if (with_names) {
        name_subdirectories(directory, destination);
    }

    const struct dirent *entry = NULL;
    while ((entry = readdir(directory)) != NULL) {
        if (entry->d_name[0] == '.') {
            continue;
        }
        if (entry->d_type == DT_DIR) {
            if (!with_names) {
                make_directory(destination, entry->d_name);
            }
            const int below = open_directory(destination, entry->d_name);
            char path_below[PATH_MAX];
            snprintf(path_below, sizeof path_below, "%s/%s", path, entry->d_name);
            copy_tree(open_directory(source, entry->d_name), below, path_below);
            close(below);
        } else if (entry->d_type == DT_REG) {
            copy_file(source, entry->d_name, &to, entry->d_name);
        }
    }
    closedir(directory);
}

/* the directories above on the same volume */
static void flush_above(int directory)
{
    struct stat below;
    struct stat info;
    if (fstat(directory, &below) != 0) {
        give_up("fstat");
    }
    for (int above = open_directory(directory, "..");; above = open_directory(above, "..")) {
        if (fstat(above, &info) != 0) {
            give_up("fstat");
        }
        if (info.st_dev != below.st_dev || info.st_ino == below.st_ino) {
            break;
        }
        flush(above);
        below = info;
    }
}

int main(int argc, char **argv)
{
    with_names = argc > 1 && strcmp(argv[1], "--names") == 0;
    if (argc != (with_names ? 4 : 3)) {
        fprintf(stderr, "usage: %s [--names] SOURCE DESTINATION\n", argv[0]);
        return EXIT_FAILURE;
    }
    const char *const source = argv[argc - 2];
    const char *const destination = argv[argc - 1];
    char above[PATH_MAX];
    char last[PATH_MAX];
    snprintf(above, sizeof above, "%s", destination);
    snprintf(last, sizeof last, "%s", destination);
    const char *const path_above = dirname(above);
    const char *const name = basename(last);
    const int parent = open_directory(AT_FDCWD, path_above);

    struct stat info;
    if (stat(source, &info) != 0) {
        give_up(source);
    }
    if (S_ISDIR(info.st_mode)) {
        make_directory(parent, name);
        const int copy = open_directory(parent, name);
        if (with_names) {
            flush_above(copy);
        }
        copy_tree(open_directory(AT_FDCWD, source), copy, destination);
    } else {
        if (with_names) {
            flush_above(parent);
        }
        const struct destination to = destination_at(parent, path_above);
        copy_file(AT_FDCWD, source, &to, name);
    }
    sync();
    if (with_names) {
        flush(parent);
    }
    return EXIT_SUCCESS;
}
