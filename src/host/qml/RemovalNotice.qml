// SPDX-License-Identifier: Apache-2.0
// Stands in place of a row that is about to be deleted, with the way back.
import QtQuick
import Zorel.Views

Item {
    id: notice

    required property Host host
    required property Theme theme
    required property Item entry
    required property string text
    signal restored()

    Component.onCompleted: host.announce(text)
    RowGround {
        anchors.fill: parent
        theme: notice.theme
        grouped: true
        first: !!notice.entry.firstInSection
        last: !!notice.entry.lastInSection
    }
    Text {
        anchors { left: parent.left; leftMargin: notice.theme.margin; right: restore.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
        text: notice.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: notice.theme.quiet
        font.pixelSize: notice.theme.textSize
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
    TextButton {
        id: restore
        anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
        host: notice.host
        theme: notice.theme
        text: notice.host.words.undo
        onActivated: notice.restored()
    }
}
