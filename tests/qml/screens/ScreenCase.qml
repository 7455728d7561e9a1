// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens/look"

// A test case for a screen. Its functions begin with the usual look; after each of them there is
// no message that must not be.
TestCase {
    id: screenCase

    // the item or the window that is tested, where it is not the one that the case lies in
    property var subject: screenCase

    // how long a busy machine may take, in ms
    readonly property int patience: 30000

    when: windowShown

    // the visible item of that name; fails where there is none in time
    function item(objectName) {
        let found = null
        tryVerify(function() {
            found = screenTest.find(subject.contentItem || subject, objectName)
            return found !== null
        }, patience, "there is no " + objectName)
        return found
    }

    // clicks at it, once it is in view
    function click(objectName) {
        const target = item(objectName)
        bringIntoView(target)
        mouseClick(target)
    }

    // taps it with a finger, once it is in view
    function tap(objectName) {
        const target = item(objectName)
        bringIntoView(target)
        touchEvent(target).press(0, target).commit()
        touchEvent(target).release(0, target).commit()
    }

    // layouts and positioners move what is in them before a frame, not when something changes
    function waitUntilPlaced(target) {
        tryVerify(function() {
            for (let ancestor = target; ancestor; ancestor = ancestor.parent) {
                if (isPolishScheduled(ancestor)) {
                    return false
                }
            }
            return true
        }, patience)
    }

    // scrolls the page that it is on, as a user would
    function bringIntoView(target) {
        waitUntilPlaced(target)
        for (let ancestor = target; ancestor; ancestor = ancestor.parent) {
            if (ancestor.reveal) {
                ancestor.reveal(target)
            }
        }
    }

    // opens the chooser of directories by that button
    function openChooser(button) {
        tap(button)
        tryVerify(() => item("chooserList").activeFocus, patience)
        grabImage(item("chooserList")) // draws a frame: positions are given before it
    }

    // taps a directory or file of the chooser
    function enter(name) {
        const before = item("chooserPath").text
        item("entry:" + name)
        // once more where the list was read again meanwhile, and the tap met nothing
        tryVerify(function() {
            if (screenTest.find(subject, "entry:" + name) !== null) {
                grabImage(item("chooserList"))
                tap("entry:" + name)
            }
            const path = screenTest.find(subject, "chooserPath")
            return path === null || path.text !== before
        }, patience)
    }

    // types a text, a key for each letter
    function type(text) {
        for (let i = 0; i < text.length; ++i) {
            keyClick(text[i])
        }
    }

    // chooses the entry of that text, by the keyboard
    function choose(objectName, text) {
        const choice = item(objectName)
        const box = choice.box
        bringIntoView(choice)
        box.forceActiveFocus(Qt.TabFocusReason)
        const index = box.find(text)
        verify(index >= 0, "no " + text)
        keyClick(Qt.Key_Return)
        tryVerify(() => box.popup.opened, patience)
        while (box.highlightedIndex !== index) {
            keyClick(box.highlightedIndex < index ? Qt.Key_Down : Qt.Key_Up)
        }
        keyClick(Qt.Key_Return)
        tryVerify(() => !box.popup.visible, patience)
    }

    // replaces what is in the field
    function fill(objectName, text) {
        click(objectName)
        const field = item(objectName)
        field.input.forceActiveFocus()
        field.input.selectAll()
        keyClick(Qt.Key_Delete)
        type(text)
    }

    // fails for what a user would object to in root, an item or a window, at the usual size of fonts
    // and at 1.5 times it
    function verifyLayout(root) {
        const item = root.contentItem || root
        for (const scale of [1, 1.5]) {
            Look.fontScale = scale
            // layouts settle when they are polished, before a frame, one after the other
            waitForRendering(item, 200)
            for (let i = 0; i < 20 && screenTest.layoutFaults(item).length > 0; ++i) {
                wait(20)
            }
            compare(screenTest.layoutFaults(item), [],
                    "fonts " + scale + " times, " + root.width + " x " + root.height)
        }
        Look.fontScale = 1
    }

    // the same in windows of the tablet and of the smallest size
    function verifyLayoutInAllSizes(root) {
        const width = root.width
        const height = root.height
        for (const size of [[1280, 800], [800, 480], [width, height]]) {
            root.width = size[0]
            root.height = size[1]
            verifyLayout(root)
        }
    }

    // the same with the longer texts of German
    function verifyLayoutInGerman(root) {
        ProjectLocale.country = "D"
        ProjectLocale.language = "DEU"
        verifyLayoutInAllSizes(root)
        ProjectLocale.close()
    }

    function initTestCase() {
        screenTest.watchMessages()
        if (subject.requestActivate) {
            subject.requestActivate()
            tryVerify(() => subject.active, patience)
        }
    }

    function cleanup() {
        Look.fontScale = 1
        Look.dark = false
        Look.mirrored = false
        compare(screenTest.takeWarnings(), [])
    }
}
