// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import OvoSharedBase 1.0
import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../look"

// Records with the simulated crawler, and shows what a clip information file holds.
Page {
    id: page

    readonly property bool isRecording: recording.state !== Recording.Idle

    function readTrace() {
        trace.read(Paths.local(traceFile.text.trim()))
    }

    title: qsTr("Recording")

    Recording {
        id: recording

        onFinished: {
            traceFile.text = infoPath
            if (problem === "") {
                page.readTrace()
            }
        }
    }
    ClipTrace { id: trace }

    Card {
        GridLayout {
            width: parent.width
            columns: page.wide ? 2 : 1
            columnSpacing: 2 * Look.gap
            rowSpacing: 1.5 * Look.gap

            Field {
                objectName: "clip"
                Layout.preferredWidth: 2
                caption: qsTr("Video, beside which the file is written")
                text: recording.clip
                readOnly: page.isRecording
                inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
                onEdited: recording.clip = Paths.local(text)
                onAccepted: recording.start()
            }
            Choice {
                objectName: "speed"
                Layout.preferredWidth: 1
                caption: qsTr("Time passes")
                textRole: "text"
                enabled: !page.isRecording
                model: [
                    { text: qsTr("in real time"), value: 1 },
                    { text: qsTr("10 times faster"), value: 10 },
                    { text: qsTr("50 times faster"), value: 50 }
                ]
                currentIndex: model.findIndex(each => each.value === recording.speed)
                onActivated: recording.speed = model[index].value
            }
        }
        Flow {
            width: parent.width
            spacing: Look.gap

            ActionButton {
                objectName: "start"
                visible: !page.isRecording
                kind: "primary"
                icon.name: "fiber_manual_record"
                text: qsTr("Record")
                onClicked: recording.start()
            }
            ActionButton {
                objectName: "pause"
                visible: recording.state === Recording.Running
                icon.name: "pause"
                text: qsTr("Pause")
                onClicked: recording.pause()
            }
            ActionButton {
                objectName: "resume"
                visible: recording.state === Recording.Paused
                kind: "primary"
                icon.name: "play_arrow"
                text: qsTr("Resume")
                onClicked: recording.resume()
            }
            ActionButton {
                objectName: "observe"
                visible: page.isRecording
                icon.name: "flag"
                text: qsTr("Enter an observation")
                onClicked: recording.observe()
            }
            ActionButton {
                objectName: "stop"
                visible: page.isRecording
                icon.name: "stop"
                text: qsTr("Stop")
                onClicked: recording.stop()
            }
        }
        Label {
            visible: page.isRecording
            muted: true
            font.pointSize: Look.small
            text: qsTr("Stop writes the file. After a long recording the window waits for it.")
        }
        Notice {
            objectName: "problem"
            kind: "bad"
            text: recording.problem
        }
        Notice {
            objectName: "continued"
            text: page.isRecording ? recording.continued : ""
        }
        Notice {
            objectName: "summary"
            kind: "good"
            text: recording.summary
        }
    }
    Card {
        visible: page.isRecording

        RowLayout {
            width: parent.width
            spacing: 2 * Look.gap

            Label {
                objectName: "clock"
                text: recording.clock
                font.pointSize: Look.display
            }
            Label {
                objectName: "state"
                Layout.fillWidth: false
                text: recording.state === Recording.Paused ? qsTr("Paused") : qsTr("Recording")
                color: recording.state === Recording.Paused ? Look.warning : Look.bad
                font.weight: Font.DemiBold
            }
        }
        Fact {
            objectName: "observations"
            caption: qsTr("Observations")
            value: recording.observations
        }
        Plots {
            objectName: "live"
            source: recording
            distanceValue: Formats.current.length(recording.distanceInMeters)
            panValue: Formats.current.number(recording.panAngle, 1) + "°"
            tiltValue: Formats.current.number(recording.tiltAngle, 1) + "°"
        }
    }
    Card {
        Heading { text: qsTr("Recorded trace") }
        GridLayout {
            width: parent.width
            columns: page.wide ? 2 : 1
            columnSpacing: 2 * Look.gap
            rowSpacing: 1.5 * Look.gap

            Field {
                id: traceFile

                objectName: "traceFile"
                caption: qsTr("Video, or its clip information file")
                inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
                onAccepted: page.readTrace()
            }
            ActionButton {
                objectName: "readTrace"
                Layout.alignment: Qt.AlignBottom
                icon.name: "show_chart"
                text: qsTr("Show")
                enabled: traceFile.text.trim() !== "" && !trace.reading
                onClicked: page.readTrace()
            }
        }
        Notice {
            objectName: "reading"
            text: trace.reading ? qsTr("The file is being read.") : ""
        }
        Notice {
            objectName: "traceProblem"
            kind: "bad"
            text: trace.problem
        }
        Label {
            objectName: "headline"
            visible: text !== ""
            text: trace.headline
        }
        Repeater {
            model: trace.doubts

            Notice {
                kind: "warning"
                text: modelData
            }
        }
        Plots {
            objectName: "trace"
            visible: trace.headline !== "" && trace.problem === ""
            source: trace
        }
    }
}
