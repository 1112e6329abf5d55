// SPDX-License-Identifier: Apache-2.0
// A button that is a text, plain or on a coloured ground.
import QtQuick

Press {
    id: button

    property string text
    property bool filled: false
    // A way to more that is not the main one.
    property bool light: false
    // Whether the text stands at the button's edge, in line with what is above it.
    property bool flush: false
    property color color: theme.accent
    readonly property real room: filled ? 40 : flush ? 0 : 16
    name: text
    implicitWidth: Math.max(theme.target, label.implicitWidth + room)
    implicitHeight: Math.max(theme.target, label.implicitHeight + 16)

    Rectangle {
        anchors { fill: parent; topMargin: 2; bottomMargin: 2 }
        visible: button.filled
        radius: button.corner
        color: button.color
        opacity: button.pressed ? 0.8 : 1
    }
    Text {
        id: label
        anchors.verticalCenter: parent.verticalCenter
        x: button.flush ? 0 : (parent.width - width) / 2
        width: Math.min(implicitWidth, parent.width - (button.filled ? 16 : 0))
        text: button.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        horizontalAlignment: button.flush ? Text.AlignLeft : Text.AlignHCenter
        color: button.filled ? button.theme.overAccent : button.color
        opacity: button.pressed && !button.filled ? 0.5 : 1
        font { pixelSize: button.light ? button.theme.noteSize : button.theme.textSize; weight: button.light ? Font.Normal : Font.DemiBold }
        Accessible.ignored: true
    }
}
