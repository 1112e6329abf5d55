// SPDX-License-Identifier: Apache-2.0
// Why a time is what it is, at the foot of the window; a tap beside it closes it.
import QtQuick
import Zorel.Views

FocusScope {
    id: sheet

    required property Host host
    required property Theme theme
    readonly property var today: host.firstPage ? host.firstPage.today : null
    readonly property bool shown: today !== null && today.why !== ""
    property bool copied: false

    visible: shown
    enabled: shown
    focus: shown
    onShownChanged: if (shown) { copied = false; forceActiveFocus() }
    Keys.onEscapePressed: today.dismiss()
    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
    Accessible.role: Accessible.Dialog
    Accessible.name: title.text
    Accessible.description: today ? today.why : ""
    Accessible.ignored: !shown

    Rectangle {
        anchors.fill: parent
        color: "#000000"
        opacity: 0.45
        MouseArea {
            anchors.fill: parent
            onClicked: sheet.today.dismiss()
            onWheel: wheel => wheel.accepted = true
        }
    }
    Rectangle {
        anchors { bottom: parent.bottom; horizontalCenter: parent.horizontalCenter; bottomMargin: 12 }
        width: Math.min(parent.width - 24, 480)
        height: Math.min(parent.height - 24, inside.implicitHeight + 24)
        radius: sheet.theme.cardCorner
        color: sheet.theme.row
        border { width: sheet.theme.cardEdge; color: sheet.theme.line }
        MouseArea { anchors.fill: parent }
        Flickable {
            anchors { fill: parent; topMargin: 16; bottomMargin: 8; leftMargin: 18; rightMargin: 18 }
            contentHeight: inside.implicitHeight
            clip: true
            Column {
                id: inside
                width: parent.width
                spacing: 10
                Text {
                    id: title
                    width: parent.width
                    text: sheet.today ? sheet.host.words.why.arg(sheet.today.whyTitle) : ""
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: sheet.theme.text
                    font { pixelSize: 20; weight: Font.Bold }
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }
                Repeater {
                    model: sheet.shown ? sheet.today.why.split("\n") : []
                    delegate: Text {
                        required property string modelData
                        width: inside.width
                        text: modelData
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        lineHeight: 1.15
                        color: sheet.theme.text
                        font.pixelSize: sheet.theme.textSize
                        Accessible.role: Accessible.StaticText
                        Accessible.name: text
                    }
                }
                Row {
                    anchors.right: parent.right
                    spacing: 16
                    TextButton {
                        host: sheet.host
                        theme: sheet.theme
                        text: sheet.copied ? sheet.host.words.copied : sheet.host.words.copy
                        onActivated: { sheet.today.copy(); sheet.copied = true }
                    }
                    TextButton {
                        focus: true
                        host: sheet.host
                        theme: sheet.theme
                        text: sheet.host.words.close
                        onActivated: sheet.today.dismiss()
                    }
                }
            }
        }
    }
}
