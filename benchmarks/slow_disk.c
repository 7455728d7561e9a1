// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

/*
 * A disk that behaves like a memory stick: one file in a FUSE file system, kept in memory, meant
 * to be the backing file of a loop device. Every transfer takes its time at the given rate and
 * every flush its latency, one after the other, as on a device with one channel.
 *
 *     slow_disk MOUNT_POINT BYTES READ_BYTES_PER_SECOND WRITE_BYTES_PER_SECOND FLUSH_SECONDS
 *
 * Runs in the foreground until the mount point is unmounted. The file's name is "disk".
 */
#define FUSE_USE_VERSION 35

#include <errno.h>
#include <fuse.h>
#include <sched.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <time.h>

static const char disk_path[] = "/disk";

static char *content;
static off_t content_size;
static double read_rate;
static double write_rate;
static double flush_latency;

/* seconds on the monotonic clock at which the device has done what it was given */
static double busy_until;

static double now(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec + (double)time.tv_nsec / 1e9;
}

/* Sleeps to a point in time, not for a duration: what a sleep takes too long is not added up. */
static void occupy(double seconds)
{
    const double start = now();
    /* a device that was idle a moment ago has not saved that time */
    if (busy_until < start) {
        busy_until = start;
    }
    busy_until += seconds;
    struct timespec end;
    end.tv_sec = (time_t)busy_until;
    end.tv_nsec = (long)((busy_until - (double)end.tv_sec) * 1e9);
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &end, NULL) == EINTR) { }
}

static int disk_getattr(const char *path, struct stat *info, struct fuse_file_info *file)
{
    (void)file;
    memset(info, 0, sizeof *info);
    if (strcmp(path, "/") == 0) {
        info->st_mode = S_IFDIR | 0700;
        info->st_nlink = 2;
        return 0;
    }
    if (strcmp(path, disk_path) != 0) {
        return -ENOENT;
    }
    info->st_mode = S_IFREG | 0600;
    info->st_nlink = 1;
    info->st_size = content_size;
    return 0;
}

static int disk_open(const char *path, struct fuse_file_info *file)
{
    if (strcmp(path, disk_path) != 0) {
        return -ENOENT;
    }
    /* no cache of the kernel's between the loop device and this disk */
    file->direct_io = 1;
    return 0;
}

static size_t clip(size_t size, off_t offset)
{
    if (offset >= content_size) {
        return 0;
    }
    const size_t rest = (size_t)(content_size - offset);
    return size < rest ? size : rest;
}

static int disk_read(const char *path, char *data, size_t size, off_t offset,
                     struct fuse_file_info *file)
{
    (void)path;
    (void)file;
    const size_t n = clip(size, offset);
    memcpy(data, content + offset, n);
    occupy((double)n / read_rate);
    return (int)n;
}

static int disk_write(const char *path, const char *data, size_t size, off_t offset,
                      struct fuse_file_info *file)
{
    (void)path;
    (void)file;
    const size_t n = clip(size, offset);
    if (n == 0 && size > 0) {
        return -ENOSPC;
    }
    memcpy(content + offset, data, n);
    occupy((double)n / write_rate);
    return (int)n;
}

static int disk_fsync(const char *path, int data_only, struct fuse_file_info *file)
{
    (void)path;
    (void)data_only;
    (void)file;
    occupy(flush_latency);
    return 0;
}

static const struct fuse_operations operations = {
    .getattr = disk_getattr,
    .open = disk_open,
    .read = disk_read,
    .write = disk_write,
    .fsync = disk_fsync,
};

int main(int argc, char **argv)
{
    if (argc != 6) {
        fprintf(stderr, "usage: %s MOUNT_POINT BYTES READ_RATE WRITE_RATE FLUSH_SECONDS\n",
                argv[0]);
        return EXIT_FAILURE;
    }
    content_size = (off_t)strtoll(argv[2], NULL, 10);
    read_rate = strtod(argv[3], NULL);
    write_rate = strtod(argv[4], NULL);
    flush_latency = strtod(argv[5], NULL);
    if (content_size <= 0 || read_rate <= 0 || write_rate <= 0 || flush_latency < 0) {
        fprintf(stderr, "%s: size and rates must be positive numbers\n", argv[0]);
        return EXIT_FAILURE;
    }
    content = mmap(NULL, (size_t)content_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS,
                   -1, 0);
    if (content == MAP_FAILED) {
        perror("mmap");
        return EXIT_FAILURE;
    }

    /* A device does not wait for the processor. Without the right to this it has to, and the
       figures are noisier; it sleeps nearly all the time, so nobody is kept waiting. */
    const struct sched_param priority = {.sched_priority = 10};
    if (sched_setscheduler(0, SCHED_FIFO, &priority) != 0) {
        perror("slow_disk: no real-time priority");
    }

    /* in the foreground, and one request after the other */
    char *fuse_arguments[] = {argv[0], "-f", "-s", argv[1], NULL};
    return fuse_main(4, fuse_arguments, &operations, NULL);
}
