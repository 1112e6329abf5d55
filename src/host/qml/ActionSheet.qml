// SPDX-License-Identifier: Apache-2.0
// A sheet of choices at the foot of the window; a tap beside it cancels.
import QtQuick
import Zorel.Views

FocusScope {
    id: sheet

    required property Host host
    required property Theme theme
    readonly property bool shown: host.sheetVisible

    visible: opacity > 0
    opacity: shown ? 1 : 0
    enabled: shown
    focus: shown
    Behavior on opacity { NumberAnimation { duration: sheet.theme.duration(140) } }
    onShownChanged: if (shown) { forceActiveFocus(); buttons.currentIndex = 0 }
    Accessible.role: Accessible.Dialog
    Accessible.name: host.sheetTitle
    Accessible.ignored: !shown

    Rectangle {
        anchors.fill: parent
        color: "#000000"
        opacity: 0.45
        MouseArea {
            anchors.fill: parent
            onClicked: sheet.host.cancelSheet()
            onWheel: wheel => wheel.accepted = true
        }
    }
    ListView {
        id: buttons
        anchors { bottom: parent.bottom; horizontalCenter: parent.horizontalCenter; bottomMargin: 12 }
        width: Math.min(parent.width - 24, 480)
        height: contentHeight
        interactive: false
        focus: true
        spacing: 8
        // What the sheet is about.
        header: Item {
            width: ListView.view.width
            height: sheet.host.sheetTitle === "" ? 0 : about.implicitHeight + 36
            visible: height > 0
            Rectangle {
                anchors { fill: parent; bottomMargin: 8 }
                radius: sheet.theme.cardCorner
                color: sheet.theme.row
                border { width: sheet.theme.cardEdge; color: sheet.theme.line }
                Column {
                    id: about
                    // A city is named "Name / Region / Country".
                    readonly property var parts: sheet.host.sheetTitle.split(" / ")
                    anchors { verticalCenter: parent.verticalCenter; left: parent.left; right: parent.right; margins: 12 }
                    spacing: 2
                    Text {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        wrapMode: Text.Wrap
                        text: about.parts[0]
                        textFormat: Text.PlainText
                        color: sheet.theme.text
                        font { pixelSize: 18; weight: Font.DemiBold }
                    }
                    Text {
                        width: parent.width
                        visible: text !== ""
                        horizontalAlignment: Text.AlignHCenter
                        wrapMode: Text.Wrap
                        text: about.parts.slice(1).join(", ")
                        textFormat: Text.PlainText
                        color: sheet.theme.quiet
                        font.pixelSize: sheet.theme.noteSize
                    }
                }
            }
        }
        model: sheet.host.sheetButtons
        Keys.onReturnPressed: sheet.host.tapSheet(currentIndex)
        Keys.onEnterPressed: sheet.host.tapSheet(currentIndex)
        Keys.onSpacePressed: sheet.host.tapSheet(currentIndex)
        delegate: Rectangle {
            required property string modelData
            required property int index
            width: ListView.view.width
            height: 54
            radius: sheet.theme.cardCorner
            color: press.pressed ? sheet.theme.pressed : sheet.theme.row
            border { width: ListView.isCurrentItem && sheet.host.keyboardUsed ? 2 : sheet.theme.cardEdge; color: sheet.theme.accent }
            Text {
                anchors.centerIn: parent
                width: Math.min(implicitWidth, parent.width - 24)
                elide: Text.ElideRight
                text: parent.modelData
                textFormat: Text.PlainText
                color: sheet.theme.accent
                font { pixelSize: 18; weight: parent.index + 1 === buttons.count ? Font.DemiBold : Font.Normal }
            }
            TapHandler {
                id: press
                onTapped: sheet.host.tapSheet(parent.index)
            }
            Accessible.role: Accessible.Button
            Accessible.name: modelData
            Accessible.onPressAction: sheet.host.tapSheet(index)
        }
    }
}
