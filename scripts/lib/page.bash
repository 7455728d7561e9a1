# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# Tables in pages of the documentation that a script writes. To be sourced.

# write_table PAGE NAME SCRIPT FILE: replaces what PAGE has between the mark of the table NAME, which
# says that SCRIPT writes it, and the next end of a table. The rows are those of FILE; the rest of
# the page stays.
write_table()
{
    local page=$1
    awk -v first="<!-- table of $2: written by $3 -->" -v last='<!-- end of table -->' -v table="$4" '
        $0 == last { inside = 0 }
        !inside { print }
        $0 == first {
            inside = 1
            print ""
            while ((getline line < table) > 0) {
                if (line ~ /^\|/) {
                    print line
                }
            }
            print ""
        }' "$page" >"$page.new"
    mv "$page.new" "$page"
}

# write_last_run PAGE SCRIPT: the line that says when SCRIPT passed last
write_last_run()
{
    local mark="\`$2\` passed last"
    sed --in-place "s|^$mark.*|$mark on $(date --utc +%F) at $(git rev-parse --short HEAD).|" "$1"
}
