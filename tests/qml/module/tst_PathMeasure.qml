// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Test 1.0

// What DirectorySize and FreeSpace have in common, and each for itself.
Item {
    id: root

    Component {
        id: sizeOf

        DirectorySize {}
    }

    Component {
        id: spaceOf

        FreeSpace {}
    }

    Component {
        id: spyOn

        SignalSpy {}
    }

    TestCase {
        name: "PathMeasure"

        function init() {
            Host.begin()
            Host.write("a/one", 1000)
            Host.write("a/b/.two", 234)
        }

        function cleanup() {
            Host.end()
        }

        function spy(target, signalName) {
            return createTemporaryObject(spyOn, root, { target: target, signalName: signalName })
        }

        function both() {
            return [
                { tag: "DirectorySize", component: sizeOf, unknown: 0 },
                { tag: "FreeSpace", component: spaceOf, unknown: -1 },
            ]
        }

        function test_startsWithNothing_data() { return both() }
        function test_startsWithNothing(row) {
            const measure = createTemporaryObject(row.component, root)
            compare([measure.path, measure.bytes, measure.ready], ["", row.unknown, false])
            measure.refresh() // without a path there is nothing to do
            compare(measure.ready, false)
        }

        function test_resultArrives_data() { return both() }
        function test_resultArrives(row) {
            const measure = createTemporaryObject(row.component, root)
            const paths = spy(measure, "pathChanged")
            const bytes = spy(measure, "bytesChanged")
            const ready = spy(measure, "readyChanged")

            measure.path = Host.directory + "/a"
            compare([paths.count, measure.ready, measure.bytes], [1, false, row.unknown]) // not at once
            ready.wait(30000)
            compare([bytes.count, ready.count, measure.ready], [1, 1, true])

            measure.path = Host.directory + "/a" // the same
            compare([paths.count, ready.count], [1, 1])
        }

        function test_otherThreadsMeasure_data() { return both() }
        function test_otherThreadsMeasure(row) {
            Host.occupyPool()
            const measure = createTemporaryObject(row.component, root, { path: Host.directory })
            let turned = false
            Qt.callLater(() => turned = true)
            tryVerify(() => turned, 30000)
            compare(measure.ready, false) // the event loop has turned, and measured nothing
            Host.freePool()
            tryCompare(measure, "ready", true, 30000)
        }

        function test_urlIsThePath_data() { return both() }
        function test_urlIsThePath(row) {
            const measure = createTemporaryObject(row.component, root)
            measure.path = Paths.url(Host.directory + "/a")
            compare(measure.path, Host.directory + "/a")
            const paths = spy(measure, "pathChanged")
            measure.path = Host.directory + "/a"
            compare(paths.count, 0)
            tryCompare(measure, "ready", true, 30000)
        }

        function test_pathThatIsTakenAway_data() { return both() }
        function test_pathThatIsTakenAway(row) {
            const measure = createTemporaryObject(row.component, root, { path: Host.directory })
            tryCompare(measure, "ready", true, 30000)
            verify(measure.bytes !== row.unknown)
            measure.path = ""
            compare([measure.bytes, measure.ready], [row.unknown, false])
        }

        function test_sizeIsThatOfAllFiles() {
            const size = createTemporaryObject(sizeOf, root, { path: Host.directory + "/a" })
            tryCompare(size, "ready", true, 30000)
            compare(size.bytes, 1234)
        }

        function test_resultOfThePathBeforeIsDropped() {
            const size = createTemporaryObject(sizeOf, root, { path: Host.directory + "/a" })
            const bytes = spy(size, "bytesChanged")
            size.path = Host.directory + "/a/b"
            tryCompare(size, "ready", true, 30000)
            // what was begun before has ended before, or ends before this
            const other = createTemporaryObject(sizeOf, root, { path: Host.directory + "/a" })
            tryCompare(other, "ready", true, 30000)
            compare([size.bytes, bytes.count], [234, 1])
        }

        function test_refreshMeasuresAgain() {
            const size = createTemporaryObject(sizeOf, root, { path: Host.directory + "/a" })
            tryCompare(size, "ready", true, 30000)
            Host.write("a/three", 66)
            const ready = spy(size, "readyChanged")
            size.refresh()
            compare([size.bytes, size.ready], [1234, false]) // shown until the other is known
            tryCompare(size, "ready", true, 30000)
            compare([size.bytes, ready.count], [1300, 2])
        }

        function test_slotMaySetAnotherPath() {
            const size = createTemporaryObject(sizeOf, root)
            let once = true
            size.pathChanged.connect(() => {
                if (once) {
                    once = false
                    size.path = Host.directory + "/a/b"
                }
            })
            size.path = Host.directory + "/a"
            compare(size.path, Host.directory + "/a/b")
            tryCompare(size, "ready", true, 30000)
            compare(size.bytes, 234)
        }

        function test_missingDirectoryHasNothing() {
            const size = createTemporaryObject(sizeOf, root, { path: Host.directory + "/missing" })
            tryCompare(size, "ready", true, 30000)
            compare(size.bytes, 0)
        }

        function test_freeSpaceIsThatOfTheVolume() {
            const space = createTemporaryObject(spaceOf, root, { path: Host.directory })
            tryCompare(space, "ready", true, 30000)
            verify(space.bytes >= 0)
            verify(space.bytes <= Host.sizeOfVolume(Host.directory))
        }

        function test_missingPathHasNoSpace() {
            const space = createTemporaryObject(spaceOf, root, { path: Host.directory + "/missing" })
            tryCompare(space, "ready", true, 30000)
            compare(space.bytes, -1)
        }

        function test_destroyedWhileItMeasures_data() { return both() }
        function test_destroyedWhileItMeasures(row) {
            const measure = row.component.createObject(root, { path: Host.directory })
            Host.destroy(measure)
            const later = createTemporaryObject(row.component, root, { path: Host.directory })
            tryCompare(later, "ready", true, 30000)
        }
    }
}
