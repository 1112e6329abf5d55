// SPDX-License-Identifier: Apache-2.0
// One of the six times: passed, now, next or later; a tap asks why.
import QtQuick

Press {
    id: cell

    required property var entry
    readonly property bool next: entry.state === "next"
    readonly property bool running: entry.state === "now"
    readonly property bool faded: entry.state === "passed" || entry.state === "none"
    name: [entry.name, entry.time, entry.day, host.words[entry.state] || ""].filter(part => part !== "").join(", ")
    implicitHeight: Math.max(theme.target, column.implicitHeight + 16)

    Rectangle {
        anchors.fill: parent
        radius: cell.theme.corner
        color: cell.next ? cell.theme.accentGround : cell.pressed ? cell.theme.pressed : "transparent"
        border { width: cell.next ? cell.theme.cardEdge * 2 : 0; color: cell.theme.accent }
    }
    Rectangle {
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 1 }
        visible: cell.running
        width: 22
        height: 3
        radius: 1.5
        color: cell.theme.accent
    }
    Column {
        id: column
        anchors { verticalCenter: parent.verticalCenter; left: parent.left; right: parent.right }
        spacing: 2
        Text {
            width: parent.width
            text: cell.entry.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
            color: cell.next ? cell.theme.accent : cell.theme.quiet
            font.pixelSize: cell.theme.smallSize
            Accessible.ignored: true
        }
        ClockText {
            anchors.horizontalCenter: parent.horizontalCenter
            time: cell.entry.time
            color: cell.next ? cell.theme.accent : cell.faded ? cell.theme.quiet : cell.theme.text
            size: cell.theme.noteSize
            weight: cell.faded ? Font.Normal : Font.DemiBold
        }
    }
}
