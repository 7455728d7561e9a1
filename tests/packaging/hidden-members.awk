# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# After castxml.awk: the classes that show private members other than a pointer "d" at their end, and
# the QObjects that have no such pointer.

$1 == "<PointerType" { pointerSize = value("size") }
$1 == "<Method" && value("name") == "qt_metacall" {
    isObject[value("context")] = 1
}
$1 == "<Field" && value("access") == "private" {
    members[value("context")] = members[value("context")] " " value("name")
    lastOffset[value("context")] = value("offset")
}

END {
    for (id in members) {
        if (!isOurs(fileOf[id])) {
            continue
        }
        if (members[id] != " d") {
            print nameOf[id] members[id]
        } else if (lastOffset[id] + pointerSize != sizeOf[id]) {
            print nameOf[id] " is larger than up to its d"
        }
    }
    for (id in isObject) {
        if (isOurs(fileOf[id]) && !(id in members)) {
            print nameOf[id] " without d"
        }
    }
}
