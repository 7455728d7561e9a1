# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# The smallest Debian 12 there is, in a directory, and how something is run in it. Needs root.

# make_bare_debian DIRECTORY
make_bare_debian()
{
    mmdebstrap --quiet --variant=minbase bookworm "$1" \
        "${OVO_DEBIAN_MIRROR:-http://deb.debian.org/debian}"
    cp --dereference /etc/resolv.conf "$1/etc"
    # it is thrown away, and need not survive a loss of power
    echo force-unsafe-io >"$1/etc/dpkg/dpkg.cfg.d/unsafe-io"
}

# mounted DIRECTORY COMMAND...: outside of the Debian in the directory, with what a running system has
# mounted in it. The namespaces take mounts and processes along. The devices are the machine's: tests
# make loop devices.
mounted()
{
    # shellcheck disable=SC2016 # the inner shell's own
    unshare --mount --propagation private --pid --fork --kill-child \
        bash -euc '
            debian=$1
            mount --bind "$debian" "$debian" # "unshare --mount" needs the root to be a mount
            mount --rbind /dev "$debian/dev"
            mount -t tmpfs tmpfs "$debian/dev/shm"
            mount -t sysfs sysfs "$debian/sys"
            mount -t proc proc "$debian/proc"
            mount -t tmpfs tmpfs "$debian/tmp"
            mount -t proc proc /proc # of the processes in here
            exec "${@:2}"
        ' bash "$@"
}

# inside DIRECTORY COMMAND: a command line, run by the shell of the Debian in the directory
inside()
{
    mounted "$1" chroot "$1" env --ignore-environment \
        HOME=/root LANG=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin bash -c "$2"
}
