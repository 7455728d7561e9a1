// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import OvoFieldHost 1.0
import OvoSharedBase 1.0

// scripts/check-style has to find each line that says so, and no other.
Item {
    id: root

    function bytes() {
        return copy.processedBytes
    }

    function directory() {
        return copy.procesingDirectory // misspelt
    }

    function start() {
        copy.copyDirektory("a", "b") // misspelt
    }

    CFileCopyController {
        id: copy

        onStateChanged: console.log(copy.states) // misspelt
    }

    CFileDeleteController {
        id: deletion
    }

    CopyResult {
        id: result

        controller: copy
    }

    DirectorySize {
        id: size

        path: "/data"
    }

    ExportModel {
        id: exporting
    }

    Text {
        text: copy.procesedBytes + " of " + copy.totalBytes // misspelt
        visible: copy.state === CFileCopyController.StateCopyng // misspelt
    }

    Text {
        text: result.hole ? "whole" : result.path // misspelt
        visible: result.whole && deletion.stat === CFileDeleteController.StateIdle // misspelt
    }

    Text {
        text: Formats.current.lengths(1) // misspelt
        visible: Formats.currents !== null // misspelt
    }

    Text {
        text: Formats.current.bytes(size.byts) // misspelt
        visible: size.ready
    }

    Text {
        text: exporting.sauce // misspelt
        visible: ProjectTypeGlobal.is3D // misspelt
    }

    Component.onCompleted: exporting.stat() // misspelt
}
