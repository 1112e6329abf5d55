// SPDX-License-Identifier: Apache-2.0
// The ground of a row: rounded where its section begins and ends, a line to the next row.
import QtQuick

Item {
    id: ground

    required property Theme theme
    property bool grouped: false
    property bool first: false
    property bool last: false
    property bool pressed: false
    readonly property color color: pressed ? theme.pressed : theme.row

    clip: grouped && first !== last
    Rectangle {
        // Round corners where the section does not go on: the others lie outside.
        readonly property real over: ground.grouped ? radius : 0
        x: 0
        y: ground.first ? 0 : -over
        width: parent.width
        height: parent.height + (ground.first ? 0 : over) + (ground.last ? 0 : over)
        radius: ground.grouped && (ground.first || ground.last) ? ground.theme.cardCorner : 0
        color: ground.color
        border { width: ground.grouped ? ground.theme.cardEdge : 0; color: ground.theme.line }
    }
    Rectangle {
        visible: !ground.last
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: ground.theme.margin }
        height: 1
        color: ground.theme.line
    }
}
