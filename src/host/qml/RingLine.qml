// SPDX-License-Identifier: Apache-2.0
// What an alarm does, with a bell before it.
import QtQuick
import Zorel.Views

Item {
    id: line

    required property Theme theme
    required property string text
    required property bool rings
    required property bool bad
    readonly property color color: rings ? theme.accent : bad ? theme.warn : theme.quiet

    implicitHeight: Math.max(bell.height, label.implicitHeight)
    visible: text !== ""
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Bell {
        id: bell
        width: 22
        textureSize: line.theme.pixels(width, height)
        height: 22
        rings: line.rings
        color: line.color
    }
    Text {
        id: label
        anchors { left: bell.right; leftMargin: 8; right: parent.right }
        topPadding: 1
        text: line.text.charAt(0).toLocaleUpperCase() + line.text.substring(1)
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: line.color
        font { pixelSize: line.theme.textSize; weight: line.rings ? Font.DemiBold : Font.Normal }
        Accessible.ignored: true
    }
}
