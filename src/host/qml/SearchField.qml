// SPDX-License-Identifier: Apache-2.0
// A search field with a search key; the on-screen keyboard shows a search key too.
import QtQuick
import Zorel.Views

FocusScope {
    id: field

    required property ViewHandle handle
    required property Theme theme
    required property Host host

    Rectangle {
        anchors { fill: parent; leftMargin: field.theme.margin; rightMargin: field.theme.margin; topMargin: 10; bottomMargin: 10 }
        radius: field.theme.corner
        color: field.theme.row
        border { width: input.activeFocus ? 2 : 1; color: input.activeFocus ? field.theme.accent : field.theme.line }

        Item {
            id: glass
            anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
            width: 40
            Rectangle {
                x: 12; y: parent.height / 2 - 8
                width: 13; height: 13; radius: 6.5
                color: "transparent"
                border { width: 2; color: field.theme.quiet }
            }
            Rectangle {
                x: 22; y: parent.height / 2 + 3
                width: 7; height: 2
                rotation: 45
                transformOrigin: Item.Left
                color: field.theme.quiet
            }
            TapHandler { onTapped: input.accepted() }
        }
        TextInput {
            id: input
            anchors { left: glass.right; right: clear.left; verticalCenter: parent.verticalCenter }
            focus: true
            activeFocusOnTab: true
            clip: true
            color: field.theme.text
            selectionColor: field.theme.accent
            selectedTextColor: field.theme.overAccent
            selectByMouse: true
            font.pixelSize: field.theme.textSize
            inputMethodHints: Qt.ImhNoPredictiveText
            EnterKey.type: Qt.EnterKeySearch
            onTextEdited: field.handle.type(text)
            onAccepted: field.handle.search()
            Accessible.role: Accessible.EditableText
            Accessible.name: field.handle ? field.handle.placeholder : ""
            Accessible.searchEdit: true
            Text {
                anchors.fill: parent
                visible: input.text === "" && input.preeditText === ""
                text: field.handle ? field.handle.placeholder : ""
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: field.theme.quiet
                font: input.font
            }
        }
        Item {
            id: clear
            anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
            width: 36
            visible: input.text !== ""
            Accessible.role: Accessible.Button
            Accessible.name: field.host.words.clear
            Accessible.onPressAction: clear.wipe()
            function wipe() {
                input.clear()
                field.handle.type("")
                input.forceActiveFocus()
            }
            Text {
                anchors.centerIn: parent
                text: "\u00d7"
                color: field.theme.quiet
                font.pixelSize: 22
            }
            TapHandler { onTapped: clear.wipe() }
        }
    }
    Connections {
        target: field.handle
        function onChanged() {
            if (input.text !== field.handle.text)
                input.text = field.handle.text
        }
        function onFocusedChanged() {
            if (field.handle.focused)
                input.forceActiveFocus()
            else
                Qt.inputMethod.hide()
        }
    }
}
