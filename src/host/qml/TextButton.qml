// SPDX-License-Identifier: Apache-2.0
// A button that is a text, plain or on a coloured ground.
import QtQuick

Press {
    id: button

    property string text
    property bool filled: false
    property color color: theme.accent
    name: text
    implicitWidth: label.implicitWidth + (filled ? 40 : 16)
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
        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width - (button.filled ? 16 : 0))
        text: button.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
        color: button.filled ? button.theme.overAccent : button.color
        opacity: button.pressed && !button.filled ? 0.5 : 1
        font { pixelSize: button.theme.textSize; weight: Font.DemiBold }
        Accessible.ignored: true
    }
}
