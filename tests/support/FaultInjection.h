// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace Test {

/**
 * Makes system calls on the files of one folder fail, and records them in a journal.
 *
 * The program that compiles FaultInjection.cpp defines the calls itself, for all of its libraries.
 * Only what lies below the watched folder is touched, by whatever path or descriptor it is named
 * from the moment it is opened; the folder itself counts where a directory is meant. Threads are
 * touched while any is watched.
 */
namespace FaultInjection {

enum class Call {
    Open, // open, openat; of a directory: see below
    Read,
    Write,
    Fsync, // of directories, too
    Close, // of files alone
    CreateThread,
    OpenDirectory, // opendir, and openat with O_DIRECTORY
    ReadDirectory, // readdir: once for each entry; getdents64: for each block of them
    Examine, // stat, lstat, fstat, fstatat
    Remove, // unlink, unlinkat, rmdir
    FlushVolume, // syncfs
};

/** Transfers one byte less than half, instead of failing; for Read and Write. */
constexpr int shortTransfer = -1;

/** Starts to watch files below @p folder, with all counts at zero and no fault. */
void watch(const QString &folder);
/** Watches nothing any more. */
void stop();

/** The @p n-th @p call from now on, counted from 1, fails with @p error. */
void failNth(Call call, int n, int error);
/** The same for all calls from the @p n-th on. */
void failFrom(Call call, int n, int error);
/** Directories do not tell what kind of entry a name is, as on some file systems; until stop(). */
void hideEntryTypes();
/** Whether the fault has struck. */
bool hasStruck();
/** Number of calls since watch(). */
int count(Call call);

/**
 * Appends every watched call to @p file: "open NAME", "read NAME N", "write NAME N", "fsync NAME",
 * "close NAME", with the name relative to the folder and N the bytes transferred; for directories
 * "fsync" alone.
 */
void recordTo(const QString &file);

} // namespace FaultInjection

} // namespace Test
