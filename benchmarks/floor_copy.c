/*
 * The least work that a durable copy can be: read and write 4 MiB, fsync for each such chunk,
 * one sync at the end. Takes a file or a directory. Keeps no permissions, no times, no progress.
 */
#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

enum { CHUNK_SIZE = 4 * 1024 * 1024 };

static char chunk[CHUNK_SIZE];

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

static void copy_file(int source_directory, const char *source_name, int destination_directory,
                      const char *destination_name)
{
    const int source = openat(source_directory, source_name, O_RDONLY);
    if (source < 0) {
        give_up(source_name);
    }
    const int destination =
        openat(destination_directory, destination_name, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (destination < 0) {
        give_up(destination_name);
    }

    ssize_t n = 0;
    while ((n = read(source, chunk, sizeof chunk)) > 0) {
        write_all(destination, chunk, (size_t)n);
        if (fsync(destination) != 0) {
            give_up("fsync");
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

/* takes the source's descriptor over */
static void copy_tree(int source, int destination_parent, const char *destination_name)
{
    DIR *directory = fdopendir(source);
    if (directory == NULL) {
        give_up("fdopendir");
    }
    if (mkdirat(destination_parent, destination_name, 0777) != 0) {
        give_up(destination_name);
    }
    const int destination = openat(destination_parent, destination_name, O_RDONLY | O_DIRECTORY);
    if (destination < 0) {
        give_up(destination_name);
    }

    const struct dirent *entry = NULL;
    while ((entry = readdir(directory)) != NULL) {
        if (entry->d_name[0] == '.') {
            continue;
        }
        if (entry->d_type == DT_DIR) {
            copy_tree(openat(source, entry->d_name, O_RDONLY | O_DIRECTORY), destination,
                      entry->d_name);
        } else if (entry->d_type == DT_REG) {
            copy_file(source, entry->d_name, destination, entry->d_name);
        }
    }
    close(destination);
    closedir(directory);
}

int main(int argc, char **argv)
{
    if (argc != 3) {
        fprintf(stderr, "usage: %s SOURCE DESTINATION\n", argv[0]);
        return EXIT_FAILURE;
    }
    struct stat info;
    if (stat(argv[1], &info) != 0) {
        give_up(argv[1]);
    }
    if (S_ISDIR(info.st_mode)) {
        copy_tree(open(argv[1], O_RDONLY | O_DIRECTORY), AT_FDCWD, argv[2]);
    } else {
        copy_file(AT_FDCWD, argv[1], AT_FDCWD, argv[2]);
    }
    sync();
    return EXIT_SUCCESS;
}
