// SPDX-License-Identifier: Apache-2.0
// A line at the top of the first page: what has to be known, and what can be done about it.
import QtQuick
import Zorel.Views

Rectangle {
    id: notice

    required property Host host
    required property Theme theme
    required property string text
    property string action
    property string other
    // Whether it asks something, and nothing is wrong.
    property bool question: false
    readonly property color ink: question ? theme.accent : theme.warn
    signal accepted()
    signal declined()

    implicitHeight: label.implicitHeight + (buttons.visible ? buttons.height : 8) + 16
    radius: theme.cardCorner
    color: question ? theme.accentGround : theme.warnGround
    border { width: theme.cardEdge; color: ink }

    Text {
        id: label
        anchors { top: parent.top; topMargin: 12; left: parent.left; right: parent.right; leftMargin: 14; rightMargin: 14 }
        text: notice.text.charAt(0).toLocaleUpperCase() + notice.text.substring(1)
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: notice.ink
        font.pixelSize: notice.theme.textSize
        onTextChanged: notice.host.announce(notice.text)
        Component.onCompleted: notice.host.announce(notice.text)
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
    Row {
        id: buttons
        anchors { right: parent.right; rightMargin: 8; top: label.bottom }
        visible: notice.action !== ""
        spacing: 8
        TextButton {
            visible: notice.other !== ""
            host: notice.host
            theme: notice.theme
            text: notice.other
            color: notice.ink
            onActivated: notice.declined()
        }
        TextButton {
            host: notice.host
            theme: notice.theme
            text: notice.action
            color: notice.ink
            onActivated: notice.accepted()
        }
    }
}
