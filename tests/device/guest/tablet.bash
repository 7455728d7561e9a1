# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# What the trial's scripts on the tablet have in common. To be sourced there, in the project's root;
# OVO_BUILD names the build directory.

fieldhost=$OVO_BUILD/fieldhost/cli/ovo-fieldhost
workload=$OVO_BUILD/tests/trial/trial_workload
# shellcheck disable=SC2034 # for those who source this
source=/dev/shm/source # what is copied
drive=/media/usbdrive
device=/dev/sda1
ports=(/dev/vport*)
exec {host}<>"${ports[0]}"

problems=0
fail()
{
    echo "FAILED: $*"
    problems=$((problems + 1))
}

# ask REQUEST: what the machine is to do with its stick (see tests/device/machine); sets answer
ask()
{
    echo "$*" >&"$host"
    read -r answer <&"$host"
    [[ $answer == done* ]] || fail "$*: $answer"
}

plug()
{
    ask "plug $*"
    udevadm wait --timeout=60 --settle "$device" || fail "there is no $device"
}

pull()
{
    ask pull
    udevadm wait --timeout=60 --settle --removed "$device" || fail "$device is still there"
}

# run ARGUMENT...: ovo-fieldhost, with its output in output and its exit code in status; the most
# memory that it had at any time goes into peak, in KiB that busybox takes for pages
peak=0
run()
{
    busybox time -f 'peak %M' -o /run/peak "$fieldhost" "$@" >/run/output 2>&1
    status=$?
    output=$(</run/output)
    local word memory
    read -r word memory < <(grep '^peak ' /run/peak)
    [[ $word == peak && $memory -gt $peak ]] && peak=$memory
    printf '%s\n' "\$ ovo-fieldhost $*" "$output" "= $status"
}

# expect STATUS TEXT: what the last run has said; TEXT is a part of it
expect()
{
    [[ $status -eq $1 ]] || fail "exit code $status, not $1"
    [[ $output == *"$2"* ]] || fail "does not say: $2"
}

# dirty_byte TYPE: its place in the boot sector, as far as the library knows it
dirty_byte()
{
    case $1 in
    fat32) echo 65 ;;
    fat16) echo 37 ;;
    esac
}

# byte_at OFFSET: what the stick holds, not what the kernel remembers
byte_at()
{
    dd if="$device" iflag=direct bs=512 count=1 status=none | od -An -tu1 -j "$1" -N 1 | tr -d ' '
}

# set_byte OFFSET VALUE: without the knowledge of a file system that is mounted
set_byte()
{
    printf '%b' "\\$2" | dd of="$device" bs=1 seek="$1" conv=notrunc,fsync status=none
}

# expect_byte OFFSET VALUE WHEN
expect_byte()
{
    local value
    value=$(byte_at "$1")
    [[ $value == "$2" ]] || fail "the dirty byte is $value, not $2, $3"
}

expect_not_mounted()
{
    ! grep --quiet " $drive " /proc/self/mounts || fail "$drive is still mounted"
    [[ -z $(ls -A "$drive") ]] || fail "there is data below $drive: $(ls -A "$drive")"
}

# a regular file of its name would take the place of the next drive's node
expect_no_device()
{
    [[ ! -e $device ]] || fail "there is something in the place of the drive: $(ls -l "$device")"
}

# check_volume TYPE: of the drive, not mounted
check_volume()
{
    case $1 in
    fat*) fsck.fat -n "$device" ;;
    exfat) fsck.exfat -n "$device" ;;
    esac
}

# plan_of SOURCE NAME: what the judge has to know of a copy with that name on the drive
plan_of()
{
    "$workload" plan "$1" "$2" >/run/plan
}

# judge REPORT TYPE: mounts the drive and looks for what had been reported. Adds to reported and
# lost, and to found, what only a check of the volume has found.
reported=0 lost=0 found=0
judge()
{
    local before after
    mount "$device" || fail 'the drive cannot be mounted'
    "$workload" judge /run/plan "$drive" <"$1" >/run/verdict || fail 'the judge has failed'
    umount "$device"
    read -r _ before </run/verdict
    if [[ $before -gt 0 && $2 == fat* ]]; then # a directory that was growing, see docs/durability.md
        fsck.fat -a "$device"
        mount "$device"
        "$workload" judge /run/plan "$drive" <"$1" >/run/verdict
        umount "$device"
    fi
    local all
    read -r all after </run/verdict
    cat /run/verdict
    reported=$((reported + all)) lost=$((lost + after)) found=$((found + before - after))
    [[ $after -eq 0 ]] || fail "$after of $all that were reported are lost"
}

# uptime_now: in seconds; other clocks are set by the trial
uptime_now()
{
    cut --delimiter=. --fields=1 /proc/uptime
}

# row WHAT FILE_SYSTEM TIMES: a line of the table, with what was counted since the last one
begun=$(uptime_now)
row()
{
    local now
    now=$(uptime_now)
    printf '%s\t' "$@" "$reported" "$lost" "$found" "$((now - begun))" >>/machine/rows
    printf '%s\n' "$((peak / 4 / 1024))" >>/machine/rows
    begun=$now peak=0 reported=0 lost=0 found=0
}

finish()
{
    [[ $problems -eq 0 ]] || echo "$problems FAILED"
    exit "$((problems > 0))"
}
