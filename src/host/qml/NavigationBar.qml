// SPDX-License-Identifier: Apache-2.0
// Title of the screen on top, and the way back.
import QtQuick
import Zorel.Views

Rectangle {
    id: bar

    required property Host host
    required property Theme theme
    property PageHandle page: null
    property bool root: true

    height: 52
    color: theme.bar

    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 1
        color: bar.theme.line
    }
    Item {
        id: back
        visible: !bar.root
        width: visible ? Math.min(backRow.implicitWidth + 24, bar.width * 0.4) : 0
        height: parent.height
        activeFocusOnTab: true
        clip: true
        Accessible.role: Accessible.Button
        Accessible.name: backText.text
        Accessible.onPressAction: bar.host.back()
        Keys.onReturnPressed: bar.host.back()
        Keys.onSpacePressed: bar.host.back()
        Row {
            id: backRow
            anchors.verticalCenter: parent.verticalCenter
            x: 8
            spacing: 2
            opacity: backTap.pressed ? 0.4 : 1
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: "\u2039"
                color: bar.theme.accent
                font.pixelSize: 30
            }
            Text {
                id: backText
                anchors.verticalCenter: parent.verticalCenter
                text: bar.page && bar.page.backTitle !== "" ? bar.page.backTitle : bar.host.backWord
                textFormat: Text.PlainText
                color: bar.theme.accent
                font.pixelSize: bar.theme.textSize
            }
        }
        Rectangle {
            anchors { fill: parent; margins: 6 }
            visible: back.activeFocus && bar.host.keyboardUsed
            color: "transparent"
            border { color: bar.theme.accent; width: 2 }
            radius: 6
        }
        TapHandler {
            id: backTap
            onTapped: bar.host.back()
        }
    }
    Text {
        anchors { verticalCenter: parent.verticalCenter; horizontalCenter: parent.horizontalCenter }
        width: Math.min(implicitWidth, bar.width - 2 * Math.max(back.width, 24))
        text: bar.page ? bar.page.title : ""
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: bar.theme.text
        font { pixelSize: 17; weight: Font.DemiBold }
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}
