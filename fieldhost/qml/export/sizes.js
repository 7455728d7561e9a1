// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

.pragma library

// A number of bytes in binary units, as the jobs write them; the number by the formats of the
// current locale.
function text(formats, bytes) {
    const units = ["B", "KiB", "MiB", "GiB", "TiB"]
    let unit = 0
    let value = bytes
    while (unit < units.length - 1 && Math.round(value * 10) >= 10240) {
        value /= 1024
        ++unit
    }
    return formats.number(value, unit > 0 ? 1 : 0) + " " + units[unit]
}
