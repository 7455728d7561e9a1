# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# What the package tests share. CTest sets CMAKE, CXX, CXXFLAGS and the OVO_ variables.

fail()
{
    printf 'FAIL: %s\n' "$*" >&2
    exit 1
}

# expect_equal WHAT EXPECTED ACTUAL: of several lines, shows those that differ
expect_equal()
{
    [[ $2 == "$3" ]] && return 0
    diff --label expected --label actual --unified <(printf '%s\n' "$2") <(printf '%s\n' "$3") >&2
    fail "$1"
}

# readme_block TEXT: the fenced block of README that follows the first line with TEXT
readme_block()
{
    awk -v text="$1" '
        index($0, text) { found = 1; next }
        found && /^```/ { if (inside) exit; inside = 1; next }
        inside' "$OVO_SOURCE_DIR/README.md"
}

# headers_in FOLDER: relative to it, sorted
headers_in()
{
    (cd "$1" && find . -name '*.h' -printf '%P\n' | sort)
}

# of_headers NAME: what NAME.awk makes of castxml's description of the installed headers of shared/
of_headers()
{
    local include=$OVO_PREFIX/include/OvoSharedBase folder=$OVO_SOURCE_DIR/tests/packaging cflags
    export PKG_CONFIG_PATH=$OVO_PREFIX/$OVO_LIBDIR/pkgconfig
    read -r -a cflags <<<"$(pkg-config --cflags OvoSharedBase)"

    headers_in "$include/shared" | sed 's/.*/#include "shared\/&"/' >"$scratch/headers.cpp"
    # the compiler's own headers use the two kinds of deallocation, which castxml's has turned off
    castxml --castxml-cc-gnu '(' "$CXX" -std=c++17 -fPIC ')' --castxml-output=1 \
        --castxml-start Tavro -std=c++17 -fsized-deallocation -faligned-allocation -w \
        "${cflags[@]}" -o "$scratch/headers.xml" "$scratch/headers.cpp" \
        || fail 'castxml does not understand the headers'
    awk -f "$folder/castxml.awk" -f "$folder/$1.awk" "$scratch/headers.xml" | LC_ALL=C sort
}

# run_copy_example PROGRAM: has it copy a tree and compares
run_copy_example()
{
    local program=$1 source=$scratch/source destination=$scratch/destination output

    mkdir --parents "$source/section 1/empty"
    printf 'Ø 300 mm\n' >"$source/project.txt"
    head --bytes=5000000 /dev/urandom >"$source/section 1/video"

    rm --recursive --force "$destination"
    output=$("$program" "$source" "$destination") || fail "$program failed: $output"
    diff --recursive "$source" "$destination" || fail "$program copied something else"
    expect_equal "the last lines of the program" \
        $'5000010 of 5000010 bytes\ncopied' "$(tail --lines=2 <<<"$output")"

    # without a source there is nothing to copy; without a right to write the copy falls short
    output=$("$program" "$source" /proc/nowhere) \
        && fail "$program was content with a destination that cannot be: $output"
    [[ $output == *'not whole: /proc/nowhere'* ]] || fail "unexpected output: $output"
    output=$("$program" "$scratch/missing" "$destination") \
        && fail "$program was content with a source that is missing: $output"
    expect_equal 'what is said of a missing source' \
        "the copy is not whole: $scratch/missing: No such file or directory" "$(tail --lines=1 <<<"$output")"
}

# run_copy_window PROGRAM: has it copy the tree of run_copy_example, shows it nowhere and compares
run_copy_window()
{
    local program=$1 window outcome=''

    mkfifo "$scratch/outcome"
    XDG_RUNTIME_DIR=$scratch QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software \
        "$program" "$scratch/source" "$scratch/shown" >"$scratch/outcome" 2>"$scratch/complaints" &
    window=$!
    # the window stays when the copy is done
    read -r -t 60 outcome <"$scratch/outcome" || true
    kill "$window" 2>/dev/null || true
    wait "$window" || true
    rm "$scratch/outcome"
    expect_equal "what $program says" copied "$outcome"
    expect_equal "what $program complains of" '' "$(<"$scratch/complaints")"
    diff --recursive "$scratch/source" "$scratch/shown" || fail "$program copied something else"
    rm --recursive "$scratch/shown"
}

scratch=$(mktemp --directory)
trap 'chmod --recursive u+w "$scratch"; rm --recursive --force "$scratch"' EXIT
