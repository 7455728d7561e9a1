# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# What Doxygen reads instead of a page: headings with the anchors that the page has elsewhere, and
# links that lead to another page, to a class, or not away from the text.

BEGIN {
    # where each class and type is, by its name and by the header that is linked
    list = "find shared host qml -name '*.h' ! -path '*/detail/*' ! -name LibraryTypes.h"
    while ((list | getline header) > 0) {
        scope = ""
        while ((getline line < header) > 0) {
            if (line ~ /^namespace .*\{$/) {
                scope = line
                gsub(/^namespace | *\{$/, "", scope)
                fallback[header] = scope
                scope = scope "::"
            } else if (line ~ /^} \/\/ namespace/) {
                scope = ""
            } else if (line ~ /^(template<.*> )?(class|struct|enum|enum class|using) .*[^;]$|^using .*;$/) {
                sub(/^template<[^>]*> /, "", line)
                sub(/^enum class /, "enum ", line)
                sub(/[A-Z_]+_EXPORT /, "", line)
                split(line, words, /[ :]+/)
                type[words[2]] = scope words[2]
                if (!(header in chief) || header ~ "/" words[2] "\\.h$")
                    chief[header] = scope words[2]
            }
        }
        close(header)
    }
}

FNR == 1 {
    directory = FILENAME ~ /(^|\/)docs\/[^\/]*$/ ? "docs/" : ""
    file = FILENAME
    sub(/.*\//, "", file)
    label = page_of(directory file)
}

/^ *```/ {
    flush_text()
    fenced = !fenced
    print
    next
}

fenced { print; next }

/^\[!\[/ { next } # a badge shows what is known where the project is hosted

/^#+ / {
    flush_text()
    anchor = FNR == 1 ? label : label "-" slug($0)
    if (anchor != "index") # which Doxygen gives it
        $0 = $0 " {#" anchor (seen[anchor]++ ? "-" seen[anchor] - 1 : "") "}"
    print
    next
}

{ text = text $0 "\n" }

END { flush_text() }

# the anchor of a heading, as the forges make it
function slug(heading)
{
    heading = tolower(heading)
    gsub(/^#+ |[^a-z0-9 _-]/, "", heading)
    gsub(/ /, "-", heading)
    return heading
}

function page_of(path)
{
    if (path == "docs/README.md")
        return "index"
    gsub(/.*\/|\.md$/, "", path)
    return tolower(path)
}

function flush_text(    found)
{
    while (match(text, /\[[^][]*\]\([^) ]*\)|`[^`]+`/)) {
        found = substr(text, RSTART, RLENGTH)
        if (substr(found, 1, 1) == "`")
            found = code(found)
        else if (RSTART == 1 || substr(text, RSTART - 1, 1) != "!")
            found = link(found)
        printf "%s%s", prose(substr(text, 1, RSTART - 1)), found
        text = substr(text, RSTART + RLENGTH)
    }
    printf "%s", prose(text)
    text = ""
}

# Qt itself is no namespace
function prose(words)
{
    gsub(/Qt[^:A-Za-z0-9]/, "%&", words)
    return words
}

function code(span,    name)
{
    name = substr(span, 2, length(span) - 2)
    return name in type ? ref(name, type[name]) : span
}

function ref(shown, target)
{
    gsub(/`/, "", shown) # Doxygen would show them
    return "[" shown "](@ref " target ")"
}

function link(whole,    shown, target, anchor, path)
{
    shown = target = whole
    sub(/\]\(.*/, "", shown)
    sub(/^\[/, "", shown)
    gsub(/\n */, " ", shown) # Doxygen takes a text of one line only
    sub(/.*\]\(/, "", target)
    sub(/\)$/, "", target)
    if (target ~ /^[a-z]+:/)
        return whole
    if (target ~ /^#/)
        return ref(shown, label "-" substr(target, 2))
    path = directory target
    sub(/^docs\/\.\.\//, "", path)
    if (path ~ /\.md#/) {
        anchor = path
        sub(/.*#/, "-", anchor)
        sub(/#.*/, "", path)
        return ref(shown, page_of(path) anchor)
    }
    if (path ~ /\.md$/)
        return ref(shown, page_of(path))
    if (path ~ /^(shared|host|qml)\/.*\.h$/)
        return ref(shown, (path in chief ? chief[path] : fallback[path]))
    # what is only in the checkout; Doxygen reports what is not even there
    if (system("test -e '" path "'") != 0)
        return ref(shown, path)
    return index(shown, path) ? shown : shown " (`" path "`)"
}
