# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# What a test may forget to take back: mounts, loop devices, processes and files. To be sourced.
#
# Tests run with TMPDIR set to a directory of their own. Whatever points into it afterwards is
# theirs, so other work on the same machine is never blamed.

# mounts_below DIRECTORY: the mount points in it, deepest first
mounts_below()
{
    local directory=$1 point
    while read -r _ _ _ _ point _; do
        point=$(printf '%b' "$point") # blanks are written as \040
        [[ $point == "$directory"/* ]] && printf '%s\n' "$point"
    done </proc/self/mountinfo | sort --reverse
}

# loop_devices_on DIRECTORY: the loop devices whose backing file is, or was, in it
loop_devices_on()
{
    local directory=$1 backing
    for backing in /sys/block/loop*/loop/backing_file; do
        if [[ -r $backing && $(<"$backing") == "$directory"/* ]]; then
            backing=${backing%/loop/backing_file}
            printf '/dev/%s\n' "${backing##*/}"
        fi
    done
}

# processes_of DIRECTORY: "PID command line" of the processes that were started with it as TMPDIR
processes_of()
{
    local directory=$1 environment pid
    for environment in /proc/[0-9]*/environ; do
        # somebody else's, or gone already
        if grep --quiet --null-data --line-regexp --fixed-strings "TMPDIR=$directory" \
            "$environment" 2>/dev/null; then
            pid=${environment#/proc/}
            pid=${pid%/environ}
            printf '%s %s\n' "$pid" "$(tr '\0' ' ' <"/proc/$pid/cmdline" 2>/dev/null)"
        fi
    done
}

# files_in DIRECTORY: what it contains
files_in()
{
    find "$1" -mindepth 1 -maxdepth 2 -printf '%p\n' | sort
}

# files_named_ours: what programs that ignore TMPDIR left in the system's own directory. The runs'
# own directories are not among it.
files_named_ours()
{
    find /tmp -maxdepth 1 \( -name 'ovo*' -o -name 'tst_*' \) ! -name 'ovo-test.*' \
        -user "$(id --user)" -printf '%p\n' | sort
}

# report_leftovers DIRECTORY FILES_BEFORE: names everything that is left, and fails if there is
# anything. FILES_BEFORE is what files_named_ours said before the tests.
report_leftovers()
{
    local directory=$1 files_before=$2 found='' processes=''

    # one that was told to end may take a moment
    for _ in {1..20}; do
        processes=$(processes_of "$directory")
        [[ -z $processes ]] && break
        sleep 0.1
    done

    append_leftovers 'still running' "$processes"
    append_leftovers 'still mounted' "$(mounts_below "$directory")"
    append_leftovers 'still attached' "$(loop_devices_on "$directory")"
    append_leftovers 'left in the temp directory' "$(files_in "$directory")"
    append_leftovers 'left in /tmp' \
        "$(comm -13 <(printf '%s\n' "$files_before") <(files_named_ours))"

    [[ -z $found ]] && return 0
    printf '%s' "$found" >&2
    return 1
}

# adds to the caller's "found"
append_leftovers()
{
    local what=$1 names=$2 name
    while read -r name; do
        [[ -n $name ]] && found+="  $what: $name"$'\n'
    done <<<"$names"
    return 0
}

# remove_leftovers DIRECTORY: ends, unmounts and detaches what is left, then removes the directory
remove_leftovers()
{
    local directory=$1 name
    while read -r name _; do
        [[ -n $name ]] && kill -KILL "$name" 2>/dev/null
    done < <(processes_of "$directory")
    while read -r name; do
        umount --lazy "$name"
    done < <(mounts_below "$directory")
    while read -r name; do
        losetup --detach "$name"
    done < <(loop_devices_on "$directory")
    chmod --recursive u+rwx "$directory" 2>/dev/null
    # never into a mount that could not be taken down
    rm --recursive --force --one-file-system "$directory"
}
