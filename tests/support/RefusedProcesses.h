// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/types.h>

#include <vector>

namespace Test {

/**
 * A system that makes no more processes, for as long as the object lives. One at a time.
 *
 * The test that uses it lists its source: it defines functions of the system for the program. One
 * of them is kill(), which reaches nobody but single processes there, at any time.
 */
class RefusedProcesses
{
public:
    /** The next @p times attempts fail with @p error, later ones do not. */
    explicit RefusedProcesses(int error, int times = 1'000'000);
    ~RefusedProcesses();

    RefusedProcesses(const RefusedProcesses &) = delete;
    RefusedProcesses &operator=(const RefusedProcesses &) = delete;

    /** How many attempts have been refused so far. */
    int count() const;
    /** Numbers below 1 that kill() was called with: each means more than one process. */
    static std::vector<pid_t> killedGroups();
};

} // namespace Test
