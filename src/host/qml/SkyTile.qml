// SPDX-License-Identifier: Apache-2.0
// A small drawing with two lines of text beside it.
import QtQuick
import Zorel.Views

Rectangle {
    id: tile

    required property Theme theme
    required property string title
    required property string detail
    default property alias drawing: place.data

    implicitHeight: Math.max(64, texts.implicitHeight + 20)
    radius: theme.cardCorner
    color: theme.row
    border { width: theme.cardEdge; color: theme.line }
    Accessible.role: Accessible.StaticText
    Accessible.name: [title, detail].filter(part => part !== "").join(", ")

    Item {
        id: place
        anchors { left: parent.left; leftMargin: 12; verticalCenter: parent.verticalCenter }
        width: 40
        height: 40
    }
    Column {
        id: texts
        anchors { left: place.right; leftMargin: 10; right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
        Text {
            width: parent.width
            text: tile.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: tile.theme.text
            font.pixelSize: tile.theme.noteSize
            Accessible.ignored: true
        }
        Text {
            width: parent.width
            text: tile.detail
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: tile.theme.quiet
            font.pixelSize: tile.theme.smallSize
            Accessible.ignored: true
        }
    }
}
