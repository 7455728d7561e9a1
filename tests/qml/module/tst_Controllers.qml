// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Test 1.0

Item {
    id: root

    property var states: []
    property var wholeInHandler: []

    Component {
        id: copyComponent

        CFileCopyController {
            property CopyResult result: CopyResult {}

            // before the result is connected: its properties are those of this run nevertheless
            onOperationCompleted: root.wholeInHandler.push(result.whole)
            onOperationCanceled: root.wholeInHandler.push(result.canceled)
            onStateChanged: root.states.push(state)
            Component.onCompleted: result.controller = this
        }
    }

    Component {
        id: deleteComponent

        CFileDeleteController {
            property DeleteResult result: DeleteResult {}

            onStateChanged: root.states.push(state)
            Component.onCompleted: result.controller = this
        }
    }

    Component {
        id: spyOn

        SignalSpy {}
    }

    TestCase {
        name: "Controllers"

        property var copy
        property var deletion
        property string source
        property string destination

        function init() {
            Host.begin()
            root.states = []
            root.wholeInHandler = []
            source = Host.directory + "/source"
            destination = Host.directory + "/destination"
            Host.write("source/project.txt", 10)
            Host.write("source/section 1/video", 5000000)
            copy = createTemporaryObject(copyComponent, root)
            deletion = createTemporaryObject(deleteComponent, root)
        }

        function cleanup() {
            copy = null
            deletion = null
            Host.end()
        }

        function spy(target, signalName) {
            return createTemporaryObject(spyOn, root, { target: target, signalName: signalName })
        }

        function test_copyWithProgress() {
            const completed = spy(copy, "operationCompleted")
            const processed = spy(copy, "processedBytesChanged")
            const directories = spy(copy, "processingDirectoryChanged")
            const results = spy(copy.result, "changed")
            compare([copy.state, copy.totalBytes, copy.processedBytes],
                    [CFileCopyController.StateIdle, 0, 0])

            copy.copyDirectory(source, destination)
            completed.wait(30000)

            verify(Host.same(source, destination))
            compare(copy.totalBytes, 5000010)
            compare(copy.processedBytes, 5000010)
            compare(processed.count, 3) // 4 MiB and the rest of the video, and the text
            compare(directories.count, 1)
            compare(copy.processingDirectory, "destination")
            compare(root.states, [CFileCopyController.StateEnumeratingFiles,
                                  CFileCopyController.StateCheckingSize,
                                  CFileCopyController.StateCopying,
                                  CFileCopyController.StateIdle])
            compare(results.count, 1)
            compare([copy.result.whole, copy.result.files, copy.result.bytes, copy.result.error],
                    [true, 2, 5000010, CFileCopyController.ErrorNone])
            compare([copy.result.path, copy.result.reason, copy.result.systemError], ["", "", 0])
            verify(copy.result.errorCode.isNoError)
            compare(root.wholeInHandler, [true])
        }

        // the copy waits before it closes its last file
        function pauseInTheLastChunk() {
            Host.holdSync()
            copy.copyDirectory(source, destination)
            tryVerify(Host.isSyncing, 30000)
            copy.pause()
            Host.letSyncGo()
            tryCompare(copy, "processedBytes", 5000010, 30000)
        }

        function test_pausedCopyIsResumed() {
            const completed = spy(copy, "operationCompleted")
            pauseInTheLastChunk()
            compare(completed.count, 0)
            copy.resume()
            completed.wait(30000)
            verify(Host.same(source, destination))
        }

        function test_pausedCopyIsAborted() {
            const canceled = spy(copy, "operationCanceled")
            const results = spy(copy.result, "changed")
            pauseInTheLastChunk()
            copy.abort()
            canceled.wait(30000)
            compare(results.count, 1)
            compare(Host.exists(destination), false)
            verify(Host.exists(source + "/project.txt"))
            compare([copy.result.whole, copy.result.canceled], [false, true])
            compare(root.wholeInHandler, [true])
        }

        function test_copyThatFallsShort() {
            const completed = spy(copy, "operationCompleted")
            copy.copyDirectory(source + "/missing", destination)
            completed.wait(30000)
            compare(root.wholeInHandler, [false])
            compare([copy.result.whole, copy.result.canceled, copy.result.files], [false, false, 0])
            compare(copy.result.error, CFileCopyController.ErrorSourceFileOpenFailed)
            compare(copy.result.path, source + "/missing")
            compare(copy.result.systemError, 2)
            compare(copy.result.reason, "No such file or directory")
            compare(copy.result.errorCode.isNoError, false)
            compare(copy.result.errorCode.errorCode >>> 0, 0x000B0101)
        }

        function test_severalDirectoriesAndOneFile() {
            const completed = spy(copy, "operationCompleted")
            copy.copyDirectories([source, source + "/section 1"], [destination, destination + " 2"])
            completed.wait(30000)
            verify(Host.same(source, destination))
            verify(Host.same(source + "/section 1", destination + " 2"))

            copy.copyDatabaseFile(source + "/project.txt", destination + "/copy.txt")
            completed.wait(30000)
            compare(Host.tree(destination), ["copy.txt", "project.txt", "section 1/", "section 1/video"])
            verify(copy.result.whole)

            copy.copyFile(source + "/project.txt", destination + "/another.txt") // blocks
            verify(Host.exists(destination + "/another.txt"))

            copy.reset()
            compare([copy.totalBytes, copy.processedBytes], [0, 0])
        }

        function test_pathsOfUrls() {
            const completed = spy(copy, "operationCompleted")
            copy.copyDirectory(Paths.local(Paths.url(source + "/section 1")),
                               Paths.local(Paths.url(destination)))
            completed.wait(30000)
            compare(Host.tree(destination), ["video"])
        }

        function test_deletionWithItsResult() {
            const results = spy(deletion.result, "changed")
            deletion.deleteDirectory(source)
            compare(deletion.state, CFileDeleteController.StateEnumeratingFiles)
            tryCompare(deletion, "state", CFileDeleteController.StateIdle, 30000)
            compare(Host.exists(source), false)
            compare(root.states, [CFileDeleteController.StateEnumeratingFiles,
                                  CFileDeleteController.StateDeleting,
                                  CFileDeleteController.StateIdle])
            compare([deletion.processedBytes, deletion.totalBytes], [0, 0])
            compare(results.count, 1)
            compare([deletion.result.whole, deletion.result.files, deletion.result.bytes],
                    [true, 2, 5000010])
        }

        function test_deletionThatFallsShort() {
            const file = source + "/project.txt"
            deletion.deleteDirectories([file])
            tryCompare(deletion, "state", CFileDeleteController.StateIdle, 30000)
            verify(Host.exists(file))
            compare(deletion.result.whole, false)
            compare(deletion.result.error, CFileDeleteController.ErrorDirectoryDeletionFailed)
            compare(deletion.result.path, file)
            compare(deletion.result.errorCode.errorCode >>> 0, 0x000B0203)
        }

        function test_abortedDeletionDeletesNothing() {
            // on a slow machine an abort may come too late
            for (let attempt = 0; attempt < 50; ++attempt) {
                Host.write("source/project.txt", 10)
                Host.write("source/section 1/video", 5000000)
                deletion.deleteDirectory(source)
                deletion.pause()
                deletion.abort()
                tryCompare(deletion, "state", CFileDeleteController.StateIdle, 30000)
                if (Host.exists(source + "/project.txt"))
                    break
            }
            verify(Host.exists(source + "/project.txt"))
            compare([deletion.result.whole, deletion.result.canceled], [false, true])
        }

        function test_resultsWithoutAController_data() {
            return [{ tag: "copy", of: "copy" }, { tag: "deletion", of: "deletion" }]
        }

        function test_resultsWithoutAController(row) {
            const controller = row.of === "copy" ? copy : deletion
            const result = controller.result
            const controllers = spy(result, "controllerChanged")
            const results = spy(result, "changed")
            result.controller = controller // the same
            compare([controllers.count, results.count], [0, 0])
            result.controller = null
            compare([controllers.count, results.count], [1, 1])
            compare([result.whole, result.files, result.path], [true, 0, ""])
        }

        function test_resultOutlivesItsController() {
            const other = copyComponent.createObject(root)
            const result = copy.result
            result.controller = other
            Host.destroy(other)
            compare(result.controller, null)
            compare(result.whole, true)
        }

        function test_formerControllerSaysNothingMore() {
            const completed = spy(copy, "operationCompleted")
            const results = spy(copy.result, "changed")
            copy.result.controller = null
            results.clear()
            copy.copyDirectory(source, destination)
            completed.wait(30000)
            compare(results.count, 0)
        }
    }
}
