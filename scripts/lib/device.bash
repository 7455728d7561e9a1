# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# What takes long to make for the emulated tablet is kept between runs. To be sourced, in the
# project's root.

device_cache=${XDG_CACHE_HOME:-$HOME/.cache}/ovo-device

# keep NAME COMMAND...: runs "COMMAND... PATH", which makes PATH, and keeps that as NAME. Nothing is
# done where the same script has made NAME before of the same words, and of the same things kept.
keep()
{
    local path=$device_cache/$1 key
    shift
    mkdir --parents "$device_cache"
    key=$({ printf '%s\n' "$@"; cat "$1"; cat "${@/%/.key}" 2>/dev/null || true; } | sha256sum)
    (
        flock 9
        [[ ! -e $path || $(cat "$path.key" 2>/dev/null) != "$key" ]] || exit 0
        rm --recursive --force --one-file-system "$path" "$path.new" "$path.key"
        "$@" "$path.new" || exit
        mv "$path.new" "$path"
        printf '%s\n' "$key" >"$path.key"
    ) 9>"$path.lock"
}
