# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# Who may include whom, and which headers are installed. To be sourced, in the project's root.

# What the sources of each directory of shared/ may include besides their own: other directories, or
# single headers of them. The arrows go one way; the one header that points back includes
# nothing of ours.
declare -A uses_of=(
    [base]=''
    [clipinfo]='locale host'
    [fileops]='base filesystem host'
    [filesystem]='host'
    [input]='locale host'
    [locale]='base host shared/input/CInputType.h' # the enumeration that DataConverter answers with
    [system]='base host'
    [usb]='base host'
    [view3d]='host'
)

# The same for the directories of fieldhost/. All of them may use shared/ and host/, as installed, and
# so may qml/. fieldhost/qml registers the types of qml/ as any host does.
declare -A fieldhost_uses_of=(
    [catalog]=''
    [cli]='catalog forms jobs services translations'
    [forms]=''
    [jobs]='catalog services'
    [qml]='catalog forms jobs services translations'
    [services]=''
    [translations]=''
)

# includes_of DIRECTORY: "file:line:included path" of all includes of this project's own headers
includes_of()
{
    # Qt's headers and the system's stand in <>; ours in "", as does moc's output
    grep --recursive --line-number --include='*.h' --include='*.cpp' '^ *# *include *"' "$1" \
        | sed --quiet 's/^\([^:]*:[0-9]*:\) *# *include *"\([^"]*\)".*/\1\2/p' \
        | grep --invert-match '\.moc$'
}

# area_of PATH: "host", or the directory of shared/ that it lies in
area_of()
{
    case $1 in
    host/*) echo host ;;
    shared/OvoSharedBaseExport.h) echo export ;;
    shared/*/*) cut --delimiter=/ --fields=2 <<<"$1" ;;
    *) echo elsewhere ;;
    esac
}

# prints each include that is not among the permitted ones
check_arrows()
{
    local file line included from to
    while IFS=: read -r file line included; do
        from=$(area_of "$file")
        to=$(area_of "$included")
        if [[ $file == *.h && $file != */detail/* && $included == */detail/* ]]; then
            echo "$file:$line: a public header includes $included, which is not installed"
        elif [[ $to == elsewhere ]]; then
            echo "$file:$line: \"$included\" is neither of shared/ nor of host/, as written from the root"
        elif [[ $from == host ]]; then
            [[ $to == host ]] || echo "$file:$line: host/ includes $included"
        elif [[ $to != "$from" && $to != export ]]; then
            if [[ ! -v "uses_of[$from]" ]]; then
                echo "$file:$line: the directory $from is not in the table of scripts/lib/layout.bash"
            elif [[ " ${uses_of[$from]} " != *" $to "* && " ${uses_of[$from]} " != *" $included "* ]]; then
                echo "$file:$line: $from may not use $to"
            fi
        fi
    done < <(includes_of shared; includes_of host)

    while IFS=: read -r file line included; do
        from=$(cut --delimiter=/ --fields=2 <<<"$file")
        to=$(cut --delimiter=/ --fields=2 <<<"$included")
        if [[ $included == */detail/* ]]; then
            echo "$file:$line: $included is not installed, so no host can use it"
        elif [[ $included == fieldhost/* ]]; then
            if [[ ! -v "fieldhost_uses_of[$from]" ]]; then
                echo "$file:$line: fieldhost/$from is not in the table of scripts/lib/layout.bash"
            elif [[ $to != "$from" && " ${fieldhost_uses_of[$from]} " != *" $to "* ]]; then
                echo "$file:$line: fieldhost/$from may not use fieldhost/$to"
            elif [[ $file == fieldhost/qml/*/* && $included == fieldhost/qml/*/* \
                && $included != "$(dirname "$file")"/* && $included != fieldhost/qml/look/* ]]; then
                echo "$file:$line: a screen may not use another one, here $included"
            fi
        elif [[ $file == fieldhost/qml/* && $included == qml/OvoSharedBaseTypes.h ]]; then
            : # the only header of the module that is installed
        elif [[ $(area_of "$included") == elsewhere ]]; then
            echo "$file:$line: \"$included\" is neither of fieldhost/ nor of shared/ or host/"
        fi
    done < <(includes_of fieldhost)

    while IFS=: read -r file line included; do
        if [[ $included == */detail/* ]]; then
            echo "$file:$line: $included is not installed, so the module cannot use it"
        elif [[ $included != qml/* && $(area_of "$included") == elsewhere ]]; then
            echo "$file:$line: \"$included\" is neither of qml/ nor of shared/ or host/"
        fi
    done < <(includes_of qml)

    grep --recursive --line-number --extended-regexp \
        '^ *# *include *[<"].*(fieldhost|tests|benchmarks)/' shared host qml \
        | sed 's/$/ (the library knows nobody who uses it)/'
}

# words_of FILE FIRST LAST: what stands in FILE between the lines that begin with FIRST and LAST
words_of()
{
    awk -v first="$2" -v last="$3" '
        $1 ~ first { inside = 1; next }
        $1 ~ last { inside = 0 }
        inside { sub(/\).*/, ""); if (NF) print $1 }' "$1" | sort
}

# prints the headers that are listed wrongly: all but those of detail/ are installed
check_installed_headers()
{
    local directory
    for directory in shared/*/; do
        diff --label "listed in ${directory}CMakeLists.txt" --label "in $directory" --unified=0 \
            <(words_of "${directory}CMakeLists.txt" '^PUBLIC_HEADERS' '^SOURCES') \
            <(find "$directory" -name '*.h' ! -path '*/detail/*' -printf '%P\n' | sort)
        grep --quiet --line-regexp "add_subdirectory($(basename "$directory"))" shared/CMakeLists.txt \
            || echo "shared/CMakeLists.txt lacks $directory"
    done
    diff --label 'listed in host/CMakeLists.txt' --label 'in host/' --unified=0 \
        <(words_of host/CMakeLists.txt '^set\\(host_headers' '^[a-z]') \
        <(find host -name '*.h' -printf '%P\n' | sort)
}
