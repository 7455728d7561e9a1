// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0

Item {
    id: root

    width: 200
    height: 400

    Component {
        id: component

        QmlStringListModel {}
    }

    ListView {
        id: view

        // as large as the list says, but not larger than it is
        height: 20 * Math.min(count, model ? model.maxlinenumber : 0)
        width: 200
        cacheBuffer: 1000
        delegate: Text {
            height: 20
            text: display
        }
    }

    SignalSpy {
        id: lines

        target: view.model
        signalName: "maxLineNumberChanged"
    }

    SignalSpy {
        id: bound

        target: view.model
        signalName: "maxLineNumberAllFavoritesChanged"
    }

    SignalSpy {
        id: resets

        target: view.model
        signalName: "modelReset"
    }

    SignalSpy {
        id: insertions

        target: view.model
        signalName: "rowsInserted"
    }

    TestCase {
        name: "QmlStringListModel"
        when: windowShown

        function init() {
            view.model = createTemporaryObject(component, root)
            for (const spy of [lines, bound, resets, insertions]) {
                spy.clear()
            }
        }

        function cleanup() {
            view.model = null
        }

        function shown() {
            const texts = []
            view.forceLayout()
            for (let row = 0; row < view.count; ++row) {
                texts.push(view.itemAtIndex(row).text)
            }
            return texts.join(" ")
        }

        function test_limitsAtFirst() {
            compare(view.model.maxlinenumber, 3)
            compare(view.model.maxLineNumberAllFavorites, 14)
            compare(view.count, 0)
        }

        function test_rowsAreShownInOrder() {
            view.model.push_front("y")
            view.model.push_front("x")
            compare(shown(), "x y")
            view.model.push_back("z")
            compare(shown(), "x y z")
            compare(view.model.remove(1), true)
            compare(shown(), "x z")
            compare(view.model.remove(5), false)
            compare(view.model.remove(2147483647), false)
            compare(shown(), "x z")
        }

        function test_pushBackLeavesTheOtherRowsAlone() {
            view.model.push_back("x")
            view.forceLayout()
            const row = view.itemAtIndex(0)
            view.model.push_back("y")
            compare(shown(), "x y")
            verify(view.itemAtIndex(0) === row)
            compare(resets.count, 0)
            compare(insertions.count, 2)
        }

        function test_pushFrontResetsTheView() {
            view.model.push_back("y")
            compare(shown(), "y")
            insertions.clear()
            view.model.push_front("x")
            compare(resets.count, 1)
            compare(insertions.count, 1) // within the reset
            compare(shown(), "x y") // and the row is there once
            compare(view.count, 2)
        }

        function test_setDataResetsTheView() {
            view.model.push_back("x")
            view.model.push_back("y")
            compare(view.model.setData(view.model.index(1, 0), "z"), true)
            compare(resets.count, 1)
            compare(shown(), "x z")
            compare(view.model.setData(view.model.index(0, 0), "w", Qt.EditRole), true)
            compare(resets.count, 2)
            compare(shown(), "w z")
            compare(view.model.setData(view.model.index(9, 0), "v"), false)
            compare(resets.count, 3)
            compare(shown(), "w z")
        }

        function test_containsTakesTheCase() {
            view.model.push_back("a")
            compare(view.model.contains("A"), false)
            compare(view.model.contains("a"), true)
            compare(view.model.contains("A", Qt.CaseInsensitive), true)
            compare(view.model.contains("A", Qt.CaseSensitive), false)
        }

        function test_lineNumberSizesTheList() {
            for (let row = 0; row < 20; ++row) {
                view.model.push_back(row)
            }
            tryCompare(view, "height", 60)
            view.model.maxlinenumber = 5
            compare(lines.count, 1)
            tryCompare(view, "height", 100)
            view.model.maxlinenumber = 20
            compare(view.model.maxlinenumber, 14)
            compare(lines.count, 2)
            view.model.maxlinenumber = 20
            compare(lines.count, 3)
            tryCompare(view, "height", 280)
            view.model.maxlinenumber = 14
            compare(lines.count, 3)
            view.model.maxlinenumber = 0
            compare(view.model.maxlinenumber, 1)
            tryCompare(view, "height", 20)
            compare(view.count, 20)
        }

        function test_boundIsOnlyRaised() {
            view.model.maxLineNumberAllFavorites = 10
            compare(view.model.maxLineNumberAllFavorites, 14)
            compare(bound.count, 0)
            view.model.maxLineNumberAllFavorites = 20
            compare(view.model.maxLineNumberAllFavorites, 20)
            compare(bound.count, 1)
            compare(lines.count, 0)
        }
    }
}
