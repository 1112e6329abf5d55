// SPDX-License-Identifier: Apache-2.0
// A word on what has just been done, at the foot of the window for some seconds, with a way back if there is one.
import QtQuick
import Zorel.Views

Rectangle {
    id: bar

    required property Host host
    required property Theme theme
    readonly property var page: host.firstPage

    visible: page !== null && page.message !== ""
    width: Math.min(parent.width - 24, 480)
    height: Math.max(52, label.implicitHeight + 24)
    radius: theme.corner
    color: theme.messageGround

    Text {
        id: label
        anchors { left: parent.left; leftMargin: 16; right: undo.visible ? undo.left : parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        text: bar.page ? bar.page.message : ""
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: bar.theme.messageText
        font.pixelSize: bar.theme.textSize
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
        Accessible.ignored: text === ""
        onTextChanged: bar.host.announce(label.text)
    }
    TextButton {
        id: undo
        anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
        visible: bar.page !== null && bar.page.undoable
        host: bar.host
        theme: bar.theme
        color: bar.theme.messageAccent
        text: bar.host.words.undo
        onActivated: bar.page.undo()
    }
}
