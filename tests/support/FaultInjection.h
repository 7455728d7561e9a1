#pragma once

#include <QString>
#include <QStringList>

namespace Test {

/**
 * Makes system calls on the files of one folder fail, and records them in a journal.
 *
 * The program that compiles FaultInjection.cpp defines open, read, write, fsync, close and
 * pthread_create itself, for all of its libraries. Only files opened by a path below the watched
 * folder are touched, from the moment they are opened; threads are touched while any is watched.
 */
namespace FaultInjection {

enum class Call { Open, Read, Write, Fsync, Close, CreateThread };

/** Transfers one byte less than half, instead of failing; for Read and Write. */
constexpr int shortTransfer = -1;

/** Starts to watch files below @p folder, with all counts at zero and no fault. */
void watch(const QString &folder);
/** Watches nothing any more. */
void stop();

/** The @p n-th @p call from now on, counted from 1, fails with @p error. */
void failNth(Call call, int n, int error);
/** Whether the fault has struck. */
bool hasStruck();
/** Number of calls since watch(). */
int count(Call call);

/**
 * Appends every watched call to @p file: "open NAME", "read NAME N", "write NAME N", "fsync NAME",
 * "close NAME", with the name relative to the folder and N the bytes transferred.
 */
void recordTo(const QString &file);

} // namespace FaultInjection

} // namespace Test
