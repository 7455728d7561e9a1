// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Test 1.0

TestCase {
    id: root

    property url asUrl

    name: "Paths"

    function test_local_data() {
        return [
            { tag: "a path", path: "/data/section 1", local: "/data/section 1" },
            { tag: "a relative path", path: "section 1/a", local: "section 1/a" },
            { tag: "a URL", path: "file:///data/section%201", local: "/data/section 1" },
            { tag: "a URL with blanks", path: "file:///data/section 1", local: "/data/section 1" },
            { tag: "a URL in capitals", path: "FILE:///data", local: "/data" },
            { tag: "a URL of one slash", path: "file:/data", local: "/data" },
            { tag: "percent is a character of a path", path: "/data/100%25", local: "/data/100%25" },
            { tag: "percent in a URL", path: "file:///data/100%25", local: "/data/100%" },
            { tag: "number sign", path: "file:///data/%231", local: "/data/#1" },
            { tag: "question mark", path: "file:///data/a%3F", local: "/data/a?" },
            { tag: "not of ASCII", path: "file:///data/Gr%C3%B6%C3%9Fe", local: "/data/Größe" },
            { tag: "a resource", path: "qrc:/data/a%20b", local: ":/data/a b" },
            { tag: "a resource's path", path: ":/data", local: ":/data" },
            { tag: "another scheme", path: "http://host/data", local: "http://host/data" },
            { tag: "nothing", path: "", local: "" },
        ]
    }

    function test_local(row) {
        compare(Paths.local(row.path), row.local)
    }

    function test_url_data() {
        return [
            { tag: "a path", path: "/data/section 1", url: "file:///data/section%201" },
            { tag: "percent, number sign, question mark", path: "/data/100% #1?", url: "file:///data/100%25%20%231%3F" },
            { tag: "a resource", path: ":/data/a b", url: "qrc:/data/a%20b" },
            { tag: "a URL", path: "file:///data", url: "file:///data" },
            { tag: "nothing", path: "", url: "" },
        ]
    }

    function test_url(row) {
        compare(Paths.url(row.path), row.url)
        compare(Paths.local(Paths.url(row.path)), Paths.local(row.path))
    }

    function test_throughAPropertyOfTypeUrl() {
        for (const name of ["/data/section 1", "/data/100%", "/data/#1", "/data/a?", "/data/Größe"]) {
            root.asUrl = Paths.url(name)
            compare(Paths.local(root.asUrl), name)
        }
    }
}
