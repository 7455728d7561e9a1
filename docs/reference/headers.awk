# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# What Doxygen reads instead of a header. Each line keeps its number.

BEGIN {
    while ((getline line < ARGV[1]) > 0)
        header = header line "\n"
}

# a constructor that takes only a parent means the same in every class
/explicit [A-Za-z0-9]*\(QObject \*parent = nullptr\);/ {
    sub(/explicit/, "/** Belongs to @p parent, or else to the caller. */ &")
}

# in prose neither is a namespace
/^ *(\/\*)?\*/ { gsub(/Qt[^:A-Za-z0-9]|Base class/, "%&") }

# which Qt's index would have documented here
/^ *using QObject::QObject;/ { $0 = "" }

# a property is documented where its reader is
/^ *Q_PROPERTY\(/ {
    property = $0
    blank = ""
    while (property !~ /\)$/ && (getline line) > 0) {
        sub(/^ */, " ", line)
        property = property line
        blank = blank "\n"
    }
    sub(/\( */, "(", property)
    print documentation(property) property blank
    next
}

{ print }

function documentation(property,    words, count, i, reader, more)
{
    count = split(property, words, /[ ()]+/)
    for (i = 1; i < count; ++i) {
        if (words[i] == "READ")
            reader = words[i + 1] "()"
        else if (words[i] == "WRITE")
            more = more "<br>Written by " words[i + 1] "()."
        else if (words[i] == "NOTIFY")
            more = more "<br>Notified by " words[i + 1] "()."
        else if (words[i] == "CONSTANT")
            more = more "<br>Constant."
    }
    # without "const" Doxygen takes the property itself for what is to be copied
    if (index(header, reader " const"))
        return "/** @brief @copybrief " reader " const @details @copydetails " reader " const " more " */"
    return "/** @brief What " reader " returns. @details " more " */"
}
