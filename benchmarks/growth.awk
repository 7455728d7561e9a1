# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT
#
# Reads what recordCost() has written, prints a table and the slopes in Markdown, and writes the
# curves for growth.gp to the file "curves". The size 1 is no point of a curve: it shows what a
# process needs before it has work. "unit" is what the size counts.

BEGIN {
    FS = "\t"
    least = 0.25 # MiB: the kernel counts no finer
}

!($1 in known) {
    known[$1]
    names[++name_count] = $1
}

$2 == 1 {
    idle[$1] = $4
    next
}

!($2 in listed) {
    listed[$2]
    sizes[++size_count] = $2
}

{
    milliseconds[$1, $2] = $3 * 1000
    mebibytes[$1, $2] = ($4 - idle[$1]) / 1048576
}

# three digits that count, at least
function figure(value)
{
    return sprintf(value < 1 ? "%.4f" : value < 100 ? "%.2f" : "%.0f", value)
}

function memory(name, size, value)
{
    value = mebibytes[name, size]
    return value < least ? "< " least : sprintf(value < 100 ? "%.2f" : "%.0f", value)
}

# between the ends of a curve that is straight on logarithmic axes if cost is a power of size
function slope(costs, name, from, to)
{
    return sprintf("%.2f", log(costs[name, to] / costs[name, from]) / log(to / from))
}

# from the first size at which there is something to see
function memory_slope(name, i)
{
    for (i = 1; i <= size_count && mebibytes[name, sizes[i]] < least; ++i)
        ;
    if (i > size_count)
        return "memory does not grow"
    if (i == size_count)
        return "memory only at the largest size"
    return "memory " slope(mebibytes, name, sizes[i], sizes[size_count]) \
        (i > 1 ? " from " sizes[i] " " unit " on" : "")
}

END {
    head = "| " unit " |"
    line = "| ---: |"
    for (n = 1; n <= name_count; ++n) {
        head = head " " names[n] ", ms |"
        line = line " ---: |"
    }
    for (n = 1; n <= name_count; ++n) {
        head = head " " names[n] ", MiB |"
        line = line " ---: |"
    }
    print head
    print line
    for (s = 1; s <= size_count; ++s) {
        row = "| " sizes[s] " |"
        for (n = 1; n <= name_count; ++n)
            row = row " " figure(milliseconds[names[n], sizes[s]]) " |"
        for (n = 1; n <= name_count; ++n)
            row = row " " memory(names[n], sizes[s]) " |"
        print row
    }
    print ""
    for (n = 1; n <= name_count; ++n) {
        name = names[n]
        print "- slope, " name ": time " slope(milliseconds, name, sizes[1], sizes[size_count]) ", " \
            memory_slope(name)
        print "\"" name "\"" >curves
        for (s = 1; s <= size_count; ++s) {
            seen = mebibytes[name, sizes[s]]
            print sizes[s], milliseconds[name, sizes[s]], seen < least ? least : seen >curves
        }
        print "\n" >curves
    }
}
