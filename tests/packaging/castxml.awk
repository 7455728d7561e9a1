# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# What castxml writes: an element a line, whose attributes have names.

function value(name)
{
    return match($0, " " name "=\"[^\"]*\"") \
        ? substr($0, RSTART + length(name) + 3, RLENGTH - length(name) - 4) : ""
}

# to be asked at the end, where the files stand
function isOurs(file)
{
    return pathOf[file] ~ /\/OvoSharedBase\/shared\//
}

$1 == "<File" { pathOf[value("id")] = value("name") }
$1 ~ /^<(Namespace|Class|Struct)$/ {
    nameOf[value("id")] = value("name")
    scopeOf[value("id")] = value("context")
    sizeOf[value("id")] = value("size")
    fileOf[value("id")] = value("file")
}
