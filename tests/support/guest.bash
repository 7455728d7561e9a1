# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# What uml-run and vm-run have in common: their options, and what their kernels do first. To be
# sourced.

# shellcheck disable=SC2034 # for those who source it
memory=384M
# shellcheck disable=SC2034
images=() modules=() command=()

# take_options ARGUMENT...: sets what stands above
take_options()
{
    while [[ ${1-} == -* ]]; do
        case $1 in
        --memory) memory=$2 ;;
        --module) modules+=("$2") ;;
        --disk) images+=("$2") ;;
        -h | --help)
            usage
            exit 0
            ;;
        *)
            usage >&2
            exit 2
            ;;
        esac
        shift 2
    done
    if [[ $# -eq 0 ]]; then
        usage >&2
        exit 2
    fi
    command=("$@")
}

# prepare_guest WORK DISKS MODULES: WORK/init is what the kernel is to start. DISKS is how the kernel
# calls its disks, without their letter; MODULES the directory with its modules.
prepare_guest()
{
    local work=$1 disks=$2
    mkdir --parents "$work/bin" "$work/lib" "$work/scratch"
    ln --symbolic "$3" "$work/lib/modules"
    cat >"$work/bin/modprobe" <<END
#!/bin/sh
PATH=/usr/sbin:/sbin:/usr/bin:/bin exec modprobe --dirname '$work' "\$@"
END
    export -p >"$work/environment"
    cat >"$work/init" <<END
#!/bin/bash
source '$work/environment'
export PATH='$work/bin':\$PATH TMPDIR='$work/scratch'
stty -onlcr
mount -t proc proc /proc
mount -t sysfs sys /sys
if [[ -d /dev/shm ]]; then # stays this machine's, below the kernel's own devices
    mount --bind /dev/shm /mnt
    mount -t devtmpfs devices /dev
    mkdir /dev/shm
    mount --move /mnt /dev/shm
else
    mount -t devtmpfs devices /dev
fi
mkdir /dev/pts
mount -t devpts -o ptmxmode=0666 terminals /dev/pts
mount -t tmpfs scratch '$work/scratch'
echo '$work/bin/modprobe' >/proc/sys/kernel/modprobe # what a mount needs is loaded
for module in ${modules[*]}; do
    modprobe "\$module"
done
mkdir --parents /dev/disk
number=0
for disk in /sys/block/$disks?; do
    [[ -e \$disk ]] || continue
    echo 'write back' >"\$disk/queue/write_cache" # else nothing sends it a flush
    ln --symbolic "/dev/\${disk##*/}" "/dev/disk/\$((number++))"
done
cd '$PWD'
$(printf '%q ' "${command[@]}")
echo \$? >'$work/status'
sync
# this machine's own program to power off may be none at all
exec perl -e 'syscall(169, 0xfee1dead, 672274793, 0x4321fedc, 0)'
END
    chmod +x "$work/init" "$work/bin/modprobe"
}

# run_guest WORK PROGRAM...: runs the kernel's program and exits with the status of the command. Its
# processes outlive their first one: a process namespace ends with all of them, and this one with
# this script.
run_guest()
{
    local work=$1
    shift
    # not the namespace's first process: that one cannot end itself with a signal, as a crash does
    # its memory may be a file: best in memory, too
    TMPDIR=$([[ -w /dev/shm ]] && echo /dev/shm || echo "${TMPDIR:-/tmp}") \
        setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child --mount-proc \
        sh -c '"$@"; exit' sh "$@" </dev/null &
    running=$!
    wait "$running" || true
    running=
    exit "$(cat "$work/status" 2>/dev/null || echo 99)"
}

running=
# finish_guest WORK: for the script's trap
finish_guest()
{
    if [[ -n $running ]]; then
        kill -KILL "$running" 2>/dev/null || true
        wait "$running" 2>/dev/null || true
    fi
    rm --recursive --force "$1"
}

# skip_without_root: nothing that is mounted, and no image, is anybody else's
skip_without_root()
{
    if [[ $(id --user) -ne 0 ]]; then
        echo "${0##*/}: a kernel of its own needs root" >&2
        exit 77
    fi
}
