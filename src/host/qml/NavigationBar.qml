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
    // How far its ends stand within the window: above the columns of a wide one.
    property real inset: 0
    // The home city, which stands in place of the first page's title.
    readonly property string city: host.firstPage ? host.firstPage.today.city : ""

    height: 52
    color: theme.ground

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
                text: bar.page && bar.page.backTitle !== "" ? bar.page.backTitle : bar.host.words.back
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
    TextButton {
        id: edit
        anchors { right: parent.right; rightMargin: bar.inset + 8; verticalCenter: parent.verticalCenter }
        visible: bar.city !== "" || bar.host.editing
        enabled: visible && bar.root
        opacity: bar.root ? 1 : 0
        host: bar.host
        theme: bar.theme
        text: bar.host.editing ? bar.host.words.done : bar.host.words.edit
        onActivated: bar.host.editing = !bar.host.editing
    }
    Text {
        readonly property bool leading: bar.root && bar.city !== ""
        anchors.verticalCenter: parent.verticalCenter
        x: leading ? bar.inset + bar.theme.margin + 4 : Math.max(back.width, 24)
        width: (leading ? edit.x - 8 : bar.width - x) - x
        horizontalAlignment: leading ? Text.AlignLeft : Text.AlignHCenter
        text: leading ? bar.city : bar.page ? bar.page.title : ""
        visible: bar.root || bar.page !== null
        textFormat: Text.PlainText
        elide: Text.ElideRight
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 13
        color: bar.theme.text
        font { pixelSize: leading ? 20 : 17; weight: Font.DemiBold }
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}
