// SPDX-License-Identifier: Apache-2.0
// What stands above the editor of an alarm: the prayer, its time, and what the alarm does.
import QtQuick
import Zorel.Views

Item {
    id: head

    required property Host host
    required property Theme theme
    required property var editor

    implicitHeight: inside.implicitHeight + 20

    Column {
        id: inside
        anchors { top: parent.top; topMargin: 4; left: parent.left; right: parent.right; leftMargin: head.theme.margin + 4; rightMargin: head.theme.margin + 4 }
        spacing: 4

        Text {
            width: parent.width
            visible: text !== ""
            text: [head.editor.name, head.editor.time].filter(part => part !== "").join("  ")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: head.theme.text
            font { pixelSize: 30; weight: Font.Bold }
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        RingLine {
            width: parent.width
            theme: head.theme
            text: head.editor.text
            rings: head.editor.rings
            bad: head.editor.bad
        }
    }
}
