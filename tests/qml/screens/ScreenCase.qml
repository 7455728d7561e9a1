import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens/look"

// A test case for a screen. Its functions begin with the usual look; after each of them there is
// no message that must not be.
TestCase {
    id: screenCase

    when: windowShown

    // the visible item of that name; fails where there is none in time
    function item(objectName) {
        let found = null
        tryVerify(function() {
            found = screenTest.find(screenCase, objectName)
            return found !== null
        }, 5000, "there is no " + objectName)
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

    // scrolls the page that it is on, as a user would
    function bringIntoView(target) {
        for (let ancestor = target; ancestor; ancestor = ancestor.parent) {
            if (ancestor.reveal) {
                ancestor.reveal(target)
            }
        }
    }

    // types a text, a key for each letter
    function type(text) {
        for (let i = 0; i < text.length; ++i) {
            keyClick(text[i])
        }
    }

    // fails for what a user would object to in root, at the usual size of fonts and at 1.5 times it
    function verifyLayout(root) {
        for (const scale of [1, 1.5]) {
            Look.fontScale = scale
            // layouts settle when they are polished, before a frame, one after the other
            waitForRendering(root, 200)
            for (let i = 0; i < 20 && screenTest.layoutFaults(root).length > 0; ++i) {
                wait(20)
            }
            compare(screenTest.layoutFaults(root), [],
                    "fonts " + scale + " times, " + root.width + " x " + root.height)
        }
        Look.fontScale = 1
    }

    // the same in windows of the tablet and of the smallest size
    function verifyLayoutInAllSizes(root) {
        const size = Qt.size(root.width, root.height)
        for (const each of [Qt.size(1280, 800), Qt.size(800, 480), size]) {
            root.width = each.width
            root.height = each.height
            verifyLayout(root)
        }
    }

    function initTestCase() {
        screenTest.watchMessages()
    }

    function cleanup() {
        Look.fontScale = 1
        Look.dark = false
        Look.mirrored = false
        compare(screenTest.takeWarnings(), [])
    }
}
